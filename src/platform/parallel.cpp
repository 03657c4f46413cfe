#include "platform/parallel.h"

#include <algorithm>
#include <exception>
#include <system_error>
#include <thread>
#include <vector>

namespace quillon {

std::size_t WorthwhilePieces(std::size_t size, std::size_t leastPiece) {
    constexpr std::size_t kMost = 4;
    const std::size_t threads = std::clamp<std::size_t>(std::thread::hardware_concurrency(), 1, kMost);
    return std::clamp<std::size_t>(size / leastPiece, 1, threads);
}

void RunTogether(std::size_t count, const std::function<void(std::size_t)>& work) {
    std::vector<std::exception_ptr> raised(count);
    const auto run = [&](std::size_t piece) {
        try {
            work(piece);
        } catch (...) {
            raised[piece] = std::current_exception();
        }
    };
    std::vector<std::thread> threads;
    threads.reserve(count);
    std::size_t started = 1;
    try {
        for (; started < count; ++started) threads.emplace_back(run, started);
    } catch (const std::system_error&) {
        // No thread for this piece and those behind it.
    }
    if (count > 0) run(0);
    for (; started < count; ++started) run(started);
    for (std::thread& thread : threads) thread.join();
    for (const std::exception_ptr& error : raised) {
        if (error) std::rethrow_exception(error);
    }
}

}  // namespace quillon
