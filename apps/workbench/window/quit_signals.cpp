#include "window/quit_signals.h"

#include <fcntl.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <csignal>

namespace quillon {
namespace {

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

/// A handler may do little more than write a byte; the event loop reads it at the other end.
int ends[2] = {-1, -1};

void OnSignal(int) {
    const char byte = 0;
    [[maybe_unused]] const auto written = ::write(ends[1], &byte, 1);
}

}  // namespace

QuitSignals::QuitSignals(std::function<void()> quit) : notifier(nullptr) {
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) return;
    notifier = new QSocketNotifier(ends[0], QSocketNotifier::Read);
    QObject::connect(notifier, &QSocketNotifier::activated, notifier, [quit = std::move(quit)] {
        char byte = 0;
        while (::read(ends[0], &byte, 1) > 0) {
        }
        quit();
    });
    for (const int signal : kSignals) std::signal(signal, OnSignal);
}

QuitSignals::~QuitSignals() {
    for (const int signal : kSignals) std::signal(signal, SIG_DFL);
    delete notifier;
    for (int& end : ends) {
        if (end >= 0) ::close(end);
        end = -1;
    }
}

}  // namespace quillon
