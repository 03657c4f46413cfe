#include "progress_line.h"

#include <chrono>
#include <exception>
#include <ostream>
#include <string>

#include "platform/text.h"
#include "platform/win_thread.h"

namespace quillon {

bool RunWithProgress(CliContext& context, std::string_view what, LoadProgress& progress,
                     const std::function<bool()>& work) {
    constexpr std::chrono::milliseconds kTick{100};
    if (!context.errIsTerminal) return work();
    bool done = false;
    std::exception_ptr raised;
    CWinThread worker([&] {
        try {
            done = work();
        } catch (...) {
            raised = std::current_exception();
        }
    });
    if (!worker.Resume()) return work();
    std::string line;
    while (!worker.JoinFor(kTick)) {
        line = std::string(what) + Format("  %3d %%", progress.GetThousandths() / 10);
        context.err << '\r' << line << std::flush;
    }
    worker.Join();
    context.err << '\r' << std::string(line.size(), ' ') << '\r' << std::flush;
    if (raised) std::rethrow_exception(raised);
    return done;
}

}  // namespace quillon
