#pragma once

#include <string_view>

#include "display/target_plot_view.h"
#include "frame/my_dockable_pane.h"

namespace quillon {

/// The window of the target plot: the plot and nothing else.
class CTargetPlotWindow : public CMyDockablePane {
public:
    static constexpr UINT kTitleId = 13003;
    static constexpr std::string_view kTitle = "Target Plot";

    explicit CTargetPlotWindow(Platform& platform);
    /// The plot outlives the window.
    bool Create(CWnd* parent, UINT id, const CTargetPlot& plot);

    void AdjustLayout() override;
    void RefreshRows() override { view.Invalidate(); }
    void Refresh() override { view.Invalidate(); }

    CTargetPlotView& GetView() { return view; }

private:
    CTargetPlotView view;
};

}  // namespace quillon
