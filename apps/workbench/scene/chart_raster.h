#pragma once

#include <atomic>
#include <cstdint>
#include <limits>
#include <memory>
#include <span>
#include <vector>

#include "platform/palette.h"
#include "scene/chart_geometry.h"

namespace quillon {

/// A regular grid of values, such as depths in centimetres, at falling resolutions, so that drawing it costs what can
/// be seen of it. It never changes, so threads share it.
///
/// Level 0 is the grid itself, which is lent and not copied. Each further level has cells of twice the size, with the
/// mean of the values in them. All of them together are a third as large as the grid.
class ChartRaster {
public:
    /// The value of a cell that has none.
    static constexpr std::int32_t kNone = std::numeric_limits<std::int32_t>::max();

    struct Level {
        double cell = 0.0;  ///< metres
        int columns = 0;
        int rows = 0;
        std::span<const std::int32_t> values;  ///< from the south-west corner, eastwards, then northwards

        std::int32_t At(int column, int row) const {
            return values[static_cast<std::size_t>(row) * static_cast<std::size_t>(columns) +
                          static_cast<std::size_t>(column)];
        }
    };

    /// `middle` is the middle of the south-western cell; `owner` keeps the values.
    ChartRaster(std::shared_ptr<const void> owner, std::span<const std::int32_t> values, int columns, int rows,
                tagXY middle, double cellMetres, const std::atomic<bool>* stop = nullptr);

    /// From edge to edge of the outer cells.
    const ChartBox& Box() const { return box; }
    /// The coarsest level whose cells are at most so many metres wide; the finest if none is.
    const Level& For(double metres) const;
    std::size_t LevelCount() const { return levels.size(); }
    /// The value at a place; `kNone` outside and where there is none.
    std::int32_t ValueAt(tagXY place) const;

private:
    void MakeCoarser();

    std::shared_ptr<const void> keeps;
    ChartBox box;
    std::vector<Level> levels;
    std::vector<std::unique_ptr<std::vector<std::int32_t>>> made;
};

/// The colours of values from `least` to `greatest`, evenly spread; what lies beyond takes the first or the last.
struct ChartColourScale {
    std::int32_t least = 0;
    std::int32_t greatest = 0;
    std::vector<COLORREF> colours;
    /// As many for the night; without them those of the day are dimmed.
    std::vector<COLORREF> night = {};

    COLORREF Of(std::int32_t value) const;
    /// One of the colours as the chart shows it.
    COLORREF Shown(std::size_t index, bool isNight) const;
};

}  // namespace quillon
