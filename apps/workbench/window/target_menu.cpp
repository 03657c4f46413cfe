#include "window/target_menu.h"

#include <QActionGroup>

#include "toolkit/text_edge.h"

namespace quillon {

TargetMenu::TargetMenu(Job& shownJob, QWidget* parent) : QMenu("&Target", parent), job(shownJob) {
    AddList(job.Record().vessels, "&Vessel");
    AddList(job.Record().templates, "&Template");
}

void TargetMenu::AddList(COutlineList& list, const QString& title) {
    QMenu* const menu = addMenu(title);
    Fill(*menu, list);
    // What can be done changes from one opening to the next.
    connect(menu, &QMenu::aboutToShow, this, [this, menu, &list] {
        menu->clear();
        qDeleteAll(menu->findChildren<QActionGroup*>());
        Fill(*menu, list);
    });
}

void TargetMenu::Fill(QMenu& menu, COutlineList& list) {
    const auto add = [&](const QString& text, bool enabled, auto act) {
        QAction* const action = menu.addAction(text);
        action->setEnabled(enabled);
        connect(action, &QAction::triggered, this, act);
        return action;
    };
    JobTargets& targets = job.Targets();
    add("&New...", true, [&targets, &list] { targets.AddNew(list); });
    add("&Open...", true, [&targets, &list] { targets.Open(list); });
    menu.addSeparator();
    auto* const group = new QActionGroup(&menu);
    for (int i = 0; i < list.GetCount(); ++i) {
        QAction* const action =
            add(ToQString(list[i].name).replace('&', "&&"), true, [&targets, &list, i] { targets.Choose(list, i); });
        action->setCheckable(true);
        action->setChecked(i == list.GetCurrentIndex());
        group->addAction(action);
    }
    menu.addSeparator();
    const bool has = list.GetCurrent() != nullptr;
    add("Outline &File...", has, [&targets, &list] { targets.ChooseOutline(list); });
    add("&Place at Picked Point", has && job.ShownPoint(),
        [this, &targets, &list] { targets.PlaceAt(list, job.ShownPoint()); });
    const bool placed = has && list.PlaceOf(list.GetCurrentIndex()).has_value();
    add("&Take off the Chart", placed, [&targets, &list] { targets.PlaceAt(list, std::nullopt); });
    add("&Remove from the Job", has, [&targets, &list] { targets.Remove(list); });
}

}  // namespace quillon
