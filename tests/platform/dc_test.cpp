#include "platform/dc.h"

#include <gtest/gtest.h>

#include "platform/recorder_device.h"

namespace quillon {
namespace {

TEST(Dc, LinesGoOnFromWhereTheLastOneEnded) {
    RecorderDevice device;
    CDC dc(&device);
    dc.MoveTo(1, 2);
    dc.LineTo(3, 4);
    dc.SelectObject(CPen{PS_DASHDOT, 3, RGB(1, 2, 3)});
    dc.LineTo(5, 6);
    EXPECT_EQ(device.Take(), "line 1,2 3,4 pen 1 #000000\nline 3,4 5,6 pen dashdot 3 #010203\n");
}

TEST(Dc, TextStandsInItsBoxByTheFormat) {
    struct Row {
        unsigned format;
        const char* calls;
    };
    // letters of 6 by 13 pixels in a box of 60 by 30
    constexpr Row kRows[] = {
        {0, "text 10,20 \"abc\" Tahoma -11 #000000\ntext 10,33 \"d\" Tahoma -11 #000000\n"},
        {DT_CENTER, "text 31,20 \"abc\" Tahoma -11 #000000\ntext 37,33 \"d\" Tahoma -11 #000000\n"},
        {DT_RIGHT | DT_VCENTER, "text 52,22 \"abc\" Tahoma -11 #000000\ntext 64,35 \"d\" Tahoma -11 #000000\n"},
    };
    RecorderDevice device;
    CDC dc(&device);
    dc.SetBkMode(TRANSPARENT);
    for (const Row& row : kRows) {
        tagRECT box{10, 20, 70, 50};
        EXPECT_EQ(dc.DrawText("abc\r\nd", box, row.format), 26);
        EXPECT_EQ(device.Take(), row.calls);
    }
    tagRECT box{10, 20, 0, 0};
    dc.DrawText("abc\r\nd", box, DT_CALCRECT);
    EXPECT_EQ(box, (tagRECT{10, 20, 28, 46}));
    EXPECT_EQ(device.Take(), "");
}

}  // namespace
}  // namespace quillon
