#pragma once

#include "features/grid_waypoint.h"
#include "panes/alarm_rows.h"
#include "panes/feature_pane.h"

namespace quillon {

/// The rows of the waypoint pane that react. 8 to 11 belong to the plain form, 12 to 15 to the catenary form.
enum WAYPOINT_ROW : UINT {
    WAYPOINT_DISPLAY = 1,
    WAYPOINT_ORDER = 2,
    WAYPOINT_SYMBOL = 3,
    WAYPOINT_COLOUR = 4,
    WAYPOINT_SIZE = 5,
    WAYPOINT_LABEL_MODE = 6,
    WAYPOINT_LABEL_POSITION = 7,
    WAYPOINT_RINGS = 8,
    WAYPOINT_RING_COUNT = 9,
    WAYPOINT_RING_SIZE = 10,
    WAYPOINT_RING_COLOUR = 11,
    WAYPOINT_CLEARANCE = 12,
    WAYPOINT_TOLERANCE = 13,
    WAYPOINT_TOLERANCE_CIRCLE = 14,
    WAYPOINT_PASSWORD = 15
};

/// Edits the job's waypoint files, in one of two forms: the plain one shows range rings, the catenary one the figures
/// of the anchor cable alarm, which a password can lock.
class CGridWaypointPane : public CFeaturePane {
public:
    static constexpr UINT kPlainId = 12034;
    static constexpr UINT kCatenaryId = 12052;
    static constexpr std::string_view kPlainTitle = "Waypoint Properties";
    static constexpr std::string_view kCatenaryTitle = "Anchor Cable Obstructions";
    /// How long a right password keeps the two rows open.
    static constexpr std::chrono::milliseconds kOpenTime{600000};

    explicit CGridWaypointPane(Platform& platform);
    bool Create(CWnd* parent, UINT id, std::string_view title, CGridWaypointList& features, bool catenary);
    void OnWaypointCombo() { OnCombo(); }
    void OnTimer(UINT timer) override { alarm.OnTimer(timer); }

private:
    CGridWaypoint& Member(int index) const { return static_cast<CGridWaypointList&>(List())[index]; }

    void BuildRows(int index) override;
    void BuildRingRows(const CGridWaypoint& waypoints);
    void BuildAlarmRows(const CGridWaypoint& waypoints);
    PointsTable MakeTable(int index) override;
    bool PointOfRow(int index, int row, tagXY& point) const override;
    bool StoreMemberRow(int index, CMFCPropertyGridProperty& row) override;
    void SaveMember(int index, std::uint8_t save) override;
    void AddPaths(const std::vector<std::string>& paths) override;

    void ReadAnew(CGridWaypoint& waypoints, int order);

    bool catenary = false;
    CAlarmRows alarm;
};

}  // namespace quillon
