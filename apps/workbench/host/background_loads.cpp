#include "host/background_loads.h"

#include <algorithm>
#include <array>
#include <utility>

#include "background/dtm_load.h"
#include "foundation/paths.h"

namespace quillon {
namespace {

const UINT kEnded = RegisterWindowMessage("UM_BACKGROUND_LOADED-{3C1B6B0A-58E5-4D5C-8D43-7B0C3D0E5A11}");

using Loads = std::deque<BackgroundLoad>;

/// The model is taken over as a whole, unless its files were changed or loaded meanwhile.
void AskForDtm(JobRecord& job, Loads& loads) {
    if (job.dtm.IsLoaded() || job.dtm.fileName[0].empty()) return;
    const auto loading = std::make_shared<CDtm>(job.dtm.GetFiles());
    loading->fileName = job.dtm.fileName;
    loading->limits = job.dtm.limits;
    const auto progress = std::make_shared<DtmProgress>();
    loads.push_back({KIND::DTM, NameOfPath(loading->fileName[0]), progress,
                     [loading, progress] { return LoadDtmFiles(*loading, *progress); },
                     [&job, loading](bool) {
                         if (!job.dtm.IsLoaded() && job.dtm.fileName == loading->fileName) job.dtm.TakeModel(*loading);
                     }});
}

/// The loaded shapes come to stand in the order of their list.
void AskForShapes(JobRecord& job, Loads& loads) {
    for (const std::string& path : job.shapes.files.paths) {
        if (job.shapes.Find(path)) continue;
        const auto shape = std::make_shared<CShape>(job.shapes.GetFiles());
        shape->SetPath(path);
        const auto progress = std::make_shared<LoadProgress>();
        loads.push_back({KIND::SHAPE, NameOfPath(path), progress,
                         [shape, progress] { return LoadShape(*shape, *progress, &shape->report); },
                         [&job, shape](bool done) {
                             const auto& paths = job.shapes.files.paths;
                             const bool wanted = std::find(paths.begin(), paths.end(), shape->GetPath()) != paths.end();
                             if (wanted && !job.shapes.Find(shape->GetPath())) job.shapes.Take(shape, done);
                         }});
    }
}

struct LoadKind {
    KIND kind;
    void (*ask)(JobRecord& job, Loads& loads);
};
constexpr std::array<LoadKind, 2> kLoadKinds = {{{KIND::DTM, AskForDtm}, {KIND::SHAPE, AskForShapes}}};

}  // namespace

BackgroundLoads::Running::Running(BackgroundLoads& owner)
    : worker(owner, kEnded, *owner.queue.front().progress, [this, work = owner.queue.front().work](LoadProgress&) {
          // However the work ends, by an exception too.
          struct Ending {
              std::atomic<bool>& flag;
              ~Ending() { flag = true; }
          } const ending{hasEnded};
          return done = work();
      }) {}

void BackgroundLoads::Start() {
    const bool wasBusy = IsBusy();
    for (const LoadKind& kind : kLoadKinds) kind.ask(job, queue);
    if (!wasBusy) Next();
}

void BackgroundLoads::Stop() {
    running.reset();
    queue.clear();
}

void BackgroundLoads::Next() {
    if (queue.empty()) return;
    running = std::make_unique<Running>(*this);
    // Without a thread left for it, it stays unread.
    if (!running->worker.Resume()) End();
}

void BackgroundLoads::End() {
    running->worker.Join();
    const bool done = running->done;
    running.reset();
    const BackgroundLoad ended = std::move(queue.front());
    queue.pop_front();
    ended.take(done);
    if (onTaken) onTaken(ended.kind);
    Next();
}

void BackgroundLoads::Settle() {
    while (IsBusy()) End();
}

LRESULT BackgroundLoads::OnMessage(const MSG& message) {
    if (message.message != kEnded) return CWnd::OnMessage(message);
    // The end of a load that was settled or stopped is still in the queue when the next one runs.
    if (running && running->hasEnded) End();
    return 0;
}

}  // namespace quillon
