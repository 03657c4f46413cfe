#pragma once

#include <array>
#include <bit>
#include <cstdint>

#include "background/dtm_extents.h"
#include "background/dtm_grid.h"
#include "background/file_stamp.h"

namespace quillon {

/// The head of a depth cache, in memory as it lies in the file. The cells follow it: whole centimetres, 32 bits each,
/// row by row from the south, each row from the west.
struct DtmHeader {
    std::array<char, 4> magic = kMagic;
    std::array<char, 4> version = kVersion;
    double minEasting = MISSING_VALUE;
    double minNorthing = MISSING_VALUE;
    double step = 0.0;                ///< metres, on both axes
    std::int32_t columns = 0;         ///< steps along easting
    std::int32_t rows = 0;            ///< steps along northing
    double minDepth = MISSING_VALUE;  ///< signed as in the text
    double maxDepth = MISSING_VALUE;
    std::array<DosStamp, 3> stamps{};  ///< of DTM One, Two, Three
    std::array<DtmArea, 3> areas = {kNoArea, kNoArea, kNoArea};
    std::array<std::uint8_t, 872> rest{};

    static constexpr std::array<char, 4> kMagic = {'D', 'T', 'M', 0};
    static constexpr std::array<char, 4> kVersion = {'1', '0', '0', '1'};
    /// Of a file without a sample.
    static constexpr DtmArea kNoArea = {0.0, 0.0, 0.0, 0.0};

    DtmGrid Grid() const { return {minEasting, minNorthing, step, columns, rows}; }
    /// Whether it can head a cache file of `length` bytes: the right magic and version, a grid, and a length that fits.
    bool IsHeadOf(std::uint64_t length) const;
};
static_assert(sizeof(DtmHeader) == 1072 && std::endian::native == std::endian::little);

}  // namespace quillon
