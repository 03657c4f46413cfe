#include "scene/item_maker.h"

#include <algorithm>
#include <utility>

namespace quillon {

ItemMaker::ItemMaker(std::function<void()> whenReady) : ready(std::move(whenReady)), thread([this] { Run(); }) {}

ItemMaker::~ItemMaker() {
    {
        const std::lock_guard lock(mutex);
        queue.clear();
        hasEnded = true;
        stop = true;
    }
    changed.notify_all();
    thread.join();
}

std::uint64_t ItemMaker::Ask(Make make) {
    {
        const std::lock_guard lock(mutex);
        queue.push_back({++lastTicket, std::move(make)});
    }
    changed.notify_all();
    return lastTicket;
}

void ItemMaker::Drop(std::uint64_t ticket) {
    const std::lock_guard lock(mutex);
    if (current == ticket) stop = true;
    std::erase_if(queue, [ticket](const Wanted& wanted) { return wanted.ticket == ticket; });
    std::erase_if(made, [ticket](const Made& one) { return one.ticket == ticket; });
}

bool ItemMaker::Withdraw(std::uint64_t ticket) {
    const std::lock_guard lock(mutex);
    return std::erase_if(queue, [ticket](const Wanted& wanted) { return wanted.ticket == ticket; }) > 0;
}

std::vector<ItemMaker::Made> ItemMaker::Take() {
    const std::lock_guard lock(mutex);
    return std::exchange(made, {});
}

void ItemMaker::Wait() {
    std::unique_lock lock(mutex);
    changed.wait(lock, [this] { return queue.empty() && current == 0; });
}

void ItemMaker::Run() {
    std::unique_lock lock(mutex);
    while (true) {
        changed.wait(lock, [this] { return hasEnded || !queue.empty(); });
        if (hasEnded) return;
        const Wanted wanted = std::move(queue.front());
        queue.pop_front();
        current = wanted.ticket;
        stop = false;
        lock.unlock();
        std::shared_ptr<const void> data = wanted.make(stop);
        lock.lock();
        const bool isWanted = !stop;
        current = 0;
        if (isWanted) made.push_back({wanted.ticket, std::move(data)});
        changed.notify_all();
        if (!isWanted) continue;
        lock.unlock();
        ready();
        lock.lock();
    }
}

}  // namespace quillon
