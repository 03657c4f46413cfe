#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "job/file_swap.h"
#include "job/restored.h"
#include "platform/platform.h"

namespace quillon {

/// What one act of the operator did to the files of a job.
struct Act {
    std::string name;  ///< "Boundary: Colour"
    std::vector<FileChange> files;
    std::vector<MSG> told;  ///< by which panes told of it, each once, without the points that they carried

    /// Memory that its files take.
    std::size_t Bytes() const;
    bool Touches(std::string_view path) const;
};

/// What came of an undo or a redo.
struct ActOutcome {
    bool done = false;
    std::string name;     ///< of the act; empty where there was none
    std::string refusal;  ///< why it wasn't done, with the file that stood in the way; for people
    std::vector<MSG> told;
    Restored renewed;
};

/// The acts of the operator, with what it takes to undo and to do them again.
///
/// What is committed from the beginning of an act until the next begins, or until all that it posted has been
/// delivered, belongs to it. What is committed at other times is an act by itself. An act without a changed file is
/// none, and one that did no more than move a cursor is part of the one before it. Exports are no part of a job, so
/// they belong to no act.
///
/// The history is kept in memory and bounded: the oldest acts are dropped first, and an act that alone is too large
/// isn't kept. It observes the platform and its files as long as it lives; all on the user-interface thread. Commits on
/// other threads aren't acts.
class ActHistory : private ActObserver, private CommitObserver {
public:
    static constexpr std::size_t kBytes = std::size_t{64} << 20;

    ActHistory(Platform& platform, JobRecord& record, std::size_t mostBytes = kBytes);
    ~ActHistory() override;
    ActHistory(const ActHistory&) = delete;
    ActHistory& operator=(const ActHistory&) = delete;

    /// Oldest first.
    const std::deque<Act>& Done() const { return done; }
    /// The next to be done again last.
    const std::vector<Act>& Undone() const { return undone; }

    /// Puts the files of the last act back byte for byte, all or none, and reads anew what hangs on them. Refused where
    /// another program has changed one of them since; the act then stays done. Nothing happens within an act.
    ActOutcome Undo();
    /// The same the other way round.
    ActOutcome Redo();

    /// A message by which a pane tells of what is done.
    void NoteTold(const MSG& message);

    /// An act was added; not for what Undo and Redo do.
    std::function<void()> onAct;

private:
    void OnActBegun(const std::string& name) override;
    void OnActEnded() override;
    void OnActsSettled() override { Settle(); }
    void OnCommitted(const FileCommit& commit) override;
    void OnSaveFailed(const FailedSave& failed) override;

    void Settle();
    void AddToFormer(Act& act);
    void DropOldest();
    std::size_t Bytes() const;
    bool IsCursorFile(const std::string& path);
    FileChange* FindChange(Act& act, const std::string& path) const;
    ActOutcome Swap(const Act& act, SWAP direction);

    Platform& platform;
    FileSystem& files;
    JobRecord& record;
    std::size_t mostBytes;
    CommitObserver* further;  ///< who observed the commits before, and goes on being told
    std::thread::id thread = std::this_thread::get_id();
    std::deque<Act> done;
    std::vector<Act> undone;
    std::optional<Act> open;
    bool openTooLarge = false;
    bool acting = false;    ///< within an act
    bool swapping = false;  ///< what is committed is an undo's
};

}  // namespace quillon
