#pragma once

#include "features/route.h"
#include "panes/feature_pane.h"

namespace quillon {

/// The rows of the route pane that react.
enum ROUTE_ROW : UINT {
    ROUTE_DISPLAY = 1,
    ROUTE_ORDER = 2,
    ROUTE_COLOUR = 3,
    ROUTE_THICKNESS = 4,
    ROUTE_SYMBOL = 5,
    ROUTE_SYMBOL_SIZE = 6,
    ROUTE_CORRIDOR = 7,
    ROUTE_PORT_WIDTH = 8,
    ROUTE_STARBOARD_WIDTH = 9,
    ROUTE_CORRIDOR_FILL = 10,
    ROUTE_CORRIDOR_COLOUR = 11,
    ROUTE_LABEL_MODE = 12,
    ROUTE_LABEL_POSITION = 13,
    ROUTE_LEG_LABEL = 14
};

/// Edits the job's routes.
class CRoutePane : public CFeaturePane {
public:
    static constexpr UINT kTitleId = 12040;
    static constexpr std::string_view kTitle = "Route Properties";

    explicit CRoutePane(Platform& platform);
    bool Create(CWnd* parent, UINT id, CRouteList& features);
    void OnRouteCombo() { OnCombo(); }

private:
    CRoute& Member(int index) const { return static_cast<CRouteList&>(List())[index]; }

    void BuildRows(int index) override;
    PointsTable MakeTable(int index) override;
    bool PointOfRow(int index, int row, tagXY& point) const override;
    bool StoreMemberRow(int index, CMFCPropertyGridProperty& row) override;
    void SaveMember(int index, std::uint8_t save) override;

    bool StoreColour(CRoute& route, const CMFCPropertyGridProperty& row);
    void ReadAnew(CRoute& route, int order);
};

}  // namespace quillon
