#include "panes/row_values.h"

#include <unordered_set>

#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kNone = "n/a";

}  // namespace

void ColourRow(const CMFCPropertyGridCtrl& list, UINT id, COLORREF colour) {
    if (auto* const picker = dynamic_cast<CPickerProperty*>(list.FindItemByData(id))) picker->SetColour(colour);
}

CMFCPropertyGridProperty& AddChoice(CMFCPropertyGridProperty& group, std::string_view name,
                                    std::span<const std::string_view> texts, std::string_view chosen,
                                    std::string_view description, UINT id) {
    auto& row = group.Add<CMFCPropertyGridProperty>(name, std::string(chosen), description, id);
    for (const std::string_view text : texts) row.AddOption(text);
    row.AllowEdit(false);
    return row;
}

void AddColour(CMFCPropertyGridProperty& group, std::string_view name, COLORREF colour, std::string_view description,
               UINT id) {
    group.Add<CMFCPropertyGridPrimaryColourProperty>(name, colour, kPaletteCount, description, id);
}

Choices DistinctChoices(std::vector<std::string> texts, int chosen) {
    std::unordered_set<std::string> taken;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        if (texts[i].empty()) texts[i] = kNone;
        while (!taken.insert(texts[i]).second) texts[i] += Format(" (%zu)", i + 1);
    }
    return {.texts = std::move(texts), .chosen = chosen};
}

std::string ChosenText(const Choices& choices) {
    if (choices.shown) return *choices.shown;
    const bool there = choices.chosen >= 0 && choices.chosen < static_cast<int>(choices.texts.size());
    return there ? choices.texts[static_cast<std::size_t>(choices.chosen)] : std::string(kNone);
}

void SetChoices(CMFCPropertyGridProperty& row, const Choices& choices) {
    row.RemoveAllOptions();
    for (const std::string& text : choices.texts) row.AddOption(text);
    row.SetValue(ChosenText(choices));
}

int ChosenOption(const CMFCPropertyGridProperty& row) {
    const std::string& chosen = row.Get<std::string>();
    for (int i = 0; i < row.GetOptionCount(); ++i) {
        if (row.GetOption(i) == chosen) return i;
    }
    return -1;
}

}  // namespace quillon
