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

}  // namespace

void PaintFurniture(QPainter& painter, const ChartView& view, const std::optional<tagXY>& shown, bool night) {
    const ChartColours& colours = ColoursOf(night);
    if (shown) PaintShown(painter, view, colours, *shown);
    PaintGridFigures(painter, view, colours);
    PaintScaleBar(painter, view, colours);
}

}  // namespace quillon
