#pragma once

#include <vector>

#include "scene/chart_geometry.h"

namespace quillon {

/// Cuts a segment down to what lies in a box; false if nothing does. `fromPart` and `toPart` are where the piece lies
/// on the segment, 0 to 1.
bool ClipSegment(const ChartBox& box, PixelPoint& from, PixelPoint& to, double* fromPart, double* toPart);

/// Cuts an area, given by its corners, down to a box. Corners outside move onto its border, so an area that the border
/// cuts in two stays one, joined along the border; how often a place inside is gone round doesn't change.
void ClipArea(const ChartBox& box, std::vector<PixelPoint>& corners);

}  // namespace quillon
