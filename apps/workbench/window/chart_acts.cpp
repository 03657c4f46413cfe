#include "window/chart_acts.h"

#include "toolkit/text_edge.h"

namespace quillon {

ChartActs::ChartActs(Job& shownJob, const SceneBuilder& sceneBuilder, ChartWidget& widget, PaneDocks& paneDocks,
                     StatusLine& statusLine)
    : job(shownJob),
      scenes(sceneBuilder),
      chart(widget),
      docks(paneDocks),
      status(statusLine),
      hover(sceneBuilder, widget, statusLine),
      measure(sceneBuilder, widget),
      structures(shownJob, sceneBuilder, widget),
      find(shownJob.Record(), widget) {
    find.onShow = [this](const FoundPlace& place) { Show(place); };
    structures.onChanged = [this] { status.SetUnderCursor(ToQString(structures.Text())); };
    measure.onChanged = [this] { status.SetUnderCursor(ToQString(measure.Text())); };
}

std::vector<ChartActs::Act> ChartActs::Acts() {
    return {
        {"&Find...", QKeySequence("Ctrl+F"), "Find a name, a KP or a position", false, nullptr,
         [this] { find.Open(); }},
        {"&Measure", QKeySequence("R"), "Measure range and grid bearing between two places", true, &measure, {}},
        {"M&ove Structures", QKeySequence("M"), "Move and turn structures with the mouse", true, &structures, {}},
    };
}

void ChartActs::Connect(QAction& action, const Act& act) {
    if (act.onChartOnly) {
        action.setShortcutContext(Qt::WidgetShortcut);
        chart.addAction(&action);
    }
    if (act.tool) {
        action.setCheckable(true);
        toolActions.emplace_back(act.tool, &action);
        QObject::connect(&action, &QAction::triggered, &chart,
                         [this, tool = act.tool](bool on) { UseTool(on ? tool : nullptr); });
    } else {
        QObject::connect(&action, &QAction::triggered, &chart, act.run);
    }
}

void ChartActs::OnCursor(const std::optional<tagXY>& position) {
    if (chart.Tool()) return;
    chart.IsDragging() ? hover.Hide() : hover.OnCursor(position);
}

void ChartActs::OnClick(PixelPoint at) {
    hover.Hide();
    if (const auto chosen = round.Next(at, chart.View(), Identify(scenes, chart.HitsAt(at)))) Choose(*chosen);
}

void ChartActs::Choose(const Identified& chosen) {
    const bool isShown =
        chosen.what.point >= 0 ? job.SelectPoint(chosen.what) : job.SelectFile(chosen.what.kind, chosen.what.file);
    if (isShown) Raise(chosen.what);
    status.ShowMessage(ToQString(chosen.text));
}

void ChartActs::Raise(const JobPoint& chosen) {
    docks.Raise(chosen.kind);
    if (onChosen) onChosen(chosen);
}

void ChartActs::OnSceneChanged() {
    find.OnJobChanged();
}

void ChartActs::UseTool(ChartTool* tool) {
    hover.Hide();
    status.SetUnderCursor({});
    // The pane says by its colours that structures are moved.
    if (tool == &structures) docks.Raise(KIND::STRUCTURE);
    chart.SetTool(tool);
    for (const auto& [itsTool, action] : toolActions) action->setChecked(itsTool == tool);
}

bool ChartActs::Escape() {
    if (!chart.Tool()) return false;
    UseTool(nullptr);
    return true;
}

void ChartActs::Show(const FoundPlace& place) {
    if (place.what.point >= 0) {
        if (!job.SelectPoint(place.what)) return;
    } else {
        if (place.what.kind != KIND::NONE) job.SelectFile(place.what.kind, place.what.file);
        job.ShowPlace(place.at);
    }
    if (place.what.kind != KIND::NONE) Raise(place.what);
    chart.SetView(place.at, chart.View().MetresPerPixel());
}

}  // namespace quillon
