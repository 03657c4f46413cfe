#pragma once

#include <QAction>
#include <QLabel>
#include <QStatusBar>
#include <QToolButton>
#include <optional>

#include "chart/chart_widget.h"
#include "host/job.h"

namespace quillon {

/// What the window tells of the job's grid: its name in the status line, which opens the choice, latitude and
/// longitude under the cursor with convergence and scale factor there, and the graticule on the chart.
class GeodesyDisplay {
public:
    /// All are lent; fields and actions become children of the bar.
    GeodesyDisplay(Job& job, ChartWidget& chart, QStatusBar& bar);

    /// Opens the choice of the grid.
    QAction* ChooseAction() const { return choose; }
    /// Shows and hides the graticule.
    QAction* GraticuleAction() const { return graticule; }

    void OnCursor(const std::optional<tagXY>& position);
    /// Another grid, or another part of it in view.
    void Refresh();
    void FollowView();
    /// The lines for the view as it is; null while they are off.
    std::shared_ptr<const ChartGraticule> Lines() const;

private:
    void Choose();

    Job& job;
    ChartWidget& chart;
    QToolButton* badge;
    QLabel* geographic;
    QAction* choose;
    QAction* graticule;
};

/// "52°30.1234'N   3°10.0000'E" in the notation chosen for angles; "outside the grid" for none.
QString GeographicText(const std::optional<tagLatLon>& position, FileSystem& files);
/// "grid convergence +0.1234°, scale factor 0.999612".
QString GridScaleText(const tagGridScale& scale);

}  // namespace quillon
