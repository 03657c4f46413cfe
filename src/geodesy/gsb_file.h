#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/file.h"

namespace quillon {

/// The records of an NTv2 header, in file order. Each is a keyword of 8 characters and a value of 8 bytes.
enum GSB_RECORD : std::size_t {
    NUM_OREC,
    NUM_SREC,
    NUM_FILE,
    GS_TYPE,
    VERSION,
    SYSTEM_F,
    SYSTEM_T,
    MAJOR_F,
    MINOR_F,
    MAJOR_T,
    MINOR_T,
    SUB_NAME,
    PARENT,
    CREATED,
    UPDATED,
    S_LAT,
    N_LAT,
    E_LONG,
    W_LONG,
    LAT_INC,
    LONG_INC,
    GS_COUNT,
    GSB_RECORDS
};

enum class GSB_VALUE { INTEGER, TEXT, REAL };

/// Keyword and kind of value of each record, as the format has them.
struct GsbRecordDef {
    std::string_view keyword;
    GSB_VALUE value;
};
extern const std::array<GsbRecordDef, GSB_RECORDS> kGsbRecords;

/// The header as it stands in the file: the overview and the first sub-grid, little-endian. Longitudes are seconds of
/// arc, positive west.
struct GsbHeader {
    static constexpr std::size_t kRecordSize = 16;
    static constexpr std::size_t kSize = kRecordSize * GSB_RECORDS;

    std::array<char, kSize> bytes = {};

    std::string Keyword(GSB_RECORD record) const;  ///< without trailing blanks and zeros
    std::int32_t Integer(GSB_RECORD record) const;
    double Real(GSB_RECORD record) const;
    std::string Text(GSB_RECORD record) const;  ///< without trailing blanks and zeros
    bool IsEmpty() const { return bytes == decltype(bytes){}; }
};
static_assert(sizeof(GsbHeader) == 352);

/// One node: shifts in seconds of arc (longitude positive west) and their accuracy in metres.
struct GridShiftRecordDef {
    float latShift = 0;
    float lonShift = 0;
    float latAccuracy = 0;
    float lonAccuracy = 0;
};
static_assert(sizeof(GridShiftRecordDef) == 16);

using GridShiftNodes = std::vector<GridShiftRecordDef>;

/// A grid-shift file: the header and the nodes of its first sub-grid.
struct GsbFile {
    GsbHeader header;
    GridShiftNodes nodes;
};

/// Why a file gives no grid.
enum class GSB_FAULT {
    NONE,
    SHORT_HEADER,     ///< it ends within the header
    NOT_NTV2,         ///< the first or the last keyword of the header is another
    HIGH_BYTE_FIRST,  ///< numbers stand with their high byte first
    NO_NODES,         ///< it counts none
    CUT_SHORT         ///< it counts more nodes than it holds
};

/// In words that follow "NAME: ".
std::string_view FaultText(GSB_FAULT fault);

/// Reads from an open file. Null where the header is cut short, or counts no nodes, or more than the file holds; memory
/// is bounded by the file's length. Keywords aren't asked for: `fault` looks at them where the numbers make no sense.
std::shared_ptr<const GsbFile> ReadGsb(CStdioFile& file, GSB_FAULT* fault = nullptr);

/// Seconds of arc in the unit of a header's latitudes and longitudes, by its GS_TYPE; 0 if that names none.
double SecondsPerUnit(const GsbHeader& header);

/// Reads a file; null if it can't be opened or holds no grid. The last two files stay in memory and are handed out
/// again while path, size and time of change are the same, so that a thousand owners cost one reading. Safe from any
/// thread.
std::shared_ptr<const GsbFile> LoadGsb(FileSystem& files, std::string_view path);

}  // namespace quillon
