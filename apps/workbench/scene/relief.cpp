#include "scene/relief.h"

#include <algorithm>
#include <cmath>

namespace quillon {
namespace {

/// Values to the metre, eastwards and northwards.
struct Slope {
    double east = 0.0;
    double north = 0.0;
};

double Difference(std::int32_t before, std::int32_t here, std::int32_t behind, double cell) {
    const bool hasBefore = before != ChartRaster::kNone, hasBehind = behind != ChartRaster::kNone;
    if (!hasBefore && !hasBehind) return 0.0;
    const double rise = static_cast<double>(hasBehind ? behind : here) - static_cast<double>(hasBefore ? before : here);
    return rise / (hasBefore && hasBehind ? 2.0 * cell : cell);
}

Slope SlopeAt(const ChartRaster::Level& level, int column, int row) {
    constexpr std::int32_t kNone = ChartRaster::kNone;
    const std::int32_t here = level.At(column, row);
    const std::int32_t west = column > 0 ? level.At(column - 1, row) : kNone;
    const std::int32_t east = column + 1 < level.columns ? level.At(column + 1, row) : kNone;
    const std::int32_t south = row > 0 ? level.At(column, row - 1) : kNone;
    const std::int32_t north = row + 1 < level.rows ? level.At(column, row + 1) : kNone;
    return {Difference(west, here, east, level.cell), Difference(south, here, north, level.cell)};
}

}  // namespace

void Relief::ShadeRow(const ChartRaster::Level& level, int row, int firstColumn, std::span<std::uint8_t> shades) const {
    // The light: half to the west, half to the north, the root of a half upwards.
    constexpr double kAcross = 0.5, kDown = 0.70710678118654752;
    for (std::size_t i = 0; i < shades.size(); ++i) {
        const int column = firstColumn + static_cast<int>(i);
        if (level.At(column, row) == ChartRaster::kNone) {
            shades[i] = kFlat;
            continue;
        }
        const Slope slope = SlopeAt(level, column, row);
        const double east = slope.east * height, north = slope.north * height;
        const double light = (kAcross * (east - north) + kDown) / std::sqrt(1.0 + east * east + north * north);
        shades[i] = static_cast<std::uint8_t>(std::clamp(light / kDown * kFlat, 0.0, 255.0));
    }
}

double ExaggeratedHeight(const ChartRaster& raster, double metres) {
    constexpr int kSeenAsAWhole = 512;
    constexpr double kWanted = 1.0 / 3.0, kMost = 30.0;
    const double across = std::max(raster.Box().Width(), raster.Box().Height());
    const ChartRaster::Level& level = raster.For(across / kSeenAsAWhole);
    double sum = 0.0;
    std::size_t count = 0;
    for (int row = 0; row < level.rows; ++row) {
        for (int column = 0; column < level.columns; ++column) {
            if (level.At(column, row) == ChartRaster::kNone) continue;
            const Slope slope = SlopeAt(level, column, row);
            sum += slope.east * slope.east + slope.north * slope.north;
            ++count;
        }
    }
    const double mean = count > 0 ? std::sqrt(sum / static_cast<double>(count)) * std::abs(metres) : 0.0;
    return metres * (mean > 0.0 ? std::clamp(kWanted / mean, 1.0, kMost) : 1.0);
}

}  // namespace quillon
