#pragma once

#include <cstdint>
#include <span>

#include "scene/chart_raster.h"

namespace quillon {

/// How light from the north-west, halfway up, falls on a raster: the cosine of its angle with the ground, in which the
/// slopes are the differences of a cell's four neighbours (B. K. P. Horn, "Hill shading and the reflectance map",
/// 1981). A level cell has kFlat, one in the shade less, one that faces the light more.
class Relief {
public:
    static constexpr std::uint8_t kFlat = 128;

    /// `heightPerValue`: metres upwards that one more of a value means; below 0 for depths.
    explicit Relief(double heightPerValue) : height(heightPerValue) {}

    /// The shades of some cells of a row, from `firstColumn` on. Where a neighbour holds nothing the cell itself stands
    /// in for it; a cell that holds nothing is flat.
    void ShadeRow(const ChartRaster::Level& level, int row, int firstColumn, std::span<std::uint8_t> shades) const;

private:
    double height;
};

/// The height of a value, from `metres` of it, with as much of an exaggeration, 1 to 30 times, as brings the slopes of
/// a raster into the light: seen as a whole, they are a third on average. A sea bed is far flatter than that.
double ExaggeratedHeight(const ChartRaster& raster, double metres);

}  // namespace quillon
