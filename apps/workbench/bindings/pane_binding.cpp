#include "bindings/pane_binding.h"

#include <QEvent>
#include <QFocusEvent>

#include "toolkit/text_edge.h"

namespace quillon {

PaneBinding::PaneBinding(CDockablePane& bound, const BindingFactory& bindingFactory, QWidget* parent)
    : QWidget(parent), pane(&bound), factory(bindingFactory) {
    // Not a stop of the Tab key: the pane would catch the keyboard on its way back to a neighbour.
    setFocusPolicy(Qt::ClickFocus);
    setAutoFillBackground(true);
    pane->SetObserver(this);
    setWindowTitle(ToQString(pane->GetWindowText()));
    BindControls();
}

PaneBinding::~PaneBinding() {
    if (pane) pane->SetObserver(nullptr);
}

void PaneBinding::BindControls() {
    QWidget* before = nullptr;
    for (CControl* const control : pane->GetControls()) {
        QWidget* widget = WidgetOf(*control);
        if (!widget) {
            ControlBinding* const binding = factory.Make(*control, this);
            if (!binding) continue;
            bindings.push_back(binding);
            binding->ApplyLayout();
            widget = &binding->Widget();
        }
        if (before) setTabOrder(before, widget);
        before = widget;
    }
}

QWidget* PaneBinding::WidgetOf(const CControl& control) const {
    for (ControlBinding* const binding : bindings) {
        if (binding->Control() == &control) return &binding->Widget();
    }
    return nullptr;
}

void PaneBinding::OnPaneChanged(CDockablePane&) {
    setWindowTitle(ToQString(pane->GetWindowText()));
    if (onShowPane) onShowPane(pane->IsVisible());
}

void PaneBinding::OnPaneFocus(CDockablePane&, CControl& control) {
    if (QWidget* const widget = WidgetOf(control)) widget->setFocus();
}

void PaneBinding::OnPaneGone(CDockablePane&) {
    pane = nullptr;
    for (ControlBinding* const binding : bindings) binding->Widget().hide();
    setEnabled(false);
}

void PaneBinding::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (!pane) return;
    BindControls();
    pane->Resize({width(), height()});
}

void PaneBinding::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    if (pane) pane->OnSetFocus();
}

void PaneBinding::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (pane && event->type() == QEvent::FontChange) pane->OnSettingChange();
}

}  // namespace quillon
