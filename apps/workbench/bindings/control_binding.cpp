#include "bindings/control_binding.h"

namespace quillon {

ControlBinding::ControlBinding(CControl& bound) : control(&bound) {
    bound.SetObserver(this);
}

ControlBinding::~ControlBinding() {
    if (control) control->SetObserver(nullptr);
}

void ControlBinding::ApplyLayout() {
    if (!control) return;
    QWidget& widget = Widget();
    widget.setGeometry(placer ? placer(*control) : ToQRect(control->GetRect()));
    widget.setEnabled(control->IsWindowEnabled());
    widget.setVisible(control->IsWindowVisible());
}

void ControlBinding::OnControlChanged(CControl&, CONTROL_CHANGE change) {
    if (change == CONTROL_CHANGE::LAYOUT) ApplyLayout();
    Refresh(change);
}

void ControlBinding::Release() {
    if (!control) return;
    control->SetObserver(nullptr);
    OnControlGone(*control);
}

void ControlBinding::OnControlGone(CControl&) {
    control = nullptr;
    Forget();
    Widget().setEnabled(false);
}

}  // namespace quillon
