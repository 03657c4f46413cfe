// All panes and all their rows in one sweep: what every row must do, whichever pane it stands in.

#include "panes/pane_registry.h"

#include <algorithm>
#include <set>

#include "panes/boundary_pane.h"
#include "panes/route_pane.h"
#include "panes/sail_line_pane.h"
#include "support/job_fixture.h"

namespace quillon {
namespace {

void CollectRows(CMFCPropertyGridProperty& row, std::vector<CMFCPropertyGridProperty*>& rows) {
    if (row.IsGroup()) {
        for (int i = 0; i < row.GetSubItemsCount(); ++i) CollectRows(row.GetSubItem(i), rows);
    } else {
        rows.push_back(&row);
    }
}

std::vector<CMFCPropertyGridProperty*> AllRows(CPropertyPane& pane) {
    std::vector<CMFCPropertyGridProperty*> rows;
    for (int i = 0; i < pane.GetPropertyList().GetPropertyCount(); ++i) {
        CollectRows(pane.GetPropertyList().GetProperty(i), rows);
    }
    return rows;
}

/// The text of a value that the row offers and doesn't hold; its own where it offers no other.
std::string AnotherText(const CMFCPropertyGridProperty& row) {
    const std::string now = row.FormatProperty();
    for (const RowChoice& choice : row.GetChoices()) {
        if (choice.text != now) return choice.text;
    }
    for (int i = 0; i < row.GetOptionCount(); ++i) {
        if (row.GetOption(i) != now) return row.GetOption(i);
    }
    if (std::holds_alternative<bool>(row.GetValue())) return row.Get<bool>() ? "False" : "True";
    if (std::holds_alternative<double>(row.GetValue())) return Format("%.1lf", row.Get<double>() + 12.0);
    if (std::holds_alternative<std::int32_t>(row.GetValue())) return Format("%d", row.Get<std::int32_t>() + 3);
    return now;
}

/// The flags beside a data file are its maker's: these rows hold for the run, until a route is saved with its points.
bool HoldsForTheRun(const PaneEntry& entry, UINT id) {
    return (entry.id == CBoundaryPane::kTitleId && (id == BOUNDARY_DISPLAY || id == BOUNDARY_HIGHLIGHT)) ||
           (entry.id == CRoutePane::kTitleId && id == ROUTE_DISPLAY) ||
           (entry.id == CSailLinePane::kTitleId && id == SAIL_LINE_DISPLAY);
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
        job->pipeRoute.Load("C:\\Jobs\\Pipe.csv");
        job->pipeRoute.WriteActive();
    }
    void Open(const PaneEntry& entry) {
        pane = entry.create(*platform, log.get(), *job);
        ASSERT_NE(pane, nullptr) << entry.title;
        EXPECT_EQ(Messages(), Texts()) << entry.title;
    }
    /// In their order, but for the data order, on which other rows hang.
    std::vector<UINT> RowIds() {
        std::vector<CMFCPropertyGridProperty*> rows = AllRows(*pane);
        std::stable_partition(rows.begin(), rows.end(), [](const auto* row) { return row->GetName() != "Data Order"; });
        std::vector<UINT> ids;
        for (const CMFCPropertyGridProperty* row : rows) {
            if (row->GetData() != 0) ids.push_back(row->GetData());
        }
        return ids;
    }

    std::unique_ptr<CPropertyPane> pane;
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
        EXPECT_GE(rows.size(), 4u);
    }
}

TEST_F(PaneRegistryTest, EveryRowTakesAnotherValueAndKeepsIt) {
    LoadJob();
    for (const PaneEntry& entry : PaneRegistry()) {
        Open(entry);
        for (const UINT id : RowIds()) {
            SCOPED_TRACE(std::string(entry.title) + ", row " + std::to_string(id));
            CMFCPropertyGridProperty* const row = pane->GetPropertyList().FindItemByData(id);
            ASSERT_NE(row, nullptr);
            const std::string before = row->FormatProperty();
            const std::string chosen = AnotherText(*row);
            EXPECT_TRUE(user::Type(pane->GetPropertyList(), *row, chosen)) << chosen;
            EXPECT_NE(Messages(), Texts());
            const std::string shown = RowText(*pane, id);
            const bool oneChoice = entry.id == CSailLinePane::kTitleId && id == SAIL_LINE_ORDER;
            EXPECT_EQ(shown == before, oneChoice) << shown;
            pane->InitPropList();
            EXPECT_EQ(RowText(*pane, id), shown) << "rows built anew";
            if (HoldsForTheRun(entry, id)) continue;
            pane.reset();
            Restart();
            Open(entry);
            EXPECT_EQ(RowText(*pane, id), shown) << "another run";
        }
    }
}

TEST_F(PaneRegistryTest, RowsWithoutAnIdOnlyShow) {
    LoadJob();
    int count = 0;
    for (const PaneEntry& entry : PaneRegistry()) {
        Open(entry);
        for (CMFCPropertyGridProperty* row : AllRows(*pane)) {
            if (row->GetData() != 0) continue;
            ++count;
            user::Type(pane->GetPropertyList(), *row, "typed");
            user::Edit(pane->GetPropertyList(), *row, row->GetValue());
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
            EXPECT_EQ(pane->GetPropertyList().GetPropertyCount(), 1);
            EXPECT_EQ(pane->GetPropertyList().GetProperty(0).GetName(), "No Files Selected");
            user::Press(feature->GetRemoveButton());
            user::Select(feature->GetCombo(), 0);
            feature->OnCombo();
            CMFCPropertyGridProperty stray("Stray", true, "", 1);
            feature->OnPropertyChanged(0, stray);
        }
        pane->OnSelectPoint(0, 0);
        pane->OnSelectPoint(0, -1);
        pane->OnTimer(1);
        pane->SetupComboBox();
        pane->InitPropList();
        pane->CreateTable();
        pane->AdjustLayout();
        pane->UpdateAllPositions();
        user::Click(pane->GetTable(), 0);
        EXPECT_EQ(pane->GetTable().GetItemCount(), 0);
        EXPECT_EQ(Messages(), Texts());
    }
}

// A host may remove a file by itself: until it brings the pane up to date, the table shows empty cells.
TEST_F(PaneRegistryTest, AFileThatTheHostRemovedLeavesEmptyCells) {
    for (const PaneEntry& entry : PaneRegistry()) {
        SCOPED_TRACE(entry.title);
        Restart();
        LoadJob();
        Open(entry);
        const CListCtrl& table = pane->GetTable();
        ASSERT_GT(table.GetItemCount(), 0);
        for (CFileListBase* list : std::initializer_list<CFileListBase*>{
                 &job->boundaries, &job->waypoints, &job->routes, &job->pipelines, &job->sailLines}) {
            list->RemoveAt(0);
        }
        job->pipeRoute.Clear();
        pane->Resize({400, 900});
        for (int column = 0; column < table.GetColumnCount(); ++column) EXPECT_EQ(table.GetItemText(0, column), "");
        pane.reset();
    }
}

}  // namespace
}  // namespace quillon
