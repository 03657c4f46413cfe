#pragma once

#include <string_view>

namespace quillon {

/// Reads an angle as an operator types it, in decimal degrees. Any of the notations is taken, whichever is shown: whole
/// degrees, minutes and seconds set apart by blanks, marks or colons ("52 07 24.4N", "52°07'24\".4N"), degrees and
/// decimal minutes, decimal degrees, grads with a "g". South and west go by letter or by sign, before or behind. A lone
/// number is grads where `format` is the notation in grads, else degrees.
///
/// False, and `degrees` is left alone, for any other text ("52,5" is not 52), for 60 minutes or seconds, a letter that
/// the type hasn't, and an angle beyond the range of the type (ANGLE_TYPE).
bool ReadAngle(std::string_view text, int type, int format, double& degrees);

}  // namespace quillon
