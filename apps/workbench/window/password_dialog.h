#pragma once

#include "platform/password.h"

class QWidget;

namespace quillon {

/// Asks for a new password of the alarm rows, or for its end; one that is in force must be given first. True if it was
/// set or cleared.
bool ChangePassword(QWidget* parent, PasswordLock& passwords);

}  // namespace quillon
