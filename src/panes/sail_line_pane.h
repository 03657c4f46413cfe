#pragma once

#include "features/sail_line.h"
#include "panes/feature_pane.h"

namespace quillon {

/// The rows of the sail line pane that react.
enum SAIL_LINE_ROW : UINT { SAIL_LINE_DISPLAY = 1, SAIL_LINE_ORDER = 2, SAIL_LINE_COLOUR = 3, SAIL_LINE_THICKNESS = 4 };

/// Edits the job's sail lines.
class CSailLinePane : public CFeaturePane {
public:
    static constexpr UINT kTitleId = 12046;
    static constexpr std::string_view kTitle = "Sail Line Properties";

    explicit CSailLinePane(Platform& platform);
    bool Create(CWnd* parent, UINT id, CSailLineList& features);
    void OnSailLineCombo() { OnCombo(); }

private:
    CSailLine& Member(int index) const { return static_cast<CSailLineList&>(List())[index]; }

    void BuildRows(int index) override;
    PointsTable MakeTable(int index) override;
    /// The middle of the line.
    bool PointOfRow(int index, int row, tagXY& point) const override;
    bool StoreMemberRow(int index, CMFCPropertyGridProperty& row) override;
    void SaveMember(int index, std::uint8_t save) override;

    void ReadAnew(CSailLine& lines, int order);
};

}  // namespace quillon
