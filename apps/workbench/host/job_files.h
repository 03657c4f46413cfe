#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "host/job.h"

namespace quillon {

// What is done to the files of a job from outside of their panes: each act goes the way that it takes in the pane, so
// that the same is saved and told. A file is known by its kind and path, since its number may have changed by the time
// that an act arrives; where it has gone nothing is done.

struct JobFile {
    KIND kind = KIND::NONE;
    std::string path;
    friend auto operator<=>(const JobFile&, const JobFile&) = default;
};

/// The number of a file within its kind; -1 if it isn't there.
int FindFile(const JobRecord& job, const JobFile& file);

/// The panes in which a kind is shown, in the order of the registry.
std::vector<CMyDockablePane*> PanesOf(const Job& job, KIND kind);

/// The panes of the kind show this file. False if it isn't there.
bool ShowFile(Job& job, const JobFile& file);

/// Whether the pane of the kind has a row by which a file is displayed or hidden.
bool CanSetDisplayed(const Job& job, KIND kind);
/// Sets that row, with the pane on the file. False if it can't be set.
bool SetDisplayed(Job& job, const JobFile& file, bool displayed);

bool CanRemove(const Job& job, KIND kind);
/// Takes the file out of the job, as the pane's button does; the file on the disk stays.
bool RemoveFile(Job& job, const JobFile& file);

/// Reads the file anew in its place. False, with what was read before, if it can't be opened.
bool ReadAgain(Job& job, const JobFile& file);

/// Asks the operator for files of a kind, by the button of its pane. False if there is no such button.
bool AddFiles(Job& job, KIND kind);

/// A file that another program has changed on the disk since it was read.
struct ChangedFile {
    JobFile file;
    DISK_CHANGE change = DISK_CHANGE::NONE;
    friend auto operator<=>(const ChangedFile&, const ChangedFile&) = default;
};
/// All of them, in the order of kinds and files; asks the disk once a file.
std::vector<ChangedFile> FilesChangedOnDisk(const JobRecord& job);

}  // namespace quillon
