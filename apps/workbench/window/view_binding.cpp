#include "window/view_binding.h"

#include <QMouseEvent>
#include <QPainter>

#include "chart/qpainter_device.h"
#include "platform/user_actions.h"

namespace quillon {

ViewBinding::ViewBinding(CView& bound, QWidget* parent) : QWidget(parent), ControlBinding(bound), view(&bound) {
    // The view paints its own ground.
    setAttribute(Qt::WA_OpaquePaintEvent);
    ApplyLayout();
}

void ViewBinding::paintEvent(QPaintEvent*) {
    if (!view) return;
    QPainter painter(this);
    QPainterDevice device(painter);
    view->Paint(device);
}

void ViewBinding::mousePressEvent(QMouseEvent* event) {
    if (!view || event->button() != Qt::LeftButton) return;
    const QPoint pixel = event->position().toPoint();
    user::ClickAt(*view, {pixel.x(), pixel.y()});
}

}  // namespace quillon
