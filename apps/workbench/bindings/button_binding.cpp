#include "workbench/bindings/button_binding.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPainter>

#include "platform/user_actions.h"
#include "workbench/bindings/colours.h"
#include "workbench/text_edge.h"

namespace quillon {
namespace {

constexpr int kFocusInset = 5;
constexpr int kCaptionInset = 4;

}  // namespace

ButtonBinding::ButtonBinding(CButton& bound, QWidget* parent)
    : QAbstractButton(parent), ControlBinding(bound), button(&bound) {
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    setAttribute(Qt::WA_OpaquePaintEvent);
    connect(this, &QAbstractButton::clicked, this, [this] {
        if (button) user::Press(*button);
    });
    Refresh(CONTROL_CHANGE::CONTENT);
}

QSize ButtonBinding::sizeHint() const {
    const QFontMetrics metrics(font());
    return {metrics.horizontalAdvance(text()) + 2 * (kFocusInset + kCaptionInset), metrics.height() + 14};
}

void ButtonBinding::Refresh(CONTROL_CHANGE) {
    if (!button) return;
    // An ampersand of the caption is meant as itself here.
    setText(ToQString(button->GetWindowText()).replace('&', "&&"));
    setAccessibleName(ToQString(button->GetWindowText()));
    update();
}

ButtonBinding::Look ButtonBinding::CurrentLook() const {
    const bool night = IsDark(palette().color(QPalette::Window));
    const bool hot = isEnabled() && underMouse();
    Look look = night ? Look{ToQColor(hot ? 0x995C00 : 0x663D00), ToQColor(0xC0C0C0)}
                      : Look{ToQColor(hot ? 0xFF0000 : 0xCC7B00), ToQColor(0xFFFFFF)};
    if (isDown()) look.face = look.face.darker(125);
    if (!isEnabled()) {
        look.face = night ? QColor(42, 42, 42) : QColor(150, 150, 150);
        look.text = night ? QColor(110, 110, 110) : QColor(205, 205, 205);
    }
    return look;
}

void ButtonBinding::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const Look look = CurrentLook();
    painter.fillRect(rect(), look.face);
    // A line of the ground keeps two neighbours apart.
    painter.setPen(palette().color(QPalette::Window));
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(look.text);
    painter.drawText(rect().adjusted(kCaptionInset, 0, -kCaptionInset, 0), Qt::AlignCenter | Qt::TextWordWrap,
                     button ? ToQString(button->GetWindowText()) : QString());
    if (hasFocus()) {
        painter.setPen(QPen(look.text, 1, Qt::DotLine));
        painter.drawRect(rect().adjusted(kFocusInset, kFocusInset, -kFocusInset - 1, -kFocusInset - 1));
    }
}

void ButtonBinding::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

bool ButtonBinding::event(QEvent* event) {
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) update();
    return QAbstractButton::event(event);
}

}  // namespace quillon
