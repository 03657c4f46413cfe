#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <type_traits>
#include <utility>

namespace quillon {

/// Memory on pages of its own, all 0; null if it can't be had. From 2 MiB on it lies on huge pages where the system
/// grants them, and no page is taken before it is touched.
void* AllocatePages(std::size_t bytes);
void FreePages(void* pages, std::size_t bytes);

/// Plain values in one block on pages of its own, all 0 at first, on huge pages where it is large: filling it costs a
/// fraction of the page faults of a std::vector. A block starts on a page.
template <class T>
requires std::is_trivial_v<T>
class BigArray {
public:
    static constexpr std::size_t kPage = 4096;

    BigArray() = default;
    /// Holds nothing if the memory can't be had; `operator bool` tells.
    explicit BigArray(std::size_t size) {
        constexpr std::size_t kMost = static_cast<std::size_t>(PTRDIFF_MAX) / sizeof(T) / 2;
        if (size == 0 || size > kMost) return;
        block = {static_cast<T*>(AllocatePages(size * sizeof(T))), Free{size * sizeof(T)}};
        if (block) count = size;
    }
    BigArray(BigArray&& other) noexcept : block(std::move(other.block)), count(std::exchange(other.count, 0)) {}
    BigArray& operator=(BigArray&& other) noexcept {
        block = std::move(other.block);
        count = std::exchange(other.count, 0);
        return *this;
    }

    explicit operator bool() const { return block != nullptr; }
    T* Data() { return block.get(); }
    const T* Data() const { return block.get(); }
    std::size_t Size() const { return count; }
    T& operator[](std::size_t index) { return block.get()[index]; }
    const T& operator[](std::size_t index) const { return block.get()[index]; }
    std::span<T> Span() { return {block.get(), count}; }
    std::span<const T> Span() const { return {block.get(), count}; }

private:
    struct Free {
        std::size_t bytes = 0;
        void operator()(T* pages) const { FreePages(pages, bytes); }
    };
    std::unique_ptr<T, Free> block;
    std::size_t count = 0;
};

/// Bytes of memory in this machine; 0 if the system doesn't tell.
std::uint64_t PhysicalMemory();

}  // namespace quillon
