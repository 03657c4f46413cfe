// All panes and all their rows in one sweep: what every row must do, whichever pane it stands in.

#include "panes/pane_registry.h"

#include <algorithm>
#include <set>

#include "background/dig_load.h"
#include "frame/colour_schemes.h"
#include "panes/background_pane.h"
#include "panes/boundary_pane.h"
#include "panes/route_pane.h"
#include "panes/sail_line_pane.h"
#include "panes/target_pane.h"
#include "panes/target_plot_pane.h"
#include "platform/tab_ctrl.h"
#include "support/job_fixture.h"
#include "support/pane_driver.h"
#include "support/shape_bytes.h"

namespace quillon {
namespace {

/// The flags beside a data file are its maker's: these rows hold for the run, until a route is saved with its points.
bool HoldsForTheRun(const PaneEntry& entry, UINT id) {
    return (entry.id == CBoundaryPane::kTitleId && (id == BOUNDARY_DISPLAY || id == BOUNDARY_HIGHLIGHT)) ||
           (entry.id == CRoutePane::kTitleId && id == ROUTE_DISPLAY) ||
           (entry.id == CSailLinePane::kTitleId && id == SAIL_LINE_DISPLAY) ||
           (entry.id == CTargetPlotPane::kTitleId && id == PLOT_MODE);  // the host's
}

bool IsOfTarget(const PaneEntry& entry) {
    return entry.id == CTargetPane::kVesselId || entry.id == CTargetPane::kTemplateId;
}

/// Rows with an id that are worked out and can't be typed.
bool ShowsOnly(const PaneEntry& entry, UINT id) {
    return IsOfTarget(entry) && (id == SHADOW_X || id == SHADOW_Y);
}

class PaneRegistryTest : public JobFixture {
protected:
    ~PaneRegistryTest() override { pane.reset(); }

    void LoadJob() {
        drives.MakeFolder("C:\\MyData");
        // Routes and sail lines of one name share the file of their data order.
        for (const char* path : {"C:\\Jobs\\A.csv", "C:\\Jobs\\Route.csv", "C:\\Jobs\\Pipe.csv"}) {
            drives.Write(path, "500000,6000000,500100,6000100\r\n500300,6000400,500500,6000800\r\n");
        }
        for (CFileListBase* list : std::initializer_list<CFileListBase*>{&job->boundaries, &job->waypoints,
                                                                         &job->pipelines, &job->sailLines}) {
            EXPECT_TRUE(list->Add("C:\\Jobs\\A.csv"));
        }
        EXPECT_TRUE(job->routes.Add("C:\\Jobs\\Route.csv"));
        drives.Write("C:\\Jobs\\Cable.csv", "500000,6000000,0\r\n500100,6000100,0\r\n");
        EXPECT_TRUE(job->rpls.Add("C:\\Jobs\\Cable.csv"));
        for (const char* const shape : {"Frame", "Tower"}) {
            drives.Write("C:\\MyData\\Structures\\" + std::string(shape) + ".dxf",
                         "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n");
        }
        job->structures.LoadShapes(job->structures.ShapesFolder());
        drives.Write("C:\\Jobs\\Field.dat",
                     "STRUCTURE 1\nNAME East\nSHAPE Frame\nSHOW 1\n500000.000E 6000000.000\nHEIGHT 1.00\n"
                     "HEADING 45.0\nLENGTH 30.00\n\n"
                     "STRUCTURE 2\nNAME West\nSHAPE Tower\nSHOW 1\n500100.000E 6000100.000\nHEIGHT 2.00\n"
                     "HEADING 90.0\nLENGTH 20.00\n");
        EXPECT_TRUE(job->structures.Add("C:\\Jobs\\Field.dat"));
        job->structures.SetEditCursor(0, 0);
        job->waypoints.SetEditCursor(0, 0);
        LoadTargets();
        drives.Write("C:\\Jobs\\Coast.dxf", "0\nSECTION\n2\nENTITIES\n0\nLINE\n0\nENDSEC\n");
        LoadProgress progress;
        if (CDig* const dig = job->digs.Add("C:\\Jobs\\Coast.dxf")) {
            EXPECT_TRUE(LoadDigFile(*dig, progress) && job->digs.Save());
        }
        if (CDxf* const dxf = job->drawings.Add("C:\\Jobs\\Coast.dxf")) {
            EXPECT_TRUE(ReadDxfFile(*dxf) && job->drawings.Save());
        }
        job->pipeRoute.Load("C:\\Jobs\\Pipe.csv");
        job->pipeRoute.WriteActive();
        job->dtm.fileName = {"C:\\Jobs\\A.xyz", "C:\\Jobs\\B.xyz", "C:\\Jobs\\C.xyz"};
        job->dtm.SaveSettings();
        ShapeBytes coast(SHAPE_POLYLINE);
        coast.AddPaths(SHAPE_POLYLINE, {{{5, 60}, {5.5, 60}}});
        drives.Write("C:\\Jobs\\Coast.shp", coast.Shp());
        drives.Write("C:\\Jobs\\Coast.shx", coast.Shx());
        drives.Write("C:\\Jobs\\Coast.dbf", DbaseBytes({"NAME", "KIND"}, {{"Holm", "rock"}}));
        EXPECT_TRUE(AddShapeFile("C:\\Jobs\\Coast.shp", job->shapes));
    }
    /// A vessel and a template with a target, and two of all that can be chosen.
    void LoadTargets() {
        drives.MakeFolder("C:\\MyData\\Vessel");
        drives.Write("C:\\Jobs\\B.csv", "500000,6000000,500100,6000100\r\n500300,6000400,500500,6000800\r\n");
        EXPECT_TRUE(job->waypoints.Add("C:\\Jobs\\B.csv") && job->sailLines.Add("C:\\Jobs\\B.csv"));
        std::string fault;
        for (COutlineList* const list : std::initializer_list<COutlineList*>{&job->vessels, &job->templates}) {
            if (list->Find("Own") < 0) list->AddNew("Own", "", fault);
            COutline& object = (*list)[list->Find("Own")];
            object.antennas = {{.name = "Bow"}, {.name = "Stern"}};
            object.SetWaypoint(0, 0);
            object.SetSailLine(0, 0);
            EXPECT_TRUE(object.Save());
        }
    }
    void Open(const PaneEntry& entry) {
        pane = entry.create(*platform, log.get(), *job);
        ASSERT_NE(pane, nullptr) << entry.title;
        EXPECT_EQ(Messages(), Texts()) << entry.title;
    }
    /// In their order, but for the data order, on which other rows hang.
    std::vector<UINT> RowIds() {
        std::vector<ListRow> rows = AllRows(*pane);
        std::stable_partition(rows.begin(), rows.end(), [](const auto& r) { return r.row->GetName() != "Data Order"; });
        std::vector<UINT> ids;
        for (const ListRow& r : rows) {
            if (r.row->GetData() != 0) ids.push_back(r.row->GetData());
        }
        return ids;
    }
    ListRow Row(UINT id) {
        for (const ListRow& r : AllRows(*pane)) {
            if (r.row->GetData() != id) continue;
            BringToFront(*r.list);
            r.row->Show();
            return r;
        }
        ADD_FAILURE() << "no row " << id;
        return {};
    }

    /// The tab that a list stands on.
    void BringToFront(const CControl& list) {
        for (CControl* const control : pane->GetControls()) {
            auto* const tabs = dynamic_cast<CMFCTabCtrl*>(control);
            for (int i = 0; tabs && i < tabs->GetTabsNum(); ++i) {
                if (&tabs->GetTabWnd(i) == &list) user::Select(*tabs, i);
            }
        }
    }

    std::unique_ptr<CMyDockablePane> pane;
};

TEST_F(PaneRegistryTest, PanesHaveIdsOfTheirOwn) {
    std::set<UINT> ids;
    for (const PaneEntry& entry : PaneRegistry()) EXPECT_TRUE(ids.insert(entry.id).second) << entry.title;
    LoadJob();
    for (const PaneEntry& entry : PaneRegistry()) {
        SCOPED_TRACE(entry.title);
        Open(entry);
        std::set<UINT> rows;
        for (const UINT id : RowIds()) EXPECT_TRUE(rows.insert(id).second) << id;
        EXPECT_GE(rows.size(), ListsOf(*pane).empty() ? 0u : 1u);
    }
}

TEST_F(PaneRegistryTest, EveryRowTakesAnotherValueAndKeepsIt) {
    LoadJob();
    for (const PaneEntry& entry : PaneRegistry()) {
        Open(entry);
        for (const UINT id : RowIds()) {
            SCOPED_TRACE(std::string(entry.title) + ", row " + std::to_string(id));
            const auto [list, row] = Row(id);
            ASSERT_NE(row, nullptr);
            if (row->GetKind() == ROW_KIND::DUAL_BUTTON) continue;  // acts, and holds nothing
            if (ShowsOnly(entry, id)) continue;
            const std::string before = row->FormatProperty();
            const std::string chosen = AnotherText(*row);
            EXPECT_TRUE(user::Type(*list, *row, chosen)) << chosen;
            EXPECT_NE(Messages(), Texts());
            const std::string shown = Row(id).row->FormatProperty();
            const bool oneChoice = entry.id == CSailLinePane::kTitleId && id == SAIL_LINE_ORDER;
            EXPECT_EQ(shown == before, oneChoice) << shown;
            pane->Refresh();
            EXPECT_EQ(Row(id).row->FormatProperty(), shown) << "rows built anew";
            if (HoldsForTheRun(entry, id)) continue;
            pane.reset();
            Restart();
            Open(entry);
            EXPECT_EQ(Row(id).row->FormatProperty(), shown) << "another run";
        }
    }
}

TEST_F(PaneRegistryTest, RowsWithoutAnIdOnlyShow) {
    LoadJob();
    int count = 0;
    for (const PaneEntry& entry : PaneRegistry()) {
        Open(entry);
        if (IsOfTarget(entry)) continue;  // their rows without an id redraw, see target_pane_test.cpp
        for (const auto& [list, row] : AllRows(*pane)) {
            if (row->GetData() != 0) continue;
            ++count;
            user::Type(*list, *row, "typed");
            user::Edit(*list, *row, row->GetValue());
            EXPECT_EQ(Messages(), Texts()) << entry.title << ": " << row->GetName();
        }
    }
    EXPECT_GE(count, 2);
}

TEST_F(PaneRegistryTest, AnEmptyListDoesNoHarm) {
    for (const PaneEntry& entry : PaneRegistry()) {
        SCOPED_TRACE(entry.title);
        Open(entry);
        if (auto* const feature = dynamic_cast<CFeaturePane*>(pane.get())) {
            EXPECT_EQ(feature->GetPropertyList().GetPropertyCount(), 1);
            EXPECT_EQ(feature->GetPropertyList().GetProperty(0).GetName(), "No Files Selected");
            user::Press(feature->GetRemoveButton());
            user::Select(feature->GetCombo(), 0);
            feature->OnCombo();
            CMFCPropertyGridProperty stray("Stray", true, "", 1);
            feature->OnPropertyChanged(0, stray);
            feature->OnSelectPoint(0, 0);
            feature->OnSelectPoint(0, -1);
            feature->UpdateAllPositions();
            user::Click(feature->GetTable(), 0);
        }
        if (auto* const drawings = dynamic_cast<CBackgroundPane*>(pane.get())) {
            EXPECT_EQ(drawings->GetPropertyList().GetPropertyCount(), 1);
            user::Press(drawings->GetRemoveButton());
            drawings->SetUseFile("none");
            drawings->OnCombo();
            CMFCPropertyGridProperty stray("Stray", true, "", 1);
            drawings->OnPropertyChanged(0, stray);
        }
        pane->OnTimer(1);
        pane->Refresh();
        if (const CListCtrl* const table = TableOf(*pane)) {
            EXPECT_EQ(table->GetItemCount(), 0);
        }
        EXPECT_EQ(Messages(), Texts());
    }
}

TEST_F(PaneRegistryTest, EveryListAndTableTurnsWithTheNight) {
    LoadJob();
    for (const PaneEntry& entry : PaneRegistry()) {
        SCOPED_TRACE(entry.title);
        Open(entry);
        for (const bool night : {true, false}) {
            pane->SetNightMode(night);
            pane->Refresh();
            EXPECT_EQ(pane->GetNightMode(), night);
            for (const CMyMFCPropertyGridCtrl* const list : ListsOf(*pane)) {
                if (IsOfTarget(entry)) continue;  // theirs are those of the frame of the tabs
                EXPECT_EQ(list->GetCustomColors(), SchemeColours(list->colourScheme, night));
            }
            if (const CListCtrl* const table = TableOf(*pane)) {
                EXPECT_EQ(table->GetBkColor(), night ? 0x000000u : 0xD6D6D6u);
                EXPECT_EQ(table->GetTextColor(), night ? 0xC0C0C0u : 0x000000u);
            }
        }
    }
}

// A host may remove a file by itself: until it brings the pane up to date, the table shows empty cells.
TEST_F(PaneRegistryTest, AFileThatTheHostRemovedLeavesEmptyCells) {
    for (const PaneEntry& entry : PaneRegistry()) {
        SCOPED_TRACE(entry.title);
        pane.reset();
        Restart();
        LoadJob();
        Open(entry);
        const CListCtrl* const found = TableOf(*pane);
        if (!found) {
            pane.reset();
            continue;
        }
        const CListCtrl& table = *found;
        ASSERT_GT(table.GetItemCount(), 0);
        for (CFileListBase* list : std::initializer_list<CFileListBase*>{
                 &job->boundaries, &job->waypoints, &job->routes, &job->pipelines, &job->rpls, &job->sailLines}) {
            while (!list->IsEmpty()) list->RemoveAt(0);
        }
        job->pipeRoute.Clear();
        pane->Resize({400, 900});
        for (int column = 0; column < table.GetColumnCount(); ++column) EXPECT_EQ(table.GetItemText(0, column), "");
    }
}

}  // namespace
}  // namespace quillon
