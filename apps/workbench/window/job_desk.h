#pragma once

#include <QMainWindow>
#include <functional>
#include <map>
#include <optional>
#include <vector>

#include "host/job_tree.h"
#include "host/save_watch.h"
#include "window/job_tree_dock.h"
#include "window/notice_strip.h"
#include "window/pane_docks.h"
#include "window/read_report_dock.h"
#include "window/status_line.h"

namespace quillon {

/// What stands round the chart and is about the files of the job rather than about one of them: the job tree, the read
/// report, the standing notices. It does what they ask for, and keeps tree, panes and chart on the same file.
class JobDesk {
public:
    JobDesk(QMainWindow& mainWindow, Job& shownJob, PaneDocks& paneDocks, StatusLine& statusLine);
    ~JobDesk();
    JobDesk(const JobDesk&) = delete;
    JobDesk& operator=(const JobDesk&) = delete;

    JobTreeDock& Tree() { return *treeDock; }
    ReadReportDock& Report() { return *reportDock; }
    NoticeStrip& Notices() { return *notices; }

    /// Brings all of it up to date with the job, when its messages have been answered.
    void Refresh();
    /// Looks for files that other programs have changed: a question to the disk for each.
    void LookAtDisk();
    /// The job could not be opened for writing.
    void SayReadOnly(const QString& why);

    /// The file that was chosen elsewhere: on the chart, in a list.
    void Select(const JobPoint& point);
    /// A pane was brought to the front: the tree goes to the file that it shows.
    void FollowFront() { SelectShown(docks.FrontKind()); }
    /// What files would be added to: the kind with the keyboard, else the one in front.
    KIND FrontKind() const;
    void AddFilesOf(KIND kind);
    /// The file in the tree's cursor.
    void ReadCurrentAgain();
    void ReadChangedAgain();
    /// The read report with the keyboard in it, on the tree's file if something was found there.
    void ShowReport();

    std::function<void(const JobFile& file)> onZoom;

private:
    JobTreeRequests Requests();
    void RefreshTree();
    void FollowCombos();
    void SelectShown(KIND kind);
    void ReadFilesAgain(const std::vector<JobFile>& files);
    void Reveal(const JobFile& file);
    void ShowReportOf(const std::optional<JobFile>& file);
    void TellNews();
    void Later(std::function<void()> act);

    void ShowFailures();
    void ShowLosses();
    /// Undoes the act by which a file lost something, if it is still the last of so many.
    void UndoLoss(std::size_t actsThen);
    void ShowChanged(const std::vector<ChangedFile>& changed);
    void KeepAsRead(const std::vector<ChangedFile>& changed);

    QMainWindow& window;
    Job& job;
    PaneDocks& docks;
    StatusLine& status;
    JobTree tree;
    SaveWatch saves;
    JobTreeDock* treeDock;
    ReadReportDock* reportDock;
    NoticeStrip* notices;
    bool savesStale = false;
    /// Changed files that the operator wants as they were read, with what was on the disk then.
    std::map<JobFile, std::optional<FileStamp>> keptAsRead;
    std::vector<JobFile> readable;  ///< of the files in the notice those that can be read again
    QObject context;                ///< ends what is still to be done
};

}  // namespace quillon
