#pragma once

#include "platform/controls.h"

namespace quillon {

/// The button of all panes and dialogs, drawn by itself: a coloured face, its caption centred and word-wrapped, a focus
/// frame kFocusInset pixels inside the edge. Day or night is chosen at creation; a dialogue turns its own.
class CColourButton : public CButton {
public:
    static constexpr int kFocusInset = 5;

    CColourButton(CWnd& buttonOwner, UINT buttonId, std::string_view text, bool night);

    /// The face and text to draw now.
    COLORREF GetFaceColour() const;
    COLORREF GetTextColour() const;

    void SetNight(bool set);
    bool IsOn() const { return on; }
    void SetOn(bool set);
    /// The binding's: the mouse has come over the button or left it.
    void SetHot(bool over);

private:
    bool night;
    bool on = false;
    bool hot = false;
};

}  // namespace quillon
