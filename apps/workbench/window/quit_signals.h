#pragma once

#include <functional>

class QSocketNotifier;

namespace quillon {

/// While it lives, the signals that ask a program to end (interrupt, terminate, hang-up) call a function from the event
/// loop in place of stopping the process, so that it ends as if its window had been closed. One at a time.
class QuitSignals {
public:
    explicit QuitSignals(std::function<void()> quit);
    ~QuitSignals();
    QuitSignals(const QuitSignals&) = delete;
    QuitSignals& operator=(const QuitSignals&) = delete;

private:
    QSocketNotifier* notifier;
};

}  // namespace quillon
