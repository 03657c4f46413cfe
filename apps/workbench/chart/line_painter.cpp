#include "chart/line_painter.h"

#include <QLineF>
#include <QPaintEngine>
#include <QPainterPath>
#include <QPolygonF>
#include <cmath>

#include "chart/qpainter_device.h"
#include "scene/dashes.h"

namespace quillon {
namespace {

// Measured on a raster of 1600 by 1000 with segments of some pixels. A line one device pixel wide costs 0.4
// microseconds a segment. A wider one costs 5 as a polyline in pieces (40 in one piece), and 1 segment by segment, half
// of that unsmoothed.
constexpr std::size_t kMostThin = 20000;
constexpr std::size_t kMostWide = 9000;
constexpr std::size_t kMostSmoothThin = 20000;
constexpr std::size_t kMostSmoothWide = 5000;
constexpr std::size_t kMostRoundJoins = 1500;
constexpr std::size_t kPiece = 64;
// A pixel of a smooth thin line costs about 10 nanoseconds.
constexpr double kMostThinPixels = 8e5;
constexpr double kMostWidePixels = 6e5;
/// Beyond that many, level and upright segments are too short to matter.
constexpr std::size_t kMostCrisp = 4000;
/// Beyond that many vertices the gaps between dashes would be filled by neighbours.
constexpr std::size_t kMostDashed = 4000;

bool IsThin(double width, const PaintTarget& target) {
    return width * target.scale <= 1.0;
}

/// Sets every level segment of a run to the middle of its pixels, and every upright one.
void MakeCrisp(double width, double scale, PixelLines& lines) {
    constexpr double kLevel = 0.005;
    const double half = std::lround(width * scale) % 2 ? 0.5 : 0.0;
    const auto snap = [&](double v) { return (std::round(v * scale - half) + half) / scale; };
    for (std::size_t run = 0; run < lines.runs.size(); ++run) {
        for (std::size_t i = lines.runs[run].first; i + 1 < lines.EndOf(run); ++i) {
            PixelPoint &a = lines.points[i], &b = lines.points[i + 1];
            const bool isLevel = std::abs(a.y - b.y) < kLevel, isUpright = std::abs(a.x - b.x) < kLevel;
            if (isLevel && !isUpright) a.y = b.y = snap(a.y);
            if (isUpright && !isLevel) a.x = b.x = snap(a.x);
        }
    }
}

void PaintPolylines(QPainter& painter, const PixelLines& lines, std::size_t piece) {
    std::vector<QPointF> points;
    points.reserve(lines.points.size());
    for (const PixelPoint& p : lines.points) points.emplace_back(p.x, p.y);
    for (std::size_t run = 0; run < lines.runs.size(); ++run) {
        const std::size_t end = lines.EndOf(run);
        for (std::size_t first = lines.runs[run].first; first + 1 < end; first += piece) {
            painter.drawPolyline(points.data() + first, static_cast<int>(std::min(piece + 1, end - first)));
        }
    }
}

void PaintSegments(QPainter& painter, const PixelLines& lines) {
    std::vector<QLineF> segments;
    segments.reserve(lines.points.size());
    for (std::size_t run = 0; run < lines.runs.size(); ++run) {
        for (std::size_t i = lines.runs[run].first; i + 1 < lines.EndOf(run); ++i) {
            segments.emplace_back(lines.points[i].x, lines.points[i].y, lines.points[i + 1].x, lines.points[i + 1].y);
        }
    }
    painter.drawLines(segments.data(), static_cast<int>(segments.size()));
}

QPolygonF PolygonOf(const PixelLines& areas, std::size_t run) {
    QPolygonF polygon;
    polygon.reserve(static_cast<qsizetype>(areas.EndOf(run) - areas.runs[run].first));
    for (std::size_t i = areas.runs[run].first; i < areas.EndOf(run); ++i) {
        polygon << QPointF(areas.points[i].x, areas.points[i].y);
    }
    return polygon;
}

}  // namespace

PaintTarget::PaintTarget(const QPainter& painter) : scale(std::abs(painter.deviceTransform().m11())) {
    if (!(scale > 0)) scale = 1.0;
    isRaster = painter.paintEngine() && painter.paintEngine()->type() == QPaintEngine::Raster;
}

std::size_t MostLineVertices(double width, const PaintTarget& target) {
    return IsThin(width, target) ? kMostThin : kMostWide;
}

double MostLinePixels(double width, const PaintTarget& target) {
    return (IsThin(width, target) ? kMostThinPixels : kMostWidePixels / (width * target.scale)) / target.scale;
}

void PaintLines(QPainter& painter, const PaintTarget& target, const CPen& pen, PixelLines& lines, PixelLines& scratch) {
    if (pen.style == PS_NULL || lines.runs.empty()) return;
    const std::size_t count = lines.points.size();
    if (count <= kMostCrisp) MakeCrisp(pen.width, target.scale, lines);
    const bool isDashed = pen.style != PS_SOLID && count <= kMostDashed;
    if (isDashed) CutIntoDashes(lines, pen.style, pen.width, scratch);
    const PixelLines& drawn = isDashed ? scratch : lines;
    const bool isThin = IsThin(pen.width, target);
    QPen tool = ToQPen({PS_SOLID, pen.width, pen.colour});
    if (isDashed) tool.setCapStyle(Qt::FlatCap);
    const bool isInSegments = target.isRaster && !isThin && count > kMostRoundJoins;
    if (isInSegments) tool.setCapStyle(Qt::SquareCap);
    painter.setPen(tool);
    painter.setBrush(Qt::NoBrush);
    painter.setRenderHint(QPainter::Antialiasing, count <= (isThin ? kMostSmoothThin : kMostSmoothWide));
    if (isInSegments) {
        PaintSegments(painter, drawn);
    } else {
        PaintPolylines(painter, drawn, target.isRaster && !isThin ? kPiece : drawn.points.size());
    }
}

void PaintAreas(QPainter& painter, const QBrush& brush, bool isSmooth, const PixelLines& areas) {
    if (areas.runs.empty()) return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.setRenderHint(QPainter::Antialiasing, isSmooth);
    if (areas.runs.size() == 1) {
        painter.drawPolygon(PolygonOf(areas, 0), Qt::WindingFill);
        return;
    }
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    for (std::size_t run = 0; run < areas.runs.size(); ++run) {
        path.addPolygon(PolygonOf(areas, run));
        path.closeSubpath();
    }
    painter.drawPath(path);
}

}  // namespace quillon
