#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "foundation/values.h"

namespace quillon {

/// Takes the fields of one line of a text data file from its front. It looks at bytes that it doesn't own, copies
/// nothing and allocates nothing (but for the text that NextString returns).
///
///     FieldScanner fields(line);
///     const double easting = fields.NextNumber();
///     const double northing = fields.NextNumber();
///     if (IsMissing(easting) || IsMissing(northing)) ...
///
/// Data files of the field are loose about form: "123.4, 567.8", "123.4 567.8" and "E 123.4 N 567.8" all give the same
/// two numbers. No text is an error.
class FieldScanner {
public:
    explicit FieldScanner(std::string_view line = {}, char fieldSeparator = ',')
        : first(line.data()), last(line.data() + line.size()), separator(fieldSeparator) {}

    /// The next number, read as atof does under every locale. MISSING_VALUE for an empty field, a field with a "?" (the
    /// files' way of saying that no value is known), a number too large for a double, and behind the end.
    ///
    /// Whatever stands ahead of the number's first character is passed over, separators too, unless the field is empty.
    /// A number is a run of "+-0123456789.e?".
    double NextNumber();

    /// The next text, up to the separator or between double quotes, with its escapes turned back. Empty behind the end.
    std::string NextString() { return Unescape(NextField(), separator); }

    /// The same as it stands in the line.
    std::string_view NextField();

    /// 0 for an empty text, else one more than it has separators.
    int FieldCount() const;

    /// True once a field was asked for behind the end.
    bool IsEndReached() const { return endReached; }

    /// What hasn't been taken yet.
    std::string_view Rest() const { return {first, static_cast<std::size_t>(last - first)}; }
    bool IsEmpty() const { return first == last; }

    // The tokens that stand in a text field for what would break the line. Settings files have others.
    static constexpr std::string_view kCarriageReturnToken =
        "\xAB"
        "CR>\xBB";
    static constexpr std::string_view kLineFeedToken =
        "\xAB"
        "LF>\xBB";
    static constexpr std::string_view kSeparatorToken =
        "\xAB"
        "COMMA>\xBB";

    static std::string Escape(std::string_view text, char separator);
    static std::string Unescape(std::string_view field, char separator);

private:
    bool SkipToField();
    double AnyNumber();
    std::string_view TakeUpTo(char stop);
    std::string_view TakeQuoted();

    const char* first;
    const char* last;
    char separator;
    bool endReached = false;
};

}  // namespace quillon
