#include "panes/rpl_pane.h"

#include "display/grid_list_ctrl.h"
#include "support/job_fixture.h"

namespace quillon {
namespace {

/// Two legs of 1000 m round a quarter turn of 100 m, a corner without a curve, and the other way round a turn.
constexpr std::string_view kCable = "100,100,0\r\n100,1100,100\r\n1100,1100,0\r\n1100,2100,50\r\n100,2100,0\r\n";

class RplPaneTest : public JobFixture {
protected:
    RplPaneTest() {
        drives.MakeFolder("C:\\MyData");
        drives.Write("C:\\Job\\Cable.csv", kCable);
        drives.Write("C:\\Job\\Short.rlx", "head\r\nhead\r\n0,1,0,501,0,0,0\r\n");
        drives.Write("C:\\Job\\Four.csv", "1,2,3,4\r\n");
        Open();
    }
    ~RplPaneTest() override { pane.reset(); }
    void Open() {
        pane = std::make_unique<CRPLPane>(*platform);
        ASSERT_TRUE(pane->Create(log.get(), CRPLPane::kTitleId, job->rpls));
        EXPECT_EQ(Messages(), Texts());
    }
    void AddFiles(const Texts& paths) {
        platform->AnswerFiles(paths);
        user::Press(pane->GetAddButton());
    }
    CMyListCtrl& Table() { return dynamic_cast<CMyListCtrl&>(pane->GetTable()); }
    void ClickCell(int row, int column) {
        int left = 0;
        for (int i = 0; i < column; ++i) left += Table().GetColumn(i).width;
        Table().OnLButtonDown({left + 2, Table().GetHeaderHeight() + row * Table().GetRowHeight() + 2});
    }

    std::unique_ptr<CRPLPane> pane;
};

TEST_F(RplPaneTest, ADaysWork) {
    EXPECT_EQ(pane->GetPropertyList().GetProperty(0).GetName(), "No Files Selected");
    user::Press(pane->GetRemoveButton());
    AddFiles({" C:\\Job\\Cable.csv ", "C:\\Job\\Four.csv", "C:\\JOB\\CABLE.CSV", "C:\\Job\\Short.rlx"});
    EXPECT_EQ(platform->FileQuestions().back().title, "RPL Files....");
    EXPECT_EQ(Messages(), RedrawAndRecompute());
    EXPECT_EQ(Lines("C:\\MySettings\\Host\\RPLs.FLS"), Texts({"[]", "C:\\Job\\Cable.csv", "C:\\Job\\Short.rlx"}));
    EXPECT_EQ(pane->GetCombo().GetLBText(pane->GetCombo().GetCurSel()), "Short");
    ASSERT_EQ(pane->GetTable().GetItemCount(), 2);
    EXPECT_EQ(TableRow(*pane, 1), Texts({"End", "0.500", "0.00", "501.00", "", ""}));

    user::Select(pane->GetCombo(), 0);
    EXPECT_EQ(RowText(*pane, RPL_CLEARANCE), "   10.0m");
    // What each row stores, and what it tells.
    EXPECT_TRUE(PickRow(*pane, RPL_DIAMETER, "12"));
    EXPECT_TRUE(PickRow(*pane, RPL_CLEARANCE, "20"));
    EXPECT_EQ(Messages(), Texts({"UM_RECOMPUTE_CATENARY_DATA", "UM_RECOMPUTE_CATENARY_DATA"}));
    const tagXY edge = job->rpls[0][0].portCorridorStart;
    EXPECT_TRUE(PickRow(*pane, RPL_PORT_WIDTH, "75.5"));
    EXPECT_TRUE(PickRow(*pane, RPL_CORRIDOR, "True"));
    EXPECT_EQ(Messages().size(), 4u);
    EXPECT_EQ(job->rpls[0][0].portCorridorStart, edge) << "a new width takes effect at the next load";
    EXPECT_EQ(Lines("C:\\MySettings\\Host\\Cable_RPL.INI"),
              Texts({"Use = 1", "Display Corridor = 1", "Port Corridor = 75.500", "Stdb Corridor = 100.000",
                     "Corridor Pen = 128, 5, 0, 0", "Pipeline Pen = 16711680, 0, 2, 0", "Diameter = 12",
                     "Clearance = 20.000", "Tolerance = 25.000"}));
    pane.reset();
    Restart();
    Open();
    EXPECT_EQ(RowText(*pane, RPL_PORT_WIDTH), "   75.5m");
    EXPECT_NE(job->rpls[0][0].portCorridorStart, edge);

    user::Press(pane->GetRemoveButton());
    EXPECT_EQ(pane->GetCombo().GetLBText(pane->GetCombo().GetCurSel()), "Short");
    user::Press(pane->GetRemoveButton());
    EXPECT_EQ(Lines("C:\\MySettings\\Host\\RPLs.FLS"), Texts({"[]"}));
    EXPECT_EQ(pane->GetTable().GetColumnCount(), 0);
    EXPECT_EQ(Messages().size(), 6u);
}

TEST_F(RplPaneTest, TheTableReadsLikeTheDesigners) {
    AddFiles({"C:\\Job\\Cable.csv"});
    std::vector<Texts> rows;
    for (int i = 0; i < pane->GetTable().GetItemCount(); ++i) rows.push_back(TableRow(*pane, i));
    const std::vector<Texts> expected = {{"Start", "0.000", "100.00", "100.00", "", ""},
                                         {"TP 1", "0.900", "100.00", "1000.00", "", ""},
                                         {"IP 1", "", "100.00", "1100.00", "", ""},
                                         {"CP 1", "", "200.00", "1000.00", "100", "Clockwise"},
                                         {"TP 2", "1.057", "200.00", "1100.00", "", ""},
                                         {"IP 2", "1.957", "1100.00", "1100.00", "", ""},
                                         {"TP 3", "2.907", "1100.00", "2050.00", "", ""},
                                         {"IP 3", "", "1100.00", "2100.00", "", ""},
                                         {"CP 3", "", "1050.00", "2050.00", "50", "Anti-Clockwise"},
                                         {"TP 4", "2.986", "1050.00", "2100.00", "", ""},
                                         {"End", "3.936", "100.00", "2100.00", "", ""}};
    EXPECT_EQ(rows, expected);
    // A point chosen on the chart is the record's first row.
    pane->SelectPoint(3);
    EXPECT_EQ(pane->GetTable().GetSelection(), 6);
}

TEST_F(RplPaneTest, ATypedTextStaysInTheTableAlone) {
    AddFiles({"C:\\Job\\Cable.csv", "C:\\Job\\Short.rlx"});
    user::Select(pane->GetCombo(), 0);
    Messages();
    pane->Resize({900, 900});
    const auto before = std::vector<RPLDef>(job->rpls[0].begin(), job->rpls[0].end()).front().position;
    ClickCell(0, 2);
    ASSERT_EQ(Table().OpenEditors().size(), 1u);
    auto& edit = dynamic_cast<CInPlaceEdit&>(*Table().OpenEditors().front());
    for (const char key : std::string("999")) edit.OnChar(key);
    edit.OnReturn();
    EXPECT_EQ(Messages(), Texts());
    EXPECT_EQ(Table().GetItemText(0, 2), "999");
    EXPECT_EQ(job->rpls[0][0].position, before);
    user::Select(pane->GetCombo(), 0);
    EXPECT_EQ(Table().GetItemText(0, 2), "999") << "the file that is shown already";
    pane->UpdateAllPositions();
    EXPECT_EQ(Table().GetItemText(0, 2), "100.00");
}

}  // namespace
}  // namespace quillon
