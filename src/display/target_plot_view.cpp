#include "display/target_plot_view.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "drawing/contrast.h"
#include "foundation/angle_units.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::array<std::string_view, 4> kCardinals = {"N", "E", "S", "W"};
constexpr COLORREF kGround = 0x000000;
constexpr COLORREF kDayBrightest = 0xFFFFFF;
constexpr COLORREF kNightBrightest = 0xB8B8B8;
constexpr double kNightDim = 0.5;
constexpr COLORREF kCentre = 0xC0C0C0;
constexpr int kCentreArm = 6;  ///< pixels
constexpr int kMarkArm = 5;
constexpr int kTextGap = 4;
constexpr int kLeastRadius = 8;  ///< of a plot that can be read, pixels
constexpr double kLabelBearing =
    std::numbers::pi / 4;  ///< on the screen: between the cardinal points of a plot north up

CFont TextFont() {
    return CFont{.face = "Tahoma", .height = -13, .weight = FW_NORMAL, .escapement = 0};
}

/// A radius without needless noughts: "50m", "0.25Nm".
std::string RadiusText(double radius, bool nauticalMiles) {
    std::string text = Format("%.3lf", radius);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text + (nauticalMiles ? "Nm" : "m");
}

void DrawCross(CDC& dc, tagPOINT at, int arm) {
    dc.MoveTo(at.x - arm, at.y);
    dc.LineTo(at.x + arm + 1, at.y);
    dc.MoveTo(at.x, at.y - arm);
    dc.LineTo(at.x, at.y + arm + 1);
}

void CentreText(CDC& dc, tagPOINT at, std::string_view text) {
    const tagSIZE size = dc.GetTextExtent(text);
    dc.TextOut(at.x - size.width / 2, at.y - size.height / 2, text);
}

}  // namespace

void CTargetPlotView::SetPlot(const CTargetPlot* targetPlot) {
    plot = targetPlot;
    Invalidate();
}

void CTargetPlotView::SetMarks(std::vector<PlotMark> newMarks) {
    if (newMarks == marks) return;
    marks = std::move(newMarks);
    Invalidate();
}

void CTargetPlotView::SetNightMode(bool on) {
    night = on;
    Invalidate();
}

COLORREF CTargetPlotView::LineColour(COLORREF colour) const {
    return night ? Lifted(Blend(kGround, colour, kNightDim), kNightBrightest, kGround, kLeastContrast)
                 : Lifted(colour, kDayBrightest, kGround, kLeastContrast);
}

COLORREF CTargetPlotView::TextColour(COLORREF colour) const {
    return Lifted(LineColour(colour), night ? kNightBrightest : kDayBrightest, kGround, kLeastTextContrast);
}

// ---- Metres and pixels ----

CTargetPlotView::Scale CTargetPlotView::MakeScale(CDC& dc) const {
    const int width = GetRect().Width(), height = GetRect().Height();
    const int room = dc.GetTextExtent("N").height + 2 * kTextGap;
    Scale scale{.centre = {width / 2, height / 2}, .radius = std::min(width, height) / 2 - room};
    scale.metres = RingRadiusMetres(plot->display) * std::max<int>(plot->display.ringCount, 1);
    scale.turn = plot->display.northUp ? 0.0 : plot->orientation * kRadiansPerDegree;
    return scale;
}

tagPOINT CTargetPlotView::PixelAt(const Scale& scale, double bearing, double pixels) {
    const double angle = bearing - scale.turn;
    return {scale.centre.x + static_cast<int>(std::lround(pixels * std::sin(angle))),
            scale.centre.y - static_cast<int>(std::lround(pixels * std::cos(angle)))};
}

// ---- Drawing ----

void CTargetPlotView::Paint(CDrawDevice& device) {
    CDC dc(&device);
    dc.FillSolidRect(0, 0, GetRect().Width(), GetRect().Height(), kGround);
    if (!plot) return;
    dc.SelectObject(TextFont());
    dc.SetBkMode(TRANSPARENT);
    dc.SelectObject(CBrush::Null());
    const Scale scale = MakeScale(dc);
    if (scale.radius < kLeastRadius || !(scale.metres > 0.0)) return;
    if (plot->display.drawRings) DrawRings(dc, scale);
    if (plot->display.drawZoneLines) DrawZones(dc, scale);
    dc.SelectObject(CPen{PS_SOLID, 1, LineColour(kCentre)});
    DrawCross(dc, scale.centre, kCentreArm);
    DrawMarks(dc, scale);
    if (plot->display.drawRings && plot->display.labelRings) DrawRingLabels(dc, scale);
    if (plot->display.displayLabels) DrawCardinals(dc, scale);
}

void CTargetPlotView::DrawRings(CDC& dc, const Scale& scale) const {
    dc.SelectObject(CPen{PS_SOLID, 1, LineColour(plot->display.ringColour)});
    for (int ring = 1; ring <= plot->display.ringCount; ++ring) {
        const int pixels = scale.radius * ring / plot->display.ringCount;
        dc.Ellipse(scale.centre.x - pixels, scale.centre.y - pixels, scale.centre.x + pixels + 1,
                   scale.centre.y + pixels + 1);
    }
}

/// Every ring has its radius, or every second, third ... where they stand too close. The outermost always has.
void CTargetPlotView::DrawRingLabels(CDC& dc, const Scale& scale) const {
    const TargetDisplay& display = plot->display;
    if (display.ringCount < 1) return;
    dc.SetTextColor(TextColour(display.textColour));
    const double unit = display.nauticalMiles ? display.ringRadiusNauticalMiles : display.ringRadiusMetres;
    // Along the diagonal a line of text takes its height by the root of 2.
    const double spacing = static_cast<double>(scale.radius) / display.ringCount * std::numbers::sqrt2 / 2;
    const int every = std::max(1, static_cast<int>(std::ceil(dc.GetTextExtent("0").height / spacing)));
    for (int ring = display.ringCount; ring >= 1; ring -= every) {
        const double pixels = static_cast<double>(scale.radius) * ring / display.ringCount;
        const tagPOINT at = PixelAt(scale, kLabelBearing + scale.turn, pixels);
        dc.TextOut(at.x + kTextGap, at.y - dc.GetTextExtent("0").height,
                   RadiusText(ring * unit, display.nauticalMiles));
    }
}

void CTargetPlotView::DrawCardinals(CDC& dc, const Scale& scale) const {
    dc.SetTextColor(TextColour(plot->display.cardinalColour));
    const double pixels = scale.radius + kTextGap + dc.GetTextExtent("N").height / 2.0;
    for (std::size_t i = 0; i < kCardinals.size(); ++i) {
        CentreText(dc, PixelAt(scale, static_cast<double>(i) * std::numbers::pi / 2, pixels), kCardinals[i]);
    }
}

void CTargetPlotView::DrawZones(CDC& dc, const Scale& scale) const {
    dc.SelectObject(CPen{PS_SOLID, 1, LineColour(plot->display.zoneColour)});
    for (const double zone : {plot->display.startZone, plot->display.stopZone}) {
        const tagPOINT end = PixelAt(scale, zone * kRadiansPerDegree, scale.radius);
        dc.MoveTo(scale.centre.x, scale.centre.y);
        dc.LineTo(end.x, end.y);
    }
}

void CTargetPlotView::DrawMarks(CDC& dc, const Scale& scale) const {
    for (const PlotMark& mark : marks) {
        const double east =
            std::remainder(mark.position.x - plot->centre.x, 2 * std::numbers::pi) * plot->metresPerLongitude;
        const double north = (mark.position.y - plot->centre.y) * plot->metresPerLatitude;
        const double range = std::hypot(east, north);
        if (!(range <= scale.metres)) continue;
        const tagPOINT at = PixelAt(scale, std::atan2(east, north), range / scale.metres * scale.radius);
        dc.SelectObject(CPen{PS_SOLID, 2, LineColour(mark.colour)});
        DrawCross(dc, at, kMarkArm);
        dc.SetTextColor(TextColour(mark.colour));
        dc.TextOut(at.x + kMarkArm + kTextGap, at.y - dc.GetTextExtent("0").height / 2, mark.name);
    }
}

}  // namespace quillon
