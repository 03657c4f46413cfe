#include "window/measure_tool.h"

#include <QPainter>

#include "chart/chart_note.h"
#include "chart/qpainter_device.h"
#include "host/identify.h"
#include "scene/chart_colours.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

constexpr double kEndMark = 4.0;

QPointF At(const ChartView& view, tagXY place) {
    const PixelPoint pixel = view.ToPixel(place);
    return {pixel.x, pixel.y};
}

}  // namespace

MeasureTool::MeasureTool(const SceneBuilder& sceneBuilder, ChartWidget& widget) : scenes(sceneBuilder), chart(widget) {}

void MeasureTool::OnBegin() {
    from.reset();
    to.reset();
    isFixed = false;
    beside.reset();
    const QPoint mouse = chart.mapFromGlobal(QCursor::pos());
    if (chart.isVisible() && chart.rect().contains(mouse)) {
        from = to = PlaceAt({static_cast<double>(mouse.x()), static_cast<double>(mouse.y())});
        LookBesideLine();
    }
    if (onChanged) onChanged();
}

tagXY MeasureTool::PlaceAt(PixelPoint at) const {
    const std::vector<ChartHit> hits = chart.HitsAt(at);
    if (!hits.empty() && hits.front().kind == HIT_KIND::VERTEX) return hits.front().hit.at;
    return chart.View().ToWorld(at);
}

bool MeasureTool::OnClick(PixelPoint at) {
    const bool isBegin = !from || isFixed;
    if (isBegin) from = PlaceAt(at);
    to = PlaceAt(at);
    isFixed = !isBegin;
    LookBesideLine();
    if (onChanged) onChanged();
    return true;
}

void MeasureTool::OnMove(std::optional<PixelPoint> at) {
    if (!at || isFixed) return;
    to = PlaceAt(*at);
    LookBesideLine();
    if (onChanged) onChanged();
}

void MeasureTool::LookBesideLine() {
    beside.reset();
    const JobPoint line = ChosenLine(scenes.Record());
    if (line.kind == KIND::NONE || !to) return;
    const PathPtr path = scenes.PathOf(chart.Scene(), line.kind, line.file);
    if (!path) return;
    beside = PlaceBesideLine(scenes.Record(), line, *path, *to);
    lineName = FileText(scenes.Record(), line.kind, line.file);
}

std::string MeasureTool::Text() const {
    std::string text = from && to ? MeasureText(*from, *to) : "Click where the line begins";
    if (beside) text += "    " + lineName + ": " + LinePlaceText(*beside);
    return text;
}

void MeasureTool::Paint(QPainter& painter, const ChartView& view, bool night) const {
    if (!from || !to) return;
    const ChartColours& colours = ColoursOf(night);
    const QPointF a = At(view, *from), b = At(view, *to);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    for (const bool isCasing : {true, false}) {
        painter.setPen(QPen(ToQColor(isCasing ? colours.shownCasing : colours.shown), isCasing ? 4.0 : 1.5));
        painter.drawLine(a, b);
        for (const QPointF& end : {a, b}) painter.drawEllipse(end, kEndMark, kEndMark);
    }
    QStringList lines = {ToQString(MeasureText(*from, *to))};
    if (beside) lines += ToQString(LinePlaceText(*beside));
    PaintNote(painter, view, night, {b.x(), b.y()}, lines);
}

}  // namespace quillon
