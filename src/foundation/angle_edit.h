#pragma once

#include <cstddef>
#include <string>

#include "foundation/edit_text.h"

namespace quillon {

/// The typing rules of an edit field that holds one angle. Digits are overtyped in place, marks and blanks are stepped
/// over, and nothing above the largest value of the type can be typed; reaching it exactly (the 6 of "36" in a bearing)
/// zeroes what stands behind.
///
///     CAngleTyping typing(ANGLE_LATITUDE, ANGLE_DEGREES_MINUTES);
///     tagEditText edit{FormatAngle(latitude, ANGLE_LATITUDE, ANGLE_DEGREES_MINUTES)};
///     edit.SelectAll();
///     for (char key : {'5', '2', '3', '0', 's'}) typing.Type(edit, key);  // "52° 30'.0000000S"
///
/// The text keeps the decimals it comes with. A text that is no angle of this type and format is taken for nothing, and
/// typing begins with a zero. It holds no text itself and asks nothing of its surroundings: clipboard keys are the
/// control's own affair. Turn ANGLE_BY_SETTINGS into a notation before; with a type or format that there isn't, no key
/// does anything.
class CAngleTyping {
public:
    CAngleTyping(int angleType, int angleFormat) : type(angleType), format(angleFormat) {}

    /// Types one character into `edit`; false if the key was ignored and `edit` stays as it was.
    bool Type(tagEditText& edit, char key) const;

private:
    int type;
    int format;
};

}  // namespace quillon
