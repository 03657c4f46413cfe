#pragma once

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <optional>
#include <utility>

#include "platform/file.h"

namespace quillon {

/// Owns a file descriptor; -1 is none.
class Descriptor {
public:
    explicit Descriptor(int number = -1) : fd(number) {}
    ~Descriptor() { Reset(); }
    Descriptor(Descriptor&& other) noexcept : fd(std::exchange(other.fd, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        Reset(std::exchange(other.fd, -1));
        return *this;
    }
    void Reset(int number = -1) {
        if (fd >= 0) ::close(fd);
        fd = number;
    }
    int Get() const { return fd; }
    explicit operator bool() const { return fd >= 0; }

private:
    int fd;
};

/// Repeats a system call that a signal broke off.
template <class Call>
auto Retry(Call call) {
    auto result = call();
    while (result < 0 && errno == EINTR) result = call();
    return result;
}

inline FileStamp StampOf(const struct stat& status) {
    return {static_cast<std::uint64_t>(status.st_size),
            static_cast<std::int64_t>(status.st_mtim.tv_sec) * 1'000'000'000 + status.st_mtim.tv_nsec};
}

/// The stamp of an open file; none if it isn't a regular one.
inline std::optional<FileStamp> StampOf(const Descriptor& file) {
    struct stat status {};
    if (::fstat(file.Get(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    return StampOf(status);
}

}  // namespace quillon
