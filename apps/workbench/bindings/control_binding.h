#pragma once

#include <QWidget>
#include <functional>
#include <utility>

#include "platform/controls.h"

namespace quillon {

/// What ties one control model to the widget that shows it. A binding class derives from its widget and from this.
///
/// The model tells the binding of a change, and the binding brings the widget up to date without raising a signal of
/// the widget; the operator's acts reach the model through `user::`. So nothing goes round in a circle, and a change
/// that the model's owner makes while it answers an act is shown like any other.
///
/// Widget and model may go in either order: the binding lets go of the model when it dies, and a model that dies first
/// leaves an empty, disabled widget behind, which its parent deletes.
class ControlBinding : public ControlObserver {
public:
    explicit ControlBinding(CControl& bound);
    ~ControlBinding() override;
    ControlBinding(const ControlBinding&) = delete;
    ControlBinding& operator=(const ControlBinding&) = delete;

    /// Null when the model has gone.
    CControl* Control() const { return control; }
    virtual QWidget& Widget() = 0;
    /// Lets the model go while both live.
    void Release();
    /// Places the widget at the model's rectangle and takes over shown and enabled.
    virtual void ApplyLayout();

    /// Gives the place of a model in place of its own rectangle.
    using Placer = std::function<QRect(const CControl& control)>;
    void SetPlacer(Placer newPlacer) { placer = std::move(newPlacer); }

    void OnControlChanged(CControl& changed, CONTROL_CHANGE change) final;
    void OnControlGone(CControl& gone) final;

protected:
    /// The model has changed in anything but its layout.
    virtual void Refresh(CONTROL_CHANGE change) = 0;
    /// The model is about to go; forget what was borrowed from it.
    virtual void Forget() {}

private:
    CControl* control;
    Placer placer;
};

inline QRect ToQRect(const tagRECT& rect) {
    return QRect(rect.left, rect.top, rect.Width(), rect.Height());
}

}  // namespace quillon
