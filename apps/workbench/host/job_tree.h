#pragma once

#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "host/job_files.h"

namespace quillon {

/// What there is to say of a file, the gravest of it.
enum class TREE_MARK : std::uint8_t {
    NONE,
    LINES_PASSED_OVER,  ///< something in the file was not taken, or not wholly
    CHANGED,            ///< another program has changed it since it was read
    STUB,               ///< it was read and is of no use
    MISSING             ///< it couldn't be read
};

/// A file as the tree shows it: a copy, which outlives the file itself until the tree is brought up to date.
struct TreeFile {
    std::string path;
    std::string name;
    bool displayed = false;
    KindLook look;
    int points = 0;
    TREE_MARK mark = TREE_MARK::NONE;
    // Of what the last reading made of it; another set of these is another reading.
    bool opened = false;
    std::size_t lines = 0;
    std::size_t found = 0;  ///< lines passed over or taken in part
    friend bool operator==(const TreeFile&, const TreeFile&) = default;
};

/// What shows the tree. Rows are numbers of files within a kind.
class JobTreeObserver {
public:
    virtual ~JobTreeObserver() = default;
    /// Before and after rows come in.
    virtual void OnFilesComing(KIND kind, int first, int last) = 0;
    virtual void OnFilesCame() = 0;
    /// Before and after rows go.
    virtual void OnFilesGoing(KIND kind, int first, int last) = 0;
    virtual void OnFilesGone() = 0;
    virtual void OnFilesChanged(KIND kind, int first, int last) = 0;
};

/// The kinds of a job with their files, as far as a tree shows them. `Refresh` brings it up to date and tells row by
/// row what has changed; it is called when the job's messages have been answered, never in the middle of an act.
class JobTree {
public:
    explicit JobTree(const JobRecord& shownJob);

    void SetObserver(JobTreeObserver* newObserver) { observer = newObserver; }
    void Refresh();
    /// The files that another program has changed; shown with the next refresh.
    void SetChanged(const std::vector<ChangedFile>& changedFiles);

    const std::vector<TreeFile>& FilesOf(KIND kind) const { return files[static_cast<std::size_t>(kind)]; }
    /// Whether any file has a mark.
    bool HasMarks() const;
    /// The row of a file; -1 if the tree doesn't hold it.
    int RowOf(const JobFile& file) const;
    /// All that is to be said of a row: its path, what it holds, what is wrong with it. A few lines.
    std::string TipOf(KIND kind, int row) const;

    /// The files in which something was found since the last call: read for the first time or again.
    std::vector<JobFile> TakeNews() { return std::exchange(news, {}); }

private:
    TreeFile Look(const JobKind& kind, int file) const;
    void RefreshKind(const JobKind& kind);
    void UpdateRows(const JobKind& kind, int first, int last);
    void NoteReading(const JobKind& kind, const TreeFile& file);

    const JobRecord& job;
    JobTreeObserver* observer = nullptr;
    std::vector<std::vector<TreeFile>> files;  // by kind
    std::set<JobFile> changed;
    std::vector<JobFile> news;
};

/// "Wrecks: 3 of 120 lines passed over", "4 files: 17 lines passed over or taken in part, 1 file can't be read". Empty
/// if none of the files is there.
std::string NewsText(const JobTree& tree, const std::vector<JobFile>& news);

}  // namespace quillon
