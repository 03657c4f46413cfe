#include "platform/platform.h"

#include <utility>

namespace quillon {

Platform::Platform(std::filesystem::path drives, std::string commandLine, std::unique_ptr<Clock> platformClock)
    : files(std::move(drives), std::move(commandLine)), clock(std::move(platformClock)), messages(*clock) {}

Platform::~Platform() = default;

PasswordLock& Platform::Passwords() {
    if (!passwords) passwords = std::make_unique<PasswordLock>(GetProfile(), GetClock());
    return *passwords;
}

}  // namespace quillon
