#include "window/edit_menu.h"

#include <QMenu>
#include <QMenuBar>

#include "toolkit/text_edge.h"
#include "window/act_list_dialog.h"
#include "window/icons.h"

namespace quillon {
namespace {

/// A "&" in the name of an act is no key.
QString MenuText(const QString& verb, const std::string& act) {
    return act.empty() ? verb : verb + " " + ToQString(act).replace('&', "&&");
}

}  // namespace

EditMenu::EditMenu(QMainWindow& mainWindow, Job& shownJob) : window(mainWindow), job(shownJob) {
    QMenu& menu = *window.menuBar()->addMenu("&Edit");
    undo = Add(menu, "&Undo", QKeySequence("Ctrl+Z"), "Take back what was done last");
    undo->setIcon(MakeIcon(ICON::UNDO));
    redo = Add(menu, "&Redo", QKeySequence("Ctrl+Shift+Z"), "Do again what was taken back last");
    redo->setIcon(MakeIcon(ICON::REDO));
    menu.addSeparator();
    history = Add(menu, "&History...", {}, "All that was done, to go back as far as you like");
    QObject::connect(undo, &QAction::triggered, &window, [this] { job.Undo(); });
    QObject::connect(redo, &QAction::triggered, &window, [this] { job.Redo(); });
    QObject::connect(history, &QAction::triggered, &window, [this] { ActListDialog(job, &window).exec(); });
    Update();
}

QAction* EditMenu::Add(QMenu& menu, const QString& text, const QKeySequence& key, const QString& tip) {
    QAction* const action = menu.addAction(text);
    action->setShortcut(key);
    const QString keyText = key.toString(QKeySequence::NativeText);
    action->setToolTip(keyText.isEmpty() ? tip : tip + " (" + keyText + ")");
    action->setStatusTip(tip);
    // What the list of keys says: the action's text has the name of an act in it.
    action->setWhatsThis(tip);
    window.addAction(action);
    return action;
}

void EditMenu::Update() {
    const ActHistory* const acts = job.Acts();
    const bool any = acts && !acts->Done().empty(), more = acts && !acts->Undone().empty();
    undo->setText(MenuText("&Undo", any ? acts->Done().back().name : std::string()));
    undo->setEnabled(any);
    redo->setText(MenuText("&Redo", more ? acts->Undone().back().name : std::string()));
    redo->setEnabled(more);
    history->setEnabled(any || more);
}

}  // namespace quillon
