#include "job/shape_place.h"

#include <algorithm>
#include <array>
#include <span>

#include "foundation/angle_units.h"
#include "platform/text.h"

namespace quillon {
namespace {

/// Positions converted at once: what stays in the caches of the processor.
constexpr std::size_t kBlock = 1024;

using Block = std::array<double, kBlock>;

}  // namespace

SHAPE_PLACE PlaceOf(const CShape& shape, const CJobGeodesy& geodesy) {
    if (!geodesy.IsChosen()) return SHAPE_PLACE::NO_GRID;
    if (!shape.IsProjectionKnown()) return SHAPE_PLACE::UNKNOWN;
    return shape.geographic ? SHAPE_PLACE::FROM_DEGREES : SHAPE_PLACE::FROM_GRID;
}

std::string PlaceText(const CShape& shape, const CJobGeodesy& geodesy) {
    const std::string datum = shape.projection.unit > 0 ? shape.conversion.transformationName : "not told";
    const std::string taken = ", its datum (" + datum + ") taken for the job's (" + geodesy.DatumText() + ")";
    switch (PlaceOf(shape, geodesy)) {
        case SHAPE_PLACE::NO_GRID:
            return "drawn where its coordinates stand: the job has no grid chosen";
        case SHAPE_PLACE::UNKNOWN:
            return "drawn where its coordinates stand: the file doesn't tell a projection that is known";
        case SHAPE_PLACE::FROM_DEGREES:
            return "converted from degrees to " + geodesy.GridText() + taken;
        case SHAPE_PLACE::FROM_GRID:
            return "converted from " + shape.grid.name + " to " + geodesy.GridText() + taken;
    }
    return {};
}

void PlaceOnGrid(const CShape& shape, const CJobGeodesy& geodesy, std::span<tagXY> points) {
    const SHAPE_PLACE place = PlaceOf(shape, geodesy);
    if (place == SHAPE_PLACE::NO_GRID || place == SHAPE_PLACE::UNKNOWN) return;
    Block first, second;
    for (; !points.empty(); points = points.subspan(std::min(kBlock, points.size()))) {
        const std::size_t count = std::min(kBlock, points.size());
        const std::span<double> x(first.data(), count), y(second.data(), count);
        for (std::size_t i = 0; i < count; ++i) {
            x[i] = points[i].x;
            y[i] = points[i].y;
        }
        if (place == SHAPE_PLACE::FROM_GRID) {
            shape.grid.InverseAll(y, x, x, y);
            for (std::size_t i = 0; i < count; ++i) {
                x[i] /= kRadiansPerDegree;
                y[i] /= kRadiansPerDegree;
            }
        }
        geodesy.FromGeographic(x, y, y, x);
        for (std::size_t i = 0; i < count; ++i) points[i] = {x[i], y[i]};
    }
}

}  // namespace quillon
