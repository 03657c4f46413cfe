#pragma once

#include <atomic>
#include <deque>
#include <functional>
#include <memory>
#include <string>

#include "background/load_thread.h"
#include "job/job_record.h"
#include "job/kinds.h"
#include "platform/window.h"

namespace quillon {

/// One file of a job that is read on a worker while the operator goes on working.
struct BackgroundLoad {
    KIND kind;
    std::string name;                        ///< for people
    std::shared_ptr<LoadProgress> progress;  ///< that the work runs over
    /// On the worker: fills what nobody else looks at. It owns what it works with.
    std::function<bool()> work;
    /// On the user-interface thread: hands it to the job, if the job still wants it. `done` is false for a load that
    /// was stopped or has failed.
    std::function<void(bool done)> take;
};

/// Loads what lies under the chart of a job, one file after another, so that the job opens at once. The job is lent.
class BackgroundLoads : public CWnd {
public:
    BackgroundLoads(Platform& platform, JobRecord& record) : CWnd(platform), job(record) {}

    /// Asks for all that the job names and hasn't loaded.
    void Start();
    /// Stops what is under way and forgets the rest.
    void Stop();
    /// Waits until all of it is there, for a picture.
    void Settle();

    bool IsBusy() const { return !queue.empty(); }
    /// Of the file that is being read; empty for none.
    std::string CurrentName() const { return queue.empty() ? std::string() : queue.front().name; }

    /// After a file was handed to the job, or has failed to load.
    std::function<void(KIND kind)> onTaken;

    LRESULT OnMessage(const MSG& message) override;

private:
    /// A load that is under way; the worker goes before what it works with.
    struct Running {
        explicit Running(BackgroundLoads& owner);
        bool done = false;
        std::atomic<bool> hasEnded{false};
        CLoadThread worker;
    };

    void Next();
    void End();

    JobRecord& job;
    std::deque<BackgroundLoad> queue;  // the first is running
    std::unique_ptr<Running> running;
};

}  // namespace quillon
