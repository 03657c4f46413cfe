#include "chart/line_painter.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainterPath>
#include <QPolygonF>
#include <cmath>

#include "chart/qpainter_device.h"
#include "scene/dashes.h"

namespace quillon {
namespace {

// Measured on a raster of 1600 by 1000. The toolkit draws a line one device pixel wide at 0.4 microseconds a segment
// and 10 nanoseconds a pixel; wider ones are gathered in a mask at about 0.3 microseconds a segment and 10 nanoseconds
// a pixel of its length.
constexpr std::size_t kMostThin = 20000;
constexpr std::size_t kMostWide = 9000;
constexpr double kMostThinPixels = 8e5;
constexpr double kMostWidePixels = 4e5;
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

void PaintPolylines(QPainter& painter, const CPen& pen, bool isFlat, const PixelLines& lines) {
    QPen tool = ToQPen({PS_SOLID, pen.width, pen.colour});
    if (isFlat) tool.setCapStyle(Qt::FlatCap);
    painter.setPen(tool);
    painter.setBrush(Qt::NoBrush);
    painter.setRenderHint(QPainter::Antialiasing);
    std::vector<QPointF> points;
    points.reserve(lines.points.size());
    for (const PixelPoint& p : lines.points) points.emplace_back(p.x, p.y);
    for (std::size_t run = 0; run < lines.runs.size(); ++run) {
        const std::size_t first = lines.runs[run].first;
        painter.drawPolyline(points.data() + first, static_cast<int>(lines.EndOf(run) - first));
    }
}

void PaintByMask(const PaintTarget& target, const CPen& pen, bool isFlat, const PixelLines& lines, LineMask& mask) {
    QImage& image = *target.image;
    if (mask.Width() != image.width() || mask.Height() != image.height()) mask.Reset(image.width(), image.height());
    const double scale = target.scale;
    const auto place = [scale](PixelPoint p) { return PixelPoint{p.x * scale, p.y * scale}; };
    const LineMask::CAP outer = isFlat ? LineMask::CAP::FLAT : LineMask::CAP::ROUND;
    for (std::size_t run = 0; run < lines.runs.size(); ++run) {
        const std::size_t first = lines.runs[run].first, last = lines.EndOf(run) - 1;
        for (std::size_t i = first; i < last; ++i) {
            mask.AddSegment(place(lines.points[i]), place(lines.points[i + 1]), pen.width * scale,
                            i == first ? outer : LineMask::CAP::ROUND, i + 1 == last ? outer : LineMask::CAP::ROUND);
        }
    }
    mask.Lay(pen.colour, reinterpret_cast<std::uint32_t*>(image.bits()),
             static_cast<std::size_t>(image.bytesPerLine()) / sizeof(std::uint32_t));
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

PaintTarget::PaintTarget(const QPainter& painter) {
    const QTransform transform = painter.deviceTransform();
    if (const double wanted = std::abs(transform.m11()); wanted > 0) scale = wanted;
    isRaster = painter.paintEngine() && painter.paintEngine()->type() == QPaintEngine::Raster;
    const bool isInPlace = transform.type() <= QTransform::TxScale && transform.dx() == 0 && transform.dy() == 0 &&
                           transform.m11() > 0 && transform.m11() == transform.m22();
    if (isRaster && isInPlace && painter.device()->devType() == QInternal::Image) {
        auto* const picture = static_cast<QImage*>(painter.device());
        if (picture->format() == QImage::Format_RGB32) image = picture;
    }
}

std::size_t MostLineVertices(double width, const PaintTarget& target) {
    return IsThin(width, target) ? kMostThin : kMostWide;
}

double MostLinePixels(double width, const PaintTarget& target) {
    return (IsThin(width, target) ? kMostThinPixels : kMostWidePixels) / target.scale;
}

void PaintLines(QPainter& painter, const PaintTarget& target, const CPen& pen, LineStore& store) {
    PixelLines& lines = store.lines;
    if (pen.style == PS_NULL || lines.runs.empty()) return;
    const std::size_t count = lines.points.size();
    if (count <= kMostCrisp) MakeCrisp(pen.width, target.scale, lines);
    const bool isDashed = pen.style != PS_SOLID && count <= kMostDashed;
    if (isDashed) CutIntoDashes(lines, pen.style, pen.width, store.dashes);
    const PixelLines& drawn = isDashed ? store.dashes : lines;
    if (target.image && !IsThin(pen.width, target)) {
        PaintByMask(target, pen, isDashed, drawn, store.mask);
    } else {
        PaintPolylines(painter, pen, isDashed, drawn);
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
