// Tables that go out of the system: the listing of a file, and a table that is filled from a CSV file.

#include "display/feature_view.h"

#include <gtest/gtest.h>

#include "platform/dockable_pane.h"
#include "platform/headless.h"
#include "platform/user_actions.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

using Texts = std::vector<std::string>;

class ListViewTest : public ::testing::Test {
protected:
    ScratchDrives drives;
    HeadlessPlatform platform{drives.Root(), "Host"};
    CDockablePane frame{platform};

    static Texts Rows(const CListCtrl& list) {
        Texts rows;
        for (int row = 0; row < list.GetItemCount(); ++row) {
            std::string line;
            for (int i = 0; i < list.GetColumnCount(); ++i) line += (i ? "|" : "") + list.GetItemText(row, i);
            rows.push_back(line);
        }
        return rows;
    }
    static std::string Headers(const CListCtrl& list) {
        std::string line;
        for (int i = 0; i < list.GetColumnCount(); ++i) line += (i ? "|" : "") + list.GetColumn(i).header;
        return line;
    }
};

class FeatureViewTest : public ListViewTest {
protected:
    FeatureViewTest() {
        drives.Write("C:\\Jobs\\line.csv", "500000,6000000\r\n500000,6000100\r\n500100,6000100\r\n");
        routes.SetSettingsName("Route List");
        routes.Add("C:\\Jobs\\line.csv");
        routes.SetEditCursor(0, 0);
        view.SetRouteFiles(&routes);
        view.SetDesignRouteFiles(&designs);
    }
    void AddDesign(const std::vector<double>& radii) {
        auto route = std::make_unique<CRoute>(platform.Files());
        route->MakeStub("C:\\Jobs\\Design.csv");
        route->RemoveAll();
        for (std::size_t i = 0; i < radii.size(); ++i) {
            RouteDef record;
            const double at = static_cast<double>(i);
            record.position = {100 * at, 1000 + at};
            record.kp = 10 * at;
            record.radius = radii[i];
            record.curveStart = {100 * at - 5, 0};
            record.curveEnd = {100 * at + 5, 0};
            record.curveStartKp = 10 * at - 1;
            record.curveEndKp = 10 * at + 1;
            route->Add(record);
        }
        designs.Append(std::move(route));
        designs.SetEditCursor(designs.GetCount() - 1, 0);
        view.SetFeatureType(FEATURE_TYPES::DESIGN_ROUTE);
    }

    CRouteList routes{platform.Files()};
    CDesignRouteList designs{platform.Files()};
    CFeatureView view{frame, 1};
};

TEST_F(FeatureViewTest, ARouteHasLegsBetweenItsPoints) {
    view.SetFeatureType(FEATURE_TYPES::ROUTE);
    EXPECT_EQ(Headers(view), "Wpt|Easting|Northing|Range|Bearing");
    EXPECT_EQ(Rows(view), (Texts{"1|500000.000|6000000.000||", "|||100.00m|000.00", "2|500000.000|6000100.000||",
                                 "|||100.00m|090.00", "3|500100.000|6000100.000||"}));
    EXPECT_EQ(frame.GetWindowText(), "Route - line");
    user::Click(view, 4);
    EXPECT_EQ(routes.editState.editPointIndex, 2);
    user::Click(view, 1);
    EXPECT_EQ(routes.editState.editPointIndex, 2) << "a leg isn't a point";
    EXPECT_EQ(view.GetSelectedPoint(), -1);
    routes.RemoveAt(0);
    EXPECT_EQ(Rows(view)[0], "||||") << "rows of a file that has gone";
    user::Click(view, 0);
    EXPECT_EQ(routes.editState.editFileIndex, -1) << "a cursor that has gone stale";
    view.Update();
    EXPECT_EQ(view.GetItemCount(), 0);
    EXPECT_EQ(frame.GetWindowText(), "Route - ");
    view.SetFeatureType(FEATURE_TYPES::BOUNDARY);
    EXPECT_EQ(view.GetColumnCount(), 0) << "no list, no columns";
}

TEST_F(FeatureViewTest, ADesignRouteHasItsTangentPoints) {
    AddDesign({0, 0});
    EXPECT_EQ(Rows(view), (Texts{"Start|0.000|0.000|1000.000|", "End|10.000|100.000|1001.000|"}));
    AddDesign({0, 250.4, 0, 0});
    EXPECT_EQ(Rows(view),
              (Texts{"Start|0.000|0.000|1000.000|", "TP 1|9.000|95.000|0.000|", "IP 1||100.000|1001.000|250",
                     "TP 2|11.000|105.000|0.000|", "IP 2|20.000|200.000|1002.000|", "End|30.000|300.000|1003.000|"}));
    designs.SetEditCursor(1, 3);
    const FeatureEditState before = designs.editState;
    user::Click(view, 1);
    EXPECT_EQ(designs.editState, before) << "a tangent point is no point of the file";
    const int points[] = {0, 3, 1, 3, 2, 3};
    for (const int row : {0, 2, 4, 5}) {
        user::Click(view, row);
        EXPECT_EQ(designs.editState.editPointIndex, points[row]) << row;
    }
    platform.AnswerMenu(4);
    user::RightClick(view, -1);
    EXPECT_EQ(platform.Calls(), (Texts{"menu: [Export Data]/Save to CSV/Save to Excel/Print//Co-ordinate Listing",
                                       "information: Coordinate List Created"}));
}

TEST_F(FeatureViewTest, ExportsGoWhereTheOperatorSays) {
    view.SetFeatureType(FEATURE_TYPES::ROUTE);
    drives.MakeFolder("C:\\Out");
    const auto answer = [&](int menu, const std::string& path, int form = 0) {
        platform.AnswerMenu(menu);
        platform.AnswerSave(path, form);
        user::RightClick(view, 0);
    };
    answer(1, "C:\\Out\\wells.CSV");
    EXPECT_EQ(drives.Read("C:\\Out\\wells.CSV").substr(0, 64),
              "Wpt,Easting,Northing,Range,Bearing\r\n1,500000.000,6000000.000,,\r\n");
    EXPECT_EQ(platform.Calls().back(), "information: wells.csv\n saved in \nC:\\Out\\");
    answer(1, "C:\\None\\wells.CSV", 1);
    EXPECT_EQ(platform.Calls().back(), "information: Error Opening CSV File");
    answer(2, "C:\\Out\\wells.XLSX");
    EXPECT_EQ(drives.Read("C:\\Out\\wells.XLSX").substr(0, 2), "PK");
    EXPECT_EQ(platform.Calls().back(), "information: wells.XLSX\n saved in \nC:\\Out\\");
    answer(1, "");
    EXPECT_EQ(platform.Calls().back().substr(0, 5), "save:") << "a cancel says nothing";
    // Without a name that was chosen, and without a menu.
    view.names = {"C:\\Out\\", "", "field"};
    EXPECT_TRUE(view.SaveToCsv());
    EXPECT_NE(drives.Read("C:\\Out\\_field.CSV"), "(none)");
    EXPECT_EQ(platform.Calls().back(), "information: _field.csv\n saved in \nC:\\Out\\");
}

TEST_F(ListViewTest, ATableIsFilledFromACsvFile) {
    CMyListView view(frame, 1);
    view.settingsName = "Last Table";
    drives.Write("C:\\Jobs\\wells.csv", "Name,East\r\n\"A, B\",1\r\n\r\nC,2,more\r\nD\r\n");
    const auto load = [&](bool named) {
        view.firstLineNamesColumns = named;
        platform.AnswerMenu(1);
        platform.AnswerFiles({"C:\\Jobs\\wells.csv"});
        user::RightClick(view, -1);
    };
    load(false);
    EXPECT_EQ(Headers(view), "||");
    EXPECT_EQ(Rows(view), (Texts{"Name|East|", "A, B|1|", "C|2|more", "D||"}));
    load(true);
    EXPECT_EQ(Headers(view), "Name|East|");
    EXPECT_EQ(Rows(view), (Texts{"A, B|1|", "C|2|more", "D||"}));
    EXPECT_EQ(view.headerTitles, (Texts{"Name", "East"}));
    EXPECT_EQ(view.names.folder + "+" + view.names.fileTitle, "C:\\Jobs\\+wells");
    EXPECT_EQ(frame.GetWindowText(), "C:\\Jobs\\wells.csv");
    user::SelectRows(view, {2, 0}, 2);
    platform.AnswerMenu(100);
    user::RightClick(view, 2);
    EXPECT_EQ(platform.Calls().back(),
              "menu: [Import Data]/Load CSV File/[Remove Data]/Delete Selected Rows/[Export Data]/Save to CSV/"
              "Save to Excel/Print");
    EXPECT_EQ(Rows(view), Texts{"C|2|more"});
    view.LoadCsvFile("C:\\Jobs\\gone.csv");
    EXPECT_EQ(view.GetItemCount() + view.GetColumnCount(), 0);
}

}  // namespace
}  // namespace quillon
