#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <exception>

namespace quillon {

/// Runs `work` in a process of its own, which ends by force when the object goes.
class ChildProcess {
public:
    template <class Work>
    explicit ChildProcess(Work work) : pid(::fork()) {
        if (pid != 0) return;
        try {
            ::_exit(work());
        } catch (const std::exception&) {
            ::_exit(99);
        }
    }
    ~ChildProcess() { Kill(); }
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    void Kill() {
        if (pid <= 0) return;
        ::kill(pid, SIGKILL);
        Wait();
    }
    /// The number that `work` returned; -1 if it didn't get that far.
    int Wait() {
        int status = 0;
        ::waitpid(pid, &status, 0);
        pid = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    pid_t pid;
};

/// What `work` returns in a process that has no rights but those of everybody.
template <class Work>
int AsNobody(Work work) {
    constexpr unsigned kNobody = 65534;
    return ChildProcess([&] {
               if (::geteuid() == 0 && (::setgid(kNobody) != 0 || ::setuid(kNobody) != 0)) return 98;
               return work();
           })
        .Wait();
}

}  // namespace quillon
