#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "platform/big_array.h"

namespace quillon {

/// Memory for many small records that live and go together. Records are laid one behind the other in blocks that never
/// move, so that a pointer holds until the arena goes; nothing is freed before. The first blocks are small: most
/// drawings are.
class DxfArena {
public:
    /// A copy of the record. Its destructor is never run.
    template <class T>
    T* Keep(const T& record) {
        static_assert(std::is_trivially_destructible_v<T> && alignof(T) <= kAlignment);
        return new (Take(sizeof(T), kAlignment)) T(record);
    }

    /// A copy of the records; null for none.
    template <class T>
    const T* Keep(const std::vector<T>& records) {
        static_assert(std::is_trivially_destructible_v<T> && alignof(T) <= kAlignment);
        if (records.empty()) return nullptr;
        T* const kept = reinterpret_cast<T*>(Take(records.size() * sizeof(T), kAlignment));
        std::uninitialized_copy(records.begin(), records.end(), kept);
        return kept;
    }

    std::string_view Keep(std::string_view text) {
        if (text.empty()) return {};
        char* const kept = Take(text.size(), 1);
        text.copy(kept, text.size());
        return {kept, text.size()};
    }

    void Clear();
    /// Bytes that the blocks take.
    std::size_t GetSize() const { return total; }

private:
    static constexpr std::size_t kAlignment = 8;
    static constexpr std::size_t kFirstBlock = std::size_t{16} << 10;
    static constexpr std::size_t kLargestBlock = std::size_t{2} << 20;

    char* Take(std::size_t size, std::size_t alignment) {
        used = (used + alignment - 1) / alignment * alignment;
        // `used` may lie behind the end of a block that is full.
        if (used > capacity || size > capacity - used) AddBlock(size);
        char* const taken = block + used;
        used += size;
        return taken;
    }
    void AddBlock(std::size_t size);

    std::vector<BigArray<char>> blocks;
    char* block = nullptr;  ///< the last one
    std::size_t used = 0;
    std::size_t capacity = 0;
    std::size_t total = 0;
};

}  // namespace quillon
