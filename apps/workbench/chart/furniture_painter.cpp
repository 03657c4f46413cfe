#include "chart/furniture_painter.h"

#include <QPainter>
#include <algorithm>
#include <cmath>

#include "chart/chart_canvas.h"
#include "scene/chart_grid.h"

namespace quillon {
namespace {

/// Small figures of the chart itself, on a patch of its ground.
void PaintFigures(QPainter& painter, const ChartColours& colours, const QRect& box, const std::string& text) {
    QColor patch = ToQColor(colours.ground);
    patch.setAlpha(kPatchAlpha);
    painter.fillRect(box, patch);
    painter.drawText(box, Qt::AlignCenter, QString::fromStdString(text));
}

void PaintGridFigures(QPainter& painter, const ChartView& view, const ChartColours& colours) {
    const ChartGrid grid = GridOf(view);
    const FontMeasures& measures = FontMeasures::Of(kChartFont);
    painter.setFont(measures.Font());
    painter.setPen(ToQColor(colours.gridText));
    const int high = measures.Height() + 2;
    for (const ChartGridLine& line : grid.eastings) {
        const int wide = measures.Width(line.label) + 8;
        const int x = static_cast<int>(std::lround(line.pixel)) - wide / 2;
        if (x > 100 && x + wide < view.Width()) PaintFigures(painter, colours, {x, 4, wide, high}, line.label);
    }
    for (const ChartGridLine& line : grid.northings) {
        const int wide = measures.Width(line.label) + 8;
        const int y = static_cast<int>(std::lround(line.pixel)) - high / 2;
        if (y > 24 && y + high < view.Height() - 52) PaintFigures(painter, colours, {4, y, wide, high}, line.label);
    }
}

void PaintScaleBar(QPainter& painter, const ChartView& view, const ChartColours& colours) {
    const ChartScaleBar bar = ScaleBarOf(view, std::min(180.0, 0.4 * view.Width()));
    constexpr int kLeft = 16, kFromBottom = 18, kThick = 5;
    const int y = view.Height() - kFromBottom;
    const int length = static_cast<int>(std::lround(bar.pixels));
    const FontMeasures& measures = FontMeasures::Of(kChartFont);
    QColor patch = ToQColor(colours.ground);
    patch.setAlpha(kPatchAlpha);
    painter.fillRect(QRect(kLeft - 8, y - measures.Height() - 9, std::max(length, measures.Width(bar.label)) + 16,
                           measures.Height() + kThick + 17),
                     patch);
    const QColor ink = ToQColor(colours.scaleBar);
    painter.fillRect(QRect(kLeft, y, length, kThick), ink);
    painter.fillRect(QRect(kLeft + length / 2, y + 1, length - length / 2 - 1, kThick - 2), ToQColor(colours.ground));
    painter.setFont(measures.Font());
    painter.setPen(ink);
    painter.drawText(QPointF(kLeft, y - 5), QString::fromStdString(bar.label));
}

/// The colours of a scale in a column, least on top, with figures beside it, in the lower right corner.
void PaintLegend(QPainter& painter, const ChartView& view, const ChartLegend& legend, bool night) {
    constexpr int kWide = 14, kFromEdge = 18, kGap = 6, kMostHigh = 180, kLeastHigh = 60;
    const int high = std::min(kMostHigh, view.Height() / 3);
    if (high < kLeastHigh) return;
    const ChartColours& colours = ColoursOf(night);
    const ChartColourScale& scale = *legend.colours;
    const FontMeasures& measures = FontMeasures::Of(kChartFont);
    const double least = scale.least * legend.unit, greatest = scale.greatest * legend.unit;
    const std::vector<ChartLegendMark> marks = LegendMarks(least, greatest, high / (2.0 * measures.Height()));
    int widest = 0;
    for (const ChartLegendMark& mark : marks) widest = std::max(widest, measures.Width(mark.label));
    const int wide = std::max(kWide + kGap + widest, measures.Width(legend.title));
    const QRect all(view.Width() - kFromEdge - wide, view.Height() - kFromEdge - high - measures.Height() - 4, wide,
                    high + measures.Height() + 4);
    QColor patch = ToQColor(colours.ground);
    patch.setAlpha(kPatchAlpha);
    painter.fillRect(all.adjusted(-8, -6, 8, 8), patch);
    painter.setFont(measures.Font());
    painter.setPen(ToQColor(colours.scaleBar));
    painter.drawText(QRect(all.left(), all.top(), wide, measures.Height()), Qt::AlignLeft | Qt::AlignVCenter,
                     QString::fromStdString(legend.title));
    const int top = all.bottom() - high + 1;
    for (int y = 0; y < high; ++y) {
        const auto place = static_cast<std::size_t>(
            std::lround(static_cast<double>(y) / (high - 1) * static_cast<double>(scale.colours.size() - 1)));
        painter.fillRect(QRect(all.left(), top + y, kWide, 1), ToQColor(scale.Shown(place, night)));
    }
    for (const ChartLegendMark& mark : marks) {
        const int y = top + static_cast<int>(std::lround(mark.part * (high - 1)));
        painter.fillRect(QRect(all.left() + kWide, y, 3, 1), ToQColor(colours.scaleBar));
        painter.drawText(QRect(all.left() + kWide + kGap, y - measures.Height() / 2, widest + 2, measures.Height()),
                         Qt::AlignLeft | Qt::AlignVCenter, QString::fromStdString(mark.label));
    }
}

void PaintShown(QPainter& painter, const ChartView& view, const ChartColours& colours, tagXY shown) {
    const PixelPoint at = view.ToPixel(shown);
    if (!IsPlace(shown) || !view.PixelBox(30.0).Contains(at.x, at.y)) return;
    const double x = std::floor(at.x) + 0.5, y = std::floor(at.y) + 0.5;
    constexpr double kRing = 11.0, kInner = 6.0, kOuter = 19.0;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    for (const bool isCasing : {true, false}) {
        QPen pen(ToQColor(isCasing ? colours.shownCasing : colours.shown), isCasing ? 5.0 : 2.0);
        pen.setCapStyle(Qt::FlatCap);
        painter.setPen(pen);
        painter.drawEllipse(QPointF(x, y), kRing, kRing);
        const double longer = isCasing ? 1.5 : 0.0;
        for (const QPointF& d : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)}) {
            painter.drawLine(QPointF(x, y) + d * (kInner - longer), QPointF(x, y) + d * (kOuter + longer));
        }
    }
}

/// Where a line leaves the view: a meridian at the lower edge, a parallel at the right one. None if it doesn't.
std::optional<double> LeavesAt(const ChartGraticuleLine& line, const ChartView& view) {
    const double edge = line.isMeridian ? view.Height() : view.Width();
    for (const std::vector<tagXY>& run : line.runs) {
        for (std::size_t i = 1; i < run.size(); ++i) {
            PixelPoint a = view.ToPixel(run[i - 1]), b = view.ToPixel(run[i]);
            if (line.isMeridian) a = {a.y, a.x}, b = {b.y, b.x};
            if ((a.x < edge) == (b.x < edge)) continue;
            return a.y + (b.y - a.y) * (edge - a.x) / (b.x - a.x);
        }
    }
    return std::nullopt;
}

void PaintGraticuleFigures(QPainter& painter, const ChartView& view, const ChartColours& colours,
                           const ChartGraticuleLine& line) {
    const std::optional<double> at = LeavesAt(line, view);
    if (!at) return;
    const FontMeasures& measures = FontMeasures::Of(kChartFont);
    const int wide = measures.Width(line.label) + 8, high = measures.Height() + 2;
    const int middle = static_cast<int>(std::lround(*at));
    // Clear of the scale bar at the lower left and of each other in the corner.
    if (line.isMeridian && middle > 230 && middle < view.Width() - wide) {
        PaintFigures(painter, colours, {middle - wide / 2, view.Height() - high - 4, wide, high}, line.label);
    }
    if (!line.isMeridian && middle > 24 && middle < view.Height() - 2 * high) {
        PaintFigures(painter, colours, {view.Width() - wide - 4, middle - high / 2, wide, high}, line.label);
    }
}

void PaintGraticule(QPainter& painter, const ChartView& view, const ChartColours& colours,
                    const ChartGraticule& graticule) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(ToQColor(colours.graticule), 1.0));
    for (const ChartGraticuleLine& line : graticule.lines) {
        for (const std::vector<tagXY>& run : line.runs) {
            QPolygonF pixels;
            for (const tagXY& point : run) {
                const PixelPoint at = view.ToPixel(point);
                pixels << QPointF(at.x, at.y);
            }
            painter.drawPolyline(pixels);
        }
    }
    painter.setFont(FontMeasures::Of(kChartFont).Font());
    painter.setPen(ToQColor(colours.gridText));
    for (const ChartGraticuleLine& line : graticule.lines) PaintGraticuleFigures(painter, view, colours, line);
    painter.restore();
}

}  // namespace

void PaintFurniture(QPainter& painter, const ChartView& view, const ChartScene& scene, bool night) {
    const ChartColours& colours = ColoursOf(night);
    if (scene.graticule) PaintGraticule(painter, view, colours, *scene.graticule);
    if (scene.shown) PaintShown(painter, view, colours, *scene.shown);
    PaintGridFigures(painter, view, colours);
    PaintScaleBar(painter, view, colours);
    if (scene.legend && !scene.legend->colours->colours.empty()) PaintLegend(painter, view, *scene.legend, night);
}

}  // namespace quillon
