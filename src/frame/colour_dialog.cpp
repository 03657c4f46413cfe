#include "frame/colour_dialog.h"

#include "frame/colour_button.h"
#include "platform/platform.h"

namespace quillon {

CColourDialogEx::CColourDialogEx(Platform& owner, std::string_view title, tagSIZE size, CWnd* parentWindow)
    : CDialog(owner, title, size, parentWindow), night(owner.IsNight()) {}

void CColourDialogEx::SetNightMode(bool on) {
    night = on;
    for (CControl* const control : GetControls()) {
        if (auto* const button = dynamic_cast<CColourButton*>(control)) button->SetNight(on);
    }
    Changed();
}

}  // namespace quillon
