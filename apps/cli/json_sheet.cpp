#include <algorithm>
#include <cstddef>
#include <ostream>
#include <utility>
#include <vector>

#include "json_text.h"
#include "sheet.h"

namespace quillon {
namespace {

/// Characters gathered before they go out.
constexpr std::size_t kBlock = std::size_t{1} << 16;

class JsonSheet : public Sheet {
public:
    explicit JsonSheet(std::ostream& stream) : out(stream) {}

    using Sheet::Choice;
    void Text(std::string_view key, std::string_view value) override { target->Text(key, value); }
    void Int(std::string_view key, long long value) override { target->Int(key, value); }
    void Bool(std::string_view key, bool value) override { target->Bool(key, value); }
    void Real(std::string_view key, double value, int, std::string_view unit) override {
        NoteUnit(key, unit);
        target->Real(key, value);
    }
    void Angle(std::string_view key, double radians) override { Real(key, radians, 0, "rad"); }
    void Pair(std::string_view key, tagXY position) override {
        NoteUnit(key, "m");
        target->Pair(key, position);
    }
    void Reals(std::string_view key, std::span<const double> values, int) override { target->Reals(key, values); }
    void Texts(std::string_view key, std::span<const std::string> values) override { target->Texts(key, values); }
    void Choice(std::string_view key, long long value, std::string_view) override { target->Int(key, value); }
    void Colour(std::string_view key, COLORREF colour) override { target->Int(key, colour); }

    void BeginGroup(std::string_view key) override {
        groupKey = key;
        group.Clear();
        open = target = &group;
    }
    void EndGroup() override {
        open = target = &head;
        head.Object(groupKey, group);
    }

    void BeginTable(std::string_view key, std::ptrdiff_t) override { open->BeginRecords(key); }
    void BeginRow() override {
        row.Clear();
        target = &row;
    }
    void EndRow() override {
        open->AddRecord(row);
        target = open;
        if (head.Pending() >= kBlock) PutOut();
    }
    void EndTable() override { open->EndRecords(); }

    void Finish() override {
        group.Clear();
        for (const auto& [key, unit] : units) group.Text(key, unit);
        head.Object("units", group);
        PutOut();
        out << head.End() << '\n';
    }

private:
    /// Every row of a table has the units of the first, in the same order.
    void NoteUnit(std::string_view key, std::string_view unit) {
        if (unit.empty()) return;
        if (nextUnit < units.size() && units[nextUnit].first == key) {
            ++nextUnit;
            return;
        }
        const auto known =
            std::find_if(units.begin(), units.end(), [&](const auto& noted) { return noted.first == key; });
        if (known == units.end()) {
            units.emplace_back(key, unit);
            nextUnit = units.size();
        } else {
            nextUnit = static_cast<std::size_t>(known - units.begin()) + 1;
        }
    }
    void PutOut() {
        block.clear();
        head.TakeTo(block);
        out << block;
    }

    std::ostream& out;
    JsonObject head;
    JsonObject group;
    JsonObject row;
    JsonObject* open = &head;    ///< head or group: what a table goes into
    JsonObject* target = &head;  ///< what a field goes into
    std::string groupKey;
    std::string block;
    std::vector<std::pair<std::string, std::string_view>> units;
    std::size_t nextUnit = 0;  ///< where the next key is looked for first
};

}  // namespace

std::unique_ptr<Sheet> MakeJsonSheet(std::ostream& out) {
    return std::make_unique<JsonSheet>(out);
}

}  // namespace quillon
