#pragma once

#include <functional>
#include <string>

#include "background/load_progress.h"
#include "platform/win_thread.h"
#include "platform/window.h"

namespace quillon {

/// The worker of one load. It runs the work on a thread of its own and, as its last act, posts `endMessage` to the
/// window that waits, with the load's flag as wParam: 1 if it was stopped or has failed, else 0.
///
/// Declare it behind what the work refers to: the destructor raises the cancel flag and waits for the thread.
class CLoadThread {
public:
    /// Returns false if the load has failed so that its window ends as if Quit was pressed. What it raises counts as a
    /// failure; `GetFailure` keeps the words.
    using Work = std::function<bool(LoadProgress&)>;

    CLoadThread(CWnd& owner, UINT endMessage, LoadProgress& shared, Work work);
    ~CLoadThread();

    /// False if the system has no thread left.
    bool Resume() { return thread.Resume(); }
    /// Waits for the end. What the work has filled may be read from then on.
    void Join() { thread.Join(); }
    /// Raises the cancel flag.
    void Cancel() { progress.Cancel(); }

    /// What the work raised; empty if nothing. To be read after `Join`.
    const std::string& GetFailure() const { return failure; }

private:
    bool Run(const Work& work);

    LoadProgress& progress;
    std::string failure;
    CWinThread thread;
};

}  // namespace quillon
