#include <algorithm>
#include <cstddef>
#include <deque>
#include <ostream>
#include <utility>
#include <vector>

#include "json_text.h"
#include "sheet.h"

namespace quillon {
namespace {

/// Characters gathered before they go out.
constexpr std::size_t kBlock = std::size_t{1} << 16;

/// Fields go to the object that is open: the file's, or that of the innermost group or row.
class JsonSheet : public Sheet {
public:
    explicit JsonSheet(std::ostream& stream) : out(stream), levels(1) {}

    using Sheet::Choice;
    void Text(std::string_view key, std::string_view value) override { Open().Text(key, value); }
    void Int(std::string_view key, long long value) override { Open().Int(key, value); }
    void Bool(std::string_view key, bool value) override { Open().Bool(key, value); }
    void Real(std::string_view key, double value, int, std::string_view unit) override {
        NoteUnit(key, unit);
        Open().Real(key, value);
    }
    void Angle(std::string_view key, double radians) override { Real(key, radians, 0, "rad"); }
    void Pair(std::string_view key, tagXY position) override {
        NoteUnit(key, "m");
        Open().Pair(key, position);
    }
    void Reals(std::string_view key, std::span<const double> values, int, std::string_view unit) override {
        NoteUnit(key, unit);
        Open().Reals(key, values);
    }
    void Texts(std::string_view key, std::span<const std::string> values) override { Open().Texts(key, values); }
    void Choice(std::string_view key, long long value, std::string_view) override { Open().Int(key, value); }
    void Colour(std::string_view key, COLORREF colour) override { Open().Int(key, colour); }

    bool IsNested() const override { return true; }
    void BeginGroup(std::string_view key) override {
        Push();
        levels[depth].key = key;
    }
    void EndGroup() override {
        const Level& group = levels[depth--];
        Open().Object(group.key, group.object);
    }

    void BeginTable(std::string_view key, std::ptrdiff_t) override { Open().BeginRecords(key); }
    void BeginRow() override { Push(); }
    void EndRow() override {
        const Level& row = levels[depth--];
        Open().AddRecord(row.object);
        PutOutBlock();
    }
    void ListRow(std::span<const double> values, int) override {
        Open().AddList(values);
        PutOutBlock();
    }
    void EndTable() override { Open().EndRecords(); }

    void Finish() override {
        BeginGroup("units");
        for (const auto& [key, unit] : units) Text(key, unit);
        EndGroup();
        PutOut();
        out << Open().End() << '\n';
    }

private:
    struct Level {
        std::string key;  ///< of a group
        JsonObject object;
    };

    JsonObject& Open() { return levels[depth].object; }
    void Push() {
        if (++depth == levels.size()) levels.emplace_back();
        Open().Clear();
    }
    void PutOutBlock() {
        if (depth == 0 && Open().Pending() >= kBlock) PutOut();
    }

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
        Open().TakeTo(block);
        out << block;
    }

    std::ostream& out;
    std::deque<Level> levels;  ///< a reference into it holds while it grows
    std::size_t depth = 0;
    std::string block;
    std::vector<std::pair<std::string, std::string_view>> units;
    std::size_t nextUnit = 0;  ///< where the next key is looked for first
};

}  // namespace

std::unique_ptr<Sheet> MakeJsonSheet(std::ostream& out) {
    return std::make_unique<JsonSheet>(out);
}

}  // namespace quillon
