#include "platform/win_thread.h"

#include <system_error>

namespace quillon {

bool CWinThread::Resume() {
    running = true;
    try {
        thread = std::thread([this] {
            run();
            const std::lock_guard lock(mutex);
            running = false;
            changed.notify_all();
        });
    } catch (const std::system_error&) {
        running = false;
    }
    return thread.joinable();
}

void CWinThread::Join() {
    if (thread.joinable()) thread.join();
}

bool CWinThread::JoinFor(std::chrono::milliseconds limit) {
    std::unique_lock lock(mutex);
    return changed.wait_for(lock, limit, [this] { return !running; });
}

}  // namespace quillon
