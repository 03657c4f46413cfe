#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "bindings/binding_factory.h"
#include "platform/dockable_pane.h"

namespace quillon {

/// The client area of a pane: a child for each of the pane's controls, where the pane puts it. Its size is the pane's
/// size, its window title the pane's title, and the keyboard coming to it comes to the pane.
///
/// A pixel of the model is one of the toolkit's device-independent pixels.
class PaneBinding : public QWidget, public PaneObserver {
public:
    PaneBinding(CDockablePane& pane, const BindingFactory& factory, QWidget* parent = nullptr);
    ~PaneBinding() override;

    /// Null when the pane has gone.
    CDockablePane* Pane() const { return pane; }
    /// The widget that shows a control, or null.
    QWidget* WidgetOf(const CControl& control) const;

    /// The pane wants to be shown or hidden.
    std::function<void(bool show)> onShowPane;

    void OnPaneChanged(CDockablePane& changed) override;
    void OnPaneFocus(CDockablePane& focused, CControl& control) override;
    void OnPaneGone(CDockablePane& gone) override;

    QSize sizeHint() const override { return {280, 520}; }
    QSize minimumSizeHint() const override { return {160, 120}; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    /// Makes the children of controls that have none yet.
    void BindControls();

    CDockablePane* pane;
    const BindingFactory& factory;
    std::vector<ControlBinding*> bindings;  // children of this widget
};

}  // namespace quillon
