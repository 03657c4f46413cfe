#include "platform/dialog_controls.h"

#include <algorithm>

namespace quillon {

void CStatic::SetWindowText(std::string_view label) {
    if (text == label) return;
    text = label;
    Changed(CONTROL_CHANGE::CONTENT);
}

void CStatic::SetBkColor(COLORREF colour) {
    background = colour;
    Changed(CONTROL_CHANGE::COLOURS);
}

void CProgressCtrl::SetRange(int newLower, int newUpper) {
    lower = newLower;
    upper = std::max(newLower, newUpper);
    position = std::clamp(position, lower, upper);
    Changed(CONTROL_CHANGE::CONTENT);
}

void CProgressCtrl::SetPos(int newPosition) {
    newPosition = std::clamp(newPosition, lower, upper);
    if (position == newPosition) return;
    position = newPosition;
    Changed(CONTROL_CHANGE::VALUE);
}

void CEdit::SetWindowText(std::string_view newText) {
    if (text == newText) return;
    text = newText;
    Changed(CONTROL_CHANGE::CONTENT);
}

void CEdit::SetReadOnly(bool set) {
    readOnly = set;
    Changed(CONTROL_CHANGE::LAYOUT);
}

void CCheckBox::SetCheck(bool set) {
    if (checked == set) return;
    checked = set;
    Changed(CONTROL_CHANGE::VALUE);
}

}  // namespace quillon
