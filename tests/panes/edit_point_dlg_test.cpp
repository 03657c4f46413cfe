#include "panes/edit_point_dlg.h"

#include <gtest/gtest.h>

#include "platform/headless.h"
#include "platform/user_actions.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

struct Point {
    std::string name = "W-1";
    tagXY position{431200.12345, 6250000.5};
    double height = -12.3456;
    double radius = 50;
    friend bool operator==(const Point&, const Point&) = default;
};

class EditPointTest : public ::testing::Test {
protected:
    EditPointTest() : platform(drives.Root(), "Host") {}
    template <class Control>
    static Control& Item(CDialog& dialog, UINT id) {
        return dynamic_cast<Control&>(*dialog.GetDlgItem(id));
    }
    static void Enter(CDialog& dialog, UINT id, std::string_view keys) {
        auto& edit = Item<CEditDoubleCtrl>(dialog, id);
        edit.OnFocus(true);
        for (const char key : keys) edit.OnChar(key);
        edit.OnFocus(false);
    }

    ScratchDrives drives;
    HeadlessPlatform platform;
};

TEST_F(EditPointTest, OnlyWhatWasTypedReachesTheCaller) {
    struct Row {
        const char* what;
        std::function<void(CDialog&)> act;
        bool kept;
        Point expected;
    };
    const Point point;
    const auto typed = [](CDialog& dialog) {
        Enter(dialog, CEditPointDlg::kEasting, "500000.5");
        Enter(dialog, CEditPointDlg::kRadius, "7");
        user::Type(Item<CEdit>(dialog, CEditPointDlg::kName), "W-2");
    };
    const auto press = [](CDialog& dialog, UINT id) { user::Press(Item<CButton>(dialog, id)); };
    // Three decimals are shown; a number that nobody touched keeps all of its own.
    const std::vector<Row> rows = {
        {"update of nothing", [&](CDialog& d) { press(d, IDOK); }, true, point},
        {"update", [&](CDialog& d) { typed(d), press(d, IDOK); }, true, {"W-2", {500000.5, 6250000.5}, -12.3456, 7}},
        {"cancel", [&](CDialog& d) { typed(d), press(d, IDCANCEL); }, true, point},
        {"Esc", [&](CDialog& d) { typed(d), user::Dismiss(d); }, true, point},
        {"delete", [&](CDialog& d) { typed(d), press(d, CEditPointDlg::kDelete); }, false, point}};
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        Point edited;
        platform.AnswerDialog(row.act);
        EXPECT_EQ(EditPoint(platform, "Waypoint", edited.name, true, &edited.position, &edited.height, &edited.radius),
                  row.kept);
        EXPECT_EQ(edited, row.expected);
    }
}

TEST_F(EditPointTest, RowsThatAreNotThereAreHidden) {
    Point point;
    platform.AnswerDialog([](CDialog& dialog) {
        for (const UINT id : {CEditPointDlg::kHeight, CEditPointDlg::kHeightLabel, CEditPointDlg::kRadius,
                              CEditPointDlg::kRadiusLabel}) {
            EXPECT_FALSE(dialog.GetDlgItem(id)->IsWindowVisible());
        }
        EXPECT_EQ(Item<CEditDoubleCtrl>(dialog, CEditPointDlg::kEasting).Edit().GetText(), "431200.123");
        user::Type(Item<CEdit>(dialog, CEditPointDlg::kName), "other");
        user::Accept(dialog);
    });
    EXPECT_TRUE(EditPoint(platform, "Waypoint", point.name, false, &point.position, nullptr, nullptr));
    EXPECT_EQ(point, Point());
    EXPECT_EQ(platform.Calls(), std::vector<std::string>({"dialog: Waypoint"}));
}

}  // namespace
}  // namespace quillon
