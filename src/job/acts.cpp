#include "job/acts.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "foundation/paths.h"
#include "platform/text.h"

namespace quillon {
namespace {

/// Sets a flag for as long as the scope lasts.
class Holding {
public:
    explicit Holding(bool& held) : flag(held) { flag = true; }
    ~Holding() { flag = false; }
    Holding(const Holding&) = delete;
    Holding& operator=(const Holding&) = delete;

private:
    bool& flag;
};

std::size_t BytesOf(const FileChange& change) {
    const auto size = [](const std::optional<std::string>& bytes) { return bytes ? bytes->size() : 0; };
    return sizeof(FileChange) + change.path.size() + size(change.before) + size(change.after);
}

std::string NameOfFile(const std::string& path) {
    const tagPathParts parts = SplitPath(path);
    return parts.extension.empty() ? parts.name : parts.name + '.' + parts.extension;
}

}  // namespace

std::size_t Act::Bytes() const {
    return std::accumulate(files.begin(), files.end(), sizeof(Act) + name.size(),
                           [](std::size_t sum, const FileChange& change) { return sum + BytesOf(change); });
}

bool Act::Touches(std::string_view path) const {
    return std::any_of(files.begin(), files.end(),
                       [path](const FileChange& change) { return EqualNoCase(change.path, path); });
}

ActHistory::ActHistory(Platform& owner, JobRecord& job, std::size_t most)
    : platform(owner), files(owner.Files()), record(job), mostBytes(most), further(owner.Files().Observer()) {
    platform.SetActObserver(this);
    files.SetCommitObserver(this);
}

ActHistory::~ActHistory() {
    platform.SetActObserver(nullptr);
    if (files.Observer() == this) files.SetCommitObserver(further);
}

// ---- What is done ----

void ActHistory::OnActBegun(const std::string& name) {
    Settle();
    open.emplace().name = name;
    acting = true;
}

void ActHistory::OnActEnded() {
    // What the panes leave unwritten is written while the act lasts that it belongs to.
    record.KeepUnsaved();
    acting = false;
}

void ActHistory::OnCommitted(const FileCommit& commit) {
    if (further) further->OnCommitted(commit);
    if (commit.isResult || swapping || std::this_thread::get_id() != thread) return;
    if (!open) open.emplace().name = "Change of " + NameOfFile(commit.path);
    if (openTooLarge || commit.after.size() + commit.before.value_or("").size() > mostBytes) {
        openTooLarge = true;
        open->files.clear();
        return;
    }
    FileChange* change = FindChange(*open, commit.path);
    if (!change) {
        change = &open->files.emplace_back();
        change->path = commit.path;
        change->before = commit.before;
        change->guarded = !IsCursorFile(commit.path);
    }
    change->after = commit.after;
}

void ActHistory::OnSaveFailed(const FailedSave& failed) {
    if (further) further->OnSaveFailed(failed);
}

void ActHistory::NoteTold(const MSG& message) {
    const bool hasPoint = message.message == UM_REDRAW_CHART || message.message == UM_REDRAW_VECTOR_DISPLAY;
    const MSG noted{message.message, hasPoint ? 0 : message.wParam, 0};
    if (open && std::find(open->told.begin(), open->told.end(), noted) == open->told.end()) {
        open->told.push_back(noted);
    }
}

/// Ends the act that is open, if one is.
void ActHistory::Settle() {
    if (!open) return;
    Act act = std::move(*std::exchange(open, std::nullopt));
    std::erase_if(act.files, [](const FileChange& change) { return change.before == change.after; });
    if (std::exchange(openTooLarge, false) || act.Bytes() > mostBytes) {
        undone.clear();
        if (onAct) onAct();
        return;
    }
    if (act.files.empty()) return;
    if (std::none_of(act.files.begin(), act.files.end(), [](const FileChange& change) { return change.guarded; })) {
        return AddToFormer(act);
    }
    undone.clear();
    done.push_back(std::move(act));
    DropOldest();
    if (onAct) onAct();
}

/// While acts wait to be done again nothing is added: looking round must not cost them.
void ActHistory::AddToFormer(Act& act) {
    if (done.empty() || !undone.empty()) return;
    for (FileChange& change : act.files) {
        if (FileChange* const former = FindChange(done.back(), change.path)) {
            former->after = std::move(change.after);
        } else {
            done.back().files.push_back(std::move(change));
        }
    }
    DropOldest();
}

void ActHistory::DropOldest() {
    for (std::size_t bytes = Bytes(); bytes > mostBytes && !done.empty(); done.pop_front())
        bytes -= done.front().Bytes();
}

std::size_t ActHistory::Bytes() const {
    const auto add = [](std::size_t sum, const Act& act) { return sum + act.Bytes(); };
    return std::accumulate(undone.begin(), undone.end(), std::accumulate(done.begin(), done.end(), std::size_t{0}, add),
                           add);
}

bool ActHistory::IsCursorFile(const std::string& path) {
    const auto kinds = JobKinds();
    return std::any_of(kinds.begin(), kinds.end(), [&](const JobKind& kind) {
        const CFileListBase* const list = kind.list(record);
        return list && list->IsCursorFile(path);
    });
}

FileChange* ActHistory::FindChange(Act& act, const std::string& path) const {
    const auto found = std::find_if(act.files.begin(), act.files.end(), [&](const FileChange& change) {
        return change.path == path || files.Native(change.path) == files.Native(path);
    });
    return found == act.files.end() ? nullptr : &*found;
}

// ---- There and back ----

ActOutcome ActHistory::Undo() {
    if (acting) return {};
    Settle();
    if (done.empty()) return {};
    ActOutcome outcome = Swap(done.back(), SWAP::TO_BEFORE);
    if (outcome.done) {
        undone.push_back(std::move(done.back()));
        done.pop_back();
    }
    return outcome;
}

ActOutcome ActHistory::Redo() {
    if (acting) return {};
    Settle();
    if (undone.empty()) return {};
    ActOutcome outcome = Swap(undone.back(), SWAP::TO_AFTER);
    if (outcome.done) {
        done.push_back(std::move(undone.back()));
        undone.pop_back();
    }
    return outcome;
}

ActOutcome ActHistory::Swap(const Act& act, SWAP direction) {
    ActOutcome outcome;
    outcome.name = act.name;
    outcome.told = act.told;
    // Also while features come and go: what one writes as it goes is no act.
    const Holding hold(swapping);
    record.SetFollowing(false);
    const SwapResult swapped = SwapFiles(files, act.files, direction);
    record.SetFollowing(true);
    outcome.done = swapped.done;
    if (!swapped.done) {
        outcome.refusal = (direction == SWAP::TO_BEFORE ? "Not undone: " : "Not done again: ") + act.name + "\n" +
                          swapped.path + ": " + swapped.fault;
        return outcome;
    }
    std::vector<std::string> paths;
    for (const FileChange& change : act.files) paths.push_back(change.path);
    outcome.renewed = ReadRestored(record, paths);
    return outcome;
}

}  // namespace quillon
