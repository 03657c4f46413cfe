#include "panes/listing_pane.h"

#include "support/job_fixture.h"

namespace quillon {
namespace {

class ListingPaneTest : public JobFixture {};

TEST_F(ListingPaneTest, FollowsTheCursorAndMovesIt) {
    drives.Write("C:\\Jobs\\A.csv", "1,2\r\n3,4\r\n");
    drives.Write("C:\\Jobs\\B.csv", "5,6\r\n7,8\r\n");
    job->waypoints.Add("C:\\Jobs\\A.csv");
    job->waypoints.Add("C:\\Jobs\\B.csv");
    job->waypoints.SetEditCursor(0, 0);
    CListingPane pane(*platform);
    ASSERT_TRUE(pane.Create(log.get(), CListingPane::kTitleId, *job));
    EXPECT_EQ(pane.GetWindowText(), "Waypoint - A");
    job->waypoints.SetEditCursor(1, 0);
    pane.RefreshRows();
    EXPECT_EQ(pane.GetWindowText(), "Waypoint - B");
    user::Click(pane.GetView(), 1);
    EXPECT_EQ(Messages(), RedrawPair("7.000, 8.000"));
    EXPECT_EQ(job->waypoints.editState.editPointIndex, 1);

    drives.Write("C:\\Jobs\\B.csv", "5,6\r\n7,8\r\n9,10\r\n");
    job->waypoints.ReadAgain(1);
    pane.RefreshRows();
    EXPECT_EQ(pane.GetView().GetItemCount(), 3) << "the same file, other records";
    job->sailLines.Add("C:\\Jobs\\A.csv");
    user::Select(pane.GetTypeCombo(), 1);
    EXPECT_EQ(pane.GetView().GetColumn(1).header, "SOL Easting");
    drives.Write("C:\\Jobs\\cable.csv", "1000,1000,0\r\n2000,1000,100\r\n2000,2000,0\r\n");
    ASSERT_TRUE(job->rpls.Add("C:\\Jobs\\cable.csv"));
    user::Select(pane.GetTypeCombo(), 6);
    EXPECT_EQ(pane.GetWindowText(), "Design Route - cable");
    EXPECT_EQ(pane.GetView().GetItemText(1, 0) + " " + pane.GetView().GetItemText(1, 1), "TP 1 900.000");
    Messages();
    user::Click(pane.GetView(), 2);
    EXPECT_EQ(Messages(), RedrawPair("2000.000, 1000.000"));
    EXPECT_EQ(job->rpls.editState.editPointIndex, 1);
    user::Select(pane.GetTypeCombo(), 1);
    CListingPane next(*platform);
    ASSERT_TRUE(next.Create(log.get(), CListingPane::kTitleId, *job));
    EXPECT_EQ(next.GetTypeCombo().GetCurSel(), 1) << "the choice is kept";
}

}  // namespace
}  // namespace quillon
