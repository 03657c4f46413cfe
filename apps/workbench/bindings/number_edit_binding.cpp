#include "bindings/number_edit_binding.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>

#include "toolkit/text_edge.h"

namespace quillon {

NumberEditBinding::NumberEditBinding(CBaseEditCtrl& bound, QWidget* parent)
    : QLineEdit(parent), ControlBinding(bound), edit(&bound) {
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setDragEnabled(false);
    setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Refresh(CONTROL_CHANGE::CONTENT);
}

void NumberEditBinding::Refresh(CONTROL_CHANGE change) {
    if (!edit) return;
    if (change == CONTROL_CHANGE::FOCUS) {
        if (parentWidget()) parentWidget()->setFocus();
        return;
    }
    const tagEditText& shown = edit->Edit().GetEdit();
    setText(ToQString(shown.text));
    setToolTip(ToQString(edit->Edit().toolTip));
    if (shown.HasSelection()) {
        setSelection(static_cast<int>(shown.from), static_cast<int>(shown.to - shown.from));
    } else {
        setCursorPosition(static_cast<int>(shown.from));
    }
}

void NumberEditBinding::TakeSelection() {
    const int from = hasSelectedText() ? selectionStart() : cursorPosition();
    const int to = hasSelectedText() ? selectionEnd() : from;
    edit->SetSelection(static_cast<std::size_t>(from), static_cast<std::size_t>(to));
}

bool NumberEditBinding::HandOn(const QKeyEvent& event) {
    if (event.matches(QKeySequence::Copy)) return edit->OnChar(kCtrlC);
    if (event.matches(QKeySequence::Paste)) return edit->OnChar(kCtrlV);
    if (event.matches(QKeySequence::Cut)) return edit->OnChar(kCtrlX);
    switch (event.key()) {
        case Qt::Key_Delete:
            edit->OnDelete();
            return true;
        case Qt::Key_Insert:
            edit->OnInsert();
            return true;
        case Qt::Key_Return:
        case Qt::Key_Enter:
            if (edit->Edit().enterAsTab) return focusNextPrevChild(true);
            return edit->OnChar(kEnter);
        case Qt::Key_Escape:
            return edit->OnChar(kEscape);
        case Qt::Key_Backspace:
            edit->OnChar(kBackspace);
            return true;
        default:
            break;
    }
    const std::string typed = FromQString(event.text());
    if (typed.size() != 1 || static_cast<unsigned char>(typed.front()) < ' ') return false;
    edit->OnChar(typed.front());
    return true;
}

void NumberEditBinding::keyPressEvent(QKeyEvent* event) {
    if (!edit) return;
    TakeSelection();
    if (HandOn(*event)) return;
    switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Right:
        case Qt::Key_Home:
        case Qt::Key_End:
            QLineEdit::keyPressEvent(event);
            break;
        default:
            if (event->matches(QKeySequence::SelectAll)) {
                selectAll();
            } else {
                // Tab, Return and Escape are the window's.
                event->ignore();
            }
    }
}

void NumberEditBinding::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    if (edit) edit->OnFocus(true);
}

void NumberEditBinding::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    // Its own menu takes the keyboard for a moment only.
    if (edit && event->reason() != Qt::PopupFocusReason) edit->OnFocus(false);
}

void NumberEditBinding::contextMenuEvent(QContextMenuEvent* event) {
    if (!edit) return;
    TakeSelection();
    QMenu menu(this);
    for (const tagEditMenuItem& item : edit->Edit().ContextMenu()) {
        menu.addAction(ToQString(item.text), this,
                       [this, id = item.id] {
                           if (edit) edit->OnMenu(id);
                       })
            ->setEnabled(item.enabled);
    }
    if (!menu.isEmpty()) menu.exec(event->globalPos());
}

}  // namespace quillon
