#include "frame/feature_list_ctrl.h"

#include "frame/colour_schemes.h"
#include "frame/messages.h"

namespace quillon {

CFeatureListCtrl::CFeatureListCtrl(CWnd& pane, UINT tableId) : CListCtrl(pane, tableId) {
    SetHeaderColours(kTableHeaderColours.background, kTableHeaderColours.text);
    SetNightMode(false);
}

void CFeatureListCtrl::SetNightMode(bool night) {
    const TableColours colours = PointsTableColours(night);
    SetColours(colours.background, colours.text);
}

void CFeatureListCtrl::OnItemClick(int row) {
    GetOwner().PostMessage(UM_SELECT_FEATURE, 0, row);
}

}  // namespace quillon
