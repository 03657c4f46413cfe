#include "window/icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>

namespace quillon {
namespace {

// Every drawing lives on a square of 24 by 24, with lines 1.6 wide.
constexpr double kGrid = 24.0;
constexpr double kLine = 1.6;

void DrawPlus(QPainter& painter, QPointF centre, double arm) {
    painter.drawLine(centre - QPointF(arm, 0), centre + QPointF(arm, 0));
    painter.drawLine(centre - QPointF(0, arm), centre + QPointF(0, arm));
}

/// Four corners of a rectangle, each arm so long.
void DrawCorners(QPainter& painter, const QRectF& box, double arm) {
    for (const QPointF& corner : {box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight()}) {
        const double inX = corner.x() < box.center().x() ? arm : -arm;
        const double inY = corner.y() < box.center().y() ? arm : -arm;
        painter.drawPolyline(QPolygonF({corner + QPointF(inX, 0), corner, corner + QPointF(0, inY)}));
    }
}

void DrawLens(QPainter& painter) {
    painter.drawEllipse(QPointF(10.5, 10.5), 6.5, 6.5);
    painter.drawLine(QPointF(15.3, 15.3), QPointF(20.5, 20.5));
}

void DrawAdd(QPainter& painter) {
    painter.drawPolyline(QPolygonF({{10.5, 20}, {5, 20}, {5, 3.5}, {13, 3.5}, {17.5, 8}, {17.5, 11.5}}));
    painter.drawPolyline(QPolygonF({{13, 3.5}, {13, 8}, {17.5, 8}}));
    DrawPlus(painter, {16.5, 17.5}, 4);
}

void DrawExport(QPainter& painter) {
    painter.drawPolyline(QPolygonF({{13, 4.5}, {3.5, 4.5}, {3.5, 19.5}, {20.5, 19.5}, {20.5, 13}}));
    painter.drawPolyline(QPolygonF({{5.5, 17}, {9.5, 11.5}, {12.5, 15}, {14.5, 13}, {18, 17}}));
    painter.drawLine(QPointF(14.5, 10), QPointF(21, 3.5));
    painter.drawPolyline(QPolygonF({{16, 3.5}, {21, 3.5}, {21, 8.5}}));
}

void DrawZoomAll(QPainter& painter) {
    DrawCorners(painter, {3.5, 3.5, 17, 17}, 5);
    painter.drawPolygon(QPolygonF({{8, 14.5}, {9.5, 8.5}, {15.5, 9.5}, {16, 14}, {12, 16}}));
}

void DrawMoon(QPainter& painter) {
    QPainterPath disc, shade;
    disc.addEllipse(QPointF(11.5, 12.5), 8, 8);
    shade.addEllipse(QPointF(15.5, 9), 7, 7);
    painter.drawPath(disc.subtracted(shade));
}

void DrawFullScreen(QPainter& painter) {
    DrawCorners(painter, {3.5, 3.5, 17, 17}, 5);
    painter.drawLine(QPointF(4, 4), QPointF(9, 9));
    painter.drawLine(QPointF(20, 20), QPointF(15, 15));
    painter.drawLine(QPointF(20, 4), QPointF(15, 9));
    painter.drawLine(QPointF(4, 20), QPointF(9, 15));
}

void DrawPanes(QPainter& painter) {
    painter.drawRect(QRectF(3, 4.5, 18, 15));
    painter.drawLine(QPointF(14, 4.5), QPointF(14, 19.5));
    for (const double y : {8.5, 12.0, 15.5}) painter.drawLine(QPointF(16.3, y), QPointF(18.7, y));
}

/// An arrow that turns back to the left.
void DrawBack(QPainter& painter) {
    QPainterPath turn(QPointF(4.5, 9.5));
    turn.lineTo(14, 9.5);
    turn.arcTo(QRectF(9, 9.5, 10.5, 9.5), 90, -180);
    turn.lineTo(9, 19);
    painter.drawPath(turn);
    painter.drawPolyline(QPolygonF({{9, 5}, {4.5, 9.5}, {9, 14}}));
}

/// A route through three points on a dark sea, with the area that it crosses.
void DrawApplication(QPainter& painter) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(0x10, 0x3C, 0x5C));
    painter.drawRoundedRect(QRectF(1, 1, 22, 22), 4.5, 4.5);
    painter.setBrush(QColor(0x2E, 0x7D, 0x9A));
    painter.drawPolygon(QPolygonF({{5, 12}, {8.5, 5.5}, {17.5, 6.5}, {19, 14}, {12, 18.5}}));
    painter.setPen(QPen(QColor(0xF4, 0xF1, 0xE6), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    const QPolygonF route({{4.5, 18.5}, {11, 11}, {19.5, 5}});
    painter.drawPolyline(route);
    painter.setBrush(QColor(0xF2, 0x9F, 0x3D));
    for (const QPointF& point : route) painter.drawEllipse(point, 1.9, 1.9);
}

void DrawOnGrid(QPainter& painter, ICON icon) {
    switch (icon) {
        case ICON::APPLICATION:
            return DrawApplication(painter);
        case ICON::ADD:
            return DrawAdd(painter);
        case ICON::EXPORT:
            return DrawExport(painter);
        case ICON::ZOOM_ALL:
            return DrawZoomAll(painter);
        case ICON::ZOOM_IN:
            DrawLens(painter);
            return DrawPlus(painter, {10.5, 10.5}, 3);
        case ICON::ZOOM_OUT:
            DrawLens(painter);
            return painter.drawLine(QPointF(7.5, 10.5), QPointF(13.5, 10.5));
        case ICON::NIGHT:
            return DrawMoon(painter);
        case ICON::FULL_SCREEN:
            return DrawFullScreen(painter);
        case ICON::PANES:
            return DrawPanes(painter);
        case ICON::REDO:
            painter.translate(kGrid, 0);
            painter.scale(-1, 1);
            return DrawBack(painter);
        case ICON::UNDO:
            return DrawBack(painter);
    }
}

class DrawnIcon : public QIconEngine {
public:
    explicit DrawnIcon(ICON what) : icon(what) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        const QColor ink = QGuiApplication::palette().color(group, QPalette::ButtonText);
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / kGrid, rect.height() / kGrid);
        painter->setPen(QPen(ink, kLine, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->setBrush(Qt::NoBrush);
        DrawOnGrid(*painter, icon);
        painter->restore();
    }

    /// Nothing is kept: a size drawn by day would come back at night.
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap drawn(size);
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return drawn;
    }

    QIconEngine* clone() const override { return new DrawnIcon(icon); }

private:
    ICON icon;
};

}  // namespace

QIcon MakeIcon(ICON icon) {
    return QIcon(new DrawnIcon(icon));
}

}  // namespace quillon
