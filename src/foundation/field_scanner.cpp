#include "foundation/field_scanner.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>

#include "foundation/number_scan.h"
#include "platform/text.h"

namespace quillon {
namespace {

enum CHAR_KIND : std::uint8_t { OTHER = 0, SPACE = 1, NUMBER = 2 };

constexpr std::array<std::uint8_t, 256> kKinds = [] {
    std::array<std::uint8_t, 256> kinds{};
    for (const char c : {' ', '\t', '\n', '\v', '\f', '\r'}) kinds[static_cast<unsigned char>(c)] = SPACE;
    for (const char c : std::string_view("+-0123456789.e?")) kinds[static_cast<unsigned char>(c)] = NUMBER;
    return kinds;
}();

CHAR_KIND KindOf(char c) {
    return static_cast<CHAR_KIND>(kKinds[static_cast<unsigned char>(c)]);
}

const char* SkipSpaces(const char* p, const char* end) {
    while (p != end && KindOf(*p) == SPACE) ++p;
    return p;
}

/// Null if the number isn't plain, or is but the head of a longer run of number characters.
const char* PlainNumber(const char* p, const char* end, double& value) {
    const char* const behind = TakePlainNumber(p, end, value);
    return behind && (behind == end || KindOf(*behind) != NUMBER) ? behind : nullptr;
}

}  // namespace

/// Passes over white space; false, with the end noted, if nothing follows it.
bool FieldScanner::SkipToField() {
    first = SkipSpaces(first, last);
    if (first == last) endReached = true;
    return first != last;
}

double FieldScanner::NextNumber() {
    if (!SkipToField()) return MISSING_VALUE;
    double value = MISSING_VALUE;
    if (*first != separator) {
        while (first != last && KindOf(*first) != NUMBER) ++first;
        if (first == last) return MISSING_VALUE;
        if (const char* const behind = PlainNumber(first, last, value)) {
            first = behind;
        } else {
            value = AnyNumber();
        }
        first = SkipSpaces(first, last);
    }
    if (first != last && *first == separator) ++first;
    return value;
}

/// Takes the run of number characters at the front, whatever they make. A number beyond a double is no value: an
/// infinity would go on through every figure that is worked out from it.
double FieldScanner::AnyNumber() {
    const char* const start = first;
    bool unknown = false;
    for (; first != last && KindOf(*first) == NUMBER; ++first) unknown |= *first == '?';
    if (unknown) return MISSING_VALUE;
    const double value = Atof({start, static_cast<std::size_t>(first - start)});
    return std::isfinite(value) ? value : MISSING_VALUE;
}

std::string_view FieldScanner::TakeUpTo(char stop) {
    const char* const start = first;
    first = std::find(first, last, stop);
    return {start, static_cast<std::size_t>(first - start)};
}

/// What stands between the quote at the front and the next, or the end; what follows up to the separator is dropped.
std::string_view FieldScanner::TakeQuoted() {
    ++first;
    const std::string_view field = TakeUpTo('"');
    if (first != last) ++first;
    TakeUpTo(separator);
    return field;
}

std::string_view FieldScanner::NextField() {
    if (!SkipToField()) return {};
    const std::string_view field = *first == '"' ? TakeQuoted() : TakeUpTo(separator);
    first = SkipSpaces(first, last);
    if (first != last && *first == separator) ++first;
    while (first != last && KindOf(last[-1]) == SPACE) --last;
    return field;
}

int FieldScanner::FieldCount() const {
    return IsEmpty() ? 0 : 1 + static_cast<int>(std::count(first, last, separator));
}

std::string FieldScanner::Escape(std::string_view text, char separator) {
    std::string escaped;
    for (const char c : text) {
        if (c == '\r') {
            escaped += kCarriageReturnToken;
        } else if (c == '\n') {
            escaped += kLineFeedToken;
        } else if (c == separator) {
            escaped += kSeparatorToken;
        } else {
            escaped += c;
        }
    }
    return escaped;
}

std::string FieldScanner::Unescape(std::string_view field, char separator) {
    // Hardly a field holds one.
    if (field.find(kSeparatorToken.front()) == std::string_view::npos) return std::string(field);
    std::string text = Replace(field, kCarriageReturnToken, "\r");
    text = Replace(text, kLineFeedToken, "\n");
    return Replace(text, kSeparatorToken, {&separator, 1});
}

}  // namespace quillon
