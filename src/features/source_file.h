#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "foundation/read_report.h"
#include "platform/file.h"

namespace quillon {

/// How a data file has changed on the disk since its feature read it.
enum class DISK_CHANGE : std::uint8_t {
    NONE,
    RENEWED,  ///< it holds something else now
    GONE,
    APPEARED  ///< it couldn't be read, and is there now
};

/// What has become of a file that had the stamp when it was read; none if it couldn't be.
inline DISK_CHANGE ChangeSince(const std::optional<FileStamp>& read, const FileSystem& files, std::string_view path) {
    const std::optional<FileStamp> now = files.Stamp(path);
    if (now == read) return DISK_CHANGE::NONE;
    if (!now) return DISK_CHANGE::GONE;
    return read ? DISK_CHANGE::RENEWED : DISK_CHANGE::APPEARED;
}

/// What stood on the disk when a feature read its data file, and what came of the reading.
class CSourceFile {
public:
    /// Of the file as it was read; none if it couldn't be.
    const std::optional<FileStamp>& GetReadStamp() const { return readStamp; }
    void SetReadStamp(const std::optional<FileStamp>& stamp) {
        readStamp = stamp;
        if (!stamp) ForgetReport();
    }
    /// Of the last reading; not opened, with nothing counted, if the file couldn't be read.
    const ReadReport& GetReport() const { return report; }

    DISK_CHANGE ChangeOnDisk(const FileSystem& files, std::string_view path) const {
        return ChangeSince(readStamp, files, path);
    }

protected:
    ReadReport report;

private:
    /// What is left of it is why the file couldn't be read.
    void ForgetReport() {
        std::string fault = std::move(report.fault);
        report = ReadReport();
        report.fault = std::move(fault);
    }

    std::optional<FileStamp> readStamp;
};

}  // namespace quillon
