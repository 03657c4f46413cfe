#pragma once

#include <bit>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

#include "background/dxf_palette.h"
#include "background/file_stamp.h"
#include "foundation/values.h"

namespace quillon {

/// One point of a DIG file, as it lies in the file, little-endian and without padding.
///
/// The colour code is the place of the colour in the palette of drawings, plus 1: 1 to 256. Its sign is the pen: at a
/// negative code a new line starts, a positive one draws on from the point before.
#pragma pack(push, 1)
struct BinaryDigDef {
    double easting;
    double northing;
    std::int16_t code;

    tagXY Position() const { return {easting, northing}; }
    bool StartsLine() const { return code < 0; }
    /// 0 to 255; white for a code that names no colour.
    int ColourIndex() const {
        const int index = std::abs(int{code}) - 1;
        return index >= 0 && index < static_cast<int>(kDxfPalette.size()) ? index : kDxfWhite;
    }
};
#pragma pack(pop)
static_assert(sizeof(BinaryDigDef) == 18 && std::endian::native == std::endian::little);

/// The head of a DIG file, as it lies in the file: whether the file is shown, and the stamp of the file that it was
/// made from. The records follow to the end of the file, without a count. Old files have no head.
struct DigHeader {
    std::uint8_t display = 1;
    std::uint8_t zero = 0;
    std::uint16_t time = 0;  ///< MS-DOS words of the source file, in UTC
    std::uint16_t date = 0;
    std::uint16_t zeroBehind = 0;
    std::uint64_t length = 0;  ///< of the source file, bytes

    /// Files from here on have no size text, and no header tells of one: 1024 Gb.
    static constexpr std::uint64_t kLongest = std::uint64_t{1} << 40;

    /// Whether it can be a header, and not the first bytes of a record: a time, a date up to the present year, and a
    /// length below 1024 Gb. The flag may be anything.
    bool IsBelievable() const;
    /// Whether both tell of one source file.
    bool IsOf(const DigHeader& source) const {
        return time == source.time && date == source.date && length == source.length;
    }
    DosStamp Stamp() const { return {.time = time, .date = date, .length = length}; }
};
static_assert(sizeof(DigHeader) == 16);

/// The header of what is made from a file as it is now, shown; none if there is no such file. A date that no header
/// could be believed with (before 1980, or still to come) is noted as the first of 1980.
std::optional<DigHeader> DigHeaderOf(const FileSystem& files, std::string_view source);

}  // namespace quillon
