#pragma once

// What the fuzz targets of the feature readers share.

#include <unistd.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>

#include "foundation/read_report.h"
#include "foundation/values.h"
#include "platform/file.h"

namespace fuzz {

inline void Require(bool held) {
    if (!held) std::abort();
}

inline quillon::FileSystem& Files() {
    // Nothing is written to it; the file system only wants a drives folder.
    static quillon::FileSystem files(std::filesystem::temp_directory_path() / "quillon-fuzz");
    return files;
}

/// The begin of the paths of files that a target writes; in memory where the system has such a folder, since a disk
/// that is flushed at each run leaves time for few.
inline std::string ScratchPath() {
    const std::filesystem::path memory = "/dev/shm";
    std::error_code failed;
    const bool isThere = std::filesystem::is_directory(memory, failed) && ::access(memory.c_str(), W_OK) == 0;
    const std::filesystem::path folder = isThere ? memory : std::filesystem::temp_directory_path();
    return (folder / ("quillon-fuzz-" + std::to_string(::getpid()) + "-")).string();
}

/// Reads the bytes into the feature and checks the count of what was taken against the report.
template <class Feature>
quillon::ReadReport ReadBytes(Feature& feature, std::string_view bytes) {
    quillon::CStdioFile file(Files());
    file.OpenBytes(bytes);
    const bool taken = feature.ReadFrom(file);
    const quillon::ReadReport& report = feature.GetReport();
    Require(taken == !feature.IsEmpty());
    Require(report.taken == static_cast<std::size_t>(feature.GetSize()));
    Require(report.lines == report.taken + report.passedOver);
    Require(report.named.size() <= quillon::ReadReport::kMostNamed);
    return report;
}

/// A position that may have been taken from a file.
inline bool IsPosition(quillon::tagXY at) {
    const bool missing = quillon::IsMissing(at.x) || quillon::IsMissing(at.y);
    return !missing && !std::isnan(at.x) && !std::isnan(at.y) && !(at.x == 0.0 && at.y == 0.0);
}

}  // namespace fuzz
