#pragma once

#include "platform/dc.h"
#include "scene/visible_path.h"

namespace quillon {

/// Cuts lines into the dashes of a pen style (PS_DASH to PS_DASHDOTDOT) of a width in pixels. Dashes begin with the
/// part that a line belongs to, so they keep their places when the chart is panned.
void CutIntoDashes(const PixelLines& lines, int style, double width, PixelLines& dashes);

}  // namespace quillon
