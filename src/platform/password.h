#pragma once

#include <string>
#include <string_view>

#include "platform/message_queue.h"

namespace quillon {

class Profile;

enum class PASSWORD_ANSWER {
    RIGHT,
    WRONG,
    WAIT  ///< after too many wrong ones: not looked at, also if it would have been right
};

/// The password that locks rows of a pane. The profile keeps a salted hash of it (yescrypt), never the text, and no
/// other copy is made. A password is taken by its bytes as they are given.
///
/// Guessing is slowed down: after three wrong entries in a row the next is not looked at for 2 s, and each further
/// wrong one doubles that, up to 5 minutes. The waiting is on the clock of the platform. The profile keeps the count of
/// wrong entries, so that a new start of the program only begins the last wait anew.
class PasswordLock {
public:
    PasswordLock(Profile& profile, const Clock& clock);

    bool IsPasswordPresent() const;
    /// False, with the old password still in force, for an empty text, one with a NUL, or one over 511 bytes.
    bool Set(std::string_view text);
    void Clear();
    /// WRONG where no password is set.
    PASSWORD_ANSWER Check(std::string_view text);
    /// What to tell the operator of an answer, with the seconds left to wait; empty for RIGHT.
    std::string Complaint(PASSWORD_ANSWER answer) const;

private:
    void SetWrong(int count);

    Profile& profile;
    const Clock& clock;
    int wrongInARow = 0;
    Clock::Time waitUntil{0};
};

}  // namespace quillon
