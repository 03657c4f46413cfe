#pragma once

#include <unistd.h>

#include <cerrno>
#include <utility>

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

}  // namespace quillon
