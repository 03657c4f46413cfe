#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "features/pipeline.h"
#include "frame/colour_button.h"
#include "frame/feature_list_ctrl.h"
#include "frame/points_table.h"
#include "panes/property_pane.h"

namespace quillon {

/// The rows of the pipe route pane that react.
enum PIPE_ROUTE_ROW : UINT {
    PIPE_ROUTE_DISPLAY = 1,
    PIPE_ROUTE_ORDER = 2,
    PIPE_ROUTE_COLOUR = 3,
    PIPE_ROUTE_THICKNESS = 4,
    PIPE_ROUTE_START_KP = 5,
    PIPE_ROUTE_INCREASING = 6,
    PIPE_ROUTE_LABEL_KPS = 7,
    PIPE_ROUTE_INTERVAL = 8
};

/// Edits the one active pipe route, which the host owns.
class CPipeRoutePane : public CPropertyPane {
public:
    static constexpr UINT kTitleId = 12097;
    static constexpr std::string_view kTitle = "Pipe Route";

    explicit CPipeRoutePane(Platform& platform);
    bool Create(CWnd* parent, UINT id, CPipeline& pipeRoute);

    void OnSelect();
    void OnClear();
    /// Shows the rows that only files without KPs need, or hides them.
    void AdjustStartKp();
    void UpdateAllPositions();
    void Refresh() override;
    void OnCommand(UINT control) override;
    void OnSize(tagSIZE size) override;

    CButton* GetFileButton() override { return &selectButton; }
    FileControls GetFileControls() override { return {.add = &selectButton, .remove = &clearButton}; }
    CColourButton& GetSelectButton() { return selectButton; }
    CColourButton& GetClearButton() { return clearButton; }
    CFeatureListCtrl& GetTable() { return table; }

private:
    void BuildPropertyRows() override;
    bool StoreRow(CMFCPropertyGridProperty& row) override;
    void SaveFile(std::uint8_t) override { route->WriteSettings(); }
    int LayOutTop(int width) override;
    CControl* GetRest() override { return &table; }

    PointsTable CurrentTable();
    void StoreOrder(int order);
    bool StoreKpRow(bool differed);
    void ShowRoute();
    std::string ShownKpText(std::size_t row) const;

    CPipeline* route = nullptr;
    CColourButton selectButton;
    CColourButton clearButton;
    CFeatureListCtrl table;
    /// The KPs as the table was last filled with them: it shows new ones at its next refresh.
    std::vector<double> shownKps;
};

}  // namespace quillon
