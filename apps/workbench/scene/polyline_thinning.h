#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "scene/chart_points.h"

namespace quillon {

/// Thins a line: appends to `kept` those of `vertices` (indexes into `points`) that are needed for every point left out
/// to lie within `tolerance` of the segment that stands for it. The first and the last are always kept. Runs once along
/// the line, keeping the cone of directions in which a segment would pass all points so far, after Imai and Iri,
/// "Polygonal approximations of a curve" (1988), in the one-pass form of Zhao and Saalfeld, "Linear-time sleeve-fitting
/// polyline simplification algorithms" (1997); here a segment also never ends short of a point that it stands for.
///
/// All points must be places.
void ThinPolyline(const ChartPoints& points, std::span<const std::uint32_t> vertices, double tolerance,
                  std::vector<std::uint32_t>& kept);

}  // namespace quillon
