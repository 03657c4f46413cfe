#include <algorithm>
#include <cmath>
#include <cstddef>
#include <ostream>

#include "foundation/angle_units.h"
#include "platform/text.h"
#include "printable.h"
#include "sheet.h"

namespace quillon {
namespace {

constexpr std::size_t kBlock = std::size_t{1} << 16;
constexpr std::size_t kLabelWidth = 26;
constexpr std::size_t kCellWidth = 14;
constexpr std::size_t kCountWidth = 8;
constexpr int kDegreeDecimals = 4;

/// "symbol_size" as a reader wants it: "Symbol size". KPs and the ends of a line keep their capitals.
std::string Label(std::string_view key) {
    std::string label;
    while (!key.empty()) {
        const std::size_t end = std::min(key.find('_'), key.size());
        const std::string_view word = key.substr(0, end);
        if (!label.empty()) label += ' ';
        const bool capitals = word == "kp" || word == "sol" || word == "eol";
        label += word == "kps" ? "KPs" : capitals ? ToUpper(word) : std::string(word);
        key.remove_prefix(std::min(end + 1, key.size()));
    }
    if (!label.empty()) label.front() = ToUpper(label.front());
    return label;
}

/// Whether a key is that of a KP. Pipelines have their KPs in kilometres and routes in metres, so the label says which.
bool NamesKp(std::string_view key) {
    return key == "kp" || key.ends_with("_kp") || key == "kp_interval";
}

void AppendNumber(std::string& text, double value, int decimals) {
    if (!std::isfinite(value) || IsMissing(value)) {
        text += '-';
        return;
    }
    const std::size_t start = text.size();
    AppendFixed(text, value, decimals);
    // What rounds to nothing has no sign.
    if (text[start] == '-' && text.find_first_not_of("-0.", start) == std::string::npos) text.erase(start, 1);
}

/// Fields as "Label   value", a line each; tables with a heading and a row a line, numbers flush right.
class TextSheet : public Sheet {
public:
    explicit TextSheet(std::ostream& stream) : out(stream) {}

    using Sheet::Choice;
    void Text(std::string_view key, std::string_view value) override {
        cell = Printable(value);
        if (inRow) {
            PutTextCell(key);
        } else {
            PutField(key);
        }
    }
    void Int(std::string_view key, long long value) override {
        cell = Format("%lld", value);
        Put(key);
    }
    void Bool(std::string_view key, bool value) override {
        cell = value ? "yes" : "no";
        Put(key);
    }
    void Real(std::string_view key, double value, int decimals, std::string_view unit) override {
        cell.clear();
        AppendNumber(cell, value, decimals);
        keyUnit = NamesKp(key) ? unit : std::string_view();
        Put(key);
        keyUnit = {};
    }
    void Angle(std::string_view key, double radians) override {
        Real(key, IsMissing(radians) ? radians : radians * kDegreesPerRadian, kDegreeDecimals, "rad");
    }
    void Pair(std::string_view key, tagXY position) override {
        subKey = key;
        subKey += "_E";
        Metres(subKey, position.x);
        subKey.back() = 'N';
        Metres(subKey, position.y);
    }
    void Reals(std::string_view key, std::span<const double> values, int decimals, std::string_view) override {
        cell.clear();
        for (const double value : values) {
            if (!cell.empty()) cell += ", ";
            AppendNumber(cell, value, decimals);
        }
        Put(key);
    }
    void Texts(std::string_view key, std::span<const std::string> values) override {
        cell.clear();
        for (const std::string& value : values) {
            if (!cell.empty()) cell += ", ";
            cell += Printable(value);
        }
        Put(key);
    }
    void Choice(std::string_view key, long long value, std::string_view name) override {
        cell = Format("%lld", value);
        if (!name.empty()) cell.append("  ").append(name);
        Put(key);
    }
    /// Red, green, blue.
    void Colour(std::string_view key, COLORREF colour) override {
        cell = Format("%u, %u, %u", colour & 0xFFU, colour >> 8 & 0xFFU, colour >> 16 & 0xFFU);
        Put(key);
    }

    bool IsNested() const override { return false; }
    void BeginGroup(std::string_view key) override { group = std::string(key) + "_"; }
    void EndGroup() override { group.clear(); }

    void BeginTable(std::string_view key, std::ptrdiff_t rows) override {
        block += '\n';
        Int(key, rows);
        count = 0;
    }
    void BeginRow() override {
        inRow = true;
        row.clear();
        ++count;
        if (count == 1) heading.assign(kCountWidth, ' ');
        cell = Format("%td", count);
        AppendRight(row, cell, kCountWidth);
    }
    void EndRow() override {
        inRow = false;
        if (count == 1) block.append(heading).append("\n");
        block.append(row).append("\n");
        if (block.size() >= kBlock) PutOut();
    }
    void ListRow(std::span<const double> values, int decimals) override {
        ++count;
        AppendRight(block, Format("%td", count), kCountWidth);
        for (const double value : values) {
            cell.clear();
            AppendNumber(cell, value, decimals);
            AppendRight(block, cell, kCellWidth);
        }
        block += '\n';
        if (block.size() >= kBlock) PutOut();
    }
    void EndTable() override {}
    void Finish() override { PutOut(); }

private:
    static void AppendRight(std::string& line, std::string_view text, std::size_t width) {
        line.append(width > text.size() ? width - text.size() : 1, ' ');
        line += text;
    }

    void Put(std::string_view key) {
        if (inRow) {
            PutNumberCell(key);
        } else {
            PutField(key);
        }
    }
    std::string LabelWithUnit(std::string_view key) const {
        std::string label = Label(key);
        if (!keyUnit.empty()) label.append(" (").append(keyUnit).append(")");
        return label;
    }
    void PutField(std::string_view key) {
        std::string label = LabelWithUnit(group + std::string(key));
        label.resize(std::max(kLabelWidth, label.size() + 1), ' ');
        block.append(label).append(cell).append("\n");
    }
    /// As wide as the widest of what a column usually holds and its heading.
    void PutNumberCell(std::string_view key) {
        const std::size_t width = std::max(kCellWidth, key.size() + 2);
        if (count == 1) AppendRight(heading, LabelWithUnit(key), width);
        AppendRight(row, cell, width);
    }
    void PutTextCell(std::string_view key) {
        if (count == 1) heading.append("  ").append(Label(key));
        row.append("  ").append(cell);
    }
    void PutOut() {
        out << block;
        block.clear();
    }

    std::ostream& out;
    std::string block;
    std::string group;
    std::string heading;
    std::string row;
    std::string cell;
    std::string subKey;
    std::string_view keyUnit;  ///< of the number that is being put, where its label says it
    std::ptrdiff_t count = 0;
    bool inRow = false;
};

}  // namespace

std::unique_ptr<Sheet> MakeTextSheet(std::ostream& out) {
    return std::make_unique<TextSheet>(out);
}

}  // namespace quillon
