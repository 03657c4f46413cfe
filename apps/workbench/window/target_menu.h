#pragma once

#include <QMenu>
#include <functional>

#include "host/job.h"

namespace quillon {

/// The menu of a job's vessels and templates: which of them the panes show, new ones, and where they stand.
class TargetMenu : public QMenu {
public:
    /// `show` brings the pane of that id to the front.
    TargetMenu(Job& job, std::function<void(UINT paneId)> show, QWidget* parent);

private:
    void AddList(COutlineList& list, UINT paneId, const QString& title);
    void Fill(QMenu& menu, COutlineList& list, UINT paneId);

    Job& job;
    std::function<void(UINT paneId)> showPane;
};

}  // namespace quillon
