#include "chart/qpainter_device.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPolygonF>
#include <QString>
#include <QTransform>
#include <algorithm>
#include <cmath>
#include <memory>

#include "platform/text.h"

namespace quillon {
namespace {

QString Unicode(std::string_view text) {
    return QString::fromStdString(Utf8FromText(text));
}

/// One square of a hatch in a premultiplied colour. Lines that leave it on one side come in on the other.
QImage HatchTile(FILL_STYLE hatch, QRgb colour, double scale) {
    const int side = static_cast<int>(std::lround(8.0 * scale));
    const int wide = std::max(1, static_cast<int>(std::lround(scale)));
    QImage tile(side, side, QImage::Format_ARGB32_Premultiplied);
    tile.fill(Qt::transparent);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x) {
            const bool level = y >= side / 2 && y < side / 2 + wide;
            const bool upright = x >= side / 2 && x < side / 2 + wide;
            const bool down = (x - y + side) % side < wide;
            const bool up = (x + y) % side < wide;
            const bool inked[] = {level, upright, down, up, level || upright, down || up};
            if (inked[hatch]) reinterpret_cast<QRgb*>(tile.scanLine(y))[x] = colour;
        }
    }
    return tile;
}

/// A thin line or area that stays on one pixel: a painter takes many times as long for it as for the pixel.
bool IsDot(const CPen& pen, std::span<const tagPOINT> points) {
    return pen.width <= 1 && pen.style == PS_SOLID && !points.empty() &&
           std::all_of(points.begin(), points.end(), [&](const tagPOINT& p) { return p == points[0]; });
}

}  // namespace

QPen ToQPen(const CPen& pen) {
    static constexpr Qt::PenStyle kStyles[] = {Qt::SolidLine,   Qt::DashLine,       Qt::DotLine,
                                               Qt::DashDotLine, Qt::DashDotDotLine, Qt::NoPen};
    const bool known = pen.style >= PS_SOLID && pen.style <= PS_NULL;
    QPen result(ToQColor(pen.colour), std::max(1, pen.width), known ? kStyles[pen.style] : Qt::SolidLine);
    result.setCapStyle(pen.style == PS_SOLID ? Qt::RoundCap : Qt::FlatCap);
    result.setJoinStyle(Qt::RoundJoin);
    return result;
}

QBrush FillBrush(FILL_STYLE fill, const QColor& colour, double scale) {
    if (fill == kFillNone) return Qt::NoBrush;
    if (fill > 5) return colour;
    QBrush hatch(HatchTile(fill, qPremultiply(colour.rgba()), scale));
    hatch.setTransform(QTransform::fromScale(1.0 / scale, 1.0 / scale));
    return hatch;
}

QFont ToQFont(const CFont& font) {
    QFont result(QString::fromStdString(font.face));
    result.setStyleHint(QFont::SansSerif);
    result.setKerning(false);
    // The faces that are asked for have no letters lighter than regular ones; a stand-in that has would come out pale.
    result.setWeight(static_cast<QFont::Weight>(std::max<int>(font.weight, QFont::Normal)));
    result.setPixelSize(std::max(1, std::abs(font.height)));
    if (font.height > 0) {
        // the height asked for is that of the whole line
        const double line = QFontMetricsF(result).height();
        result.setPixelSize(std::max(1, static_cast<int>(std::lround(font.height * font.height / line))));
    }
    return result;
}

FontMeasures::FontMeasures(const CFont& source) : key(source), font(ToQFont(source)) {
    const QFontMetricsF metrics(font);
    for (std::size_t c = 32; c < advances.size(); ++c) {
        const char letter = static_cast<char>(c);
        advances[c] = metrics.horizontalAdvance(Unicode(std::string_view(&letter, 1)));
    }
    height = static_cast<int>(std::ceil(metrics.ascent()) + std::ceil(metrics.descent()));
    ascent = static_cast<int>(std::ceil(metrics.ascent()));
}

const FontMeasures& FontMeasures::Of(const CFont& font) {
    thread_local std::vector<std::unique_ptr<FontMeasures>> known;
    CFont level = font;
    level.escapement = 0;
    for (const auto& measures : known) {
        if (measures->key == level) return *measures;
    }
    known.push_back(std::unique_ptr<FontMeasures>(new FontMeasures(level)));
    return *known.back();
}

int FontMeasures::Width(std::string_view text) const {
    double width = 0.0;
    for (const char c : text) width += advances[static_cast<unsigned char>(c)];
    return static_cast<int>(std::ceil(width - 1e-6));
}

QPainterDevice::QPainterDevice(QPainter& target, int pixelsPerInch) : painter(target), resolution(pixelsPerInch) {}

/// The painter passes a pen over that is the one it has, and drawings go on with one pen for long.
void QPainterDevice::UsePen(const CPen& pen) {
    if (lastPen != pen) {
        lastMade = ToQPen(pen);
        lastPen = pen;
    }
    painter.setPen(lastMade);
}

void QPainterDevice::UseBrush(const CBrush& brush) {
    painter.setBrush(FillBrush(brush.fill, ToQColor(brush.colour)));
}

/// A line of even width is centred between pixels, one of odd width on one: crisp either way.
void QPainterDevice::Centre(const CPen& pen, std::span<const tagPOINT> points) {
    const double half = pen.width % 2 ? 0.5 : 0.0;
    centred.clear();
    for (const tagPOINT& p : points) centred.emplace_back(p.x + half, p.y + half);
}

void QPainterDevice::Polyline(const CPen& pen, std::span<const tagPOINT> points) {
    if (IsDot(pen, points)) return SetPixel(points[0].x, points[0].y, pen.colour);
    UsePen(pen);
    Centre(pen, points);
    painter.drawPolyline(centred.data(), static_cast<int>(centred.size()));
}

void QPainterDevice::Polygon(const CPen& pen, const CBrush& brush, int fillMode, std::span<const tagPOINT> points) {
    if (IsDot(pen, points)) return SetPixel(points[0].x, points[0].y, pen.colour);
    UsePen(pen);
    UseBrush(brush);
    Centre(pen, points);
    painter.drawPolygon(centred.data(), static_cast<int>(centred.size()),
                        fillMode == WINDING ? Qt::WindingFill : Qt::OddEvenFill);
}

void QPainterDevice::Ellipse(const CPen& pen, const CBrush& brush, const tagRECT& box) {
    UsePen(pen);
    UseBrush(brush);
    const double half = pen.width % 2 ? 0.5 : 0.0;
    painter.drawEllipse(QRectF(box.left + half, box.top + half, box.Width(), box.Height()));
}

void QPainterDevice::Rectangle(const CPen& pen, const CBrush& brush, const tagRECT& box) {
    UsePen(pen);
    UseBrush(brush);
    const double half = pen.width % 2 ? 0.5 : 0.0;
    painter.drawRect(QRectF(box.left + half, box.top + half, box.Width(), box.Height()));
}

void QPainterDevice::FillRect(const CBrush& brush, const tagRECT& box) {
    painter.fillRect(QRect(box.left, box.top, box.Width(), box.Height()),
                     FillBrush(brush.fill, ToQColor(brush.colour)));
}

void QPainterDevice::SetPixel(int x, int y, COLORREF colour) {
    painter.fillRect(QRect(x, y, 1, 1), ToQColor(colour));
}

void QPainterDevice::Text(const CFont& font, COLORREF colour, std::optional<COLORREF> ground, int x, int y,
                          std::string_view text) {
    const FontMeasures& measures = FontMeasures::Of(font);
    const QTransform before = painter.transform();
    painter.translate(x, y);
    if (font.escapement != 0) painter.rotate(-font.escapement / 10.0);
    if (ground) painter.fillRect(QRect(0, 0, measures.Width(text), measures.Height()), ToQColor(*ground));
    painter.setFont(measures.Font());
    painter.setPen(ToQColor(colour));
    painter.drawText(QPointF(0, measures.Ascent()), Unicode(text));
    painter.setTransform(before);
}

tagSIZE QPainterDevice::TextSize(const CFont& font, std::string_view text) const {
    const FontMeasures& measures = FontMeasures::Of(font);
    return {measures.Width(text), measures.Height()};
}

void QPainterDevice::SetClip(const tagRECT* box) {
    if (box) {
        painter.setClipRect(QRect(box->left, box->top, box->Width(), box->Height()));
    } else {
        painter.setClipping(false);
    }
}

}  // namespace quillon
