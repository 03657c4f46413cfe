#include "panes/pipeline_pane.h"

#include "panes/pipe_route_pane.h"
#include "platform/password.h"
#include "support/job_fixture.h"

namespace quillon {
namespace {

using namespace std::chrono_literals;

constexpr std::string_view kLine = "C:\\Jobs\\Line A.csv";
constexpr std::string_view kWithKps = "C:\\Jobs\\With KPs.csv";
constexpr std::string_view kNotes = "C:\\Jobs\\Notes.txt";
constexpr std::string_view kSettings = "C:\\MySettings\\Host\\With_KPs_PIPELINE.INI";
constexpr std::string_view kListPaths = "C:\\MySettings\\Host\\Pipelines.FLS";
constexpr std::string_view kActive = "C:\\MySettings\\Host\\Active_Pipeline.INI";

class PipelineFixture : public JobFixture {
protected:
    PipelineFixture() {
        drives.Write(kLine, "500000,6000000\r\n500300,6000400\r\n500300,6001400\r\n");
        drives.Write(kWithKps, "10.5,600000,6100000\r\n11.5,600000,6101000\r\n");
        drives.Write(kNotes, "0,0\r\n");
    }
};

class PipelinePaneTest : public PipelineFixture {
protected:
    ~PipelinePaneTest() override { pane.reset(); }

    void Open(bool alarmRows) {
        pane = std::make_unique<CPipelinePane>(*platform);
        ASSERT_TRUE(pane->Create(log.get(), CPipelinePane::kTitleId, job->pipelines, alarmRows));
        EXPECT_EQ(Messages(), Texts());
    }
    void AddAll() {
        platform->AnswerFiles({std::string(kLine), std::string(kNotes), "c:\\jobs\\LINE A.csv", std::string(kWithKps)});
        user::Press(pane->GetAddButton());
        EXPECT_EQ(Messages(), RedrawAndRecompute());
        ASSERT_EQ(pane->GetCombo().GetCount(), 2);
        EXPECT_EQ(pane->GetCombo().GetCurSel(), 1);
    }
    Texts Pick(UINT id, std::string_view text) {
        EXPECT_TRUE(PickRow(*pane, id, text)) << id << " " << text;
        return Messages();
    }
    COLORREF ColourOf(UINT id) {
        return dynamic_cast<CPickerProperty&>(*pane->GetPropertyList().FindItemByData(id)).GetColour();
    }

    std::unique_ptr<CPipelinePane> pane;
};

TEST_F(PipelinePaneTest, ADaysWork) {
    Open(true);
    AddAll();
    EXPECT_EQ(Lines(kListPaths), (Texts{"[]", std::string(kLine), std::string(kWithKps)}));
    EXPECT_EQ(job->pipelines.editState, FeatureEditState());
    EXPECT_EQ(pane->GetTable().GetColumnCount(), 4);

    EXPECT_EQ(Pick(PIPELINE_ORDER, "KP, Easting, Northing"), RedrawAndRecompute());
    EXPECT_EQ(pane->GetTable().GetColumn(0).header, "K.P.");
    EXPECT_EQ(TableRow(*pane, 0), (Texts{"10.500000", "600000.000", "6100000.000", "1000.00m", "0.0"}));
    EXPECT_EQ(TableRow(*pane, 1), (Texts{"11.500000", "600000.000", "6101000.000", "0.00m", "0.0"}));
    EXPECT_EQ(Pick(PIPELINE_DISPLAY, "False"), RedrawPair());
    EXPECT_EQ(Pick(PIPELINE_DIAMETER, "36"), Recompute());
    EXPECT_EQ(Pick(PIPELINE_COLOUR, "Red"), RedrawPair());
    EXPECT_EQ(ColourOf(PIPELINE_THICKNESS), RGB(255, 0, 0));
    EXPECT_EQ(Pick(PIPELINE_THICKNESS, "5"), RedrawPair());
    EXPECT_EQ(Pick(PIPELINE_CORRIDOR, "True"), RedrawPair());
    EXPECT_EQ(Pick(PIPELINE_PORT_WIDTH, "150.5"), RedrawPair());
    EXPECT_DOUBLE_EQ(job->pipelines[1][0].portCorridor.x, 600000 - 150.5);
    EXPECT_EQ(Pick(PIPELINE_STARBOARD_WIDTH, "75m"), RedrawPair());
    EXPECT_DOUBLE_EQ(job->pipelines[1][1].starboardCorridor.x, 600075);
    EXPECT_EQ(Pick(PIPELINE_CORRIDOR_FILL, "Solid"), RedrawPair());
    EXPECT_EQ(Pick(PIPELINE_CORRIDOR_COLOUR, "Cyan"), RedrawPair());
    EXPECT_EQ(ColourOf(PIPELINE_CORRIDOR_FILL), RGB(0, 255, 255));
    EXPECT_EQ(Pick(PIPELINE_CLEARANCE, "12"), Recompute());
    EXPECT_EQ(Pick(PIPELINE_TOLERANCE, "30"), Recompute());
    EXPECT_EQ(Pick(PIPELINE_TOLERANCE, "30"), Recompute());
    for (const char* refused : {"", "wide", "1,5", "1e999"}) {
        EXPECT_FALSE(PickRow(*pane, PIPELINE_PORT_WIDTH, refused)) << refused;
    }
    EXPECT_EQ(Messages(), Texts());
    EXPECT_EQ(Lines(kSettings),
              (Texts{"Data Order = 1", "Use = 0", "Diameter = 36", "Display Corridor = 1", "Port Corridor = 150.500",
                     "Stdb Corridor = 75.000", "Corridor Pen = 16776960, 5, 0, 65535", "Clearance = 12.000",
                     "Tolerance = 30.000", "Pipeline Pen = 255, 0, 5, 0", "Start KP = 0.000", "Increasing KPs = 1",
                     "Label KPs = 0", "KP Interval = 1.000"}));
    user::Click(pane->GetTable(), 1);
    EXPECT_EQ(Messages(), RedrawPair("600000.000, 6101000.000"));
    user::Select(pane->GetCombo(), 0);
    EXPECT_EQ(TableRow(*pane, 0), (Texts{"500000.000", "6000000.000", "500.00m", "36.9"}));

    pane.reset();
    Restart();
    Open(true);
    user::Select(pane->GetCombo(), 1);
    EXPECT_EQ(RowText(*pane, PIPELINE_DIAMETER), "36");
    EXPECT_EQ(TableRow(*pane, 0)[0], "10.500000");
    user::Press(pane->GetRemoveButton());
    EXPECT_EQ(Messages(), RedrawAndRecompute());
    EXPECT_EQ(Lines(kListPaths), (Texts{"[]", std::string(kLine)}));
    user::Press(pane->GetRemoveButton());
    EXPECT_EQ(Lines(kListPaths), Texts{"[]"});
    EXPECT_EQ(pane->GetTable().GetColumnCount(), 0);
}

TEST_F(PipelinePaneTest, HasAnAlarmOnlyWhereTheHostAsksForIt) {
    ASSERT_TRUE(platform->Passwords().Set("x"));
    Open(false);
    AddAll();
    for (const UINT id : {PIPELINE_CLEARANCE, PIPELINE_TOLERANCE, PIPELINE_PASSWORD}) {
        EXPECT_EQ(pane->GetPropertyList().FindItemByData(id), nullptr);
    }
}

TEST_F(PipelinePaneTest, ThePasswordOpensTheAlarmForOneMinute) {
    Open(true);
    AddAll();
    EXPECT_EQ(pane->GetPropertyList().FindItemByData(PIPELINE_PASSWORD), nullptr);
    ASSERT_TRUE(platform->Passwords().Set("deep water"));
    pane->InitPropList();
    const auto isOpen = [this] {
        const bool clearance = PickRow(*pane, PIPELINE_CLEARANCE, "15");
        EXPECT_EQ(PickRow(*pane, PIPELINE_TOLERANCE, "30"), clearance);
        Messages();
        return clearance;
    };
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(Pick(PIPELINE_PASSWORD, "Deep Water"), Texts());
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(Pick(PIPELINE_PASSWORD, "deep water"), Texts());
    platform->Advance(59999ms);
    EXPECT_TRUE(isOpen());
    platform->Advance(1ms);
    EXPECT_FALSE(isOpen());

    EXPECT_EQ(Pick(PIPELINE_PASSWORD, "deep water"), Texts());
    platform->Passwords().Clear();
    pane->RefreshRows();
    platform->Advance(60000ms);
    EXPECT_TRUE(isOpen()) << "the time of a password that is gone locks nothing";
}

class PipeRoutePaneTest : public PipelineFixture {
protected:
    PipeRoutePaneTest() { Open(); }
    ~PipeRoutePaneTest() override { pane.reset(); }

    void Open() {
        pane = std::make_unique<CPipeRoutePane>(*platform);
        ASSERT_TRUE(pane->Create(log.get(), CPipeRoutePane::kTitleId, job->pipeRoute));
        EXPECT_EQ(Messages(), Texts());
    }
    void Select(std::string_view path) {
        platform->AnswerFiles({std::string(path)});
        user::Press(pane->GetSelectButton());
        EXPECT_EQ(Messages(), RedrawPair());
    }
    void Pick(UINT id, std::string_view text) {
        EXPECT_TRUE(PickRow(*pane, id, text)) << id << " " << text;
        EXPECT_EQ(Messages(), RedrawPair()) << id;
    }
    Texts KpColumn() {
        Texts kps;
        for (int i = 0; i < pane->GetTable().GetItemCount(); ++i) kps.push_back(TableRow(*pane, i)[0]);
        return kps;
    }
    Texts Labels() const {
        Texts texts;
        for (const KPListingDef& label : job->pipeRoute.GetKpListing()) texts.push_back(label.text);
        return texts;
    }

    std::unique_ptr<CPipeRoutePane> pane;
};

TEST_F(PipeRoutePaneTest, ADaysWork) {
    EXPECT_EQ(pane->GetTable().GetColumnCount(), 5);
    Select(std::string(" ") + std::string(kLine) + " ");
    EXPECT_EQ(platform->FileQuestions().front().title, "Pipe Route");
    EXPECT_FALSE(platform->FileQuestions().front().multiple);
    EXPECT_EQ(Lines(kActive), Texts{"Path = " + std::string(kLine)});
    EXPECT_EQ(pane->GetPropertyList().GetProperty(0).GetSubItem(0).FormatProperty(), "Line A");
    EXPECT_EQ(TableRow(*pane, 0), (Texts{"0.000000", "500000.000", "6000000.000", "500.00m", "36.9"}));
    EXPECT_EQ(KpColumn(), (Texts{"0.000000", "0.500000", "1.500000"}));

    Pick(PIPE_ROUTE_DISPLAY, "False");
    Pick(PIPE_ROUTE_COLOUR, "Red");
    Pick(PIPE_ROUTE_THICKNESS, "5");
    Pick(PIPE_ROUTE_START_KP, "5");
    EXPECT_EQ(KpColumn(), (Texts{"5.000000", "5.500000", "6.500000"}));
    Pick(PIPE_ROUTE_LABEL_KPS, "True");
    EXPECT_EQ(Labels(), (Texts{"5", "6"}));
    // The labels follow at once, the table at its next refresh.
    Pick(PIPE_ROUTE_INCREASING, "False");
    EXPECT_EQ(Labels(), (Texts{"5", "4"}));
    EXPECT_EQ(KpColumn(), (Texts{"5.000000", "5.500000", "6.500000"}));
    Pick(PIPE_ROUTE_INTERVAL, "0.5");
    EXPECT_EQ(Labels(), (Texts{"5", "4.5", "4"}));
    EXPECT_EQ(KpColumn(), (Texts{"5.000000", "4.500000", "3.500000"}));
    EXPECT_EQ(Lines("C:\\MySettings\\Host\\Line_A_PIPELINE.INI"),
              (Texts{"Data Order = 0", "Use = 0", "Diameter = 0", "Display Corridor = 0", "Port Corridor = 100.000",
                     "Stdb Corridor = 100.000", "Corridor Pen = 128, 5, 0, 0", "Clearance = 10.000",
                     "Tolerance = 25.000", "Pipeline Pen = 255, 0, 5, 0", "Start KP = 5.000", "Increasing KPs = 0",
                     "Label KPs = 1", "KP Interval = 0.500"}));

    pane.reset();
    Restart();
    Open();
    EXPECT_EQ(RowText(*pane, PIPE_ROUTE_START_KP), "  5.000");
    EXPECT_EQ(KpColumn(), (Texts{"5.000000", "4.500000", "3.500000"}));

    user::Press(pane->GetClearButton());
    EXPECT_EQ(Messages(), RedrawPair());
    EXPECT_EQ(Lines(kActive), Texts{"Path = "});
    EXPECT_EQ(pane->GetTable().GetItemCount(), 0);
    EXPECT_EQ(pane->GetPropertyList().GetProperty(0).GetSubItem(0).FormatProperty(), "");
    EXPECT_EQ(RowText(*pane, PIPE_ROUTE_INTERVAL), "  0.500");  // the settings stay
    pane.reset();
    Restart();
    Open();
    EXPECT_EQ(pane->GetTable().GetItemCount(), 0);
}

TEST_F(PipeRoutePaneTest, FilesWithKpsNeedNoStart) {
    Select(kWithKps);
    Pick(PIPE_ROUTE_ORDER, "KP, Easting, Northing");
    const auto shown = [this](UINT id) { return pane->GetPropertyList().FindItemByData(id)->IsVisible(); };
    EXPECT_EQ(KpColumn(), (Texts{"10.500000", "11.500000"}));
    EXPECT_FALSE(shown(PIPE_ROUTE_START_KP) || shown(PIPE_ROUTE_INCREASING));
    EXPECT_TRUE(shown(PIPE_ROUTE_LABEL_KPS) && shown(PIPE_ROUTE_INTERVAL));
    pane->InitPropList();
    EXPECT_FALSE(shown(PIPE_ROUTE_START_KP) || shown(PIPE_ROUTE_INCREASING));
    Pick(PIPE_ROUTE_ORDER, "Easting, Northing");
    EXPECT_TRUE(shown(PIPE_ROUTE_START_KP) && shown(PIPE_ROUTE_INCREASING));
}

TEST_F(PipeRoutePaneTest, ACancelKeepsTheRouteAndAFileOfNoUseEmptiesIt) {
    Select(kLine);
    platform->AnswerCancel();
    user::Press(pane->GetSelectButton());
    EXPECT_EQ(Messages(), RedrawPair());
    EXPECT_EQ(pane->GetTable().GetItemCount(), 3);
    Select(kNotes);
    EXPECT_EQ(pane->GetTable().GetItemCount(), 0);
    EXPECT_EQ(Lines(kActive), Texts{"Path = " + std::string(kNotes)});
}

}  // namespace
}  // namespace quillon
