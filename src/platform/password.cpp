#include "platform/password.h"

#include <crypt.h>
#include <string.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "platform/platform.h"

namespace quillon {
namespace {

constexpr std::string_view kSection = "Password";
constexpr std::string_view kKey = "Hash";

constexpr const char* kMethod = "$y$";
/// 16 MB and some 30 ms for each guess; the operator doesn't notice, a list of guesses does.
constexpr unsigned long kCost = 5;

constexpr int kFreeEntries = 3;
constexpr std::chrono::seconds kFirstWait{2};
constexpr std::chrono::seconds kLongestWait{300};

/// The hash of `text` under `setting`, which is a salt or another hash; empty where there is none.
std::string HashOf(std::string_view text, const char* setting) {
    if (text.empty() || text.size() >= CRYPT_MAX_PASSPHRASE_SIZE || text.find('\0') != std::string_view::npos)
        return {};
    const auto data = std::make_unique<crypt_data>();
    std::string phrase(text);
    const char* const hash = ::crypt_r(phrase.c_str(), setting, data.get());
    // Failures come as null or as a text that begins with an asterisk.
    std::string result = hash && hash[0] != '*' ? hash : "";
    ::explicit_bzero(phrase.data(), phrase.size());
    ::explicit_bzero(data.get(), sizeof(crypt_data));
    return result;
}

/// In a time that doesn't tell how far two hashes agree.
bool AreEqual(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    int difference = 0;
    for (std::size_t i = 0; i < a.size(); ++i) difference |= a[i] ^ b[i];
    return difference == 0;
}

}  // namespace

PasswordLock::PasswordLock(Profile& lockProfile, const Clock& lockClock) : profile(lockProfile), clock(lockClock) {}

bool PasswordLock::IsPasswordPresent() const {
    return !profile.GetText(kSection, kKey, "").empty();
}

bool PasswordLock::Set(std::string_view text) {
    // Without bytes of its own the library takes the salt from the system's random numbers.
    const std::unique_ptr<char, decltype(&std::free)> salt(::crypt_gensalt_ra(kMethod, kCost, nullptr, 0), &std::free);
    const std::string hash = salt ? HashOf(text, salt.get()) : std::string();
    if (hash.empty()) return false;
    profile.SetText(kSection, kKey, hash);
    wrongInARow = 0;
    waitUntil = Clock::Time{0};
    return true;
}

void PasswordLock::Clear() {
    profile.SetText(kSection, kKey, "");
    wrongInARow = 0;
    waitUntil = Clock::Time{0};
}

PASSWORD_ANSWER PasswordLock::Check(std::string_view text) {
    const std::string kept = profile.GetText(kSection, kKey, "");
    if (kept.empty()) return PASSWORD_ANSWER::WRONG;
    if (wrongInARow >= kFreeEntries && clock.Now() < waitUntil) return PASSWORD_ANSWER::WAIT;
    const std::string hash = HashOf(text, kept.c_str());
    if (hash.empty() || !AreEqual(hash, kept)) {
        CountWrong();
        return PASSWORD_ANSWER::WRONG;
    }
    wrongInARow = 0;
    return PASSWORD_ANSWER::RIGHT;
}

void PasswordLock::CountWrong() {
    ++wrongInARow;
    Clock::Time wait = kFirstWait;
    for (int i = kFreeEntries; i < wrongInARow && wait < kLongestWait; ++i) wait *= 2;
    waitUntil = clock.Now() + std::min<Clock::Time>(wait, kLongestWait);
}

}  // namespace quillon
