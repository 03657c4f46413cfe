#pragma once

#include "features/boundary.h"
#include "panes/feature_pane.h"

namespace quillon {

/// The rows of the boundary pane that react.
enum BOUNDARY_ROW : UINT {
    BOUNDARY_DISPLAY = 1,
    BOUNDARY_HIGHLIGHT = 2,
    BOUNDARY_COLOUR = 3,
    BOUNDARY_FILL = 4,
    BOUNDARY_THICKNESS = 5
};

/// Edits the job's boundary files.
class CBoundaryPane : public CFeaturePane {
public:
    static constexpr UINT kTitleId = 12047;
    static constexpr std::string_view kTitle = "Boundary Properties";

    explicit CBoundaryPane(Platform& platform);
    bool Create(CWnd* parent, UINT id, CBoundaryList& features);
    void OnBoundaryCombo() { OnCombo(); }

private:
    CBoundary& Member(int index) const { return static_cast<CBoundaryList&>(List())[index]; }

    void BuildRows(int index) override;
    PointsTable MakeTable(int index) override;
    bool PointOfRow(int index, int row, tagXY& point) const override;
    bool StoreMemberRow(int index, CMFCPropertyGridProperty& row) override;
    void SaveMember(int index, std::uint8_t save) override;
    bool IsMemberHighlighted(int index) const override { return Member(index).Highlight; }
};

}  // namespace quillon
