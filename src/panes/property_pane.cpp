#include "panes/property_pane.h"

#include "frame/colour_schemes.h"
#include "frame/pane_layout.h"
#include "platform/platform.h"

namespace quillon {
namespace {

constexpr UINT kPropertyListId = 1;

}  // namespace

CPropertyPane::CPropertyPane(Platform& owner, int rows, std::span<const RowEffect> rowEffects)
    : CMyDockablePane(owner), listRows(rows), effects(rowEffects), propertyList(*this, kPropertyListId) {}

void CPropertyPane::InitPropList() {
    BeginPropertyList(propertyList);
    BuildPropertyRows();
}

void CPropertyPane::Refresh() {
    InitPropList();
    AdjustLayout();
}

void CPropertyPane::AdjustLayout() {
    const tagSIZE client = GetClientSize();
    const int height = listRows * GetPlatform().GetMetric(SYSTEM_METRIC::ROW_HEIGHT);
    PlaceBelow(propertyList, height, GetRest(), LayOutTop(client.width), client);
}

LRESULT CPropertyPane::OnPropertyChanged(WPARAM, CMFCPropertyGridProperty& row) {
    const RowEffect* const effect = FindRowEffect(effects, row.GetData());
    if (!effect) return 0;
    const bool differed = StoreRow(row);
    ApplyRowEffect(*effect, differed, *this);
    return 0;
}

LRESULT CPropertyPane::OnMessage(const MSG& message) {
    if (message.message == AFX_WM_PROPERTY_CHANGED) {
        return OnPropertyChanged(message.wParam, *reinterpret_cast<CMFCPropertyGridProperty*>(message.lParam));
    }
    return CMyDockablePane::OnMessage(message);
}

}  // namespace quillon
