#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <functional>

namespace quillon {

/// How many pieces a work on `size` bytes is worth cutting into on this machine: 1 below `leastPiece` a piece, and no
/// more than 4, beyond which memory sets the pace.
std::size_t WorthwhilePieces(std::size_t size, std::size_t leastPiece);

/// Runs `work(0)` to `work(count - 1)`, each on a thread of its own, the first on the caller's, and waits for all.
/// Where the system has no thread left, the caller does that piece too. What a piece raises is raised here, the first
/// of them.
void RunTogether(std::size_t count, const std::function<void(std::size_t)>& work);

/// Runs `work(begin, end)` over the items 0 to `count` in blocks, on several threads where that is worth it. No block
/// begins once `stop()` says so; the result is the count of items done, which are the first ones.
template <class Stop, class Work>
std::size_t RunInBlocks(std::size_t count, std::size_t block, Stop stop, Work work) {
    std::atomic<std::size_t> next{0};
    RunTogether(WorthwhilePieces(count, block), [&](std::size_t) {
        while (!stop()) {
            const std::size_t begin = next.fetch_add(block, std::memory_order_relaxed);
            if (begin >= count) return;
            work(begin, std::min(begin + block, count));
        }
    });
    return std::min(next.load(), count);
}

}  // namespace quillon
