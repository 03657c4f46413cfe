#pragma once

#include <array>
#include <string_view>

#include "panes/property_pane.h"
#include "target/target_plot.h"

namespace quillon {

/// The rows of the target plot pane that react. There is no row 11.
enum TARGET_PLOT_ROW : UINT {
    PLOT_MODE = 1,
    PLOT_LATITUDE = 2,
    PLOT_LONGITUDE = 3,
    PLOT_DISPLAY = 4,
    PLOT_HEADING_MODE = 5,
    PLOT_ORIENTATION = 6,
    PLOT_UNITS = 7,
    PLOT_RING_COUNT = 8,
    PLOT_RING_METRES = 9,
    PLOT_RING_NAUTICAL_MILES = 10,
    PLOT_RING_COLOUR = 12,
    PLOT_ZONE_LINES = 13,
    PLOT_START_ZONE = 14,
    PLOT_STOP_ZONE = 15,
    PLOT_ZONE_COLOUR = 16,
    PLOT_CARDINALS = 17,
    PLOT_CARDINAL_COLOUR = 18,
    PLOT_RING_LABELS = 19,
    PLOT_TEXT_COLOUR = 20
};

/// Edits the target plot, which the host owns and draws. The settings file is written after every change.
class CTargetPlotPane : public CPropertyPane {
public:
    static constexpr UINT kTitleId = 12003;
    static constexpr std::string_view kTitle = "Target Plot Window";

    static constexpr std::array<std::string_view, 2> m_UnitsTxt = {"Metres", "Nautical Miles"};
    static constexpr std::array<std::string_view, 2> m_ModeTxt = {"Fixed", "Vessel"};
    static constexpr std::array<std::string_view, 2> m_OrientationTxt = {"North Up", "Vessel Up"};

    explicit CTargetPlotPane(Platform& platform);

    /// `vesselMode` is the host's flag, true while the centre follows the vessel; without one the rows that hang on it
    /// are left out. Both outlive the pane.
    bool Create(CWnd* parent, UINT id, CTargetPlot* targetPlot, bool* vesselMode);
    /// The rows stay as they are.
    void SetTargetPlot(CTargetPlot* targetPlot) { plot = targetPlot; }

    LRESULT OnPropertyChanged(WPARAM wParam, CMFCPropertyGridProperty& row) override;

private:
    void BuildPropertyRows() override;
    void BuildDrawingRows();
    void BuildRingRows();
    void BuildZoneRows();
    bool StoreRow(CMFCPropertyGridProperty& row) override;
    void StoreHeadingMode(const CMFCPropertyGridProperty& row);
    void StoreOrientation(const CMFCPropertyGridProperty& row);
    void StoreUnits(const CMFCPropertyGridProperty& row);
    void SaveFile(std::uint8_t save) override;
    std::optional<tagXY> GetShownPoint() const override { return plot->centre; }

    CTargetPlot* plot = nullptr;
    bool* followsVessel = nullptr;
};

}  // namespace quillon
