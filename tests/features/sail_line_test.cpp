#include "features/sail_line.h"

#include <gtest/gtest.h>

#include <numbers>
#include <string>

#include "support/scratch_drives.h"

namespace quillon {
namespace {

constexpr std::string_view kPath = "C:\\Job\\Block 3.csv";

class SailLineTest : public testing::Test {
protected:
    SailLineTest() { drives.MakeFolder("C:\\MyData"); }
    bool Read(std::string_view bytes) {
        drives.Write(kPath, bytes);
        return lines.Read(kPath);
    }

    ScratchDrives drives;
    CSailLine lines{drives};
};

TEST_F(SailLineTest, EachLineStandsAlone) {
    ASSERT_TRUE(Read("1000,1000,1000,3000\r\n5000,5000,4000,5000,rest\r\n7,7,7,7\r\n"));
    ASSERT_EQ(lines.GetSize(), 3);
    EXPECT_EQ(lines[0].leg.range, 2000.0);
    EXPECT_EQ(lines[0].leg.bearing, 0.0);
    EXPECT_EQ(lines[0].leg.reverseBearing, std::numbers::pi);
    EXPECT_EQ(lines[1].leg.range, 1000.0);
    EXPECT_DOUBLE_EQ(lines[1].leg.bearing, 1.5 * std::numbers::pi);
    EXPECT_DOUBLE_EQ(lines[1].leg.reverseBearing, 0.5 * std::numbers::pi);
    EXPECT_EQ(lines[1].Middle(), (tagXY{4500, 5000}));
    EXPECT_EQ(lines[2].leg.range, 0.0);
    EXPECT_EQ(lines[2].leg.bearing, 0.0);
}

TEST_F(SailLineTest, PassesOverWhatIsNoLine) {
    struct Case {
        const char* line;
        bool taken;
    };
    for (const Case& c :
         {Case{"100,100", false}, Case{"100,100,200", false}, Case{"0,0,100,100", false}, Case{"100,100,0,0", false},
          Case{"?,1,100,100", false}, Case{"SOL,EOL", false}, Case{"", false}, Case{"0,5,100,100", true},
          Case{"5,0,0,5", true}, Case{"SOL 1 2 EOL 3 4", true}}) {
        EXPECT_EQ(Read(c.line), c.taken) << c.line;
        EXPECT_EQ(lines.GetReport().taken, c.taken ? 1u : 0u) << c.line;
    }
}

TEST_F(SailLineTest, ListKeepsTheThirdIndexWithThePoint) {
    CSailLineList list(drives);
    list.SetSettingsName("Sail Line List");
    drives.Write(kPath, "1,2,3,4\n5,6,7,8\n");
    EXPECT_TRUE(list.Add(kPath));
    EXPECT_TRUE(list.Add("C:\\Job\\None.csv"));
    ASSERT_EQ(list[1].GetSize(), 1);
    EXPECT_EQ(list[1][0].sol, tagXY());
    EXPECT_EQ(drives.Read("C:\\MySettings\\Host\\Sail_Line_List.FLS"),
              "[SailLine]\r\nC:\\Job\\Block 3.csv\r\nC:\\Job\\None.csv\r\n");
    list.editState.thirdIndex = 4;
    list.editState.editActive = 1;
    list.SetEditCursor(0, 1);
    EXPECT_EQ(list.editState.thirdIndex, 4);
    EXPECT_EQ(list.editState.editActive, 0);
    list.SetEditCursor(0, 99);
    EXPECT_EQ(list.editState.thirdIndex, -1);
}

}  // namespace
}  // namespace quillon
