#include "panes/target_plot_pane.h"

#include "foundation/angle_rows.h"
#include "panes/target_display_rows.h"
#include "platform/platform.h"

namespace quillon {
namespace {

using enum EQUAL_VALUE;
using enum POST;

constexpr std::uint8_t kSaveSettings = 1;
constexpr double kFullTurn = 360.0;

// clang-format off
constexpr RowEffect Plain(UINT row) {
    return {row, COUNTS, kSaveSettings, false, {REDRAW}};
}
constexpr std::array<RowEffect, 19> kEffects = {{
    // row            equal   save           changed  messages
    Plain(PLOT_MODE),
    {PLOT_LATITUDE,   COUNTS, kSaveSettings, false,   {REDRAW_POINT}},
    {PLOT_LONGITUDE,  COUNTS, kSaveSettings, false,   {REDRAW_POINT}},
    Plain(PLOT_DISPLAY), Plain(PLOT_HEADING_MODE), Plain(PLOT_ORIENTATION), Plain(PLOT_UNITS), Plain(PLOT_RING_COUNT),
    Plain(PLOT_RING_METRES), Plain(PLOT_RING_NAUTICAL_MILES), Plain(PLOT_RING_COLOUR), Plain(PLOT_ZONE_LINES),
    Plain(PLOT_START_ZONE), Plain(PLOT_STOP_ZONE), Plain(PLOT_ZONE_COLOUR), Plain(PLOT_CARDINALS),
    Plain(PLOT_CARDINAL_COLOUR), Plain(PLOT_RING_LABELS), Plain(PLOT_TEXT_COLOUR),
}};
/// A notification of any other row saves and redraws all the same.
constexpr RowEffect kAnyRow = Plain(0);
// clang-format on

/// A bearing from 0 up to but not with a full turn; others are left alone.
bool TakeZone(double& zone, const CMFCPropertyGridProperty& row) {
    const double bearing = row.Get<double>();
    if (!(bearing >= 0.0 && bearing <= kFullTurn)) return false;
    zone = bearing == kFullTurn ? 0.0 : bearing;
    return true;
}

}  // namespace

CTargetPlotPane::CTargetPlotPane(Platform& owner) : CPropertyPane(owner, 0, kEffects) {
    AddControl(GetPropertyList());
}

bool CTargetPlotPane::Create(CWnd* parent, UINT id, CTargetPlot* targetPlot, bool* vesselMode) {
    if (!CreatePane(parent, id, kTitle)) return false;
    plot = targetPlot;
    followsVessel = vesselMode;
    Refresh();
    return true;
}

// ---- Rows ----

void CTargetPlotPane::BuildPropertyRows() {
    auto& location = GetPropertyList().AddGroup("Location");
    if (followsVessel) {
        AddChoice(location, "Mode", m_ModeTxt, m_ModeTxt[*followsVessel ? 1 : 0],
                  "Position of target based on a fixed position or the vessel position", PLOT_MODE);
    }
    location.Add<CMFCPropertyGridAngleProperty>("Latitude", plot->centre.y, ANGLE_LATITUDE,
                                                "Latitude of the centre of the target rings", PLOT_LATITUDE);
    location.Add<CMFCPropertyGridAngleProperty>("Longitude", plot->centre.x, ANGLE_LONGITUDE,
                                                "Longitude of the centre of the target rings", PLOT_LONGITUDE);
    BuildDrawingRows();
    BuildRingRows();
    BuildZoneRows();
    BuildLabelRows(GetPropertyList().AddGroup("Labels"), "Cardinal Points", "Range Rings", plot->display,
                   {PLOT_CARDINALS, PLOT_CARDINAL_COLOUR, PLOT_RING_LABELS, PLOT_TEXT_COLOUR});
}

void CTargetPlotPane::BuildDrawingRows() {
    auto& drawing = GetPropertyList().AddGroup("Drawing");
    drawing.Add<CMFCPropertyGridBool>("Display", plot->display.drawRings, "Determine whether to display Range Rings",
                                      PLOT_DISPLAY);
    if (!followsVessel) return;
    AddChoice(drawing, "Heading Mode", m_OrientationTxt, m_OrientationTxt[plot->display.northUp ? 0 : 1],
              "Orientation of the Target Plot", PLOT_HEADING_MODE);
    drawing.Add<CMFCPropertyGridAngleInteger>("Orientation", plot->orientation, "Orientation of the Target Plot",
                                              PLOT_ORIENTATION);
}

void CTargetPlotPane::BuildRingRows() {
    const TargetDisplay& display = plot->display;
    auto& rings = GetPropertyList().AddGroup("Rings");
    AddChoice(rings, "Units", m_UnitsTxt, m_UnitsTxt[display.nauticalMiles ? 1 : 0], "Units for the range rings",
              PLOT_UNITS);
    rings
        .Add<CMFCPropertyGridInteger>("Number of Rings", display.ringCount, "", "Number of Range rings to display",
                                      PLOT_RING_COUNT)
        .EnableSpinControl(true, 0, kMostRingsOffered);
    auto& metres = rings.Add<CMFCPropertyGridDouble>("Ring Size", display.ringRadiusMetres, "%4.0lfm",
                                                     "Ring size in metres", PLOT_RING_METRES);
    metres.SetRange(kMetresRange);
    metres.Show(!display.nauticalMiles);
    auto& miles = rings.Add<CMFCPropertyGridDouble>("Ring Size", display.ringRadiusNauticalMiles, "%7.3lfNm",
                                                    "Ring size in nautical miles", PLOT_RING_NAUTICAL_MILES);
    miles.SetRange(kNauticalMilesRange);
    miles.Show(display.nauticalMiles);
    AddColour(rings, "Ring Colour", display.ringColour, "Specifies the pen color of the range rings", PLOT_RING_COLOUR);
}

void CTargetPlotPane::BuildZoneRows() {
    const TargetDisplay& display = plot->display;
    auto& zones = GetPropertyList().AddGroup("Zone Lines");
    zones.Add<CMFCPropertyGridBool>("Display", display.drawZoneLines, "Determine whether to display zone Lines",
                                    PLOT_ZONE_LINES);
    zones.Add<CMFCPropertyGridAngleDouble>("Start Bearing", display.startZone, AS_FULL, "Start bearing of zone",
                                           PLOT_START_ZONE);
    zones.Add<CMFCPropertyGridAngleDouble>("Stop Bearing", display.stopZone, AS_FULL, "Stop bearing of zone",
                                           PLOT_STOP_ZONE);
    AddColour(zones, "Zone Colour", display.zoneColour, "Specifies the pen color of the range rings", PLOT_ZONE_COLOUR);
}

// ---- Changes ----

LRESULT CTargetPlotPane::OnPropertyChanged(WPARAM wParam, CMFCPropertyGridProperty& row) {
    if (FindRowEffect(kEffects, row.GetData())) return CPropertyPane::OnPropertyChanged(wParam, row);
    SaveFile(kAnyRow.save);
    BroadcastAll(kAnyRow.posts);
    return 0;
}

void CTargetPlotPane::SaveFile(std::uint8_t) {
    plot->Save(GetPlatform().Files());
}

bool CTargetPlotPane::StoreRow(CMFCPropertyGridProperty& row) {
    TargetDisplay& display = plot->display;
    switch (static_cast<TARGET_PLOT_ROW>(row.GetData())) {
        case PLOT_MODE:
            if (followsVessel) *followsVessel = row.Get<std::string>() != m_ModeTxt[0];
            return true;
        case PLOT_LATITUDE:
            plot->SetLatitude(row.Get<double>());
            return true;
        case PLOT_LONGITUDE:
            plot->SetLongitude(row.Get<double>());
            return true;
        case PLOT_DISPLAY:
            return Take(display.drawRings, row);
        case PLOT_HEADING_MODE:
            StoreHeadingMode(row);
            return true;
        case PLOT_ORIENTATION:
            StoreOrientation(row);
            return true;
        case PLOT_UNITS:
            StoreUnits(row);
            return true;
        case PLOT_RING_COUNT:
            // The spin control offers one ring more than is stored.
            return row.Get<std::int32_t>() <= kMostStoredRings && Take(display.ringCount, row);
        case PLOT_RING_METRES:
            return Take(display.ringRadiusMetres, row);
        case PLOT_RING_NAUTICAL_MILES:
            return Take(display.ringRadiusNauticalMiles, row);
        case PLOT_RING_COLOUR:
            return Take(display.ringColour, row);
        case PLOT_ZONE_LINES:
            return Take(display.drawZoneLines, row);
        case PLOT_START_ZONE:
            return TakeZone(display.startZone, row);
        case PLOT_STOP_ZONE:
            return TakeZone(display.stopZone, row);
        case PLOT_ZONE_COLOUR:
            return Take(display.zoneColour, row);
        case PLOT_CARDINALS:
            return Take(display.displayLabels, row);
        case PLOT_CARDINAL_COLOUR:
            return Take(display.cardinalColour, row);
        case PLOT_RING_LABELS:
            return Take(display.labelRings, row);
        case PLOT_TEXT_COLOUR:
            return Take(display.textColour, row);
    }
    return false;
}

void CTargetPlotPane::StoreHeadingMode(const CMFCPropertyGridProperty& row) {
    if (row.Get<std::string>() != m_OrientationTxt[0]) {
        plot->display.northUp = false;
        return;
    }
    plot->HoldNorthUp();
    if (auto* const orientation = GetPropertyList().FindItemByData(PLOT_ORIENTATION)) {
        orientation->SetValue(plot->orientation);
    }
}

void CTargetPlotPane::StoreOrientation(const CMFCPropertyGridProperty& row) {
    plot->SetOrientation(row.Get<std::int32_t>());
    // The row tells what the orientation means; what holds is changed by its own row alone.
    if (auto* const mode = GetPropertyList().FindItemByData(PLOT_HEADING_MODE)) {
        mode->SetValue(std::string(m_OrientationTxt[plot->orientation != 0 ? 1 : 0]));
    }
}

void CTargetPlotPane::StoreUnits(const CMFCPropertyGridProperty& row) {
    plot->display.nauticalMiles = row.Get<std::string>() != m_UnitsTxt[0];
    if (auto* const metres = GetPropertyList().FindItemByData(PLOT_RING_METRES)) {
        metres->Show(!plot->display.nauticalMiles);
    }
    if (auto* const miles = GetPropertyList().FindItemByData(PLOT_RING_NAUTICAL_MILES)) {
        miles->Show(plot->display.nauticalMiles);
    }
}

}  // namespace quillon
