#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <span>
#include <type_traits>

namespace quillon {

/// Asks the system for huge pages under a block; it may decline.
void AdviseHugePages(void* block, std::size_t size);

/// Plain values in one block on pages of its own, on huge pages from 2 MiB on: filling it costs a fraction of the page
/// faults of a std::vector. The values are not set when it is made.
template <class T>
requires std::is_trivial_v<T>
class BigArray {
public:
    static constexpr std::size_t kPage = 4096;
    static constexpr std::size_t kHugePage = std::size_t{2} << 20;

    BigArray() = default;
    /// Holds nothing if the memory can't be had; `operator bool` tells.
    explicit BigArray(std::size_t size) {
        constexpr std::size_t kMost = static_cast<std::size_t>(PTRDIFF_MAX) / sizeof(T) - kHugePage;
        if (size == 0 || size > kMost) return;
        const std::size_t page = size * sizeof(T) < kHugePage ? kPage : kHugePage;
        const std::size_t bytes = (size * sizeof(T) + page - 1) / page * page;
        block.reset(static_cast<T*>(std::aligned_alloc(page, bytes)));
        if (!block) return;
        count = size;
        if (page == kHugePage) AdviseHugePages(block.get(), bytes);
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
        void operator()(T* p) const { std::free(p); }
    };
    std::unique_ptr<T, Free> block;
    std::size_t count = 0;
};

/// Bytes of memory in this machine; 0 if the system doesn't tell.
std::uint64_t PhysicalMemory();

}  // namespace quillon
