#pragma once

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <functional>

#include "chart/chart_widget.h"
#include "host/job.h"

namespace quillon {

/// The menu of what lies under the job: a GPX file with its tracks, and the wind farms of the database.
class ReferenceMenu {
public:
    using MakeAction = std::function<QAction*(const QString& text, const QKeySequence& key, const QString& tip)>;

    /// Fills the menu. All are lent and outlive it.
    ReferenceMenu(QMenu& menu, Job& job, ChartWidget& chart, const MakeAction& make);

    /// Something that the chart draws has changed.
    std::function<void()> onChanged;

private:
    void OpenGpx();
    void CloseGpx();
    void ShowTracks();
    void ShowTrackPoints();
    void ImportWindFarms();
    void ChooseWindFarmDisplay();
    void ShowTurbines();
    void FindWindFarm();

    void Changed();
    /// Tells the operator where nothing can be drawn.
    void TellOfGrid();
    Platform& GetPlatform() const { return job.GetPlatform(); }
    JobRecord& Record() const { return job.Record(); }

    Job& job;
    ChartWidget& chart;
};

}  // namespace quillon
