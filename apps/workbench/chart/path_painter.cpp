// Paths: areas, lines, symbols at their points, arrow heads along their legs.

#include <array>
#include <cmath>

#include "chart/chart_canvas.h"

namespace quillon {
namespace {

/// How far what is drawn may lie from what is meant, in pixels of the device.
constexpr double kTolerance = 0.4;
/// An area's edge runs below its line, and may be coarser.
constexpr double kAreaTolerance = 0.8;
constexpr std::size_t kMostAreaVertices = 6000;
/// Each row of pixels that an edge runs through costs 0.1 microseconds.
constexpr double kMostAreaPixels = 1.2e5;
constexpr std::size_t kMostSmoothAreaVertices = 1500;
/// Areas let show through what they cover, and never outshine the lines round them.
constexpr int kHatchAlphaByDay = 76;
constexpr int kHatchAlphaByNight = 104;
constexpr int kBrightestAtNight = 184;
/// Cells for labels of points without a symbol.
constexpr double kLeastCell = 14.0;
constexpr double kLeastLegPixels = 56.0;
constexpr int kLegTextGap = 3;
constexpr double kLeastArrowLegPixels = 40.0;
/// Lines and symbols of what lies so many pixels outside can still be seen.
constexpr double kReach = 64.0;

DrawingLimits AreaLimits(const ChartCanvas& canvas) {
    return {kAreaTolerance / canvas.reach.scale, kMostAreaVertices, kMostAreaPixels / canvas.reach.scale, 4.0};
}

DrawingLimits LineLimits(const ChartCanvas& canvas, double width) {
    return {kTolerance / canvas.reach.scale, MostLineVertices(width, canvas.reach), MostLinePixels(width, canvas.reach),
            width + 4.0};
}

void PaintSymbol(ChartCanvas& canvas, const ChartMarks& style, PixelPoint at) {
    const int pixels = SymbolPixels(style.size);
    const COLORREF first = FeatureColour(style.colour, canvas.night),
                   second = FeatureColour(style.second, canvas.night);
    if (!canvas.reach.isRaster) {
        canvas.painter.setRenderHint(QPainter::Antialiasing);
        canvas.dc.DrawVectorSymbol(style.symbol, first, second, pixels, static_cast<int>(std::lround(at.x)),
                                   static_cast<int>(std::lround(at.y)));
        return;
    }
    const double scale = canvas.reach.scale;
    const QImage& sprite = canvas.store.sprites.Of({.symbol = style.symbol,
                                                    .pixels = pixels,
                                                    .first = first,
                                                    .second = second,
                                                    .ground = canvas.colours.ground,
                                                    .brightest = canvas.night ? kBrightestAtNight : 255,
                                                    .scale = scale});
    const auto place = [&](double v) { return std::round((v - SymbolReach(pixels)) * scale) / scale; };
    canvas.painter.drawImage(QPointF(place(at.x), place(at.y)), sprite);
}

void PaintSymbols(ChartCanvas& canvas, const ChartPath& path, int priority) {
    const ChartMarks& style = path.marks;
    const bool hasSymbol = style.size > 0 && style.symbol >= 1 && style.symbol <= kVectorSymbolCount;
    const bool hasLabel = style.label && style.labelPosition != 0;
    if (!hasSymbol && !hasLabel) return;
    const int pixels = hasSymbol ? SymbolPixels(style.size) : 0;
    VisibleMarks(*path.path, canvas.view, std::max(kLeastCell, pixels * 1.25), canvas.store.marks);
    for (const PixelMark& mark : canvas.store.marks) {
        if (hasSymbol) PaintSymbol(canvas, style, mark.at);
        if (!hasLabel) continue;
        canvas.texts.push_back({.priority = priority,
                                .textOf = &style.label,
                                .index = mark.point,
                                .at = mark.at,
                                .position = style.labelPosition,
                                .gap = LabelGap(pixels)});
    }
}

void PaintArrows(ChartCanvas& canvas, const ChartPath& path) {
    if (!path.arrows || !IsUsable(path.line)) return;
    VisibleLegs(*path.path, canvas.view, kLeastArrowLegPixels, canvas.store.legs);
    QPainter& painter = canvas.painter;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(canvas.ColourOf(path.line.colour));
    const double half = 2.5 + path.line.thickness;
    for (const PixelLeg& leg : canvas.store.legs) {
        const double dx = leg.to.x - leg.from.x, dy = leg.to.y - leg.from.y, length = std::hypot(dx, dy);
        const QPointF middle(leg.from.x + 0.5 * dx, leg.from.y + 0.5 * dy);
        const QPointF ahead(half * dx / length, half * dy / length), across(-0.7 * ahead.y(), 0.7 * ahead.x());
        const std::array<QPointF, 3> head = {middle + 1.4 * ahead, middle - 1.4 * ahead + across,
                                             middle - 1.4 * ahead - across};
        painter.drawPolygon(head.data(), static_cast<int>(head.size()));
    }
    painter.setBrush(Qt::NoBrush);
}

void CollectLegs(ChartCanvas& canvas, const ChartPath& path, int priority) {
    if (!path.legText) return;
    VisibleLegs(*path.path, canvas.view, kLeastLegPixels, canvas.store.legs);
    for (const PixelLeg& leg : canvas.store.legs) {
        canvas.texts.push_back({.priority = priority,
                                .textOf = &path.legText,
                                .index = leg.point,
                                .at = leg.from,
                                .gap = kLegTextGap + path.line.thickness / 2,
                                .legEnd = leg.to,
                                .colour = path.line.colour});
    }
}

}  // namespace

void PaintFill(ChartCanvas& canvas, const ChartFill& fill, bool hasLine, const PixelLines& areas) {
    const bool isHatch = fill.style <= 5;
    QColor colour = canvas.ColourOf(fill.colour);
    colour.setAlpha(!isHatch ? AreaAlpha(canvas.night) : canvas.night ? kHatchAlphaByNight : kHatchAlphaByDay);
    const QBrush brush = FillBrush(fill.style, colour, canvas.reach.isRaster ? canvas.reach.scale : 1.0);
    PaintAreas(canvas.painter, brush, !hasLine && areas.points.size() <= kMostSmoothAreaVertices, areas);
}

void PaintAreas(ChartCanvas& canvas, const ChartPath& path) {
    if (path.fill.style == kFillNone || !path.path->Box().Meets(canvas.view.WorldBox())) return;
    VisibleArea(*path.path, canvas.view, AreaLimits(canvas), canvas.store.lines.lines);
    PaintFill(canvas, path.fill, IsUsable(path.line), canvas.store.lines.lines);
}

void PaintLines(ChartCanvas& canvas, const ChartPath& path) {
    if (!IsUsable(path.line) || !path.path->Box().Meets(canvas.view.WorldBox(kReach))) return;
    VisibleLine(*path.path, canvas.view, LineLimits(canvas, path.line.thickness), canvas.store.lines.lines);
    PaintLines(canvas.painter, canvas.reach, canvas.PenOf(path.line), canvas.store.lines);
}

void PaintMarks(ChartCanvas& canvas, const ChartPath& path, int priority) {
    if (!path.path->Box().Meets(canvas.view.WorldBox(kReach))) return;
    PaintArrows(canvas, path);
    PaintSymbols(canvas, path, priority);
    CollectLegs(canvas, path, priority);
}

}  // namespace quillon
