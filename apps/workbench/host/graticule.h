#pragma once

#include "geodesy/job_geodesy.h"
#include "scene/chart_graticule.h"

namespace quillon {

/// The round meridians and parallels in a part of the grid, far enough apart for their labels. Empty without a grid,
/// and where nothing of the part lies inside it. Takes about a millisecond.
ChartGraticule GraticuleOf(const CJobGeodesy& geodesy, const ChartBox& box, double metresPerPixel);

/// The smallest round step, in seconds of arc, of at least so many: parts of a minute and of a degree, then degrees.
int RoundArcSeconds(double least);

/// "52°30'N", with minutes and seconds as far as the step needs them; `positive` and `negative` are the letters.
std::string ArcLabel(long long seconds, int step, char positive, char negative);

}  // namespace quillon
