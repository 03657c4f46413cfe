// A day's work in the panes of digitised data and of drawings, which are twins.

#include <gtest/gtest.h>

#include <thread>

#include "background/dig_load.h"
#include "panes/dig_pane.h"
#include "panes/dxf_pane.h"
#include "support/dxf_groups.h"
#include "support/job_fixture.h"

namespace quillon {
namespace {

constexpr const char* kPlatform = "C:\\Job\\Platform A.dxf";
constexpr const char* kDigFile = "C:\\Job\\Platform A.DIG";

class DrawingPanes : public JobFixture {
protected:
    DrawingPanes() {
        drives.Write(kPlatform, Section("HEADER", "9 $EXTMIN|10 1|20 2|9 $EXTMAX|10 300|20 400") +
                                    Section("ENTITIES", "0 LINE|10 10|20 20|11 30|21 40|0 TEXT|1 A|40 2"));
        drives.Write("C:\\Job\\bare.dxf", Section("ENTITIES", "0 LINE|10 5|20 6|11 7|21 8"));
        drives.Write("C:\\Job\\coast.csv", "1,2\r\n3,4\r\n");
    }
    ~DrawingPanes() override {
        digPane.reset();
        dxfPane.reset();
    }
    void OpenPanes() {
        digPane = std::make_unique<CDigPane>(*platform);
        dxfPane = std::make_unique<CDxfPane>(*platform);
        ASSERT_TRUE(digPane->Create(log.get(), CDigPane::kTitleId, job->digs, job->digMutex));
        ASSERT_TRUE(dxfPane->Create(log.get(), CDxfPane::kTitleId, job->drawings, job->dxfMutex));
    }
    template <class Pane>
    void Add(Pane& pane, const char* path) {
        platform->AnswerFiles({path});
        user::Press(pane.GetAddButton());
    }
    /// Names and values of all rows, group by group.
    static Texts Rows(CPropertyPane& pane) {
        Texts rows;
        CMyMFCPropertyGridCtrl& list = pane.GetPropertyList();
        for (int i = 0; i < list.GetPropertyCount(); ++i) {
            CMFCPropertyGridProperty& group = list.GetProperty(i);
            rows.push_back(group.GetName());
            for (int k = 0; k < group.GetSubItemsCount(); ++k) {
                rows.push_back(group.GetSubItem(k).GetName() + ": " + group.GetSubItem(k).FormatProperty());
            }
        }
        return rows;
    }

    const Texts redraw = {"UM_REDRAW_VECTOR_DISPLAY"};
    std::unique_ptr<CDigPane> digPane;
    std::unique_ptr<CDxfPane> dxfPane;
};

TEST_F(DrawingPanes, ADrawingComesIsHiddenAndGoes) {
    OpenPanes();
    EXPECT_EQ(Rows(*dxfPane), Texts{"No Files Selected"});
    // The host's other threads wait for the whole of the load.
    bool wasFree = true;
    platform->AnswerDialog([&](CDialog&) {
        std::thread([&] {
            wasFree = job->dxfMutex.try_lock();
            if (wasFree) job->dxfMutex.unlock();
        }).join();
    });
    Add(*dxfPane, kPlatform);
    EXPECT_FALSE(wasFree);
    EXPECT_TRUE(job->dxfMutex.try_lock());
    job->dxfMutex.unlock();
    EXPECT_EQ(Messages(), redraw);
    const std::string size = SizeText(drives.Read(kPlatform).size()), date = job->drawings[0].dateText;
    EXPECT_EQ(Rows(*dxfPane),
              (Texts{"Properties", "Display: True", "File Size: " + size, "File Date: " + date, "Show Labels: True",
                     "Extents", "Minimum Easting:       1.00E", "Minimum Northing:       2.00N",
                     "Maximum Easting:     300.00E", "Maximum Northing:     400.00N "}));
    EXPECT_EQ(drives.Read(kDigFile).size(), 16u + 36u) << "the DIG file beside it";
    EXPECT_EQ(Lines("C:\\MySettings\\Host\\DXF_List.INI"), (Texts{"[DXF File]", kPlatform}));
    EXPECT_TRUE(PickRow(*dxfPane, DXF_SHOW_LABELS, "False"));
    EXPECT_TRUE(PickRow(*dxfPane, DXF_DISPLAY, "False"));
    EXPECT_EQ(Lines("C:\\MySettings\\Host\\Platform_A.DXI"), (Texts{"Use = 0", "Show Text = 0", "Scale = 1.000"}));
    EXPECT_EQ(Messages(), (Texts{redraw[0], redraw[0]}));
    // A second time it is refused without a word, and nothing is saved.
    drives.Write("C:\\MySettings\\Host\\DXF_List.INI", "");
    Add(*dxfPane, "c:\\job\\PLATFORM A.dxf");
    EXPECT_EQ(Messages(), Texts());
    EXPECT_EQ(drives.Read("C:\\MySettings\\Host\\DXF_List.INI"), "");
    // Stopped, it stays in the list; the combo goes on showing what it showed.
    platform->AnswerDialog([](CDialog& dialog) { user::Dismiss(dialog); });
    Add(*dxfPane, "C:\\Job\\bare.dxf");
    EXPECT_EQ(job->drawings.GetCount(), 2);
    EXPECT_EQ(dxfPane->GetCombo().GetCurSel(), 0);
    dxfPane->SetUseFile("BARE");
    EXPECT_EQ(dxfPane->GetCombo().GetCurSel(), 1);
    user::Press(dxfPane->GetRemoveButton());
    EXPECT_EQ(dxfPane->GetCombo().GetCurSel(), 0);
    EXPECT_EQ(RowText(*dxfPane, DXF_DISPLAY), "False");
    user::Press(dxfPane->GetRemoveButton());
    EXPECT_EQ(Rows(*dxfPane), Texts{"No Files Selected"});
    EXPECT_EQ(Lines("C:\\MySettings\\Host\\DXF_List.INI"), Texts{"[DXF File]"});
    Messages();
    platform->AnswerFiles({""});
    user::Press(dxfPane->GetAddButton());
    EXPECT_EQ(platform->Calls().back(), "warning: Requires a file name");
}

TEST_F(DrawingPanes, ADigFileKeepsWhetherItIsShown) {
    OpenPanes();
    Add(*digPane, "C:\\Job\\coast.csv");
    Add(*digPane, kPlatform);
    EXPECT_EQ(Messages(), (Texts{redraw[0], redraw[0]}));
    user::Select(digPane->GetCombo(), 1);
    const std::string size = SizeText(drives.Read(kPlatform).size()), date = job->digs[1].dateText;
    EXPECT_EQ(Rows(*digPane), (Texts{"Properties", "Display: True", "File Size: " + size, "File Date: " + date,
                                     "Extents", "Minimum Easting:      10.00E", "Minimum Northing:      20.00N",
                                     "Maximum Easting:      30.00E", "Maximum Northing:      40.00N"}));
    const std::string made = drives.Read(kDigFile);
    EXPECT_TRUE(PickRow(*digPane, DIG_DISPLAY, "False"));
    EXPECT_EQ(Messages(), redraw);
    EXPECT_EQ(drives.Read(kDigFile), std::string(1, '\0') + made.substr(1));
    digPane.reset();
    dxfPane.reset();
    Restart();
    OpenPanes();
    ASSERT_EQ(job->digs.GetCount(), 2);
    EXPECT_EQ(job->digs[0].GetSize(), 2);
    EXPECT_EQ(digPane->GetCombo().GetLBText(0), "coast");
    user::Select(digPane->GetCombo(), 1);
    EXPECT_EQ(RowText(*digPane, DIG_DISPLAY), "False");
}

TEST_F(DrawingPanes, OffersTheExtentsOfTheGeometryWhereTheHeaderHasNone) {
    OpenPanes();
    Add(*digPane, "C:\\Job\\bare.dxf");
    Messages();
    EXPECT_TRUE(job->digs[0].IsEmpty());
    for (const bool own : {true, false}) {
        EXPECT_TRUE(PickRow(*digPane, DIG_OWN_EXTENTS, own ? "True" : "False"));
        EXPECT_EQ(Messages(), redraw);
        EXPECT_EQ(job->digs[0].GetSize(), own ? 2 : 0);
        EXPECT_EQ(RowText(*digPane, DIG_OWN_EXTENTS), own ? "True" : "False");
        EXPECT_EQ(ReadOwnExtents(platform->Files(), "C:\\Job\\bare.dxf"), own);
        EXPECT_EQ(Rows(*digPane)[6], own ? "Minimum Easting:       5.00E" : "Minimum Easting:       0.00E");
    }
}

}  // namespace
}  // namespace quillon
