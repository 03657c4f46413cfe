// The least that a program does to host the library: it owns a job, shows one pane of it, and listens. The folder for
// the drives is its argument.

#include <cstdio>
#include <fstream>

#include "frame/messages.h"
#include "job/job_record.h"
#include "panes/boundary_pane.h"
#include "platform/headless.h"
#include "platform/user_actions.h"

namespace {

class Host : public quillon::CWnd {
public:
    using CWnd::CWnd;
    quillon::LRESULT OnMessage(const quillon::MSG& message) override {
        if (message.message == quillon::UM_REDRAW_CHART) ++redraws;
        return 0;
    }
    int redraws = 0;
};

}  // namespace

int main(int argc, char** argv) {
    using namespace quillon;
    if (argc != 2) return 2;
    HeadlessPlatform platform(argv[1], "Host");
    std::ofstream(platform.Files().Native("C:\\area.csv")) << "500000,6000000\n500100,6000000\n500100,6000100\n";

    Host host(platform);
    JobRecord job(platform.Files());
    job.Load();
    CBoundaryPane pane(platform);
    if (!pane.Create(&host, CBoundaryPane::kTitleId, job.boundaries)) return 1;

    platform.AnswerFiles({"C:\\area.csv"});
    user::Press(pane.GetAddButton());
    platform.Messages().Pump();
    std::printf("%d boundary, %d points, %d redraw\n", job.boundaries.GetCount(), pane.GetTable().GetItemCount(),
                host.redraws);
    return job.boundaries.GetCount() == 1 && pane.GetTable().GetItemCount() == 3 && host.redraws == 1 ? 0 : 1;
}
