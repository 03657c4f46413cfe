#pragma once

#include "platform/tab_ctrl.h"

namespace quillon {

/// Tabs with property lists on them: what the operator changes in one is posted on to a window, once that is named. A
/// derived control that answers the change itself posts nothing.
class CMyMFCTabCtrl : public CMFCTabCtrl {
public:
    using CMFCTabCtrl::CMFCTabCtrl;

    CWnd* changesGoTo = nullptr;  ///< lent; null for none

    LRESULT OnMessage(const MSG& message) override {
        if (message.message != AFX_WM_PROPERTY_CHANGED || !changesGoTo) return CMFCTabCtrl::OnMessage(message);
        changesGoTo->PostMessage(message.message, message.wParam, message.lParam);
        return 0;
    }
};

}  // namespace quillon
