#pragma once

#include <QMenu>

#include "host/job.h"

namespace quillon {

/// The menu of a job's vessels and templates: which of them the panes show, new ones, and where they stand.
class TargetMenu : public QMenu {
public:
    TargetMenu(Job& job, QWidget* parent);

private:
    void AddList(COutlineList& list, const QString& title);
    void Fill(QMenu& menu, COutlineList& list);

    Job& job;
};

}  // namespace quillon
