#include "platform/message_queue.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/window.h"

namespace quillon {
namespace {

constexpr UINT kFirstRegistered = 0xC000;

struct Registry {
    std::mutex mutex;
    std::deque<std::string> names;  // a deque keeps its strings in place
};

Registry& TheRegistry() {
    static Registry registry;
    return registry;
}

}  // namespace

UINT RegisterWindowMessage(std::string_view name) {
    Registry& registry = TheRegistry();
    const std::lock_guard lock(registry.mutex);
    const auto found = std::find(registry.names.begin(), registry.names.end(), name);
    const auto index = found - registry.names.begin();
    if (found == registry.names.end()) registry.names.emplace_back(name);
    return kFirstRegistered + static_cast<UINT>(index);
}

std::string_view RegisteredMessageName(UINT message) {
    Registry& registry = TheRegistry();
    const std::lock_guard lock(registry.mutex);
    const std::size_t index = message - kFirstRegistered;
    if (message < kFirstRegistered || index >= registry.names.size()) return {};
    return registry.names[index];
}

Clock::Time SteadyClock::Now() const {
    return std::chrono::duration_cast<Time>(std::chrono::steady_clock::now().time_since_epoch());
}

MessageQueue::MessageQueue(const Clock& queueClock) : clock(queueClock) {}

WindowId MessageQueue::Attach(CWnd& window) {
    const std::lock_guard lock(mutex);
    windows[++lastId] = &window;
    return lastId;
}

void MessageQueue::Detach(WindowId id) {
    std::erase_if(timers, [id](const Timer& timer) { return timer.target == id; });
    const std::lock_guard lock(mutex);
    windows.erase(id);
    std::erase_if(posted, [id](const Posted& message) { return message.target == id; });
}

CWnd* MessageQueue::Find(WindowId id) const {
    const std::lock_guard lock(mutex);
    const auto found = windows.find(id);
    return found == windows.end() ? nullptr : found->second;
}

bool MessageQueue::Post(WindowId target, const MSG& message) {
    {
        const std::lock_guard lock(mutex);
        if (!windows.contains(target)) return false;
        posted.push_back({target, message});
    }
    arrived.notify_all();
    Wake();
    return true;
}

LRESULT MessageQueue::Send(WindowId target, const MSG& message) {
    CWnd* const window = Find(target);
    return window ? window->OnMessage(message) : 0;
}

void MessageQueue::SetTimer(WindowId target, UINT timer, std::chrono::milliseconds interval) {
    KillTimer(target, timer);
    if (!Find(target)) return;
    // Never at once: a handler that starts its timer anew would hold the pump for good.
    interval = std::max(interval, std::chrono::milliseconds(1));
    timers.push_back({target, timer, interval, clock.Now() + interval});
    Wake();
}

void MessageQueue::KillTimer(WindowId target, UINT timer) {
    std::erase_if(timers, [&](const Timer& t) { return t.target == target && t.id == timer; });
}

bool MessageQueue::PumpOne() {
    return DeliverPosted() || DeliverTimer();
}

int MessageQueue::Pump() {
    int count = 0;
    while (PumpOne()) ++count;
    return count;
}

bool MessageQueue::DeliverPosted() {
    Posted next{};
    CWnd* window = nullptr;
    {
        const std::lock_guard lock(mutex);
        if (posted.empty()) return false;
        next = posted.front();
        posted.pop_front();
        window = windows.at(next.target);
    }
    window->OnMessage(next.message);
    if (drained && !HasPosted()) drained();
    return true;
}

bool MessageQueue::HasPosted() const {
    const std::lock_guard lock(mutex);
    return !posted.empty();
}

bool MessageQueue::DeliverTimer() {
    const Clock::Time now = clock.Now();
    const auto earliest =
        std::min_element(timers.begin(), timers.end(), [](const Timer& a, const Timer& b) { return a.due < b.due; });
    if (earliest == timers.end() || earliest->due > now) return false;
    // The next time is set before the handler runs: it may kill or restart the timer.
    earliest->due = now + earliest->interval;
    const Timer due = *earliest;
    if (CWnd* const window = Find(due.target)) window->OnTimer(due.id);
    return true;
}

std::optional<Clock::Time> MessageQueue::NextDue() const {
    std::optional<Clock::Time> next;
    for (const Timer& timer : timers) next = next ? std::min(*next, timer.due) : timer.due;
    return next;
}

void MessageQueue::WaitForPost(std::chrono::milliseconds limit) {
    std::unique_lock lock(mutex);
    arrived.wait_for(lock, limit, [this] { return !posted.empty(); });
}

void MessageQueue::SetWake(std::function<void()> newWake) {
    const std::lock_guard lock(mutex);
    wake = std::move(newWake);
}

void MessageQueue::Wake() const {
    std::function<void()> call;
    {
        const std::lock_guard lock(mutex);
        call = wake;
    }
    if (call) call();
}

}  // namespace quillon
