#include "window/pin_button.h"

#include <QEvent>
#include <QPainter>

namespace quillon {
namespace {

constexpr QColor kInk(0xC0, 0xC0, 0xC0);
/// What the toolkit calls the button of a dock's title by which it comes loose.
constexpr const char* kFloatButton = "qt_dockwidget_floatbutton";
constexpr int kGap = 2;

}  // namespace

PinButton::PinButton(QDockWidget& owner) : QAbstractButton(&owner), dock(owner) {
    setCheckable(true);
    setFocusPolicy(Qt::NoFocus);
    setToolTip("Keep this pane when another one is chosen");
    setAccessibleName("Keep this pane");
    resize(sizeHint());
    dock.installEventFilter(this);
    if (auto* const button = dock.findChild<QWidget*>(kFloatButton)) button->installEventFilter(this);
    Place();
}

bool PinButton::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::Resize:
        case QEvent::Move:
        case QEvent::Show:
        case QEvent::Hide:
        case QEvent::LayoutRequest:
            Place();
            break;
        default:
            break;
    }
    return QAbstractButton::eventFilter(watched, event);
}

void PinButton::Place() {
    const auto* const neighbour = dock.findChild<QWidget*>(kFloatButton);
    setVisible(neighbour && !dock.isFloating() && !neighbour->isHidden());
    if (!neighbour) return;
    const QRect at = neighbour->geometry();
    move(at.left() - width() - kGap, at.center().y() - height() / 2 + 1);
    raise();
}

void PinButton::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (underMouse()) painter.fillRect(rect(), QColor(255, 255, 255, 40));
    painter.translate(8, 8);
    if (!isChecked()) painter.rotate(45);
    painter.setPen(QPen(kInk, 1.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(isChecked() ? QBrush(kInk) : QBrush(Qt::NoBrush));
    painter.drawPolygon(QPolygonF({{-2, -5}, {2, -5}, {2, -1}, {3.5, 1}, {-3.5, 1}, {-2, -1}}));
    painter.drawLine(QPointF(0, 1), QPointF(0, 5.5));
}

}  // namespace quillon
