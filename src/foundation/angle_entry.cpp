#include "foundation/angle_entry.h"

#include <array>
#include <cmath>
#include <string>

#include "foundation/angle_text.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kUnits = "\xB0'\"g";
constexpr double kDegreesPerGrad = 0.9;

/// The range of a type in degrees; from above to below for one that there isn't.
struct RangeDef {
    double lowest;
    double highest;
    std::string_view letters;  ///< positive, negative
};

constexpr std::array<RangeDef, 10> kRanges = {{
    {1, 0, ""},
    {-180, 180, ""},
    {0, 360, ""},
    {-90, 90, ""},
    {0, 180, ""},
    {-90, 90, "NS"},
    {-180, 180, "EW"},
    {0, 360, ""},
    {-90, 90, ""},
    {-180, 180, ""},
}};

const RangeDef& RangeOf(int type) {
    const bool known = type >= ANGLE_SIGNED_180 && type <= ANGLE_SIGNED_180_SHORT;
    return kRanges[known ? static_cast<std::size_t>(type) : 0];
}

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

/// Undoes the form of all angle text here: the mark that stands ahead of the point goes behind the decimals.
std::string UnitBehindDecimals(std::string_view shown) {
    std::string text(shown);
    const std::size_t point = text.find('.');
    if (point == std::string::npos || point == 0 || kUnits.find(text[point - 1]) == std::string_view::npos) return text;
    std::size_t end = point + 1;
    while (end < text.size() && IsDigit(text[end])) ++end;
    text.insert(end, 1, text[point - 1]);
    text.erase(point - 1, 1);
    return text;
}

/// Takes the letter or the sign off the text. 1 or -1; 0 for a letter that the type hasn't, or both.
int TakeSign(std::string_view& text, const RangeDef& range) {
    const bool behind = !text.empty() && HemisphereLetter(text.back()) != 0;
    const bool before = !text.empty() && HemisphereLetter(text.front()) != 0;
    if (!behind && !before) {
        if (!text.starts_with('-') && !text.starts_with('+')) return 1;
        const int sign = text.front() == '-' ? -1 : 1;
        text.remove_prefix(1);
        return sign;
    }
    const std::size_t side = range.letters.find(HemisphereLetter(behind ? text.back() : text.front()));
    if (side == std::string_view::npos || (behind && before)) return 0;
    behind ? text.remove_suffix(1) : text.remove_prefix(1);
    text = Trim(text);
    return side == 0 ? 1 : -1;
}

/// One of degrees, minutes and seconds.
struct Field {
    double number = 0;
    bool whole = true;
    char unit = 0;
};

bool TakeField(std::string_view& text, Field& field) {
    std::size_t end = 0, points = 0;
    while (end < text.size() && (IsDigit(text[end]) || text[end] == '.')) points += text[end++] == '.';
    if (end == points || points > 1) return false;
    field.number = Atof(text.substr(0, end));
    field.whole = points == 0;
    text = TrimLeft(text.substr(end));
    const bool marked = !text.empty() && (kUnits.find(text.front()) != std::string_view::npos || text.front() == ':');
    field.unit = marked ? text.front() : '\0';
    if (marked) text = TrimLeft(text.substr(1));
    return true;
}

/// A mark stands behind its own field, a colon behind any but the last.
bool FitsPlace(const Field& field, std::size_t place, bool last) {
    if (place > 0 && !(field.number < 60)) return false;
    if (!last && !field.whole) return false;
    if (field.unit == ':') return !last;
    return field.unit == 0 || field.unit == kUnits[place] || (field.unit == 'g' && place == 0 && last);
}

bool ReadFields(std::string_view text, int format, double& degrees) {
    std::array<Field, 3> fields;
    std::size_t count = 0;
    while (!text.empty()) {
        if (count == fields.size() || !TakeField(text, fields[count++])) return false;
    }
    if (count == 0) return false;
    double value = 0, size = 1;
    for (std::size_t place = 0; place < count; ++place, size *= 60) {
        if (!FitsPlace(fields[place], place, place + 1 == count)) return false;
        value += fields[place].number / size;
    }
    const bool grads = fields[0].unit == 'g' || (format == ANGLE_GRADS && count == 1 && fields[0].unit == 0);
    degrees = grads ? value * kDegreesPerGrad : value;
    return true;
}

}  // namespace

bool ReadAngle(std::string_view text, int type, int format, double& degrees) {
    const RangeDef& range = RangeOf(type);
    const std::string plain = UnitBehindDecimals(Trim(text));
    std::string_view rest = plain;
    const int sign = TakeSign(rest, range);
    double value = 0;
    if (sign == 0 || !ReadFields(TrimLeft(rest), format, value)) return false;
    value = value == 0 ? 0 : sign * value;
    if (!(value >= range.lowest && value <= range.highest)) return false;
    degrees = value;
    return true;
}

}  // namespace quillon
