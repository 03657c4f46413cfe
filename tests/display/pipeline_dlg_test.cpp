#include "display/pipeline_dlg.h"

#include <gtest/gtest.h>

#include "platform/headless.h"
#include "platform/user_actions.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

class PipelineDlg : public testing::Test {
protected:
    PipelineDlg() {
        drives.Write("C:\\Job\\survey.csv", "KP,E,N,D\n0.1,10,20,5\n0.2,15,25,6\n0.3,10,30,7\n");
        drives.Write("C:\\MySettings\\Quillon\\Pipeline_CSV.INI",
                     "Full Path = C:\\Job\\survey.csv\r\nx = S\r\nx = 0\r\nx = 0\r\nKP = 0\r\n");
    }
    std::string Text(UINT id) { return dynamic_cast<CStatic&>(*dialog.GetDlgItem(id)).GetWindowText(); }
    std::string Samples() {
        std::string text;
        for (UINT i = 0; i < 4; ++i) text += Text(CPipelineDlg::kFirstSample + i) + "|";
        return text;
    }
    CButton& Button(UINT id) { return dynamic_cast<CButton&>(*dialog.GetDlgItem(id)); }
    CComboBox& Combo(UINT id) { return dynamic_cast<CComboBox&>(*dialog.GetDlgItem(id)); }
    void WaitForTheEnd() {
        platform.RunModal([&] { return !dialog.IsThinning(); });
    }
    void Run(std::function<void()> act) {
        platform.AnswerDialog([act = std::move(act)](CDialog&) { act(); });
        dialog.DoModal();
    }

    ScratchDrives drives;
    HeadlessPlatform platform{drives.Root()};
    CPipelineDlg dialog{platform};
};

TEST_F(PipelineDlg, ShowsTheFirstRowAndThins) {
    Run([&] {
        EXPECT_EQ(Text(CPipelineDlg::kFolder) + "|" + Text(CPipelineDlg::kName), "C:\\Job\\|survey");
        EXPECT_EQ(Samples(), "KP|E|N|D|");
        EXPECT_EQ(Text(CPipelineDlg::kTotal) + "|" + Text(CPipelineDlg::kUsed), "0|0 (0.0%)");
        user::Select(Combo(CPipelineDlg::kSkip), 1);
        EXPECT_EQ(Samples(), "0.1|10|20|5|");
        user::Select(Combo(CPipelineDlg::kFirstColumn), 0);
        user::Select(Combo(CPipelineDlg::kFirstColumn + 3), 1);
        EXPECT_EQ(Samples(), "n/a|10|20|0.1|");
        user::Press(Button(CPipelineDlg::kThin));
        WaitForTheEnd();
        EXPECT_EQ(Text(CPipelineDlg::kTotal) + "|" + Text(CPipelineDlg::kUsed), "1|2 (66.7%)");
        EXPECT_EQ(drives.Read("C:\\Job\\survey_thinned.csv"), "10,20,0.1\n15,25,0.2\n10.000,30.000, END");
        EXPECT_EQ(platform.Calls().back(),
                  "information: Pipeline Data: Thined data file written to\nC:\\Job\\survey_thinned.csv");
        EXPECT_FALSE(dialog.GetDlgItem(CPipelineDlg::kProgress)->IsWindowVisible());
        user::Press(Button(IDOK));
    });
    EXPECT_EQ(drives.Read("C:\\MySettings\\Quillon\\Pipeline_CSV.INI"),
              "Full Path = C:\\Job\\survey.csv\r\nSpreadsheet Name = S\r\nMode = 0\r\nSkip No Lines = 1\r\nKP = -2\r\n"
              "Easting = 1\r\nNorthing = 2\r\nDepth = 0\r\n");
}

TEST_F(PipelineDlg, ChoosesAFile) {
    drives.Write("C:\\Job\\other.txt", "");
    Run([&] {
        platform.AnswerFiles({});
        user::Press(Button(CPipelineDlg::kSelectFile));
        EXPECT_EQ(platform.Calls().back(), "warning: Requires a file name");
        platform.AnswerFiles({" C:\\Job\\other.txt "});
        user::Press(Button(CPipelineDlg::kSelectFile));
        EXPECT_EQ(platform.FileQuestions().back().title, "Pipeline Files....");
        EXPECT_EQ(platform.FileQuestions().back().start, "C:\\Job\\survey.csv");
        EXPECT_EQ(Text(CPipelineDlg::kName), "other");
        EXPECT_EQ(Samples(), "n/a||||");
        EXPECT_EQ(drives.Read("C:\\MySettings\\Quillon\\Pipeline_CSV.INI").substr(0, 29),
                  "Full Path = C:\\Job\\other.txt\r");
        user::Press(Button(CPipelineDlg::kThin));
        WaitForTheEnd();
        EXPECT_EQ(drives.Read("C:\\Job\\other_thinned.txt"), "");
        EXPECT_TRUE(platform.Calls().back().ends_with("no row behind the lines that are skipped."));
        user::Dismiss(dialog);
    });
}

TEST_F(PipelineDlg, LeavesTheFileAloneWhenItIsStopped) {
    std::string rows;
    for (int i = 0; i < 200000; ++i) rows += "0,1,2,3\n";
    drives.Write("C:\\Job\\survey.csv", rows);
    drives.Write("C:\\Job\\survey_thinned.csv", "from before");
    Run([&] {
        user::Press(Button(CPipelineDlg::kThin));
        EXPECT_EQ(Button(CPipelineDlg::kThin).GetWindowText(), "Stop");
        EXPECT_FALSE(Combo(CPipelineDlg::kSkip).IsWindowEnabled());
        user::Press(Button(CPipelineDlg::kThin));
        EXPECT_FALSE(dialog.IsThinning());
        EXPECT_EQ(Button(CPipelineDlg::kThin).GetWindowText(), "Thin Data");
        user::Press(Button(CPipelineDlg::kThin));
        user::Dismiss(dialog);
        EXPECT_FALSE(dialog.IsThinning()) << "the end of the dialog stops it too";
    });
    EXPECT_EQ(drives.Read("C:\\Job\\survey_thinned.csv"), "from before");
}

}  // namespace
}  // namespace quillon
