#pragma once

#include <chrono>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace quillon {

/// A thread that does one job and ends by itself. Construct, `Resume`, and drop: the destructor waits for the end, so
/// that the thread never outlives what its job refers to.
class CWinThread {
public:
    /// `job` runs on the new thread and must not raise.
    explicit CWinThread(std::function<void()> job) : run(std::move(job)) {}
    ~CWinThread() { Join(); }
    CWinThread(const CWinThread&) = delete;
    CWinThread& operator=(const CWinThread&) = delete;

    /// Starts the job; false if the system has no thread left for it. To be called once.
    bool Resume();
    /// Waits for the end of the job; at once if it never started.
    void Join();
    /// Waits no longer than `limit`; true if the job has ended or never started.
    bool JoinFor(std::chrono::milliseconds limit);

private:
    std::function<void()> run;
    std::mutex mutex;  // guards running
    std::condition_variable changed;
    bool running = false;
    std::thread thread;
};

}  // namespace quillon
