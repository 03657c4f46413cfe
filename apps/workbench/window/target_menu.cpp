#include "window/target_menu.h"

#include <QActionGroup>

#include "panes/target_plot_pane.h"
#include "toolkit/text_edge.h"

namespace quillon {

TargetMenu::TargetMenu(Job& shownJob, std::function<void(UINT paneId)> show, QWidget* parent)
    : QMenu("&Target", parent), job(shownJob), showPane(std::move(show)) {
    AddList(job.Record().vessels, CTargetPane::kVesselId, "&Vessel");
    AddList(job.Record().templates, CTargetPane::kTemplateId, "&Template");
    const auto addPane = [this](const QString& text, UINT id) {
        connect(addAction(text), &QAction::triggered, this, [this, id] { showPane(id); });
    };
    addSeparator();
    addPane("Target &Plot", CTargetPlotWindow::kTitleId);
    addPane("Plot P&roperties", CTargetPlotPane::kTitleId);
}

void TargetMenu::AddList(COutlineList& list, UINT paneId, const QString& title) {
    QMenu* const menu = addMenu(title);
    Fill(*menu, list, paneId);
    // What can be done changes from one opening to the next.
    connect(menu, &QMenu::aboutToShow, this, [this, menu, &list, paneId] {
        menu->clear();
        qDeleteAll(menu->findChildren<QActionGroup*>());
        Fill(*menu, list, paneId);
    });
}

void TargetMenu::Fill(QMenu& menu, COutlineList& list, UINT paneId) {
    const auto add = [&](const QString& text, bool enabled, auto act) {
        QAction* const action = menu.addAction(text);
        action->setEnabled(enabled);
        connect(action, &QAction::triggered, this, [this, act, paneId] {
            act();
            showPane(paneId);
        });
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
