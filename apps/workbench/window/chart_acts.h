#pragma once

#include <QAction>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

#include "chart/chart_widget.h"
#include "host/identify.h"
#include "window/find_line.h"
#include "window/hover_names.h"
#include "window/measure_tool.h"
#include "window/pane_docks.h"
#include "window/status_line.h"
#include "window/structure_tool.h"

namespace quillon {

/// What one does on the chart: naming and choosing what lies there, measuring, finding. All is lent and outlives this.
class ChartActs {
public:
    ChartActs(Job& job, const SceneBuilder& scenes, ChartWidget& chart, PaneDocks& docks, StatusLine& status);

    /// An entry of the menu.
    struct Act {
        QString text;
        QKeySequence key;
        QString tip;
        /// Keys of one letter count on the chart alone: elsewhere one types them.
        bool onChartOnly;
        /// What the act takes up, and puts away when it is chosen again; null for an act of its own.
        ChartTool* tool;
        std::function<void()> run;
    };
    std::vector<Act> Acts();
    /// Gives the action of an act its work.
    void Connect(QAction& action, const Act& act);

    void OnCursor(const std::optional<tagXY>& position);
    void OnClick(PixelPoint at);
    void OnSceneChanged();
    /// Ends what is under way; false if nothing is.
    bool Escape();

    FindLine& Find() { return find; }

    /// A file or a point of one was chosen on the chart, and its pane shows it.
    std::function<void(const JobPoint& chosen)> onChosen;

private:
    void UseTool(ChartTool* tool);
    void Choose(const Identified& chosen);
    void Show(const FoundPlace& place);
    /// Shows the pane of what was chosen.
    void Raise(const JobPoint& chosen);

    Job& job;
    const SceneBuilder& scenes;
    ChartWidget& chart;
    PaneDocks& docks;
    StatusLine& status;
    HoverNames hover;
    ClickRound round;
    MeasureTool measure;
    StructureTool structures;
    FindLine find;
    std::vector<std::pair<ChartTool*, QAction*>> toolActions;
};

}  // namespace quillon
