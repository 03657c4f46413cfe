#include "bindings/window_binding.h"

#include <QEvent>
#include <QFocusEvent>

#include "toolkit/text_edge.h"

namespace quillon {

WindowBinding::WindowBinding(CControlWindow& bound, const BindingFactory& bindingFactory, QWidget* parent)
    : QWidget(parent), model(&bound), factory(bindingFactory) {
    // Not a stop of the Tab key: the window would catch the keyboard on its way back to a neighbour.
    setFocusPolicy(Qt::ClickFocus);
    setAutoFillBackground(true);
    model->SetObserver(this);
    setWindowTitle(ToQString(model->GetWindowText()));
    BindControls();
}

WindowBinding::~WindowBinding() {
    if (model) model->SetObserver(nullptr);
}

void WindowBinding::BindControls() {
    QWidget* before = nullptr;
    for (CControl* const control : model->GetControls()) {
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

QWidget* WindowBinding::WidgetOf(const CControl& control) const {
    for (ControlBinding* const binding : bindings) {
        if (binding->Control() == &control) return &binding->Widget();
    }
    return nullptr;
}

void WindowBinding::Release() {
    if (model) model->SetObserver(nullptr);
    model = nullptr;
    for (ControlBinding* const binding : bindings) binding->Release();
}

void WindowBinding::OnWindowChanged(CControlWindow&) {
    setWindowTitle(ToQString(model->GetWindowText()));
    BindControls();
    if (onChanged) onChanged();
}

void WindowBinding::OnWindowFocus(CControlWindow&, CControl& control) {
    if (QWidget* const widget = WidgetOf(control)) widget->setFocus();
}

void WindowBinding::OnWindowGone(CControlWindow&) {
    model = nullptr;
    for (ControlBinding* const binding : bindings) binding->Widget().hide();
    setEnabled(false);
}

void WindowBinding::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (model) model->Resize({width(), height()});
}

void WindowBinding::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    if (model) model->OnSetFocus();
}

void WindowBinding::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (model && event->type() == QEvent::FontChange) model->OnSettingChange();
}

}  // namespace quillon
