#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/descriptor.h"
#include "platform/file.h"

namespace quillon {

/// A file read in pieces from any place, by several threads at once. For big inputs: hand `ReadAt` a buffer that is
/// aligned to a page (BigArray is).
class CRandomFile {
public:
    /// False if it can't be opened or isn't a regular file.
    bool OpenForReading(const FileSystem& files, std::string_view path);
    /// Reads `lent` in place of a file; the bytes must outlive the reading.
    void OpenBytes(std::string_view lent);

    /// Bytes in the file when it was opened.
    std::uint64_t GetLength() const { return length; }
    /// Up to `size` bytes from `offset` on; the count read, which is smaller at the end of the file and when reading
    /// fails. Any thread.
    std::size_t ReadAt(std::uint64_t offset, void* out, std::size_t size) const;

private:
    Descriptor fd;
    std::string_view bytes;
    std::uint64_t length = 0;
};

}  // namespace quillon
