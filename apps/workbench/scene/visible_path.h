#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "scene/chart_view.h"
#include "scene/path_lod.h"

namespace quillon {

// What of a path is to be drawn in a view, in pixels, at the cost of what can be seen.

/// How true and how much.
struct DrawingLimits {
    /// How far what is drawn may lie from the path.
    double tolerancePixels = 0.4;
    /// More vertices than this are drawn only in part: of each stretch its ends and its outermost points, which looks
    /// like the whole where so many lines lie over one another.
    std::size_t mostVertices = 16000;
    /// The same for the length of all that is drawn, in pixels: lines that cross the whole view cost more than their
    /// number tells, and cover it long before.
    double mostPixels = 1e6;
    /// Pixels round the view that are drawn too.
    double margin = 16.0;
};

/// Lines that each run through some points.
struct PixelLines {
    struct Run {
        std::size_t first = 0;  ///< place of its first point
        double distance = 0.0;  ///< pixels along its part to where it begins, for dashes that keep their places
    };
    std::vector<PixelPoint> points;
    std::vector<Run> runs;

    std::size_t EndOf(std::size_t run) const { return run + 1 < runs.size() ? runs[run + 1].first : points.size(); }
    void Clear() {
        points.clear();
        runs.clear();
    }
};

/// The line of a path, cut to the view.
void VisibleLine(const PathLod& path, const ChartView& view, const DrawingLimits& limits, PixelLines& lines);

/// Some points joined to lines, cut to a box.
void ClipLine(std::span<const PixelPoint> points, const ChartBox& box, PixelLines& lines);

/// The corners of each part as an area, cut to the view; one run a part.
void VisibleArea(const PathLod& path, const ChartView& view, const DrawingLimits& limits, PixelLines& areas);

struct PixelMark {
    PixelPoint at;
    std::uint32_t point = 0;
};

/// The points of a path in view, but at most one in a cell of so many pixels. The cells are fixed to the grid, so that
/// panning doesn't change the choice.
void VisibleMarks(const PathLod& path, const ChartView& view, double cellPixels, std::vector<PixelMark>& marks);

struct PixelLeg {
    PixelPoint from, to;  ///< of the part in view
    std::uint32_t point = 0;
};

/// The legs of which at least so many pixels are in view.
void VisibleLegs(const PathLod& path, const ChartView& view, double leastPixels, std::vector<PixelLeg>& legs);

}  // namespace quillon
