#pragma once

#include "panes/outline_page.h"

namespace quillon {

/// The tab "Target": the waypoint that the object is brought to, its alignment there, and the tolerances round it.
class CWaypointPage : public COutlinePage {
public:
    using COutlinePage::COutlinePage;
    std::string_view GetLabel() const override { return "Target"; }
    void Store(const CMFCPropertyGridProperty& row) override;

    void ShowWaypoint();
    void ShowAlignment();
    void ShowZones();

private:
    void BuildRows() override;
    void BuildPositionTolerance();
    void BuildOtherTolerances();
    Choices WaypointChoices() const;
    void StoreWaypoint(int file, int index);
    void StoreShape(const CMFCPropertyGridProperty& row);
};

}  // namespace quillon
