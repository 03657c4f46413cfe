#pragma once

#include <string_view>

#include "frame/my_dockable_pane.h"
#include "panes/target_tab_ctrl.h"
#include "target/barge.h"
#include "target/seabed_template.h"

namespace quillon {

/// Edits where one vessel or one seabed template is to come to, on tabs: the sail line that it follows, the waypoint
/// with its tolerances, and the shadow, the outline drawn at the target. Every change goes into the object at once and
/// into its settings file.
///
/// The object and the lists that it names are the host's. They outlive the pane, or the host shows it another object
/// before they go.
class CTargetPane : public CMyDockablePane, private RowEffectTarget {
public:
    static constexpr UINT kVesselId = 13001;
    static constexpr UINT kTemplateId = 13002;
    static constexpr std::string_view kVesselTitle = "TARGET for Vessel";
    static constexpr std::string_view kTemplateTitle = "TARGET for Template";

    explicit CTargetPane(Platform& platform);

    /// Null is an object to come: until it is shown there is nothing to edit.
    bool Create(CWnd* parent, UINT id, CBarge* vessel);
    bool Create(CWnd* parent, UINT id, CTemplate* object);

    // For a host that has changed the object by other means.

    /// Recomputes the tracked position and shows it.
    void UpdateCrp();
    void UpdateSailLine();
    void UpdateWaypoint();
    /// Brings the tracked point's rows up to date, saves and redraws.
    void UpdateVessel();
    void InitTargetPropList();
    void InitSailLinePropList();
    void InitShadowPropList();
    /// Shows another object, or none with null.
    void SetObject(COutline* edited);
    const COutline* GetObject() const { return object; }

    void SetNightMode(bool on) override;
    void AdjustLayout() override;
    void RefreshRows() override { tabs.RenewRows(); }
    void Refresh() override;
    void OnSetFocus() override { SetFocusTo(tabs); }
    LRESULT OnMessage(const MSG& message) override;

    CMFCTargetTabCtrl& GetTabs() { return tabs; }

private:
    bool CreateOver(CWnd* parent, UINT id, std::string_view title, COutline* edited);
    void OnActiveTabChanged();

    void SaveFile(std::uint8_t save) override;
    void SetChanged() override {}
    void Broadcast(const Posts& posts) override { BroadcastAll(posts); }

    CMFCTargetTabCtrl tabs;
    COutline* object = nullptr;
};

}  // namespace quillon
