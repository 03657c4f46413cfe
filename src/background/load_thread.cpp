#include "background/load_thread.h"

#include <exception>
#include <utility>

#include "platform/platform.h"

namespace quillon {

// The queue outlives the window, which may be half gone when the message is posted.
CLoadThread::CLoadThread(CWnd& owner, UINT endMessage, LoadProgress& shared, Work work)
    : progress(shared),
      thread([this, &queue = owner.GetPlatform().Messages(), id = owner.GetId(), endMessage, work = std::move(work)] {
          const bool stopped = !Run(work) || progress.IsCancelled();
          queue.Post(id, {endMessage, stopped ? WPARAM{1} : WPARAM{0}, 0});
      }) {}

CLoadThread::~CLoadThread() {
    Cancel();
    Join();
}

bool CLoadThread::Run(const Work& work) {
    try {
        return work(progress);
    } catch (const std::exception& error) {
        failure = error.what();
        return false;
    }
}

}  // namespace quillon
