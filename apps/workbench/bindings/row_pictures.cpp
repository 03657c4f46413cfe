#include "bindings/row_pictures.h"

#include <array>
#include <cmath>

#include "platform/property_rows.h"
#include "toolkit/colours.h"

namespace quillon {
namespace {

constexpr int kSwatch = 16;
constexpr int kWide = 28;
constexpr int kHatchStep = 5;
/// Two colours closer than this look like one.
constexpr int kLeastContrast = 45;

std::int32_t NumberOf(const RowValue& value) {
    if (const auto* number = std::get_if<std::int32_t>(&value)) return *number;
    const auto* colour = std::get_if<std::uint32_t>(&value);
    return colour ? static_cast<std::int32_t>(*colour) : 0;
}

/// The ground itself, or one on which a thing of that colour can be seen.
QColor GroundFor(const QColor& thing, const QColor& ground) {
    if (std::abs(Luminance(thing) - Luminance(ground)) >= kLeastContrast) return ground;
    return Luminance(thing) > 110 ? QColor(64, 64, 64) : QColor(128, 128, 128);
}

/// White ground, a black frame of one pixel, the colour inside. On a dark list the frame's ground is a grey, so that
/// no bright line is drawn.
void DrawSwatch(QPainter& painter, const QRect& place, const QColor& colour, const QColor& ground) {
    QRect swatch(0, 0, kSwatch, kSwatch);
    swatch.moveCenter(place.center());
    const bool dark = IsDark(ground);
    painter.fillRect(swatch, dark ? QColor(110, 110, 110) : QColor(255, 255, 255));
    painter.fillRect(swatch.adjusted(1, 1, -1, -1), QColor(0, 0, 0));
    painter.fillRect(swatch.adjusted(2, 2, -2, -2), colour);
}

enum HATCH : unsigned { ACROSS = 1, DOWN = 2, FALLING = 4, RISING = 8 };

/// The strokes of the drawing system's hatches, by their number.
constexpr std::array<unsigned, 6> kHatches = {ACROSS, DOWN, FALLING, RISING, ACROSS | DOWN, FALLING | RISING};

void DrawHatch(QPainter& painter, const QRect& area, unsigned strokes) {
    const int height = area.height();
    if (strokes & ACROSS) {
        for (int y = area.top() + 2; y <= area.bottom(); y += kHatchStep)
            painter.drawLine(area.left(), y, area.right(), y);
    }
    if (strokes & DOWN) {
        for (int x = area.left() + 2; x <= area.right(); x += kHatchStep)
            painter.drawLine(x, area.top(), x, area.bottom());
    }
    for (int x = area.left() - height; x <= area.right(); x += kHatchStep + 1) {
        if (strokes & FALLING) painter.drawLine(x, area.top(), x + height, area.top() + height);
        if (strokes & RISING) painter.drawLine(x, area.top() + height, x + height, area.top());
    }
}

void DrawFill(QPainter& painter, const QRect& place, FILL_STYLE style, const QColor& colour, const QColor& ground) {
    const QRect area(place.left(), place.center().y() - kSwatch / 2 + 1, kWide, kSwatch);
    painter.fillRect(area, style == kFillSolid ? colour : GroundFor(colour, ground));
    if (style < kHatches.size()) {
        painter.save();
        painter.setClipRect(area);
        painter.setPen(colour);
        DrawHatch(painter, area, kHatches[style]);
        painter.restore();
    }
    painter.setPen(IsDark(ground) ? QColor(110, 110, 110) : QColor(0, 0, 0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(area.adjusted(0, 0, -1, -1));
}

void DrawThickness(QPainter& painter, const QRect& place, int thickness, const QColor& colour, const QColor& ground) {
    const QRect area(place.left(), place.center().y() - kSwatch / 2 + 1, kWide, kSwatch);
    const QColor below = GroundFor(colour, ground);
    if (below != ground) painter.fillRect(area, below);
    const int width = std::clamp(thickness, 1, kSwatch - 2);
    painter.fillRect(QRect(area.left() + 2, area.center().y() - width / 2 + (width > 1 ? 1 : 0), kWide - 4, width),
                     colour);
}

void DrawSymbol(QPainter& painter, const QRect& place, int symbol, COLORREF colour, const QColor& ground,
                const SymbolPainter& symbols) {
    QRect area(0, 0, kSwatch + 2, kSwatch + 2);
    area.moveCenter(place.center());
    const QColor below = GroundFor(QColorOf(colour), ground);
    if (below != ground && symbol > 0) painter.fillRect(area, below);
    if (symbol > 0 && symbols) symbols(painter, area.adjusted(1, 1, -1, -1), symbol, colour);
}

/// A dot that grows with the size; an empty ring where there is none.
void DrawSize(QPainter& painter, const QRect& place, int size, const QColor& text) {
    const QPointF centre = QRectF(place).center();
    painter.setRenderHint(QPainter::Antialiasing);
    if (size <= 0) {
        painter.setPen(QPen(text, 1, Qt::DotLine));
        painter.drawEllipse(centre, 5, 5);
        return;
    }
    const double radius = 0.7 + 1.25 * size;
    painter.setPen(Qt::NoPen);
    painter.setBrush(text);
    painter.drawEllipse(centre, radius, radius);
}

void DrawDot(QPainter& painter, const QPointF& centre, const QColor& colour) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(centre, 2.2, 2.2);
}

/// A point, and beside it the lines of writing that the mode gives.
void DrawLabelMode(QPainter& painter, const QRect& place, int mode, const QColor& text) {
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF middle = QRectF(place).center();
    DrawDot(painter, {middle.x() - 5.5, middle.y()}, text);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(text, 1.6));
    const auto line = [&](double y, double length) {
        painter.drawLine(QPointF(middle.x() - 0.5, middle.y() + y), QPointF(middle.x() - 0.5 + length, middle.y() + y));
    };
    const QPen solid(text, 1.6);
    const QPen dotted(text, 1.6, Qt::DotLine, Qt::FlatCap);
    if (mode == 1) line(0, 8);
    painter.setPen(dotted);
    if (mode == 2) {
        line(-2.5, 8);
        line(2.5, 8);
    }
    if (mode == 3) line(3.5, 8);
    painter.setPen(solid);
    if (mode == 3) line(-3.5, 8);
    if (mode == 4) {
        line(-4.5, 8);
        line(0, 6);
        line(4.5, 8);
    }
}

/// A point and the bar of its label, above, below, left, right or over it.
void DrawPosition(QPainter& painter, const QRect& place, int position, const QColor& text) {
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF middle = QRectF(place).center();
    static constexpr std::array<std::array<double, 4>, 6> kDotAndBar = {
        {{0, 0, 0, 0}, {0, 4, 0, -4}, {0, -4, 0, 4}, {5.5, 0, -3, 0}, {-5.5, 0, 3, 0}, {0, 0, 0, 0}}};
    const auto& at = kDotAndBar[static_cast<std::size_t>(std::clamp(position, 0, 5))];
    if (position > 0) {
        const double width = position == 3 || position == 4 ? 8 : 13;
        const QRectF bar(middle.x() + at[2] - width / 2, middle.y() + at[3] - 2.5, width, 5);
        painter.setPen(QPen(text, 1));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(position == 5 ? bar.adjusted(-1, -2, 1, 2) : bar);
    }
    DrawDot(painter, {middle.x() + at[0], middle.y() + at[1]}, text);
}

}  // namespace

QSize PictureSize(ROW_KIND kind) {
    switch (kind) {
        case ROW_KIND::COLOUR:
        case ROW_KIND::SYMBOL:
        case ROW_KIND::SIZE:
        case ROW_KIND::LABEL:
        case ROW_KIND::POSITION:
        case ROW_KIND::FILL:
        case ROW_KIND::THICKNESS:
            return {kWide, kSwatch};
        default:
            return {};
    }
}

void DrawRowPicture(QPainter& painter, const QRect& place, const RowPicture& picture, const QColor& ground,
                    const QColor& text, const SymbolPainter& symbols) {
    painter.save();
    // All take the same room, so that their texts stand in line.
    const QRect small(place.left(), place.top(), kSwatch + 2, place.height());
    const int number = NumberOf(picture.value);
    const QColor colour = QColorOf(picture.drawnIn);
    switch (picture.kind) {
        case ROW_KIND::COLOUR:
            DrawSwatch(painter, small, QColorOf(static_cast<COLORREF>(number)), ground);
            break;
        case ROW_KIND::FILL:
            DrawFill(painter, place, static_cast<FILL_STYLE>(number), colour, ground);
            break;
        case ROW_KIND::THICKNESS:
            DrawThickness(painter, place, number, colour, ground);
            break;
        case ROW_KIND::SYMBOL:
            DrawSymbol(painter, small, number, picture.drawnIn, ground, symbols);
            break;
        case ROW_KIND::SIZE:
            DrawSize(painter, small, number, text);
            break;
        case ROW_KIND::LABEL:
            DrawLabelMode(painter, small, number, text);
            break;
        case ROW_KIND::POSITION:
            DrawPosition(painter, small, number, text);
            break;
        default:
            break;
    }
    painter.restore();
}

void DrawPadlock(QPainter& painter, const QRect& place, const QColor& colour) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    const QPointF middle = QRectF(place).center();
    painter.setPen(QPen(colour, 1.4));
    painter.setBrush(Qt::NoBrush);
    painter.drawArc(QRectF(middle.x() - 2.8, middle.y() - 5.5, 5.6, 7), 0, 180 * 16);
    painter.drawLine(QPointF(middle.x() - 2.8, middle.y() - 2), QPointF(middle.x() - 2.8, middle.y() - 0.5));
    painter.drawLine(QPointF(middle.x() + 2.8, middle.y() - 2), QPointF(middle.x() + 2.8, middle.y() - 0.5));
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawRoundedRect(QRectF(middle.x() - 4.5, middle.y() - 0.5, 9, 6.5), 1, 1);
    painter.restore();
}

void DrawArrow(QPainter& painter, const QPointF& centre, double size, Qt::ArrowType direction, const QColor& colour) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(centre);
    painter.rotate(direction == Qt::RightArrow ? -90 : direction == Qt::UpArrow ? 180 : 0);
    painter.setPen(QPen(colour, 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(QPolygonF({{-size, -size / 2}, {0, size / 2}, {size, -size / 2}}));
    painter.restore();
}

void DrawCheck(QPainter& painter, const QRect& place, bool checked, const QColor& ground, const QColor& text) {
    painter.save();
    QRect box(0, 0, 13, 13);
    box.moveCenter(place.center());
    painter.fillRect(box, Mix(ground, IsDark(ground) ? QColor(128, 128, 128) : QColor(255, 255, 255), 0.25));
    painter.setPen(Mix(ground, text, 0.65));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(box.adjusted(0, 0, -1, -1));
    if (checked) {
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(QPen(text, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        const QPointF corner = box.topLeft();
        painter.drawPolyline(
            QPolygonF({corner + QPointF(3, 6.5), corner + QPointF(5.3, 9), corner + QPointF(10, 3.7)}));
    }
    painter.restore();
}

COLORREF DrawingColour(const CMFCPropertyGridProperty& row) {
    const auto* picker = dynamic_cast<const CPickerProperty*>(&row);
    return picker ? picker->GetColour() : 0;
}

}  // namespace quillon
