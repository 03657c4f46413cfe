#include "window/job_desk.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDesktopServices>
#include <QProcess>
#include <QTimer>
#include <QUrl>
#include <algorithm>
#include <utility>

#include "foundation/paths.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

constexpr int kTreeWidth = 270;
constexpr int kReportHeight = 150;
constexpr int kMostDetails = 20;

using TOPIC = NoticeStrip::TOPIC;

QString NameOf(const std::string& path) {
    return ToQString(path.substr(FolderOfPath(path).size()));
}

/// Some lines for a tip, the rest counted.
QString Listed(const QStringList& lines) {
    if (lines.size() <= kMostDetails) return lines.join('\n');
    return lines.mid(0, kMostDetails).join('\n') + QString("\nand %1 more").arg(lines.size() - kMostDetails);
}

}  // namespace

JobDesk::JobDesk(QMainWindow& mainWindow, Job& shownJob, PaneDocks& paneDocks, StatusLine& statusLine)
    : window(mainWindow),
      job(shownJob),
      docks(paneDocks),
      status(statusLine),
      tree(shownJob.Record()),
      saves(shownJob.Record()),
      treeDock(new JobTreeDock(tree, shownJob, Requests(), &mainWindow)),
      reportDock(new ReadReportDock(&mainWindow)),
      notices(new NoticeStrip(&mainWindow)) {
    docks.AddSide({treeDock, Qt::LeftDockWidgetArea, true, kTreeWidth});
    docks.AddSide({reportDock, Qt::BottomDockWidgetArea, false, kReportHeight});
    window.addToolBar(Qt::BottomToolBarArea, notices);
    saves.onChanged = [this] {
        if (std::exchange(savesStale, true)) return;
        Later([this] {
            savesStale = false;
            ShowFailures();
            ShowLosses();
            LookAtDisk();
        });
    };
    reportDock->onCopied = [this](const QString& text) { status.ShowMessage("Copied: " + text); };
    QObject::connect(reportDock, &QDockWidget::visibilityChanged, &context, [this](bool shown) {
        if (shown) reportDock->SetFindings(FindingsOf(job.Record()));
    });
    FollowCombos();
}

/// The window would keep its docks for longer than what they show.
JobDesk::~JobDesk() {
    delete treeDock;
    delete reportDock;
    delete notices;
}

void JobDesk::Later(std::function<void()> act) {
    QTimer::singleShot(0, &context, std::move(act));
}

// ---- What the tree asks for ----

JobTreeRequests JobDesk::Requests() {
    JobTreeRequests asked;
    asked.show = [this](const JobFile& file, bool withKeyboard) {
        ShowFile(job, file);
        QDockWidget* const dock = docks.DockOf(file.kind);
        if (!dock) return;
        if (withKeyboard) {
            docks.BringToFront(*dock);
        } else {
            docks.Raise(file.kind);
        }
    };
    asked.zoom = [this](const JobFile& file) {
        if (onZoom) onZoom(file);
    };
    asked.add = [this](KIND kind) { AddFilesOf(kind); };
    asked.remove = [this](const std::vector<JobFile>& files) {
        const UserAct act(job.GetPlatform(), files.size() == 1 ? "Remove File" : "Remove Files");
        for (const JobFile& file : files) RemoveFile(job, file);
    };
    asked.display = [this](const std::vector<JobFile>& files, bool displayed) {
        const UserAct act(job.GetPlatform(), displayed ? "Display" : "Hide");
        for (const JobFile& file : files) SetDisplayed(job, file, displayed);
    };
    asked.readAgain = [this](const std::vector<JobFile>& files) { ReadFilesAgain(files); };
    asked.report = [this](const JobFile& file) { ShowReportOf(file); };
    asked.reveal = [this](const JobFile& file) { Reveal(file); };
    asked.copy = [](const std::vector<JobFile>& files) {
        QStringList paths;
        for (const JobFile& file : files) paths += ToQString(file.path);
        if (!paths.isEmpty()) QApplication::clipboard()->setText(paths.join('\n'));
    };
    return asked;
}

/// A file chosen in a pane is the tree's file too, where the tree stands on a file of that kind.
void JobDesk::FollowCombos() {
    for (std::size_t i = 0; i < docks.Docks().size(); ++i) {
        const KIND kind = KindOfPane(job.Panes()[i]->GetDlgCtrlID());
        for (QComboBox* const combo : docks.Docks()[i]->findChildren<QComboBox*>()) {
            QObject::connect(combo, &QComboBox::activated, &context, [this, kind] {
                Later([this, kind] {
                    if (treeDock->CurrentKind() == kind) SelectShown(kind);
                });
            });
        }
    }
}

KIND JobDesk::FrontKind() const {
    const KIND inTree = treeDock->CurrentKind();
    const KIND inFront = docks.FrontKind();
    const bool treeFirst = inFront == KIND::NONE || treeDock->HasKeyboard();
    return treeFirst && inTree != KIND::NONE ? inTree : inFront == KIND::NONE ? KIND::BOUNDARY : inFront;
}

void JobDesk::AddFilesOf(KIND kind) {
    QDockWidget* const dock = docks.DockOf(kind);
    if (!dock) return;
    docks.BringToFront(*dock);
    AddFiles(job, kind);
    Later([this, kind] {
        RefreshTree();
        SelectShown(kind);
    });
}

/// The tree goes to the file that the pane of a kind shows.
void JobDesk::SelectShown(KIND kind) {
    CMyDockablePane* const pane = job.PaneOf(kind);
    if (!pane) return;
    const CComboBox* const choice = pane->GetFileControls().choice;
    Select({kind, choice ? choice->GetCurSel() : 0, -1});
}

void JobDesk::Select(const JobPoint& point) {
    if (point.kind == KIND::NONE) return;
    const JobKind& kind = KindOf(point.kind);
    if (point.file < 0 || point.file >= kind.fileCount(job.Record())) return;
    treeDock->Select({point.kind, kind.path(job.Record(), point.file)});
}

/// A file manager that knows how shows the file itself; any other one the folder that it is in.
void JobDesk::Reveal(const JobFile& file) {
    const auto native = job.GetPlatform().Files().Native(file.path);
    const QUrl url = QUrl::fromLocalFile(QString::fromStdString(native.string()));
    const QUrl folder = QUrl::fromLocalFile(QString::fromStdString(native.parent_path().string()));
    auto* const asking = new QProcess(&window);
    const auto openFolder = [this, folder, asking] {
        asking->deleteLater();
        if (!QDesktopServices::openUrl(folder)) status.ShowMessage("No file manager answers; " + folder.toLocalFile());
    };
    QObject::connect(asking, &QProcess::finished, &context, [openFolder, asking](int code) {
        if (code != 0) return openFolder();
        asking->deleteLater();
    });
    QObject::connect(asking, &QProcess::errorOccurred, &context, [openFolder](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) openFolder();
    });
    asking->start("dbus-send", {"--session", "--print-reply", "--dest=org.freedesktop.FileManager1",
                                "/org/freedesktop/FileManager1", "org.freedesktop.FileManager1.ShowItems",
                                "array:string:" + url.toString(QUrl::FullyEncoded), "string:"});
}

// ---- Reading ----

void JobDesk::ReadFilesAgain(const std::vector<JobFile>& files) {
    int read = 0;
    QString unread;
    for (const JobFile& file : files) {
        if (quillon::ReadAgain(job, file)) {
            ++read;
            keptAsRead.erase(file);
            saves.Settle(file.path);
        } else {
            unread = NameOf(file.path);
        }
    }
    if (!unread.isEmpty()) {
        status.ShowMessage(unread + " can't be read; what was read of it before stays");
    } else if (read > 0) {
        status.ShowMessage(read == 1 ? NameOf(files.front().path) + " was read again"
                                     : QString("%1 files were read again").arg(read));
    }
    LookAtDisk();
}

void JobDesk::ReadCurrentAgain() {
    if (const auto file = treeDock->Current()) {
        ReadFilesAgain({*file});
    } else {
        status.ShowMessage("Choose a file in the job tree first");
    }
}

void JobDesk::ReadChangedAgain() {
    LookAtDisk();
    if (readable.empty()) {
        status.ShowMessage("Every file is as it was read");
    } else {
        ReadFilesAgain(std::vector<JobFile>(readable));
    }
}

void JobDesk::ShowReport() {
    ShowReportOf(treeDock->Current());
}

void JobDesk::ShowReportOf(const std::optional<JobFile>& file) {
    reportDock->SetFindings(FindingsOf(job.Record()));
    reportDock->show();
    reportDock->raise();
    if (file && !reportDock->ShowFile(*file)) {
        status.ShowMessage("Nothing was passed over in " + NameOf(file->path));
    }
    reportDock->setFocus(Qt::ShortcutFocusReason);
}

void JobDesk::TellNews() {
    const std::vector<JobFile> news = tree.TakeNews();
    if (news.empty()) return;
    const std::string text = NewsText(tree, news);
    if (!text.empty()) status.ShowLasting(ToQString(text) + "; Ctrl+I lists them");
}

void JobDesk::RefreshTree() {
    const std::optional<JobFile> before = treeDock->Current();
    treeDock->Refresh();
    // At the start, and where the file under the cursor has gone.
    if (!before && treeDock->CurrentKind() == KIND::NONE) SelectShown(docks.FrontKind());
    if (before && treeDock->Current() != before) SelectShown(before->kind);
}

void JobDesk::Refresh() {
    RefreshTree();
    TellNews();
    if (reportDock->isVisible()) reportDock->SetFindings(FindingsOf(job.Record()));
}

// ---- Notices ----

void JobDesk::ShowFailures() {
    if (saves.Failures().empty()) return notices->Take(TOPIC::SAVE_FAILED);
    QStringList all;
    for (const FailedSave& failed : saves.Failures()) all += ToQString(failed.path + ": " + failed.reason);
    notices->Show(TOPIC::SAVE_FAILED, {.text = ToQString(FailureText(saves.Failures())),
                                       .details = Listed(all) + "\nThis stands until the file has been saved.",
                                       .isGrave = true});
}

void JobDesk::ShowLosses() {
    const std::vector<SaveWatch::Loss> losses = saves.TakeLosses();
    if (losses.empty()) return;
    shownLoss = losses.back();
    ShowLoss();
}

/// Taken back as long as it is what was done last.
void JobDesk::ShowLoss() {
    QStringList lines;
    for (const RewriteLosses::Named& named : shownLoss->losses.named) {
        lines += QString("line %1: ").arg(named.line) + ToQString(named.text);
    }
    NoticeStrip::Notice notice{.text = ToQString(LossText(*shownLoss)), .details = Listed(lines)};
    const ActHistory* const acts = job.Acts();
    if (acts && !acts->Done().empty() && acts->Done().back().Touches(shownLoss->path)) {
        notice.offers.push_back({"Undo", [this] { job.Undo(); }});
    }
    notice.offers.push_back({"OK", [this] { TakeLoss(); }});
    notices->Show(TOPIC::DATA_LOST, notice);
}

void JobDesk::TakeLoss() {
    shownLoss.reset();
    notices->Take(TOPIC::DATA_LOST);
}

void JobDesk::FollowActs() {
    if (!shownLoss) return;
    const CRouteList& routes = job.Record().routes;
    const int route = routes.Find(shownLoss->path);
    const bool stands = route >= 0 && routes[route].GetLastSave().saved && routes[route].GetLastSave().losses.Any();
    stands ? ShowLoss() : TakeLoss();
}

void JobDesk::LookAtDisk() {
    std::vector<ChangedFile> changed = FilesChangedOnDisk(job.Record());
    tree.SetChanged(changed);
    RefreshTree();
    std::erase_if(changed, [this](const ChangedFile& file) {
        const auto kept = keptAsRead.find(file.file);
        return kept != keptAsRead.end() && kept->second == job.GetPlatform().Files().Stamp(file.file.path);
    });
    ShowChanged(changed);
}

void JobDesk::ShowChanged(const std::vector<ChangedFile>& changed) {
    readable.clear();
    if (changed.empty()) return notices->Take(TOPIC::CHANGED_ON_DISK);
    QStringList lines;
    for (const auto& [file, change] : changed) {
        const bool isGone = change == DISK_CHANGE::GONE;
        if (!isGone) readable.push_back(file);
        lines += ToQString(file.path) + (isGone                            ? ": gone"
                                         : change == DISK_CHANGE::APPEARED ? ": can be read now"
                                                                           : "");
    }
    NoticeStrip::Notice notice{.text = {}, .details = Listed(lines)};
    if (changed.size() > 1) {
        notice.text = QString("%1 files have been changed by another program since they were read").arg(changed.size());
    } else {
        const QString name = NameOf(changed.front().file.path);
        notice.text = changed.front().change == DISK_CHANGE::GONE
                          ? name + " is gone from the disk; what was read of it stays"
                      : changed.front().change == DISK_CHANGE::APPEARED
                          ? name + " can be read now"
                          : name + " has been changed by another program since it was read";
    }
    if (!readable.empty()) notice.offers.push_back({"Read Again", [this] { ReadChangedAgain(); }});
    notice.offers.push_back({"Keep as Read", [this, changed] { KeepAsRead(changed); }});
    notices->Show(TOPIC::CHANGED_ON_DISK, notice);
}

void JobDesk::KeepAsRead(const std::vector<ChangedFile>& changed) {
    for (const ChangedFile& file : changed) {
        keptAsRead[file.file] = job.GetPlatform().Files().Stamp(file.file.path);
    }
    LookAtDisk();
}

void JobDesk::SayReadOnly(const QString& why) {
    notices->Show(TOPIC::READ_ONLY,
                  {.text = why, .details = why, .offers = {{"OK", [this] { notices->Take(TOPIC::READ_ONLY); }}}});
}

}  // namespace quillon
