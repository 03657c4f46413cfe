#pragma once

#include <cstdint>

namespace quillon {

/// A cell that holds no depth.
inline constexpr std::int32_t kNoDepth = 0x7FFFFFFF;

/// The grid of a depth array: cells of `step` metres, in rows of `columns` from the southern edge on, each row from
/// west to east. A cell reaches from its south-west corner up to the next cell's.
struct DtmGrid {
    double minEasting = 0.0;
    double minNorthing = 0.0;
    double step = 0.0;  ///< metres
    std::int64_t columns = 0;
    std::int64_t rows = 0;

    /// Cells of the whole; held to what 63 bits can tell.
    std::uint64_t CellCount() const {
        if (columns < 1 || rows < 1) return 0;
        const auto c = static_cast<std::uint64_t>(columns);
        const auto r = static_cast<std::uint64_t>(rows);
        constexpr std::uint64_t kMost = INT64_MAX;
        return c > kMost / r ? kMost : c * r;
    }

    /// Steps from the minimum to a value, cut to a whole number: -1 below the minimum, -2 past the last one.
    static std::int64_t IndexOf(double value, double minimum, double step, std::int64_t count) {
        if (!(value >= minimum)) return -1;
        const double index = (value - minimum) / step;
        return index < static_cast<double>(count) ? static_cast<std::int64_t>(index) : -2;
    }
    std::int64_t ColumnOf(double easting) const { return IndexOf(easting, minEasting, step, columns); }
    std::int64_t RowOf(double northing) const { return IndexOf(northing, minNorthing, step, rows); }

    /// The number of the cell that a position lies in; -1 if in none.
    std::int64_t CellOf(double easting, double northing) const {
        const std::int64_t column = ColumnOf(easting);
        const std::int64_t row = RowOf(northing);
        return column < 0 || row < 0 ? -1 : columns * row + column;
    }
};

}  // namespace quillon
