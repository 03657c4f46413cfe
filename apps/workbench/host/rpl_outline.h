#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "features/rpl_curves.h"

namespace quillon {

/// A line of points, and of each the record that it belongs to.
struct RplLine {
    std::vector<tagXY> points;
    std::vector<std::uint32_t> recordOf;
};

/// How far the chords of a route position list may lie off its arcs, metres: a third of a pixel at the finest scale of
/// the chart, and more only where a list has so many curves that this would take millions of chords.
double RplChordTolerance(std::span<const RPLDef> records);

/// The route along legs and arcs, each arc cut into equal chords. The tangent points are among the points.
RplLine RplRouteLine(std::span<const RPLDef> records, double tolerance);

/// The start, the tangent points, the plain corners and the end, in their order.
RplLine RplMarks(std::span<const RPLDef> records);
/// The KPs at these points, kilometres.
std::vector<double> RplMarkKps(std::span<const RPLDef> records);

/// The outline of the corridor: along port and back along starboard, by arcs with the centres of the route's own. On
/// the inside of a curve that is tighter than the corridor is wide the two legs' sides meet in a corner.
std::vector<tagXY> RplCorridorOutline(std::span<const RPLDef> records, double tolerance);

}  // namespace quillon
