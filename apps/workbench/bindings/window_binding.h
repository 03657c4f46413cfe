#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "bindings/binding_factory.h"
#include "bindings/height_split.h"
#include "platform/control_window.h"

namespace quillon {

/// The client area of a window with controls, pane or dialog: a child for each of its controls, where the window puts
/// it. Its size is the window's size, its title the window's title, and the keyboard coming to it comes to the window.
///
/// In a pane, a property list and what stands below it share the height that there is: the pane is told a client area
/// in which both have room, and the handle between them says how much of the real one each gets. The operator's share
/// is kept in the profile.
///
/// A pixel of the model is one of the toolkit's device-independent pixels.
class WindowBinding : public QWidget, public WindowObserver {
public:
    WindowBinding(CControlWindow& window, const BindingFactory& factory, QWidget* parent = nullptr);
    ~WindowBinding() override;

    /// Null when the model has gone or was let go.
    CControlWindow* Model() const { return model; }
    /// The widget that shows a control, or null.
    QWidget* WidgetOf(const CControl& control) const;
    /// Lets the model go: what is still done here reaches it no more.
    void Release();

    /// The window has another title, wants to be shown or hidden, or looks different.
    std::function<void()> onChanged;

    void OnWindowChanged(CControlWindow& changed) override;
    void OnWindowFocus(CControlWindow& focused, CControl& control) override;
    void OnWindowGone(CControlWindow& gone) override;

    QSize sizeHint() const override { return {280, 520}; }
    QSize minimumSizeHint() const override { return {160, 120}; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// Makes the children of controls that have none yet.
    void BindControls();
    void PlaceAll();
    /// Where a control stands in this widget.
    QRect PlaceOf(const CControl& control) const;
    int ListHeight(const CControl& list) const;
    void ShareHeight();
    void SetWantedHeight(int height);

    CControlWindow* model;
    const BindingFactory& factory;
    std::vector<ControlBinding*> bindings;  // children of this widget
    HeightSplit* split = nullptr;           // where the window is a pane with something below its property list
    int wantedHeight = 0;                   // of the list, as the operator has it; 0 for the pane's own
};

}  // namespace quillon
