#include "platform/random_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>

namespace quillon {

bool CRandomFile::OpenForReading(const FileSystem& files, std::string_view path) {
    *this = {};
    fd.Reset(::open(files.Native(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY));
    struct stat status {};
    if (!fd || ::fstat(fd.Get(), &status) != 0 || !S_ISREG(status.st_mode)) return false;
    length = static_cast<std::uint64_t>(status.st_size);
    return true;
}

void CRandomFile::OpenBytes(std::string_view lent) {
    *this = {};
    bytes = lent;
    length = bytes.size();
}

std::size_t CRandomFile::ReadAt(std::uint64_t offset, void* out, std::size_t size) const {
    if (!fd) {
        const std::string_view piece = bytes.substr(static_cast<std::size_t>(std::min(offset, length)), size);
        if (!piece.empty()) std::memcpy(out, piece.data(), piece.size());
        return piece.size();
    }
    std::size_t done = 0;
    while (done < size) {
        const ssize_t n = Retry([&] {
            return ::pread(fd.Get(), static_cast<char*>(out) + done, size - done, static_cast<off_t>(offset + done));
        });
        if (n <= 0) break;
        done += static_cast<std::size_t>(n);
    }
    return done;
}

}  // namespace quillon
