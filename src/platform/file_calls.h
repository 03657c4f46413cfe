#pragma once

#include <sys/types.h>

#include <cstddef>

namespace quillon {

/// The calls of the system through which a file is replaced, in the order of their use, and removed, so that a test can
/// let one fail or note their order. Each does what the system's call of its kind does; errno tells why it failed.
class FileCalls {
public:
    virtual ~FileCalls() = default;
    virtual int Open(const char* path, int flags, mode_t mode);
    virtual int Lock(int fd);
    virtual int Truncate(int fd);
    virtual ssize_t Write(int fd, const void* bytes, std::size_t size);
    virtual int Sync(int fd);
    virtual int Rename(const char* from, const char* to);
    virtual int Remove(const char* path);
};

}  // namespace quillon
