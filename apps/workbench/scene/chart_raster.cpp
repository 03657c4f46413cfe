#include "scene/chart_raster.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "scene/chart_colours.h"

namespace quillon {
namespace {

/// A level of fewer cells than this is drawn in a moment.
constexpr int kFewCells = 64;

/// The mean of those of up to four values that are there.
std::int32_t MeanOf(const ChartRaster::Level& level, int column, int row) {
    std::int64_t sum = 0;
    int count = 0;
    for (int y = row; y < std::min(row + 2, level.rows); ++y) {
        for (int x = column; x < std::min(column + 2, level.columns); ++x) {
            const std::int32_t value = level.At(x, y);
            if (value == ChartRaster::kNone) continue;
            sum += value;
            ++count;
        }
    }
    return count == 0 ? ChartRaster::kNone : static_cast<std::int32_t>(sum / count);
}

}  // namespace

ChartRaster::ChartRaster(std::shared_ptr<const void> owner, std::span<const std::int32_t> values, int columns, int rows,
                         tagXY middle, double cellMetres, const std::atomic<bool>* stop)
    : keeps(std::move(owner)) {
    const bool isGrid = columns > 0 && rows > 0 && cellMetres > 0 &&
                        values.size() >= static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows);
    const tagXY corner{middle.x - 0.5 * cellMetres, middle.y - 0.5 * cellMetres};
    if (!isGrid || !IsPlace(corner)) {
        levels.push_back({1.0, 0, 0, {}});
        return;
    }
    levels.push_back({cellMetres, columns, rows, values});
    box = {corner.x, corner.y, corner.x + columns * cellMetres, corner.y + rows * cellMetres};
    while (std::max(levels.back().columns, levels.back().rows) > kFewCells) {
        if (stop && stop->load(std::memory_order_relaxed)) return;
        MakeCoarser();
    }
}

void ChartRaster::MakeCoarser() {
    const Level from = levels.back();
    Level level{2.0 * from.cell, (from.columns + 1) / 2, (from.rows + 1) / 2, {}};
    auto values = std::make_unique<std::vector<std::int32_t>>();
    values->reserve(static_cast<std::size_t>(level.columns) * static_cast<std::size_t>(level.rows));
    for (int row = 0; row < level.rows; ++row) {
        for (int column = 0; column < level.columns; ++column) {
            values->push_back(MeanOf(from, 2 * column, 2 * row));
        }
    }
    level.values = *values;
    made.push_back(std::move(values));
    levels.push_back(level);
}

const ChartRaster::Level& ChartRaster::For(double metres) const {
    std::size_t i = levels.size() - 1;
    while (i > 0 && levels[i].cell > metres) --i;
    return levels[i];
}

std::int32_t ChartRaster::ValueAt(tagXY place) const {
    if (!box.Contains(place.x, place.y)) return kNone;
    const Level& level = levels.front();
    const int column = std::min(static_cast<int>((place.x - box.minX) / level.cell), level.columns - 1);
    const int row = std::min(static_cast<int>((place.y - box.minY) / level.cell), level.rows - 1);
    return level.At(column, row);
}

COLORREF ChartColourScale::Shown(std::size_t index, bool isNight) const {
    if (isNight && index < night.size()) return night[index];
    return ImageColour(colours[index], isNight);
}

COLORREF ChartColourScale::Of(std::int32_t value) const {
    if (colours.empty()) return 0;
    const double span = std::max(1.0, static_cast<double>(greatest) - least);
    const double part = std::clamp((static_cast<double>(value) - least) / span, 0.0, 1.0);
    return colours[static_cast<std::size_t>(std::lround(part * static_cast<double>(colours.size() - 1)))];
}

}  // namespace quillon
