#include "bindings/button_binding.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QPainter>

#include "platform/user_actions.h"
#include "toolkit/colours.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

constexpr int kFocusInset = CColourButton::kFocusInset;
constexpr int kCaptionInset = 4;
/// The brightest that a text is at night.
constexpr int kNightText = 192;

}  // namespace

ButtonBinding::ButtonBinding(CButton& bound, QWidget* parent)
    : QAbstractButton(parent), ControlBinding(bound), button(&bound), coloured(dynamic_cast<CColourButton*>(&bound)) {
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

void ButtonBinding::Forget() {
    button = nullptr;
    coloured = nullptr;
}

ButtonBinding::Look ButtonBinding::CurrentLook() const {
    // The program's own: a dialog has a dark ground by day as well.
    const bool night = IsDark(QApplication::palette().color(QPalette::Window));
    if (!isEnabled()) {
        return night ? Look{QColor(42, 42, 42), QColor(110, 110, 110)}
                     : Look{QColor(150, 150, 150), QColor(205, 205, 205)};
    }
    Look look{palette().color(QPalette::Button), palette().color(QPalette::ButtonText)};
    if (coloured) look = {QColorOf(coloured->GetFaceColour()), QColorOf(coloured->GetTextColour())};
    if (night && Luminance(look.text) > kNightText)
        look = {look.face.darker(200), QColor(kNightText, kNightText, kNightText)};
    if (isDown()) look.face = look.face.darker(125);
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
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverLeave) {
        if (coloured) coloured->SetHot(event->type() == QEvent::HoverEnter);
    }
    return QAbstractButton::event(event);
}

}  // namespace quillon
