#pragma once

#include <memory>

#include "frame/row_effects.h"
#include "panes/my_tab_ctrl.h"
#include "panes/sail_line_page.h"
#include "panes/shadow_page.h"
#include "panes/target_rows.h"
#include "panes/waypoint_page.h"

namespace quillon {

/// The colours of a property list on a tab whose frame has this face: a ground 60 % of the way to white by day, a
/// quarter darker by night.
PropertyColours TabListColours(COLORREF face, bool night);

/// The tabs of the target pane. Its lists report to it; what follows a row, the save and the messages, it hands on.
class CMFCTargetTabCtrl : public CMyMFCTabCtrl {
public:
    CMFCTargetTabCtrl(CWnd& pane, UINT id, RowEffectTarget& followUp);

    /// Makes the pages, once: that of the sail line only where the object follows lines. Null is an object to come.
    void Build(COutline* object);
    /// Shows another object, or none.
    void SetObject(COutline* object);
    void RenewRows();

    CSailLinePage* GetSailLinePage() const { return sailLine.get(); }
    CWaypointPage& GetWaypointPage() const { return *waypoint; }
    CShadowPage& GetShadowPage() const { return *shadow; }

    void ColourActiveList(bool night);
    void AdjustLayout();

    /// Works a step out and shows it. Nothing without an object.
    void DoStep(TARGET_STEP step);

    LRESULT OnMessage(const MSG& message) override;

private:
    void OnPropertyChanged(CMFCPropertyGridProperty& row);
    /// The page that a row stands on.
    COutlinePage* PageOf(const CMFCPropertyGridProperty& row) const;
    std::vector<COutlinePage*> Pages() const;

    RowEffectTarget& followUp;
    COutline* object = nullptr;
    std::unique_ptr<CSailLinePage> sailLine;
    std::unique_ptr<CWaypointPage> waypoint;
    std::unique_ptr<CShadowPage> shadow;
};

}  // namespace quillon
