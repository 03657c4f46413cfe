#pragma once

#include <string>

#include "features/rpl.h"
#include "panes/alarm_rows.h"
#include "panes/feature_pane.h"

namespace quillon {

/// The rows of the route position list pane that react.
enum RPL_ROW : UINT {
    RPL_DISPLAY = 1,
    RPL_DIAMETER = 2,
    RPL_COLOUR = 3,
    RPL_THICKNESS = 4,
    RPL_CORRIDOR = 5,
    RPL_PORT_WIDTH = 6,
    RPL_STARBOARD_WIDTH = 7,
    RPL_CORRIDOR_FILL = 8,
    RPL_CORRIDOR_COLOUR = 9,
    RPL_CLEARANCE = 10,
    RPL_TOLERANCE = 11
};

/// Shows the job's route position lists: the settings of one of them, and its route as a designer reads it. The route
/// can't be edited; a text typed into the table stays there until the table is filled again, and changes no record.
class CRPLPane : public CFeaturePane {
public:
    static constexpr UINT kTitleId = 12021;
    static constexpr std::string_view kTitle = "RPL";

    explicit CRPLPane(Platform& platform);
    bool Create(CWnd* parent, UINT id, CRPLList& features);

    /// Shows the list with this path, or the first one if none has it. Without `force` the rows of the path that is
    /// shown already stay.
    void InitPropList(std::string_view path, bool force);
    /// The operator chose in the combo; the one that is shown already changes nothing.
    void OnRPLCombo();

    void OnCommand(UINT control) override;
    void SelectPoint(int point) override;

private:
    CRPL& Member(int index) const { return static_cast<CRPLList&>(List())[index]; }

    void BuildPropertyRows() override;
    void BuildRows(int index) override;
    PointsTable MakeTable(int index) override;
    bool PointOfRow(int, int, tagXY&) const override { return false; }
    bool StoreMemberRow(int index, CMFCPropertyGridProperty& row) override;
    void SaveMember(int index, std::uint8_t save) override;
    bool AskForFiles(std::vector<std::string>& paths) override;
    int ShownAfterRemoval(int removed) const override;

    std::string shownPath;
    CAlarmRows alarm;
};

}  // namespace quillon
