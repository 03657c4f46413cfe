#pragma once

#include "platform/controls.h"
#include "platform/dc.h"

namespace quillon {

/// A window inside another that draws itself: it paints on whatever device its binding or a test hands it, in pixels of
/// its own rectangle, the top left corner at 0, 0.
class CView : public CControl {
public:
    using CControl::CControl;

    /// Draws everything anew. The device is a picture: nothing of an earlier paint is on it.
    virtual void Paint(CDrawDevice& device) = 0;
    /// What is shown is another than it was; the binding paints again.
    void Invalidate() { Changed(CONTROL_CHANGE::CONTENT); }
    /// The operator pressed the left button on a pixel.
    virtual void OnLButtonDown(tagPOINT pixel);
};

}  // namespace quillon
