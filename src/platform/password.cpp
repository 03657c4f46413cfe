#include "platform/password.h"

#include <crypt.h>
#include <string.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "platform/platform.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kSection = "Password";
constexpr std::string_view kKey = "Hash";
constexpr std::string_view kWrongKey = "Wrong";

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

/// How long the entry after so many wrong ones must wait.
Clock::Time WaitAfter(int wrong) {
    if (wrong < kFreeEntries) return Clock::Time{0};
    Clock::Time wait = kFirstWait;
    for (int i = kFreeEntries; i < wrong && wait < kLongestWait; ++i) wait *= 2;
    return std::min<Clock::Time>(wait, kLongestWait);
}

/// In a time that doesn't tell how far two hashes agree.
bool AreEqual(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    int difference = 0;
    for (std::size_t i = 0; i < a.size(); ++i) difference |= a[i] ^ b[i];
    return difference == 0;
}

}  // namespace

PasswordLock::PasswordLock(Profile& lockProfile, const Clock& lockClock) : profile(lockProfile), clock(lockClock) {
    wrongInARow = std::max(0, profile.GetInt(kSection, kWrongKey, 0));
    waitUntil = clock.Now() + WaitAfter(wrongInARow);
}

bool PasswordLock::IsPasswordPresent() const {
    return !profile.GetText(kSection, kKey, "").empty();
}

bool PasswordLock::Set(std::string_view text) {
    // Without bytes of its own the library takes the salt from the system's random numbers.
    const std::unique_ptr<char, decltype(&std::free)> salt(::crypt_gensalt_ra(kMethod, kCost, nullptr, 0), &std::free);
    const std::string hash = salt ? HashOf(text, salt.get()) : std::string();
    if (hash.empty()) return false;
    profile.SetText(kSection, kKey, hash);
    SetWrong(0);
    return true;
}

void PasswordLock::Clear() {
    profile.SetText(kSection, kKey, "");
    SetWrong(0);
}

PASSWORD_ANSWER PasswordLock::Check(std::string_view text) {
    const std::string kept = profile.GetText(kSection, kKey, "");
    if (kept.empty()) return PASSWORD_ANSWER::WRONG;
    if (clock.Now() < waitUntil) return PASSWORD_ANSWER::WAIT;
    const std::string hash = HashOf(text, kept.c_str());
    if (hash.empty() || !AreEqual(hash, kept)) {
        SetWrong(wrongInARow + 1);
        return PASSWORD_ANSWER::WRONG;
    }
    SetWrong(0);
    return PASSWORD_ANSWER::RIGHT;
}

std::string PasswordLock::Complaint(PASSWORD_ANSWER answer) const {
    if (answer == PASSWORD_ANSWER::RIGHT) return {};
    const Clock::Time left = std::max(waitUntil - clock.Now(), Clock::Time{0});
    const auto seconds = static_cast<int>(std::chrono::ceil<std::chrono::seconds>(left).count());
    if (answer == PASSWORD_ANSWER::WAIT) return Format("Too many wrong passwords. Wait for %d s.", seconds);
    if (seconds > 0) return Format("Wrong password. Wait for %d s before the next.", seconds);
    return "Wrong password.";
}

void PasswordLock::SetWrong(int count) {
    if (count != wrongInARow) profile.SetInt(kSection, kWrongKey, count);
    wrongInARow = count;
    waitUntil = clock.Now() + WaitAfter(count);
}

}  // namespace quillon
