#pragma once

#include <string>
#include <string_view>

#include "foundation/edit_text.h"

namespace quillon {

/// The form of a number in an edit field.
struct tagNumberStyle {
    int maxLength = 12;  ///< characters
    int decimals = 3;
    int intDigits = 8;         ///< whole digits that may be typed
    bool forceSign = false;    ///< always with a sign
    bool allowSign = true;     ///< a sign may be typed
    bool fixedFormat = false;  ///< the text keeps its full width with zeros, and digits are overtyped in place
    friend bool operator==(const tagNumberStyle&, const tagNumberStyle&) = default;
};

// The typing rules of numbers, on the number's text alone: no unit behind it, no blanks. A number typed by them always
// fits its width: with a sign, in a field with room for 8 whole digits, 7 can be typed.

/// What an emptied field reads: zeros over its whole width in fixed format, else "0", with "+" ahead when forced.
std::string ZeroNumberText(const tagNumberStyle& style);

/// Types one character, in place of the selection if there is one; false if the key was ignored and `edit` stays as it
/// was. Clipboard keys are not for here.
bool TypeIntoNumber(tagEditText& edit, char key, const tagNumberStyle& style);

/// Takes the selection out: zeros take its place in fixed format; in free format the rest closes up, gets a "0" if it
/// begins with the point, and loses digits beyond the whole ones allowed if the point is gone.
void RemoveFromNumber(tagEditText& edit, const tagNumberStyle& style);

/// Puts `pasted` over the text from the selection on (fixed format), or in place of the selection (free format, and
/// where everything is selected). The outcome is raw, to be read as a number and formatted again.
std::string PasteIntoNumber(const tagEditText& edit, std::string_view pasted, const tagNumberStyle& style);

}  // namespace quillon
