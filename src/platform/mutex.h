#pragma once

#include <mutex>

namespace quillon {

/// The host's own, one for each list that its other threads look at. The thread that holds it may take it again, so
/// that the user-interface thread doesn't block itself while a modal window runs under the lock.
using CMutex = std::recursive_mutex;

}  // namespace quillon
