#include "host/save_watch.h"

#include <algorithm>
#include <utility>

#include "foundation/paths.h"
#include "platform/text.h"

namespace quillon {
namespace {

/// The last part of a path, with its extension.
std::string FileOf(const std::string& path) {
    return path.substr(FolderOfPath(path).size());
}

bool HoldTheSame(FileSystem& files, const std::string& a, const std::string& b) {
    constexpr std::size_t kLargest = std::size_t{1} << 28;
    std::string bytes[2];
    for (int i = 0; i < 2; ++i) {
        CStdioFile file(files);
        if (!file.OpenForReading(i == 0 ? a : b, FILE_MODE::BINARY) || !file.ReadAll(bytes[i], kLargest)) return false;
    }
    return bytes[0] == bytes[1];
}

}  // namespace

SaveWatch::SaveWatch(JobRecord& watchedJob)
    : job(watchedJob), files(watchedJob.routes.GetFiles()), next(files.Observer()) {
    files.SetCommitObserver(this);
}

SaveWatch::~SaveWatch() {
    if (files.Observer() == this) files.SetCommitObserver(next);
}

void SaveWatch::OnCommitted(const FileCommit& commit) {
    if (next) next->OnCommitted(commit);
    Settle(commit.path);
    if (job.routes.Find(commit.path) < 0) return;
    rewritten.push_back(commit.path);
    if (onChanged) onChanged();
}

void SaveWatch::OnSaveFailed(const FailedSave& failed) {
    if (next) next->OnSaveFailed(failed);
    std::erase_if(failures, [&](const FailedSave& f) { return EqualNoCase(f.path, failed.path); });
    failures.push_back(failed);
    if (onChanged) onChanged();
}

void SaveWatch::Settle(std::string_view path) {
    const auto gone = std::erase_if(failures, [&](const FailedSave& f) { return EqualNoCase(f.path, path); });
    if (gone > 0 && onChanged) onChanged();
}

std::vector<SaveWatch::Loss> SaveWatch::TakeLosses() {
    std::vector<Loss> losses;
    for (const std::string& path : std::exchange(rewritten, {})) {
        const int index = job.routes.Find(path);
        if (index < 0) continue;
        const RouteSave& save = job.routes[index].GetLastSave();
        if (!save.saved || !save.losses.Any()) continue;
        // Nothing is lost where the rewrite has been undone.
        if (!files.Exists(save.original) || HoldTheSame(files, path, save.original)) continue;
        losses.push_back({path, save.original, save.losses});
    }
    return losses;
}

std::string FailureText(const std::vector<FailedSave>& failures) {
    if (failures.empty()) return {};
    const FailedSave& last = failures.back();
    std::string text = FileOf(last.path) + " can't be saved: " + last.reason;
    if (failures.size() > 1) text += Format(" (and %zu more)", failures.size() - 1);
    return text;
}

std::string LossText(const SaveWatch::Loss& loss) {
    std::string lost;
    for (std::size_t i = 0; i < kLossKinds; ++i) {
        const auto kind = static_cast<LOSS>(i);
        if (loss.losses.Count(kind) == 0) continue;
        if (!lost.empty()) lost += ", ";
        lost += LossText(kind);
        lost += Format(" (%zu)", loss.losses.Count(kind));
    }
    std::string text = FileOf(loss.path) + " was rewritten and lost " + lost;
    if (!loss.original.empty()) text += "; it is kept as it was in " + FileOf(loss.original);
    return text;
}

}  // namespace quillon
