#pragma once

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <vector>

#include "foundation/read_report.h"
#include "foundation/values.h"
#include "platform/file.h"

namespace quillon {

/// The rule that every feature file shares: a line is a point unless a coordinate is missing or both are exactly 0.
inline PASSED_OVER PositionFault(double easting, double northing) {
    if (IsMissing(easting)) return PASSED_OVER::NO_EASTING;
    if (IsMissing(northing)) return PASSED_OVER::NO_NORTHING;
    return easting == 0.0 && northing == 0.0 ? PASSED_OVER::ZERO_POSITION : PASSED_OVER::NO;
}

/// Opens a data file and notes in the report whether that went well.
inline bool OpenData(CStdioFile& file, std::string_view path, ReadReport& report, FILE_MODE mode = FILE_MODE::TEXT) {
    const bool opened = file.OpenForReading(path, mode);
    report.opened = opened;
    report.fault = file.GetFault();
    return opened;
}

/// Reads records, one a line. `decode(line, record)` fills a fresh record, in its place in the array, and says whether
/// it is one. Storage is reserved by what the first lines take of the file's length, so that a large file isn't copied
/// over and over while it grows, and never by more than the bytes that are left could hold. The
/// report begins anew.
template <class Record, class Decode>
std::vector<Record> ReadRecords(CStdioFile& file, Decode decode, ReadReport& report) {
    constexpr std::size_t kSample = 1024;
    report = ReadReport();
    report.opened = true;
    std::vector<Record> records;
    std::string_view line;
    while (file.ReadString(line)) {
        const PASSED_OVER reason = decode(line, records.emplace_back());
        report.Count(reason);
        if (reason != PASSED_OVER::NO) {
            records.pop_back();
        } else if (records.size() == kSample) {
            const std::uint64_t bytes = std::max<std::uint64_t>(file.GetPosition(), kSample);
            const std::uint64_t left = file.GetLength() - std::min(file.GetLength(), bytes);
            records.reserve(kSample + static_cast<std::size_t>(left * kSample / bytes + left * kSample / bytes / 64));
        }
    }
    return records;
}

}  // namespace quillon
