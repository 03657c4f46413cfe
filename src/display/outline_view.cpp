#include "display/outline_view.h"

#include <algorithm>
#include <cmath>

#include "background/dxf_palette.h"
#include "foundation/angle_units.h"
#include "frame/messages.h"

namespace quillon {
namespace {

constexpr double kFullTurn = 6.283185307179586;
constexpr COLORREF kGridByDay = 0x00FF00;
constexpr COLORREF kGridByNight = 0x004000;
constexpr COLORREF kSelectedColour = RGB(255, 255, 0);
constexpr std::size_t kPrimaryPens = 8;
constexpr int kTick = 5;             ///< pixels either side of an axis
constexpr int kClosestTicks = 3;     ///< pixels
constexpr double kMostChords = 1e5;  ///< of one arc: more are below a pixel on any screen

struct GridStep {
    double spanBelow;  ///< metres
    double step;       ///< metres
};
constexpr std::array<GridStep, 7> kGridSteps = {
    {{100, 10}, {250, 25}, {500, 50}, {1000, 100}, {2500, 250}, {5000, 500}, {10000, 1000}}};
constexpr double kWidestStep = 5000;

double StepOf(double span) {
    const auto fits =
        std::find_if(kGridSteps.begin(), kGridSteps.end(), [&](auto& row) { return span < row.spanBelow; });
    return fits == kGridSteps.end() ? kWidestStep : fits->step;
}

/// Whole pixels towards zero; far outside any screen the last one that a device can add up.
int ToPixels(double pixels) {
    constexpr double kFarthest = 1 << 29;
    return static_cast<int>(std::clamp(std::trunc(pixels), -kFarthest, kFarthest));
}

/// A line through pixels, drawn in one call, without the steps that stay on a pixel: of a large drawing most do.
class PixelLine {
public:
    void Add(tagPOINT pixel) {
        if (pixels.empty() || !(pixels.back() == pixel)) pixels.push_back(pixel);
    }
    void Draw(CDC& dc) {
        if (pixels.empty()) return;
        const tagPOINT last = pixels.back();
        if (pixels.size() == 1) pixels.push_back(last);
        dc.Polyline(pixels);
        dc.MoveTo(last.x, last.y);
    }

private:
    std::vector<tagPOINT> pixels;
};

}  // namespace

COutlineView::COutlineView(CWnd& parent, UINT viewId) : CView(parent, viewId) {
    SetNightMode(false);
}

void COutlineView::SetNightMode(bool night) {
    nightMode = night;
    background = 0;
    gridColour = night ? kGridByNight : kGridByDay;
    gridPen = {PS_SOLID, 1, gridColour};
    Invalidate();
}

// ---- Metres and pixels ----

void COutlineView::ComputeScaling(const tagRECT& rect, double minEasting, double minNorthing, double maxEasting,
                                  double maxNorthing) {
    clientRect = rect;
    const double step = StepOf(std::max(maxEasting - minEasting, maxNorthing - minNorthing));
    gridStep = step;
    const double west = std::floor(minEasting / step) * step, east = std::ceil(maxEasting / step) * step;
    const double south = std::floor(minNorthing / step) * step, north = std::ceil(maxNorthing / step) * step;
    const bool sized = rect.Width() > 0 && rect.Height() > 0 && std::isfinite(east - west + north - south);
    metresPerPixel = sized ? std::max((east - west) / rect.Width(), (north - south) / rect.Height()) : 0.0;
    centrePixelX = (rect.left + rect.right) / 2;
    centrePixelY = (rect.top + rect.bottom) / 2;
    centreEasting = (west + east) * 0.5;
    centreNorthing = (south + north) * 0.5;
}

tagPOINT COutlineView::CoordToPixel(double easting, double northing) const {
    if (!HasScale()) return {centrePixelX, centrePixelY};
    return {ToPixels((easting - centreEasting) / metresPerPixel) + centrePixelX,
            centrePixelY - ToPixels((northing - centreNorthing) / metresPerPixel)};
}

tagXY COutlineView::PixelToCoord(long x, long y) const {
    return {static_cast<double>(x - centrePixelX) * metresPerPixel + centreEasting,
            static_cast<double>(centrePixelY - y) * metresPerPixel + centreNorthing};
}

void COutlineView::OnLButtonDown(tagPOINT pixel) {
    clickPosition = PixelToCoord(pixel.x, pixel.y);
    GetOwner().PostMessage(UM_CLICK_ON_VESSEL_OUTLINE, reinterpret_cast<WPARAM>(&clickPosition), 0);
}

// ---- The grid ----

void COutlineView::DrawGrid(CDC& dc) const {
    if (!HasScale()) return;
    const CPen old = dc.SelectObject(gridPen);
    const tagPOINT origin = {centrePixelX - ToPixels(centreEasting / metresPerPixel),
                             centrePixelY - ToPixels(-centreNorthing / metresPerPixel)};
    dc.MoveTo(origin.x, clientRect.bottom);
    dc.LineTo(origin.x, clientRect.top);
    dc.MoveTo(clientRect.left, origin.y);
    dc.LineTo(clientRect.right, origin.y);
    const double step = gridStep, scale = metresPerPixel;
    const double firstE = std::ceil((clientRect.left - centrePixelX) * scale / step) * step + centreEasting;
    const double lastE = std::floor((clientRect.right - centrePixelX) * scale / step) * step + centreEasting;
    const double firstN = std::ceil((centrePixelY - clientRect.bottom) * scale / step) * step + centreNorthing;
    const double lastN = std::floor((centrePixelY - clientRect.top) * scale / step) * step + centreNorthing;
    // Closer ticks would be a solid bar, and millions of dots.
    if (step < kClosestTicks * scale) {
        dc.SelectObject(old);
        return;
    }
    for (double e = firstE; e <= lastE; e += step) {
        const int x = CoordToPixel(e, 0).x;
        dc.MoveTo(x, origin.y - kTick);
        dc.LineTo(x, origin.y + kTick);
    }
    for (double n = firstN; n <= lastN; n += step) {
        const int y = CoordToPixel(0, n).y;
        dc.MoveTo(origin.x - kTick, y);
        dc.LineTo(origin.x + kTick, y);
    }
    for (double e = firstE; e <= lastE; e += step) {
        for (double n = firstN; n <= lastN; n += step) {
            const tagPOINT dot = CoordToPixel(e, n);
            dc.SetPixel(dot.x, dot.y, gridColour);
        }
    }
    dc.SelectObject(old);
}

// ---- Lines, arcs and areas ----

void COutlineView::DrawLine(CDC& dc, double easting1, double northing1, double easting2, double northing2) const {
    const tagPOINT from = CoordToPixel(easting1, northing1), to = CoordToPixel(easting2, northing2);
    dc.MoveTo(from.x, from.y);
    dc.LineTo(to.x, to.y);
}

tagPOINT COutlineView::PixelAt(const tagXY& centre, double radius, double bearing) const {
    return CoordToPixel(centre.x + radius * std::sin(bearing), centre.y + radius * std::cos(bearing));
}

void COutlineView::DrawArc(CDC& dc, double centreEasting1, double centreNorthing1, double radius, double angle1,
                           double angle2, CLOCK_DIRECTION direction) const {
    if (!HasScale() || !(radius > 0.0)) return;
    const tagXY centre = {centreEasting1, centreNorthing1};
    const bool clockwise = direction == CLOCK_DIRECTION::CLOCKWISE;
    const double start = clockwise ? angle1 : angle2;
    double end = clockwise ? angle2 : angle1;
    if (start > end) end += kFullTurn;
    // The sagitta of a chord over twice this angle is one pixel.
    const double q = (radius - metresPerPixel) / radius;
    const double chords = std::min(std::ceil((end - start) / (2 * std::acos(q))), kMostChords);
    const double step = q >= -1.0 && q <= 1.0 ? (end - start) / chords : 0.0;
    PixelLine line;
    line.Add(PixelAt(centre, radius, start));
    if (step > 0.0 && end - start > step) {
        for (double bearing = start; bearing < end; bearing += step) line.Add(PixelAt(centre, radius, bearing));
    }
    line.Add(PixelAt(centre, radius, clockwise ? angle2 : angle1));
    line.Draw(dc);
}

void COutlineView::DrawPolygon(CDC& dc, std::span<const tagXY> points, const tagPen& pen) const {
    if (!HasScale()) return;
    std::vector<tagPOINT> pixels;
    pixels.reserve(points.size());
    for (const tagXY& point : points) pixels.push_back(CoordToPixel(point.x, point.y));
    const CPen oldPen = dc.SelectObject(CPen{PS_SOLID, pen.thickness, pen.colour});
    const CBrush oldBrush = dc.SelectObject(CBrush{pen.fill, pen.colour});
    const int oldMode = dc.SetPolyFillMode(WINDING);
    dc.Polygon(pixels);
    dc.SetPolyFillMode(oldMode);
    dc.SelectObject(oldBrush);
    dc.SelectObject(oldPen);
}

void COutlineView::DrawOutline(CDC& dc, const COutline& outline, bool selected) const {
    if (!HasScale() || outline.points.empty()) return;
    const COLORREF colour = selected ? kSelectedColour : outline.outlinePen.colour;
    const CPen oldPen = dc.SelectObject(CPen{PS_SOLID, outline.outlinePen.thickness, colour});
    const CBrush oldBrush = dc.SelectObject(CBrush{outline.outlinePen.fill, colour});
    for (const OutlinePoint& point : outline.points) {
        const tagPOINT pixel = CoordToPixel(point.position.x, point.position.y);
        if (point.draws) {
            dc.LineTo(pixel.x, pixel.y);
        } else {
            dc.MoveTo(pixel.x, pixel.y);
        }
    }
    dc.SelectObject(oldBrush);
    dc.SelectObject(oldPen);
}

void COutlineView::DrawVectorSymbol(CMyDC& dc, const tagXYZ& position, std::string_view text, const SymbolDef& symbol,
                                    LABEL_POSITION labelPosition) const {
    if (!HasScale()) return;
    const tagPOINT pixel = CoordToPixel(position.x, position.y);
    const int size = SymbolPixels(symbol.size);
    dc.DrawVectorSymbol(symbol.symbol, symbol.colour, symbol.colour, size, pixel.x, pixel.y);
    dc.DrawLabel(text, LabelGap(size), labelPosition, pixel.x, pixel.y);
}

// ---- Drawings ----

COLORREF COutlineView::OnGround(COLORREF colour) const {
    return colour == background ? 0xFFFFFF - colour : colour;
}

COutlineView::DxfPens COutlineView::MakePens() const {
    DxfPens pens;
    for (std::size_t i = 0; i < pens.size(); ++i) {
        const std::size_t entry = i < kPrimaryPens ? i : i - kPrimaryPens;
        pens[i] = {PS_SOLID, 1, OnGround(kDxfPalette[entry])};
    }
    return pens;
}

void COutlineView::DrawDxf(CMyDC& dc, const CDxf* dxf) const {
    if (!HasScale() || !dxf || !dxf->use) return;
    const DxfPens pens = MakePens();
    for (const CDxfBlock& block : dxf->blocks) {
        for (const CDxfEntity* entity : block.entities) DrawEntity(dc, *dxf, *entity, pens);
    }
    for (const CDxfEntity* entity : dxf->entities) DrawEntity(dc, *dxf, *entity, pens);
}

tagXY PlacePoint(const CDxf& dxf, double x, double y) {
    if (dxf.scale != 1.0 && dxf.scale != 0.0) {
        x *= dxf.scale;
        y *= dxf.scale;
    }
    if (dxf.rotation == 0.0) return {x + dxf.offsetEasting, y + dxf.offsetNorthing};
    return {x * dxf.cosRotation + dxf.offsetEasting + y * dxf.sinRotation,
            dxf.offsetNorthing - x * dxf.sinRotation + y * dxf.cosRotation};
}

void COutlineView::DrawPlacedPolyline(CDC& dc, const CDxf& dxf, const CDxfPolyline& line) const {
    const auto pixel = [&](std::size_t i) {
        const tagXY at = PlacePoint(dxf, line.GetPosition(i).x, line.GetPosition(i).y);
        return CoordToPixel(at.x, at.y);
    };
    PixelLine drawn;
    for (std::size_t i = 0; i < line.count; ++i) drawn.Add(pixel(i));
    if (line.IsClosed()) drawn.Add(pixel(0));
    drawn.Draw(dc);
}

namespace {

/// A drawing's bearing where the drawing is placed; radians.
double PlaceBearing(const CDxf& dxf, double degrees) {
    const double bearing = degrees * kRadiansPerDegree + dxf.rotation * kRadiansPerDegree;
    return bearing > kFullTurn ? bearing - kFullTurn : bearing;
}

}  // namespace

/// The pen of an entity is that of the palette entry that its number, or its layer's, names: one rule for the colours 1
/// to 255, and white where there is none. What stands on a layer that is off isn't drawn.
void COutlineView::DrawEntity(CDC& dc, const CDxf& dxf, const CDxfEntity& entity, const DxfPens& pens) const {
    if (!HasScale() || !IsDrawn(entity)) return;
    const CPen& pen = pens[kPrimaryPens + static_cast<std::size_t>(ColourIndexOf(entity))];
    const CPen old = dc.SelectObject(pen);
    if (entity.type == DXF_TYPE::LINE) {
        const auto& line = entity.As<CDxfLine>();
        const tagXY start = PlacePoint(dxf, line.start.x, line.start.y);
        const tagXY end = PlacePoint(dxf, line.end.x, line.end.y);
        DrawLine(dc, start.x, start.y, end.x, end.y);
    } else if (entity.type == DXF_TYPE::CIRCLE) {
        const auto& circle = entity.As<CDxfCircle>();
        const tagXY centre = PlacePoint(dxf, circle.centre.x, circle.centre.y);
        DrawArc(dc, centre.x, centre.y, circle.radius * dxf.scale, 0, kFullTurn, CLOCK_DIRECTION::CLOCKWISE);
    } else if (entity.type == DXF_TYPE::ARC) {
        const auto& arc = entity.As<CDxfArc>();
        const tagXY centre = PlacePoint(dxf, arc.centre.x, arc.centre.y);
        DrawArc(dc, centre.x, centre.y, arc.radius * dxf.scale, PlaceBearing(dxf, arc.startBearing),
                PlaceBearing(dxf, arc.endBearing), CLOCK_DIRECTION::ANTICLOCKWISE);
    } else if (entity.type == DXF_TYPE::POLYLINE || entity.type == DXF_TYPE::LWPOLYLINE) {
        DrawPlacedPolyline(dc, dxf, entity.As<CDxfPolyline>());
    } else if (entity.type == DXF_TYPE::SOLID) {
        const auto& solid = entity.As<CDxfSolid>();
        std::array<tagXY, 5> corners;
        for (std::size_t i = 0; i < corners.size(); ++i) {
            const tagXYZ& corner = solid.corners[i % solid.corners.size()];
            corners[i] = PlacePoint(dxf, corner.x, corner.y);
        }
        DrawPolygon(dc, corners, {.style = PS_SOLID, .thickness = 1, .colour = pen.colour, .fill = kFillSolid});
    }
    dc.SelectObject(old);
}

}  // namespace quillon
