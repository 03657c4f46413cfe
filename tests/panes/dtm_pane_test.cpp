#include "panes/dtm_pane.h"

#include "background/dtm_load.h"
#include "panes/dtm_regular_dlg.h"
#include "support/job_fixture.h"

namespace quillon {
namespace {

constexpr std::string_view kOne = "C:\\Jobs\\North.xyz", kTwo = "C:\\Jobs\\Middle.xyz", kThree = "C:\\Jobs\\South.xyz";
constexpr std::string_view kSettings = "C:\\MySettings\\Host\\DTM.INI";
constexpr std::array<UINT, 3> kAdd = {12912, 12914, 12916}, kClear = {12913, 12915, 12918};
constexpr UINT kLoad = 12919;

class DtmPaneTest : public JobFixture {
protected:
    DtmPaneTest() {
        drives.Write(kOne, "100 200 -5\n110 200 -6\n120 200 -7.25\n100 210 -8\n");
        drives.Write(kTwo, "130 210 -9\n");
        drives.Write(kThree, "140 210 -10\n");
        pane = std::make_unique<CDtmPane>(*platform);
        pane->Create(log.get(), CDtmPane::kTitleId, job->dtm);
    }
    ~DtmPaneTest() override { pane.reset(); }

    void Press(UINT id) { user::Press(static_cast<CButton&>(*pane->GetDlgItem(id))); }
    Texts Add(std::size_t slot, std::string_view path) {
        platform->AnswerFiles({std::string(path)});
        Press(kAdd[slot]);
        return Messages();
    }
    std::string Slots() const {
        std::string names;
        for (const std::string& path : job->dtm.fileName) names += NameOfPath(path) + ";";
        return names;
    }
    /// "Group: Row = value" of all rows.
    Texts Rows() {
        Texts rows;
        auto& list = pane->GetPropertyList();
        for (int i = 0; i < list.GetPropertyCount(); ++i) {
            auto& group = list.GetProperty(i);
            rows.push_back("[" + group.GetName() + "]");
            for (int row = 0; row < group.GetSubItemsCount(); ++row) {
                rows.push_back(group.GetSubItem(row).GetName() + " =" + group.GetSubItem(row).FormatProperty());
            }
        }
        return rows;
    }
    Texts Groups() {
        Texts rows = Rows();
        std::erase_if(rows, [](const std::string& row) { return row.front() != '['; });
        return rows;
    }

    static Texts Loaded() { return {"UM_REDRAW_CHART", "UM_REDRAW_VECTOR_DISPLAY", "UM_UPDATE_DTM"}; }
    std::unique_ptr<CDtmPane> pane;
};

TEST_F(DtmPaneTest, ADaysWork) {
    EXPECT_EQ(Rows(), (Texts{"[Properties]", "Display DTM Coverage =True"}));
    Press(kLoad);
    EXPECT_EQ(Messages(), Loaded());
    // The slots stay packed whichever button was pressed.
    EXPECT_EQ(Add(1, kOne), Texts{"UM_UPDATE_DTM"});
    EXPECT_EQ(platform->FileQuestions().back().title, "DTM Two (XYZ Format)");
    EXPECT_EQ(Slots(), "North;;;");
    EXPECT_EQ(Rows().size(), 2U + 1 + 4) << "no size and date before a header was read";
    Press(kLoad);
    EXPECT_EQ(Messages(), Loaded());
    const Texts rows = Rows();
    const Texts extents(rows.end() - 15, rows.end());
    EXPECT_EQ(extents, (Texts{"[Easting]", "Minimum =     100.000", "Maximum =     120.000", "Difference =      20.000",
                              "No Steps =3", "Step Size =      10.000", "[Northing]", "Minimum =     200.000",
                              "Maximum =     210.000", "Difference =      10.000", "No Steps =2",
                              "Step Size =      10.000", "[Depth]", "Minimum =  -8.0", "Maximum =  -5.0"}));
    EXPECT_EQ(rows[2], "[DTM File]");
    EXPECT_EQ(rows[4], "File Size =47b");

    // The file that stands there already changes nothing; another one drops the array.
    EXPECT_EQ(Add(0, kOne), Texts());
    EXPECT_TRUE(job->dtm.IsLoaded());
    EXPECT_EQ(Add(2, kTwo), Texts{"UM_UPDATE_DTM"});
    EXPECT_FALSE(job->dtm.IsLoaded());
    EXPECT_EQ(Add(2, kThree), Texts{"UM_UPDATE_DTM"});
    EXPECT_EQ(Add(2, kTwo), Texts()) << "stands in a lower slot";
    EXPECT_EQ(Groups(), (Texts{"[Properties]", "[DTM One File]", "[DTM TWO File]", "[DTM THREE File]"}));
    Press(kLoad);
    EXPECT_EQ(job->dtm.header.columns, 5);
    Messages();

    EXPECT_TRUE(PickRow(*pane, DTM_COLOUR + CDtmPane::kSlotRows, "Red"));
    EXPECT_EQ(Messages(), RedrawPair());
    EXPECT_TRUE(PickRow(*pane, DTM_COLOUR + CDtmPane::kSlotRows, "Red"));
    EXPECT_EQ(Messages(), Texts()) << "the colour that it had";
    EXPECT_TRUE(PickRow(*pane, DTM_THICKNESS + 2 * CDtmPane::kSlotRows, "3"));
    EXPECT_TRUE(PickRow(*pane, DTM_FILL, "Solid"));
    EXPECT_TRUE(PickRow(*pane, DTM_COVERAGE, "False"));
    Messages();

    Press(kClear[0]);
    EXPECT_EQ(Messages(), Texts{"UM_UPDATE_DTM"});
    EXPECT_EQ(Slots(), "Middle;South;;");
    EXPECT_FALSE(job->dtm.IsLoaded());
    Press(kClear[2]);
    EXPECT_EQ(Messages(), Texts()) << "an empty slot";
    EXPECT_EQ(Lines(kSettings),
              (Texts{"Dtm One File Name = C:\\Jobs\\Middle.xyz", "Dtm Two File Name = C:\\Jobs\\South.xyz",
                     "Dtm Three File Name = ", "Display Coverage = 0", "Dtm One Pen = 32768, 0, 1, 65535",
                     "Dtm Two Pen = 255, 0, 1, 65534", "Dtm Three Pen = 8388736, 0, 3, 65534"}));
    Press(kClear[1]);
    EXPECT_EQ(Groups(), (Texts{"[Properties]", "[DTM File]"}));
}

TEST_F(DtmPaneTest, QuitLeavesNoModel) {
    Add(0, kOne);
    platform->AnswerDialog([](CDialog& dialog) { user::Dismiss(dialog); });
    Press(kLoad);
    EXPECT_EQ(Messages(), Loaded());
    EXPECT_FALSE(job->dtm.IsLoaded());
    EXPECT_EQ(Groups(), (Texts{"[Properties]", "[DTM File]"}));
}

// Soundings that lie anywhere drive the step down: the pane says why there is no array, and leads to one.
TEST_F(DtmPaneTest, OffersARegularGridWhereTheSamplesMakeTooMany) {
    drives.Write(kOne, "100 200 -5\n100.01 230.5 -6\n171.3 200.3 -7\n140 260 -8\n");
    drives.Write("C:\\Jobs\\North regular.xyz", "somebody's\n");
    job->dtm.limits.mostCells = 1000;
    Add(0, kOne);
    Press(kLoad);
    ASSERT_EQ(Groups().back(), "[Not Loaded]");
    EXPECT_NE(Rows()[8].find("line 1 of North (100, 200) and line 2 of North (100.01, 230.5) set it"),
              std::string::npos)
        << Rows()[8];
    platform->AnswerDialog([&](CDialog& dialog) {
        auto& step = static_cast<CDtmRegularDlg&>(dialog).GetStepEdit();
        EXPECT_EQ(step.GetDouble(), 50.0) << "one sounding a cell, about";
        step.SetDouble(20);
        user::Accept(dialog);
    });
    EXPECT_TRUE(PickRow(*pane, DTM_MAKE_REGULAR, "0") || (pane->OnMakeRegular(), true));
    EXPECT_EQ(Slots(), "North regular 2;;;");
    EXPECT_EQ(drives.Read("C:\\Jobs\\North regular.xyz"), "somebody's\n");
    EXPECT_TRUE(job->dtm.IsLoaded());
    EXPECT_EQ(job->dtm.DepthAt({110, 210}), 5.0);
    EXPECT_EQ(Groups().back(), "[Depth]");
}

}  // namespace
}  // namespace quillon
