#pragma once

#include <QLineEdit>

#include "bindings/control_binding.h"
#include "frame/base_edit_ctrl.h"

namespace quillon {

/// An edit whose model decides what each key does; the widget shows text and selection and hands the keys on.
class NumberEditBinding : public QLineEdit, public ControlBinding {
public:
    NumberEditBinding(CBaseEditCtrl& edit, QWidget* parent);
    QWidget& Widget() override { return *this; }

protected:
    void Refresh(CONTROL_CHANGE change) override;
    void Forget() override { edit = nullptr; }
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    /// Text comes by keys and by the clipboard alone.
    void dropEvent(QDropEvent*) override {}
    void inputMethodEvent(QInputMethodEvent*) override {}

private:
    /// The selection as the mouse or the arrow keys have set it.
    void TakeSelection();
    /// False if the key is the toolkit's.
    bool HandOn(const QKeyEvent& event);

    CBaseEditCtrl* edit;
};

}  // namespace quillon
