#pragma once

#include "platform/dialog.h"

namespace quillon {

/// The base of all dialogues: controls on a ground of one colour, by day and by night. A new dialogue takes the colours
/// that the program has at that moment; its coloured buttons follow it.
class CColourDialogEx : public CDialog {
public:
    CColourDialogEx(Platform& owner, std::string_view title, tagSIZE size, CWnd* parent = nullptr);

    void SetNightMode(bool on);
    void SetDaylightMode() { SetNightMode(false); }
    bool GetNightMode() const { return night; }

    COLORREF GetBackground() const { return night ? 0x000000 : 0x555555; }
    COLORREF GetTextColour() const { return night ? 0xC0C0C0 : 0xFFFFFF; }

private:
    bool night;
};

}  // namespace quillon
