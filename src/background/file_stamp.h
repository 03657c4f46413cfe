#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/file.h"

namespace quillon {

/// What a file made from another one (a depth cache, a DIG file) notes of its source, so that it is made anew when the
/// source has changed. Laid out as in those files, little-endian. Date and time are MS-DOS words in UTC, so that no
/// change of the clock makes a cache stale; seconds are even.
struct DosStamp {
    std::uint16_t zeroBefore = 0;
    std::uint16_t time = 0;
    std::uint16_t date = 0;
    std::uint16_t zeroBehind = 0;
    std::uint64_t length = 0;  ///< bytes, the lower 32 bits of it: the upper ones are always 0
    friend bool operator==(const DosStamp&, const DosStamp&) = default;
};
static_assert(sizeof(DosStamp) == 16);

/// Outside 1980 to 2107, which the words can't tell, date and time are 0.
DosStamp DosStampOf(const FileStamp& stamp);
/// The stamp of the file as it is now; all 0 if there is no such file.
DosStamp DosStampOf(const FileSystem& files, std::string_view path);
/// Whether the file stands and is the one that was stamped.
bool IsStampOf(const FileSystem& files, std::string_view path, const DosStamp& stamp);

/// As "1.5Kb", at most 3 decimals; empty from 1024 Gb on.
std::string SizeText(std::uint64_t length);
/// As "05 Mar 2024"; a month that is none is "Jan".
std::string DateText(const DosStamp& stamp);
/// As "23:59:58".
std::string TimeText(const DosStamp& stamp);

}  // namespace quillon
