#include "window/structure_tool.h"

#include <QPainter>
#include <cmath>

#include "chart/chart_note.h"
#include "chart/qpainter_device.h"
#include "host/drawing_lines.h"
#include "scene/chart_colours.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

/// A press that moves less means no other place: nobody shifts a structure by a trembling hand.
constexpr double kDragPixels = 4.0;
constexpr double kReachPixels = 6.0;
constexpr double kHandlePixels = 28.0;
constexpr double kHandleRadius = 6.0;
/// A drawing of more points moves as its box.
constexpr std::size_t kMostOutlinePoints = 20'000;

QPointF PixelOf(const ChartView& view, tagXY place) {
    const PixelPoint at = view.ToPixel(place);
    return {at.x, at.y};
}

double Distance(PixelPoint a, PixelPoint b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

}  // namespace

StructureTool::StructureTool(Job& shownJob, const SceneBuilder& sceneBuilder, ChartWidget& widget)
    : job(shownJob), scenes(sceneBuilder), chart(widget), drag(shownJob.Record().structures) {}

void StructureTool::OnBegin() {
    job.SetStructureEdit(true);
    Tell();
}

void StructureTool::OnEnd() {
    drag.End();
    job.SetStructureEdit(false);
}

void StructureTool::Tell() {
    if (onChanged) onChanged();
}

std::string StructureTool::Text() const {
    if (drag.IsActive() && moved) return drag.Text();
    return "Drag a structure to move it, its handle to turn it; Esc ends";
}

JobPoint StructureTool::Chosen() const {
    const FeatureEditState& cursor = job.Record().structures.editState;
    return {KIND::STRUCTURE, cursor.editFileIndex, cursor.editPointIndex};
}

bool StructureTool::IsOnHandle(PixelPoint at) const {
    const auto frame = drag.FrameOf(Chosen());
    if (!frame) return false;
    const ChartView& view = chart.View();
    const tagXY handle = frame->Handle(kHandlePixels * view.MetresPerPixel());
    return Distance(view.ToPixel(handle), at) <= kHandleRadius + 3.0;
}

/// What is drawn lies wherever its lines are; the rest of a shape is within its box.
JobPoint StructureTool::StructureAt(PixelPoint at) const {
    for (const ChartHit& hit : chart.HitsAt(at)) {
        const JobPoint point = scenes.PointOf(hit);
        if (point.kind == KIND::STRUCTURE) return point;
    }
    const ChartView& view = chart.View();
    return drag.At(view.ToWorld(at), kReachPixels * view.MetresPerPixel());
}

bool StructureTool::OnPress(PixelPoint at, Qt::KeyboardModifiers) {
    const bool turns = IsOnHandle(at);
    if (!drag.Begin(turns ? Chosen() : StructureAt(at), chart.View().ToWorld(at), turns)) return false;
    pressedAt = at;
    moved = false;
    KeepOutline();
    return true;
}

void StructureTool::KeepOutline() {
    outline.clear();
    const CStructureList& list = job.Record().structures;
    const StructureDef& structure = list[drag.Which().file][drag.Which().point];
    const CDxf* const shape = list.ShapeOf(structure);
    if (!shape || !structure.show) return;
    const auto drawn = PlaceDrawing(*shape, {{}, list.ScaleFactor(structure)});
    std::size_t count = 0;
    for (const auto& [colour, lines] : drawn) count += lines.points.size();
    if (count > kMostOutlinePoints) return;
    for (const auto& [colour, lines] : drawn) {
        std::size_t part = 0;
        for (std::size_t i = 0; i < lines.points.size(); ++i) {
            const bool begins = i == 0 || (part < lines.starts.size() && lines.starts[part] == i);
            if (begins && i > 0) ++part;
            const QPointF point(lines.points[i].x, lines.points[i].y);
            begins ? outline.moveTo(point) : outline.lineTo(point);
        }
    }
}

void StructureTool::OnDrag(PixelPoint at, Qt::KeyboardModifiers keys) {
    moved = moved || Distance(at, pressedAt) >= kDragPixels;
    if (!moved) return;
    drag.MoveTo(chart.View().ToWorld(at), keys & Qt::ShiftModifier);
    Tell();
}

void StructureTool::OnRelease() {
    const JobPoint which = drag.Which();
    const tagXY position = drag.Position();
    const double heading = drag.Heading();
    const StructureFrame before = drag.Before();
    drag.End();
    if (!moved) {
        job.SelectPoint(which);
    } else if (position != before.position || heading != before.heading) {
        job.PlaceStructure(which, position, heading);
    }
    Tell();
}

void StructureTool::OnDrop() {
    drag.End();
    Tell();
}

Qt::CursorShape StructureTool::CursorAt(PixelPoint at) const {
    if (drag.IsActive()) return drag.IsTurning() ? Qt::ClosedHandCursor : Qt::SizeAllCursor;
    if (IsOnHandle(at)) return Qt::OpenHandCursor;
    return StructureAt(at).kind == KIND::NONE ? Qt::CrossCursor : Qt::SizeAllCursor;
}

void StructureTool::Paint(QPainter& painter, const ChartView& view, bool night) const {
    auto frame = drag.IsActive() ? drag.Before() : drag.FrameOf(Chosen()).value_or(StructureFrame());
    if (!drag.IsActive() && !drag.FrameOf(Chosen())) return;
    const bool isAway = drag.IsActive() && moved;
    const tagXY position = isAway ? drag.Position() : frame.position;
    const double heading = isAway ? drag.Heading() : frame.heading;
    const ChartColours& colours = ColoursOf(night);
    const QPointF at = PixelOf(view, position);

    // The frame as it stood, put where it stands now: in pixels round the position, turned by what the heading gained.
    QTransform placed = QTransform::fromTranslate(at.x(), at.y());
    placed.rotate(heading - frame.heading);
    const QPointF from = PixelOf(view, frame.position);
    const auto moveOver = [&](tagXY place) { return placed.map(PixelOf(view, place) - from); };
    QPolygonF box;
    for (const tagXY& corner : frame.corners) box << moveOver(corner);
    const QPointF handle = moveOver(frame.Handle(kHandlePixels * view.MetresPerPixel()));

    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    for (const bool isCasing : {true, false}) {
        const QColor colour = ToQColor(isCasing ? colours.shownCasing : colours.shown);
        painter.setPen(QPen(colour, isCasing ? 4.0 : 1.5));
        painter.drawPolygon(box);
        painter.drawLine(at, handle);
        painter.drawEllipse(handle, kHandleRadius, kHandleRadius);
    }
    if (!isAway) return;
    QTransform shape = QTransform::fromTranslate(at.x(), at.y());
    shape.rotate(heading);
    shape.scale(1.0 / view.MetresPerPixel(), -1.0 / view.MetresPerPixel());
    painter.setPen(QPen(ToQColor(colours.shown), 1.0));
    painter.drawPath(shape.map(outline));
    PaintNote(painter, view, night, {handle.x(), handle.y()}, {ToQString(drag.Text())});
}

}  // namespace quillon
