#pragma once

#include <atomic>
#include <cstdint>
#include <utility>

namespace quillon {

/// A number for what an array holds: no two contents of this run share one. It is made when it is first asked for, so a
/// change costs no more than a store. A copy of the array has the same number, an array that was moved from another.
class ArrayStamp {
public:
    ArrayStamp() = default;
    ~ArrayStamp() = default;
    ArrayStamp(const ArrayStamp&) = default;
    ArrayStamp& operator=(const ArrayStamp&) = default;
    ArrayStamp(ArrayStamp&& other) noexcept : number(std::exchange(other.number, 0)) {}
    ArrayStamp& operator=(ArrayStamp&& other) noexcept {
        number = std::exchange(other.number, 0);
        return *this;
    }

    std::uint64_t Get() const {
        static std::atomic<std::uint64_t> last = 0;
        if (number == 0) number = ++last;
        return number;
    }
    void Renew() { number = 0; }

private:
    mutable std::uint64_t number = 0;  ///< 0: changed since it was last asked for
};

}  // namespace quillon
