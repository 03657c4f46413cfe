#pragma once

#include <QAction>
#include <QMainWindow>

#include "host/job.h"

namespace quillon {

/// The menu "Edit" with the acts of the operator: to undo the last one, to do it again, and the list of all. The
/// actions tell the name of their act and can't be chosen where there is none.
///
/// An editor that is open and has the keyboard keeps Ctrl+Z for what is typed into it.
class EditMenu {
public:
    /// Adds the menu behind those that are there. All is lent and outlives it.
    EditMenu(QMainWindow& mainWindow, Job& shownJob);

    QAction& UndoAction() { return *undo; }
    QAction& RedoAction() { return *redo; }
    QAction& HistoryAction() { return *history; }

    /// Brings the actions up to date with the acts of the job.
    void Update();

private:
    QAction* Add(QMenu& menu, const QString& text, const QKeySequence& key, const QString& tip);

    QMainWindow& window;
    Job& job;
    QAction* undo;
    QAction* redo;
    QAction* history;
};

}  // namespace quillon
