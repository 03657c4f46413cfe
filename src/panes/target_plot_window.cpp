#include "panes/target_plot_window.h"

namespace quillon {
namespace {

constexpr UINT kViewId = 1;

}  // namespace

CTargetPlotWindow::CTargetPlotWindow(Platform& owner) : CMyDockablePane(owner), view(*this, kViewId) {
    AddControl(view);
}

bool CTargetPlotWindow::Create(CWnd* parent, UINT id, const CTargetPlot& plot) {
    if (!CreatePane(parent, id, kTitle)) return false;
    view.SetPlot(&plot);
    AdjustLayout();
    return true;
}

void CTargetPlotWindow::AdjustLayout() {
    view.MoveWindow({0, 0, GetClientSize().width, GetClientSize().height});
}

}  // namespace quillon
