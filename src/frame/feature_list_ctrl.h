#pragma once

#include "frame/night_control.h"
#include "platform/controls.h"

namespace quillon {

/// The points table of a pane. A click on a row posts UM_SELECT_FEATURE with the row to the owning pane.
class CFeatureListCtrl : public CListCtrl, public NightControl {
public:
    CFeatureListCtrl(CWnd& pane, UINT tableId);
    void SetNightMode(bool night) override;
    void OnItemClick(int row) override;
};

}  // namespace quillon
