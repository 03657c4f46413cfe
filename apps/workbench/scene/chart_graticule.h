#pragma once

#include <string>
#include <vector>

#include "scene/chart_geometry.h"

namespace quillon {

/// One meridian or parallel on the chart.
struct ChartGraticuleLine {
    bool isMeridian = false;
    std::string label;                     ///< "3°15'E", UTF-8
    std::vector<std::vector<tagXY>> runs;  ///< on the grid, broken where the line leaves it
};

/// Lines of latitude and longitude over a part of the grid.
struct ChartGraticule {
    std::vector<ChartGraticuleLine> lines;
};

}  // namespace quillon
