#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "job/job_record.h"
#include "panes/target_pane.h"
#include "panes/target_plot_window.h"

namespace quillon {

/// The vessels, templates and the target plot of a job beside the panes over them: what the operator does with them,
/// and what follows when something else of the job has changed.
class JobTargets {
public:
    JobTargets(Platform& owner, JobRecord& job) : platform(owner), record(job) {}

    /// The panes of the job, lent.
    void SetPanes(const std::vector<std::unique_ptr<CMyDockablePane>>& panes);
    /// Told after each act below that changed something.
    std::function<void()> onChanged;

    /// Shows the current ones anew, when their files were put back and read anew.
    void ShowRestored();

    // Acts. What stands in the way is told to the operator.

    void AddNew(COutlineList& list);
    void Open(COutlineList& list);
    /// The current one leaves the job; its settings file stays.
    void Remove(COutlineList& list);
    void Choose(COutlineList& list, int index);
    void ChooseOutline(COutlineList& list);
    /// Says where the current one stands now.
    void PlaceAt(COutlineList& list, std::optional<tagXY> place);

    /// Brings targets and plot in line with the lists of features, the grid and each other.
    void Follow();
    /// Whether a point of the redraw pair is the plot's centre, a longitude and latitude, and none of the grid.
    bool IsPlotCentre(tagXY point) const { return point == record.targetPlot.centre; }

private:
    CTargetPane* PaneOf(const COutlineList& list) const;
    void ShowCurrent(COutlineList& list);
    void Tell(const std::string& fault);
    std::optional<tagXY> GeographicOf(tagXY position) const;
    void FollowVessel();
    std::vector<PlotMark> Marks() const;

    Platform& platform;
    JobRecord& record;
    CTargetPane* vesselPane = nullptr;
    CTargetPane* templatePane = nullptr;
    CTargetPlotWindow* plotWindow = nullptr;
};

}  // namespace quillon
