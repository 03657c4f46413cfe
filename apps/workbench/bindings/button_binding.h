#pragma once

#include <QAbstractButton>

#include "bindings/control_binding.h"
#include "frame/colour_button.h"

namespace quillon {

/// A flat coloured button: the caption is centred and wrapped at words, the focus frame stands 5 pixels inside the
/// edge. Return presses it as the space bar does.
///
/// The colours are the button's own. A button in its day colours is dimmed while the program is dark, since panes keep
/// the buttons that they were created with.
class ButtonBinding : public QAbstractButton, public ControlBinding {
public:
    ButtonBinding(CButton& button, QWidget* parent);

    QWidget& Widget() override { return *this; }
    QSize sizeHint() const override;

protected:
    void Refresh(CONTROL_CHANGE change) override;
    void Forget() override;
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
    CColourButton* coloured;  // the same button, where it has colours of its own
};

}  // namespace quillon
