#pragma once

#include <QAction>
#include <QDockWidget>
#include <QSortFilterProxyModel>
#include <QTreeView>
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "window/job_tree_model.h"

class QLineEdit;

namespace quillon {

/// What the operator asks for in the job tree. Each comes when the view has ended its own event, so that whoever
/// answers may add and remove files.
struct JobTreeRequests {
    std::function<void(const JobFile& file, bool withKeyboard)> show;
    std::function<void(const JobFile& file)> zoom;
    std::function<void(KIND kind)> add;
    std::function<void(const std::vector<JobFile>& files)> remove;
    std::function<void(const std::vector<JobFile>& files, bool displayed)> display;
    std::function<void(const std::vector<JobFile>& files)> readAgain;
    std::function<void(const JobFile& file)> report;
    std::function<void(const JobFile& file)> reveal;
    std::function<void(const std::vector<JobFile>& files)> copy;
};

/// The job tree at the side of the window: a line that filters, and below it kinds with their files. Moving through it
/// shows the pane of each file, a double click zooms; what else there is to do stands in the context menu, with its
/// key.
class JobTreeDock : public QDockWidget {
public:
    JobTreeDock(JobTree& shownTree, Job& shownJob, JobTreeRequests tellHost, QWidget* parent);

    /// Brings the tree up to date; what changes under the operator's hands asks for nothing.
    void Refresh();
    /// Puts the cursor on a file, without asking for its pane.
    void Select(const JobFile& file);
    /// The file with the cursor; none on a kind.
    std::optional<JobFile> Current() const;
    /// The kind with the cursor, or of its file; NONE without one.
    KIND CurrentKind() const;
    bool HasKeyboard() const;

    struct Key {
        const char* keys;
        const char* does;
    };
    /// For the help on keys.
    static std::span<const Key> Keys();

protected:
    void changeEvent(QEvent* event) override;

private:
    void MakeView(QWidget& content);
    void MakeActions();
    QAction* MakeAction(const QString& text, const QKeySequence& key, std::function<void()> act);
    void ShowMenu(const QPoint& at);
    void OnCurrentChanged();
    void Filter(const QString& text);
    std::vector<JobFile> Selected() const;
    void ToggleDisplay();
    /// Asks when the view's event is over.
    void Later(std::function<void()> request);

    JobTree& tree;
    Job& job;
    JobTreeRequests tell;
    JobTreeModel model;
    QSortFilterProxyModel proxy;
    QLineEdit* filter = nullptr;
    QTreeView* view = nullptr;
    QAction* addAction = nullptr;
    QAction* showAction = nullptr;
    QAction* zoomAction = nullptr;
    QAction* displayAction = nullptr;
    QAction* readAction = nullptr;
    QAction* reportAction = nullptr;
    QAction* copyAction = nullptr;
    QAction* revealAction = nullptr;
    QAction* removeAction = nullptr;
    bool quiet = false;  ///< the cursor moves without the operator
};

}  // namespace quillon
