#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "features/route_rewrite.h"
#include "job/job_record.h"

namespace quillon {

/// What became of the files that the program saves: the saves that failed and have not succeeded since, and the
/// rewrites by which something of a data file was lost.
///
/// It stands in front of the observer of commits that was there before it, and hands everything on. Told on the
/// user-interface thread, in the middle of an act: who is told looks at it later.
class SaveWatch : private CommitObserver {
public:
    explicit SaveWatch(JobRecord& watchedJob);
    ~SaveWatch() override;
    SaveWatch(const SaveWatch&) = delete;
    SaveWatch& operator=(const SaveWatch&) = delete;

    /// In the order of their coming; one a file, with the last reason.
    const std::vector<FailedSave>& Failures() const { return failures; }

    /// The file was read again: there is nothing of it left to be saved.
    void Settle(std::string_view path);

    /// A route's data file was replaced, and something of it is not in the new one.
    struct Loss {
        std::string path;
        std::string original;  ///< where the file stands as it was before
        RewriteLosses losses;
    };
    /// The losses of the rewrites since the last call. Not in the middle of an act.
    std::vector<Loss> TakeLosses();

    /// Something is to be said or no longer to be said.
    std::function<void()> onChanged;

private:
    void OnCommitted(const FileCommit& commit) override;
    void OnSaveFailed(const FailedSave& failed) override;

    JobRecord& job;
    FileSystem& files;
    CommitObserver* next;
    std::vector<FailedSave> failures;
    std::vector<std::string> rewritten;  ///< data files of routes
};

/// "Export.DRW can't be saved: the disk is full", and how many others.
std::string FailureText(const std::vector<FailedSave>& failures);
/// "Transit.csv was rewritten and lost names (3), lines without a point (2); it is kept as it was in Transit
/// (original).csv"
std::string LossText(const SaveWatch::Loss& loss);

}  // namespace quillon
