#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls.h"
#include "platform/platform.h"

namespace quillon {

/// The base of all dialogues: controls on a ground of one colour, by day and by night. Modal: `DoModal` runs until
/// `EndDialog`.
class CColourDialogEx : public CWnd {
public:
    CColourDialogEx(Platform& owner, std::string_view dialogTitle, bool nightColours)
        : CWnd(owner), title(dialogTitle), night(nightColours) {}

    const std::string& GetWindowText() const { return title; }
    COLORREF GetBackground() const { return night ? 0x000000 : 0x555555; }
    COLORREF GetTextColour() const { return night ? 0xC0C0C0 : 0xFFFFFF; }
    const std::vector<CControl*>& GetControls() const { return controls; }

    /// The number that EndDialog was given.
    int DoModal() {
        ended = false;
        GetPlatform().RunModal([this] { return ended; });
        return result;
    }
    void EndDialog(int dialogResult) {
        result = dialogResult;
        ended = true;
    }

protected:
    void AddControl(CControl& control) { controls.push_back(&control); }

private:
    std::string title;
    bool night;
    bool ended = false;
    int result = 0;
    std::vector<CControl*> controls;
};

}  // namespace quillon
