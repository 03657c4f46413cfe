#include "bindings/row_edit.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QPointer>

namespace quillon {

RowEdit::RowEdit(QWidget* parent, const QString& text, bool hidden) : QLineEdit(text, parent), start(text) {
    setFrame(false);
    setTextMargins(3, 0, 3, 0);
    if (hidden) setEchoMode(QLineEdit::Password);
}

void RowEdit::Refuse() {
    QPalette marked = palette();
    marked.setColor(QPalette::Highlight, QColor(150, 40, 30));
    marked.setColor(QPalette::HighlightedText, QColor(235, 235, 235));
    setPalette(marked);
    selectAll();
}

bool RowEdit::event(QEvent* event) {
    if (event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (key.key() == Qt::Key_Tab || key.key() == Qt::Key_Backtab) {
            if (onEnd) onEnd(key.key() == Qt::Key_Tab ? END::TAB : END::BACKTAB);
            return true;
        }
    }
    // Escape is the edit's own, whatever shortcut the window gives it.
    if (event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent&>(*event).key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void RowEdit::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (onEnd) onEnd(END::RETURN);
            return;
        case Qt::Key_Escape:
            if (onEnd) onEnd(END::ESCAPE);
            return;
        case Qt::Key_Up:
        case Qt::Key_Down:
            if (onStep) onStep(event->key() == Qt::Key_Up ? 1 : -1);
            return;
        default:
            QLineEdit::keyPressEvent(event);
    }
}

void RowEdit::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // A menu over the edit, or another program in front, doesn't end it.
    const bool stays = event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason;
    if (!stays && onEnd) onEnd(END::FOCUS_LOST);
}

void TakeOpenEdits(const QWidget& window) {
    // What one of them changes may take others away.
    QList<QPointer<QLineEdit>> open;
    for (QLineEdit* const edit : window.findChildren<QLineEdit*>()) open.push_back(edit);
    for (const QPointer<QLineEdit>& edit : open) {
        auto* const row = dynamic_cast<RowEdit*>(edit.data());
        if (row && row->onEnd) row->onEnd(RowEdit::END::RETURN);
    }
}

}  // namespace quillon
