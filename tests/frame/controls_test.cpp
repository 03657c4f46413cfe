// The controls of this floor: the number edit's messages, the colours of buttons, the combo of colours.

#include <gtest/gtest.h>

#include "frame/base_edit_ctrl.h"
#include "frame/colour_button.h"
#include "frame/colour_dialog.h"
#include "frame/colour_picker_combo.h"
#include "platform/headless.h"
#include "support/message_log.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

class FrameControls : public testing::Test {
protected:
    FrameControls() { platform.SetMainWindow(&log); }
    std::vector<std::string> Messages() {
        platform.Messages().Pump();
        return std::exchange(log.lines, {});
    }

    ScratchDrives drives;
    HeadlessPlatform platform{drives.Root()};
    MessageLog log{platform};
};

TEST_F(FrameControls, ANumberEditTellsOfFocusAndOfEachNewValue) {
    CEditDoubleCtrl edit(log, 0x12077);
    EXPECT_EQ(edit.Edit().GetText(), "n/a");
    edit.Style().decimals = 2;
    edit.SetDouble(5.0);
    EXPECT_EQ(Messages(), std::vector<std::string>{});
    const std::string update = Format("UM_EDIT_UPDATE %u", UM_EDIT_UPDATE << 16 | 0x2077u);
    edit.OnFocus(true);
    edit.OnChar('4');
    edit.OnChar('.');  // the number is the same
    edit.OnChar('2');
    edit.OnFocus(false);
    EXPECT_EQ(Messages(),
              (std::vector<std::string>{"UM_EDITBOX_FOCUS_DATA", update, update, "UM_EDITBOX_KILL_FOCUS_DATA"}));
    EXPECT_EQ(edit.Edit().GetText(), "4.20");
    edit.SetSelection(0, 4);
    edit.OnMenu(EDIT_COPY);
    EXPECT_EQ(platform.ClipboardText(), "4.20");
    edit.EnableEdit(false);
    EXPECT_EQ(edit.Edit().GetText(), "n/a");
    EXPECT_FALSE(edit.IsWindowEnabled());
}

TEST_F(FrameControls, ButtonsHaveColoursForDayNightAndTheMouse) {
    struct Case {
        bool night, on, hot;
        COLORREF face, text;
    };
    for (const Case& c : {Case{false, false, false, 0xCC7B00, 0xFFFFFF}, Case{false, true, false, 0x800000, 0xFFFFFF},
                          Case{false, true, true, 0xFF0000, 0xFFFFFF}, Case{true, false, false, 0x663D00, 0xC0C0C0},
                          Case{true, true, false, 0x400000, 0xC0C0C0}, Case{true, false, true, 0x995C00, 0xC0C0C0}}) {
        CColourButton button(log, 1, "Quit", c.night);
        button.SetOn(c.on);
        button.SetHot(c.hot);
        EXPECT_EQ(button.GetFaceColour(), c.face);
        EXPECT_EQ(button.GetTextColour(), c.text);
    }
    CColourButton button(log, 1, "Quit", true);
    button.SetHot(true);
    button.SetHot(false);
    EXPECT_EQ(button.GetFaceColour(), 0x663D00u) << "the mouse has left";
}

TEST_F(FrameControls, TheComboOfColoursIsThePalette) {
    CColourPickerComboBoxEx combo(log, 1);
    ASSERT_EQ(combo.GetCount(), kPaletteCount);
    EXPECT_EQ(combo.GetColour(), 0u);
    for (int i = 0; i < kPaletteCount; ++i) {
        const PaletteColour& entry = kPalette[static_cast<std::size_t>(i)];
        EXPECT_EQ(combo.GetLBText(i), entry.name);
        combo.SetColour(entry.colour);
        EXPECT_EQ(combo.GetColour(), entry.colour);
        const auto& pixels = combo.GetImageList()->GetPixels(i);
        EXPECT_EQ(pixels[0], 0u);
        EXPECT_EQ(pixels[17], entry.colour);
    }
    combo.SetColour(RGB(1, 2, 3));
    EXPECT_EQ(combo.GetCurSel(), 0);
}

}  // namespace
}  // namespace quillon
