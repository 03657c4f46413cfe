#include "background/shape_file_selector_dlg.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>

#include "platform/headless.h"
#include "platform/user_actions.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Selector : public testing::Test {
protected:
    Selector() {
        for (const char* name : {"b\\AB_land.shp", "AB_coast.shp", "AB_coast.dbf", "ABC_depth.SHP", "Buoys.shp",
                                 "a\\backup\\OLD_wreck.shp", "a\\ZZ.shp", "noteSHP"}) {
            drives.Write(std::string("C:\\Charts\\") + name, "");
        }
        std::filesystem::create_directory_symlink(drives.Files().Native("C:\\Charts"),
                                                  drives.Files().Native("C:\\Charts\\a\\round"));
        dialog.SetPath("C:\\Charts\\", true);
        dialog.SetFiles(&paths);
    }

    CButton& Button(UINT id) { return dynamic_cast<CButton&>(*dialog.GetDlgItem(id)); }
    CListCtrl& List() { return dynamic_cast<CListCtrl&>(*dialog.GetDlgItem(CShapeFileSelectorDlg::kList)); }
    int Run(std::function<void()> act) {
        platform.AnswerDialog([act = std::move(act)](CDialog&) { act(); });
        return dialog.DoModal();
    }

    ScratchDrives drives;
    HeadlessPlatform platform{drives.Root()};
    CShapeFileSelectorDlg dialog{platform};
    std::vector<std::string> paths{"from before"};
};

TEST_F(Selector, ChoosesFilesByTheChartsClicked) {
    const int ended = Run([&] {
        EXPECT_THAT(dialog.GetCharts(), ElementsAre("ZZ", "ABC", "AB", "Buoys", "noteSHP"))
            << "by name, each once, a link followed once, nothing from the backup";
        EXPECT_EQ(List().GetItemText(2, 0), "AB");
        user::Click(List(), 2);
        user::Click(List(), 0);
        user::Click(List(), 2);
        user::Click(List(), -1);
        EXPECT_EQ(dialog.GetSelection(), "AB, ZZ");
        user::Press(Button(IDOK));
    });
    EXPECT_EQ(ended, IDOK);
    EXPECT_THAT(paths, ElementsAre("C:\\Charts\\a\\ZZ.shp", "C:\\Charts\\ABC_depth.SHP", "C:\\Charts\\AB_coast.shp",
                                   "C:\\Charts\\b\\AB_land.shp"))
        << "a chart's name is a prefix, of another chart's too";
}

TEST_F(Selector, SelectsAllAndNone) {
    EXPECT_EQ(Run([&] {
                  user::Press(Button(CShapeFileSelectorDlg::kSelectAll));
                  EXPECT_EQ(dialog.GetSelection(), "OLD_wreck, ZZ, ABC_depth, AB_coast, AB_land, Buoys, noteSHP");
                  user::Accept(dialog);
              }),
              IDOK);
    EXPECT_EQ(paths.size(), 7U);
    EXPECT_EQ(Run([&] {
                  user::Press(Button(CShapeFileSelectorDlg::kSelectAll));
                  user::Press(Button(CShapeFileSelectorDlg::kRemoveAll));
                  user::Press(Button(IDOK));
              }),
              IDCANCEL);
    EXPECT_THAT(paths, IsEmpty());
}

TEST_F(Selector, OpensWithWhatWasChosenAndGoesToAnotherFolder) {
    dialog.SetFileName("C:\\Charts\\b\\AB_land.shp");
    Run([&] {
        EXPECT_EQ(dialog.GetSelection(), "AB");
        platform.AnswerFolder("C:\\Charts\\b");
        user::Press(Button(CShapeFileSelectorDlg::kChooseFolder));
        user::Press(Button(IDOK));
    });
    EXPECT_EQ(dialog.GetPath(), "C:\\Charts\\b\\");
    EXPECT_THAT(paths, ElementsAre("C:\\Charts\\b\\AB_land.shp"));
    CPathList chosen;
    chosen.Add("C:\\Charts\\Buoys.shp");
    chosen.Add("C:\\Charts\\AB_coast.shp");
    dialog.SetFileList(&chosen);
    dialog.SetPath("C:\\Charts\\", false);
    Run([&] {
        EXPECT_EQ(dialog.GetSelection(), "Buoys.shp, AB_coast.shp");
        EXPECT_FALSE(Button(CShapeFileSelectorDlg::kChooseFolder).IsWindowVisible());
        user::Press(Button(IDOK));
    });
    EXPECT_THAT(paths, ElementsAre("C:\\Charts\\AB_coast.shp", "C:\\Charts\\Buoys.shp"));
    dialog.SetPath("C:\\None\\", true);
    Run([&] {
        EXPECT_THAT(dialog.GetCharts(), IsEmpty());
        user::Dismiss(dialog);
    });
}

}  // namespace
}  // namespace quillon
