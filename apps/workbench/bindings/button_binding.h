#pragma once

#include <QAbstractButton>

#include "workbench/bindings/control_binding.h"

namespace quillon {

/// A flat coloured button: the caption is centred and wrapped at words, the focus frame stands 5 pixels inside the
/// edge. Return presses it as the space bar does.
class ButtonBinding : public QAbstractButton, public ControlBinding {
public:
    ButtonBinding(CButton& button, QWidget* parent);

    QWidget& Widget() override { return *this; }
    QSize sizeHint() const override;

protected:
    void Refresh(CONTROL_CHANGE change) override;
    void Forget() override { button = nullptr; }
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool event(QEvent* event) override;

private:
    struct Look {
        QColor face;
        QColor text;
    };
    Look CurrentLook() const;

    CButton* button;
};

}  // namespace quillon
