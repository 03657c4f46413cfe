#pragma once

#include <QAbstractButton>
#include <QDockWidget>

namespace quillon {

/// The pin in the title of a dock: while it is set, the dock stays where another would take its place. It keeps to the
/// left of the title's other buttons, and hides where the title has none, as that of a floating dock.
class PinButton : public QAbstractButton {
public:
    explicit PinButton(QDockWidget& dock);

    QSize sizeHint() const override { return {16, 16}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Place();

    QDockWidget& dock;
};

}  // namespace quillon
