#pragma once

#include <QDialog>
#include <QPushButton>
#include <QTreeWidget>

#include "host/job.h"

namespace quillon {

/// The acts of a job in their order, with the files that each changed; those that were undone stand greyed behind the
/// others. The operator chooses the act up to which all is to be done.
class ActListDialog : public QDialog {
public:
    ActListDialog(Job& shownJob, QWidget* parent);

    QTreeWidget& List() { return *list; }
    /// Goes to the chosen line: it and all before it are done, all behind it undone.
    void GoThere();

private:
    void Fill();
    void Add(const QString& name, const QString& files, bool done);

    Job& job;
    QTreeWidget* list;
    QPushButton* go;
};

}  // namespace quillon
