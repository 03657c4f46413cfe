#include "background/dtm_dialogs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "platform/headless.h"
#include "platform/text.h"
#include "platform/user_actions.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

using testing::ElementsAre;

constexpr const char* kOne = "C:\\Job\\Block A.xyz";
constexpr const char* kTwo = "C:\\Job\\Block B.xyz";
constexpr const char* kCache = "C:\\Job\\Block A.DTM";

class DtmDialogs : public testing::Test {
protected:
    DtmDialogs() {
        drives.Write(kOne, "100 200 -5\n110 200 -6\n120 200 -7\n100 210 -8\n");
        drives.Write(kTwo, "130 210 -9\n");
        dtm.fileName[0] = kOne;
    }
    /// Writes down the caption of the window that opens next.
    void Note() {
        platform.AnswerDialog([this](CDialog& dialog) { captions.push_back(dialog.GetWindowText()); });
    }
    std::string TextOf(CDialog& dialog, UINT id) {
        return static_cast<CStatic&>(*dialog.GetDlgItem(id)).GetWindowText();
    }

    ScratchDrives drives;
    HeadlessPlatform platform{drives.Root()};
    CDtm dtm{platform.Files()};
    std::vector<std::string> captions;
};

TEST_F(DtmDialogs, LoadByTwoPassesAndThenFromTheCache) {
    Note();
    Note();
    EXPECT_TRUE(LoadDtm(platform, &dtm));
    EXPECT_THAT(captions, ElementsAre("Computing DTM Block A Extents", "Making Depths Array fo Block A"));
    EXPECT_EQ(dtm.depths.Size(), 6U);
    EXPECT_EQ(dtm.extents.easting.maximum, 120);
    captions.clear();
    Note();
    EXPECT_TRUE(LoadDtm(platform, &dtm));
    EXPECT_THAT(captions, ElementsAre("Loading DTM Block A........."));
    captions.clear();
    dtm.fileName = {kOne, kTwo, kTwo};  // a third one doesn't show
    for (int i = 0; i < 3; ++i) Note();
    EXPECT_TRUE(LoadDtm(platform, &dtm));
    EXPECT_TRUE(LoadDtm(platform, &dtm));
    EXPECT_THAT(captions,
                ElementsAre("Computing DTM Block A & Block B Extents", "Making Depths Array fo Block A and Block B",
                            "Loading DTM Block A & Block B........."));
}

TEST_F(DtmDialogs, QuitLeavesTheOldCacheAndNoModel) {
    ASSERT_TRUE(LoadDtm(platform, &dtm));
    const std::string before = drives.Read(kCache);
    for (const int quitAt : {1, 2}) {
        drives.Write(kOne, Format("1 1 -1\n2 1 -1\n3 2 -%d\n", quitAt));
        if (quitAt == 2) Note();
        platform.AnswerDialog([](CDialog& dialog) { user::Dismiss(dialog); });
        EXPECT_FALSE(LoadDtm(platform, &dtm)) << quitAt;
        EXPECT_FALSE(dtm.IsLoaded() && dtm.header.columns != 3) << quitAt;
        EXPECT_EQ(drives.Read(kCache), before) << quitAt;
    }
}

TEST_F(DtmDialogs, AFileThatIsGoneGivesNoModelAndNoCache) {
    std::filesystem::remove(drives.Files().Native(kOne));
    EXPECT_TRUE(LoadDtm(platform, &dtm));
    EXPECT_FALSE(dtm.IsLoaded());
    EXPECT_EQ(dtm.report.refusal, DTM_REFUSAL::NO_SAMPLES);
    EXPECT_EQ(drives.Read(kCache), "(none)");
    drives.Write(kOne, "");
    EXPECT_TRUE(LoadDtm(platform, &dtm));
    EXPECT_EQ(drives.Read(kCache), "(none)");
}

/// The windows with their figures, as a timer fills them when the worker has done.
template <class Dialog>
class Shown : public Dialog {
public:
    using Dialog::Dialog;
    bool WorkNow() { return this->Work(); }
};

TEST_F(DtmDialogs, ShowTheExtentsAndTheCell) {
    const auto texts = [&](CDialog& dialog, std::vector<UINT> ids) {
        std::vector<std::string> shown;
        for (const UINT id : ids) shown.push_back(TextOf(dialog, id));
        return shown;
    };
    Shown<CImportDtm> import(platform, dtm);
    import.OnTimer(CLoadDlg::kTimer);
    EXPECT_THAT(texts(import, {22758, 12103, 32347, 12101, 12106}), ElementsAre("n/a", "n/a", "0", "0.000", "n/a"));
    ASSERT_TRUE(import.WorkNow());
    import.OnTimer(CLoadDlg::kTimer);
    EXPECT_THAT(texts(import, {22758, 22760, 12103, 32347, 12101}),
                ElementsAre("100.000", "120.000", "20.000", "3", "10.000"));
    EXPECT_THAT(texts(import, {22759, 22761, 12104, 32348, 12102, 12106, 12108}),
                ElementsAre("200.000", "210.000", "10.000", "2", "10.000", "-8.000", "-5.000"));

    Shown<CDtmDepths> depths(platform, dtm);
    depths.OnTimer(CLoadDlg::kTimer);
    EXPECT_THAT(texts(depths, {12105, 12107}), ElementsAre("-1", "-1"));
    ASSERT_TRUE(depths.WorkNow());
    depths.OnTimer(CLoadDlg::kTimer);
    EXPECT_THAT(texts(depths, {12105, 12107, 12109}), ElementsAre("0", "1", "8.00"));
}

}  // namespace
}  // namespace quillon
