#pragma once

#include <QComboBox>

#include "bindings/control_binding.h"

namespace quillon {

/// A drop-down list. A model's rectangle may reach down over the opened list; the closed box takes one line of it.
class ComboBinding : public QComboBox, public ControlBinding {
public:
    ComboBinding(CComboBox& combo, QWidget* parent);

    QWidget& Widget() override { return *this; }
    void ApplyLayout() override;

protected:
    void Refresh(CONTROL_CHANGE change) override;
    void Forget() override;
    /// The wheel scrolls the pane's neighbours; turning it over a closed box must not change what is edited.
    void wheelEvent(QWheelEvent* event) override;

private:
    void FillItems();
    void FillPictures();
    CComboBox* combo;
};

}  // namespace quillon
