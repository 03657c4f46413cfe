#pragma once

#include <atomic>
#include <cstdint>

namespace quillon {

/// What a background load and the window that waits for it share: how far the load has got, and whether it is to stop.
/// Plain stores and loads in relaxed order; all else of a load is read when its worker has ended.
///
/// The work of a load is a plain function of bytes, target and this record. It calls `Begin` for each file, `Advance`
/// once a block of some 100 kB or 10,000 records, and gives up soon after `IsCancelled`.
class LoadProgress {
public:
    // The work's side.

    /// A file of `total` units (bytes, records) begins.
    void Begin(std::uint64_t newTotal) {
        position.store(0, std::memory_order_relaxed);
        total.store(newTotal, std::memory_order_relaxed);
    }
    void SetPosition(std::uint64_t newPosition) { position.store(newPosition, std::memory_order_relaxed); }
    /// For several threads on one file.
    void Advance(std::uint64_t step) { position.fetch_add(step, std::memory_order_relaxed); }
    bool IsCancelled() const { return cancelled.load(std::memory_order_relaxed); }

    // The window's side.

    void Cancel() { cancelled.store(true, std::memory_order_relaxed); }
    std::uint64_t GetTotal() const { return total.load(std::memory_order_relaxed); }
    std::uint64_t GetPosition() const { return position.load(std::memory_order_relaxed); }
    /// 0 to 1000, cut to a whole number; 0 without a total. A position beyond the total, as a file that has grown can
    /// have, stays at 1000.
    int GetThousandths() const;

private:
    std::atomic<std::uint64_t> total{0};
    std::atomic<std::uint64_t> position{0};
    std::atomic<bool> cancelled{false};
};

}  // namespace quillon
