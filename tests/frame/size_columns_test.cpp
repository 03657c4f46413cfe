#include "frame/size_columns.h"

#include <gtest/gtest.h>

#include <string>

#include "frame/feature_list_ctrl.h"
#include "platform/headless.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

constexpr int kCharacter = 7;  // of the headless platform

class SizeColumnsTest : public testing::Test {
protected:
    ScratchDrives drives;
    HeadlessPlatform platform{drives.Root()};
    CWnd owner{platform};
    CListCtrl table{owner, 1};
};

TEST_F(SizeColumnsTest, TakesTheWiderOfHeaderAndContents) {
    for (const char* header : {"No", "Northing"}) table.InsertColumn(header);
    const std::string contents[] = {"123456789.123", "1"};
    table.SetRows({.count = 1,
                   .cell = [&](int, int column) { return contents[column]; },
                   .widest = [&](int column) { return std::vector<std::string>{contents[column]}; }});
    SizeColumns(table, true);  // a table without a width has none to spare
    const int wide = table.GetColumn(0).width;
    const int narrow = table.GetColumn(1).width;
    EXPECT_GE(wide, 13 * kCharacter);
    EXPECT_GE(narrow, 8 * kCharacter);
    EXPECT_LT(narrow, wide);
    table.MoveWindow({0, 0, 1000, 100});
    SizeColumns(table, false);
    EXPECT_EQ(table.GetColumn(1).width, narrow);
    SizeColumns(table, true);
    EXPECT_EQ(table.GetColumn(0).width, wide);
    EXPECT_EQ(table.GetColumn(1).width, 1000 - wide);
    table.MoveWindow({0, 0, wide + narrow, 100});
    SizeColumns(table, true);
    EXPECT_EQ(table.GetColumn(1).width, narrow);
    table.DeleteAllItems();
    table.DeleteAllColumns();
    SizeColumns(table, true);
}

}  // namespace
}  // namespace quillon
