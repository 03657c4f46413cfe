#include "platform/platform.h"

#include <utility>

namespace quillon {

Platform::Platform(std::filesystem::path drives, std::string commandLine, std::unique_ptr<Clock> platformClock)
    : files(std::move(drives), std::move(commandLine)), clock(std::move(platformClock)), messages(*clock) {
    messages.SetDrained([this] {
        if (openActs == 0) TellSettled();
    });
}

Platform::~Platform() = default;

void Platform::BeginAct(const std::string& name) {
    if (++openActs == 1 && actObserver) actObserver->OnActBegun(name);
}

void Platform::EndAct() {
    if (--openActs > 0) return;
    if (actObserver) actObserver->OnActEnded();
    if (!messages.HasPosted()) TellSettled();
}

void Platform::TellSettled() {
    if (actObserver) actObserver->OnActsSettled();
}

PasswordLock& Platform::Passwords() {
    if (!passwords) passwords = std::make_unique<PasswordLock>(GetProfile(), GetClock());
    return *passwords;
}

}  // namespace quillon
