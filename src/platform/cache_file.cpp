#include "platform/cache_file.h"

#include "platform/file_writer.h"

namespace quillon {

bool WriteCache(const FileSystem& files, std::string_view path, std::span<const std::string_view> pieces,
                const std::function<bool()>& goOn, std::string* fault) {
    std::string why = "the job is open for reading only";
    bool written = false;
    if (files.Access() == FILE_ACCESS::READ_WRITE) {
        const auto writer = FileWriter::Open(files.Calls(), files.Native(path), FILE_MODE::BINARY, why);
        written = writer && writer->CommitWith(pieces, goOn, why);
    }
    if (!written && fault) *fault = why;
    return written;
}

}  // namespace quillon
