#include "platform/property_grid.h"

#include <algorithm>
#include <typeinfo>

#include <charconv>

#include "platform/errors.h"
#include "platform/text.h"

namespace quillon {

CMFCPropertyGridProperty::CMFCPropertyGridProperty(std::string_view name) : rowName(name), group(true) {}

CMFCPropertyGridProperty::CMFCPropertyGridProperty(std::string_view name, RowValue value, std::string_view description,
                                                   UINT id)
    : rowName(name), rowValue(std::move(value)), original(rowValue), rowDescription(description), rowId(id) {}

CMFCPropertyGridProperty::~CMFCPropertyGridProperty() = default;

ROW_KIND CMFCPropertyGridProperty::GetKind() const {
    if (!options.empty()) return ROW_KIND::OPTIONS;
    if (std::holds_alternative<bool>(rowValue)) return ROW_KIND::CHECK;
    if (std::holds_alternative<std::int32_t>(rowValue)) return ROW_KIND::INTEGER;
    return std::holds_alternative<std::string>(rowValue) ? ROW_KIND::TEXT : ROW_KIND::HEADING;
}

void CMFCPropertyGridProperty::SetValue(RowValue newValue) {
    if (newValue.index() != rowValue.index()) throw InvalidArgument("property row of another type");
    rowValue = std::move(newValue);
    Redraw();
}

std::string CMFCPropertyGridProperty::FormatProperty() const {
    if (const bool* checked = std::get_if<bool>(&rowValue)) return *checked ? "True" : "False";
    if (const auto* number = std::get_if<std::int32_t>(&rowValue)) return Format("%d", *number);
    const auto* text = std::get_if<std::string>(&rowValue);
    return text ? *text : std::string();
}

std::vector<RowChoice> CMFCPropertyGridProperty::GetChoices() const {
    std::vector<RowChoice> choices;
    for (const std::string& option : options) choices.push_back({option, option});
    if (choices.empty() && std::holds_alternative<bool>(rowValue)) choices = {{true, "True"}, {false, "False"}};
    return choices;
}

bool CMFCPropertyGridProperty::Parse(std::string_view text, RowValue& parsed) const {
    if (std::holds_alternative<std::string>(rowValue)) {
        parsed = std::string(text);
        return true;
    }
    if (!std::holds_alternative<std::int32_t>(rowValue)) return false;
    text = Trim(text);
    if (text.starts_with('+') && !text.starts_with("+-")) text.remove_prefix(1);
    std::int32_t number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    if (read.ec != std::errc{} || read.ptr != text.data() + text.size()) return false;
    parsed = number;
    return true;
}

bool CMFCPropertyGridProperty::Accept(const RowValue& candidate) const {
    if (candidate.index() != rowValue.index() || group) return false;
    const auto* number = std::get_if<std::int32_t>(&candidate);
    if (number && spin) return *number >= spinMinimum && *number <= spinMaximum;
    const auto* text = std::get_if<std::string>(&candidate);
    if (!text || typing) return true;
    for (const std::string& option : options) {
        if (option == *text) return true;
    }
    return false;
}

std::string CMFCPropertyGridProperty::WhyRefused(std::string_view) const {
    if (!GetChoices().empty()) return "Choose one of the values offered.";
    if (spin) return Format("Type a whole number from %d to %d.", spinMinimum, spinMaximum);
    return std::holds_alternative<std::int32_t>(rowValue) ? "Type a whole number." : "This value can't be kept.";
}

void CMFCPropertyGridProperty::OnEdited(RowValue value) {
    SetValue(std::move(value));
}

bool CMFCPropertyGridProperty::IsLike(const CMFCPropertyGridProperty& other) const {
    return typeid(*this) == typeid(other) && rowId == other.rowId && rowName == other.rowName &&
           options == other.options && rowValue.index() == other.rowValue.index() &&
           std::equal(subItems.begin(), subItems.end(), other.subItems.begin(), other.subItems.end(),
                      [](const auto& a, const auto& b) { return a->IsLike(*b); });
}

void CMFCPropertyGridProperty::Follow(const CMFCPropertyGridProperty& fresh) {
    if (rowValue != fresh.rowValue) SetValue(fresh.rowValue);
    Show(fresh.shown);
    for (std::size_t i = 0; i < subItems.size(); ++i) subItems[i]->Follow(*fresh.subItems[i]);
}

void CMFCPropertyGridProperty::AddOption(std::string_view option) {
    options.emplace_back(option);
}

void CMFCPropertyGridProperty::RemoveAllOptions() {
    options.clear();
    Redraw();
}

const std::string& CMFCPropertyGridProperty::GetOption(int index) const {
    if (index < 0 || index >= GetOptionCount()) throw InvalidArgument("option index out of range");
    return options[static_cast<std::size_t>(index)];
}

void CMFCPropertyGridProperty::Enable(bool enable) {
    enabled = enable;
    Redraw();
}

void CMFCPropertyGridProperty::SetLock(bool lock) {
    locked = lock;
    Redraw();
}

void CMFCPropertyGridProperty::Show(bool show) {
    if (shown == show) return;
    shown = show;
    if (owner) owner->Tell(CONTROL_CHANGE::CONTENT);
}

void CMFCPropertyGridProperty::EnableSpinControl(bool enable, int minimum, int maximum) {
    spin = enable;
    spinMinimum = minimum;
    spinMaximum = maximum;
}

CMFCPropertyGridProperty& CMFCPropertyGridProperty::AddSubItem(std::unique_ptr<CMFCPropertyGridProperty> row) {
    row->SetOwner(owner);
    subItems.push_back(std::move(row));
    if (owner) owner->Tell(CONTROL_CHANGE::CONTENT);
    return *subItems.back();
}

CMFCPropertyGridProperty& CMFCPropertyGridProperty::GetSubItem(int index) const {
    if (index < 0 || index >= GetSubItemsCount()) throw InvalidArgument("property row out of range");
    return *subItems[static_cast<std::size_t>(index)];
}

void CMFCPropertyGridProperty::Redraw() {
    if (owner) owner->Tell(CONTROL_CHANGE::VALUE);
}

void CMFCPropertyGridProperty::Refuse(std::string reason) {
    if (owner) owner->Refuse(*this, std::move(reason));
}

void CMFCPropertyGridProperty::SetOwner(CMFCPropertyGridCtrl* list) {
    owner = list;
    for (const auto& row : subItems) row->SetOwner(list);
}

// ---- The list ----

CMFCPropertyGridCtrl::CMFCPropertyGridCtrl(CWnd& listOwner, UINT listId) : CControl(listOwner, listId) {}
CMFCPropertyGridCtrl::~CMFCPropertyGridCtrl() = default;

void CMFCPropertyGridCtrl::RemoveAll() {
    selected = nullptr;
    refusal.clear();
    rows.clear();
    Tell(CONTROL_CHANGE::CONTENT);
}

CMFCPropertyGridProperty& CMFCPropertyGridCtrl::AddProperty(std::unique_ptr<CMFCPropertyGridProperty> row) {
    row->SetOwner(this);
    rows.push_back(std::move(row));
    Tell(CONTROL_CHANGE::CONTENT);
    return *rows.back();
}

void CMFCPropertyGridCtrl::Tell(CONTROL_CHANGE change) {
    if (!quiet) Changed(change);
}

void CMFCPropertyGridCtrl::Renew(const std::function<void()>& build) {
    auto before = std::exchange(rows, {});
    CMFCPropertyGridProperty* const selectedBefore = std::exchange(selected, nullptr);
    quiet = true;
    build();
    quiet = false;
    const bool same = std::equal(before.begin(), before.end(), rows.begin(), rows.end(),
                                 [](const auto& a, const auto& b) { return a->IsLike(*b); });
    if (!same) return Tell(CONTROL_CHANGE::CONTENT);
    rows.swap(before);
    selected = selectedBefore;
    for (std::size_t i = 0; i < rows.size(); ++i) rows[i]->Follow(*before[i]);
}

CMFCPropertyGridProperty& CMFCPropertyGridCtrl::AddGroup(std::string_view name) {
    return AddProperty(std::make_unique<CMFCPropertyGridProperty>(name));
}

CMFCPropertyGridProperty& CMFCPropertyGridCtrl::GetProperty(int index) const {
    if (index < 0 || index >= GetPropertyCount()) throw InvalidArgument("property row out of range");
    return *rows[static_cast<std::size_t>(index)];
}

namespace {

CMFCPropertyGridProperty* FindBelow(CMFCPropertyGridProperty& row, UINT id) {
    if (row.GetData() == id) return &row;
    for (int i = 0; i < row.GetSubItemsCount(); ++i) {
        if (CMFCPropertyGridProperty* found = FindBelow(row.GetSubItem(i), id)) return found;
    }
    return nullptr;
}

}  // namespace

CMFCPropertyGridProperty* CMFCPropertyGridCtrl::FindItemByData(UINT data) const {
    if (data == 0) return nullptr;
    for (const auto& row : rows) {
        if (CMFCPropertyGridProperty* found = FindBelow(*row, data)) return found;
    }
    return nullptr;
}

void CMFCPropertyGridCtrl::EnableHeaderCtrl(bool enable, std::string_view left, std::string_view right) {
    header = enable;
    headerLeft = left;
    headerRight = right;
    Tell(CONTROL_CHANGE::CONTENT);
}

void CMFCPropertyGridCtrl::SetVSDotNetLook(bool set) {
    dotNetLook = set;
    Tell(CONTROL_CHANGE::COLOURS);
}

void CMFCPropertyGridCtrl::EnableDescriptionArea(bool enable) {
    descriptionArea = enable;
    Tell(CONTROL_CHANGE::CONTENT);
}

void CMFCPropertyGridCtrl::MarkModifiedProperties(bool mark) {
    markModified = mark;
    Tell(CONTROL_CHANGE::VALUE);
}

void CMFCPropertyGridCtrl::SetGroupNameFullWidth(bool set) {
    groupNameFullWidth = set;
    Tell(CONTROL_CHANGE::CONTENT);
}

void CMFCPropertyGridCtrl::SetCustomColors(const PropertyColours& newColours) {
    colours = newColours;
    Tell(CONTROL_CHANGE::COLOURS);
}

void CMFCPropertyGridCtrl::SetCurSel(CMFCPropertyGridProperty* row) {
    if (row != selected) refusal.clear();
    selected = row;
    Tell(CONTROL_CHANGE::SELECTION);
}

RowDescription CMFCPropertyGridCtrl::GetDescription() const {
    if (!selected) return {};
    if (!refusal.empty()) return {selected->GetName(), refusal, true};
    return {selected->GetName(), selected->GetDescription()};
}

void CMFCPropertyGridCtrl::Refuse(CMFCPropertyGridProperty& row, std::string reason) {
    selected = &row;
    refusal = std::move(reason);
    Tell(CONTROL_CHANGE::SELECTION);
}

void CMFCPropertyGridCtrl::ClearRefusal() {
    if (refusal.empty()) return;
    refusal.clear();
    Tell(CONTROL_CHANGE::SELECTION);
}

}  // namespace quillon
