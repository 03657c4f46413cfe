#include "chart/chart_painter.h"

#include <cmath>

#include "chart/furniture_painter.h"
#include "scene/chart_grid.h"

namespace quillon {
namespace {

constexpr int kHatchPixels = 8;

/// Calls `paint` with every item of a type.
template <class Item, class Paint>
void EachOf(const ChartLayer& layer, Paint paint) {
    for (const ChartItem& item : layer.items) {
        if (const Item* const wanted = std::get_if<Item>(&item)) paint(*wanted);
    }
}

void PaintGround(const ChartCanvas& canvas) {
    const ChartView& view = canvas.view;
    canvas.painter.fillRect(QRect(0, 0, view.Width(), view.Height()), ToQColor(canvas.colours.ground));
    const ChartGrid grid = GridOf(view);
    const double scale = canvas.reach.scale, thin = 1.0 / std::max(1.0, scale);
    const auto snap = [&](double v) { return std::floor(v * scale) / scale; };
    const QColor colour = ToQColor(canvas.colours.gridLine);
    for (const ChartGridLine& line : grid.eastings) {
        canvas.painter.fillRect(QRectF(snap(line.pixel), 0, thin, view.Height()), colour);
    }
    for (const ChartGridLine& line : grid.northings) {
        canvas.painter.fillRect(QRectF(0, snap(line.pixel), view.Width(), thin), colour);
    }
}

/// Hatches are fixed to the grid, on whole pixels of the device.
QPointF HatchOrigin(const ChartCanvas& canvas) {
    const PixelPoint zero = canvas.view.ToPixel({0, 0});
    const double scale = canvas.reach.scale;
    const auto place = [scale](double v) { return std::round(std::fmod(v, kHatchPixels) * scale) / scale; };
    return {place(zero.x), place(zero.y)};
}

void PaintLayerAreas(ChartCanvas& canvas, const ChartLayer& layer) {
    EachOf<ChartPath>(layer, [&](const ChartPath& path) { PaintAreas(canvas, path); });
    EachOf<ChartRings>(layer, [&](const ChartRings& rings) { PaintAreas(canvas, rings); });
}

void PaintLayer(ChartCanvas& canvas, const ChartLayer& layer) {
    EachOf<ChartRings>(layer, [&](const ChartRings& rings) { PaintLines(canvas, rings); });
    EachOf<ChartPath>(layer, [&](const ChartPath& path) { PaintLines(canvas, path); });
    EachOf<ChartLetters>(layer, [&](const ChartLetters& letters) { PaintLetters(canvas, letters); });
    EachOf<ChartPath>(layer, [&](const ChartPath& path) { PaintMarks(canvas, path, layer.priority); });
    EachOf<ChartTexts>(layer, [&](const ChartTexts& texts) { CollectTexts(canvas, texts, layer.priority); });
}

}  // namespace

ChartCanvas::ChartCanvas(PaintStore& kept, QPainter& target, const ChartView& chartView, bool isNight)
    : store(kept),
      painter(target),
      view(chartView),
      night(isNight),
      colours(ColoursOf(isNight)),
      reach(target),
      device(target),
      dc(&device) {
    dc.background = colours.ground;
    dc.labelBrush = {kFillSolid, colours.labelGround};
    dc.blackBrush = {kFillSolid, colours.labelFrame};
    dc.labelInk = colours.labelInk;
    // Labels above and below have 4 pixels either side of their text; beside their points they get the same.
    dc.labelAir = 5;
}

void ChartPainter::PaintGrid(QPainter& painter, const ChartView& view, const ChartScene& scene, bool night) {
    painter.save();
    painter.setClipRect(QRect(0, 0, view.Width(), view.Height()), Qt::IntersectClip);
    ChartCanvas canvas(store, painter, view, night);
    PaintGround(canvas);
    for (const ChartLayer& layer : scene.layers) {
        EachOf<ChartImage>(layer, [&](const ChartImage& image) { PaintImage(canvas, image); });
    }
    painter.setBrushOrigin(HatchOrigin(canvas));
    for (const ChartLayer& layer : scene.layers) PaintLayerAreas(canvas, layer);
    for (const ChartLayer& layer : scene.layers) PaintLayer(canvas, layer);
    PaintTexts(canvas, scene.shown);
    painter.restore();
}

void ChartPainter::Paint(QPainter& painter, const ChartView& view, const ChartScene& scene, bool night) {
    PaintGrid(painter, view, scene, night);
    painter.save();
    painter.setClipRect(QRect(0, 0, view.Width(), view.Height()), Qt::IntersectClip);
    PaintFurniture(painter, view, scene, night);
    painter.restore();
}

}  // namespace quillon
