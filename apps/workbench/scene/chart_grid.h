#pragma once

#include <string>
#include <vector>

#include "scene/chart_view.h"

namespace quillon {

/// One line of the grid.
struct ChartGridLine {
    double value = 0.0;  ///< easting or northing, metres
    double pixel = 0.0;  ///< x of an easting, y of a northing
    std::string label;   ///< "512 000 E"
};

struct ChartGrid {
    double step = 0.0;
    std::vector<ChartGridLine> eastings;   ///< from left to right
    std::vector<ChartGridLine> northings;  ///< from bottom to top
};

struct ChartScaleBar {
    double metres = 0.0;
    double pixels = 0.0;
    std::string label;  ///< "250 m", "2 km"
};

/// A round value beside the column of a legend.
struct ChartLegendMark {
    double part = 0.0;  ///< of the column, 0 at its top
    std::string label;
};

/// The smallest of 1, 2, 5 times a power of ten that is at least `least`; `least` is above 0.
double RoundStep(double least);

/// Whole metres with their digits in groups of three, and as many decimals as the step needs: "5 912 000", "-12.5".
std::string GroupedDigits(double value, double step);

/// Lines far enough apart for their labels to stand beside one another.
ChartGrid GridOf(const ChartView& view);

/// The round values of a legend from `least` at its top to `greatest`, at most so many.
std::vector<ChartLegendMark> LegendMarks(double least, double greatest, double most);

/// The longest round distance of at most so many pixels.
ChartScaleBar ScaleBarOf(const ChartView& view, double mostPixels = 180.0);

}  // namespace quillon
