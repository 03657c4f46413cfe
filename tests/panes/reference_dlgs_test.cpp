// The dialogs of what lies under a job: GPX tracks and wind farms.

#include <gtest/gtest.h>

#include "panes/gpx_dlgs.h"
#include "panes/wind_farm_dlgs.h"
#include "platform/headless.h"
#include "platform/text.h"
#include "platform/user_actions.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

using Texts = std::vector<std::string>;

class ReferenceDlgs : public ::testing::Test {
protected:
    template <class Control>
    static Control& Of(CDialog& dialog, UINT id) {
        return dynamic_cast<Control&>(*dialog.GetDlgItem(id));
    }
    static std::string Row(const CListCtrl& table, int row) {
        std::string line;
        for (int i = 0; i < table.GetColumnCount(); ++i) line += (i ? "|" : "") + table.GetItemText(row, i);
        return line;
    }
    void Load(const std::string& tracks) {
        drives.Write("C:\\Jobs\\day.gpx", "<gpx>" + tracks + "</gpx>");
        ASSERT_TRUE(gpx.Load("C:\\Jobs\\day.gpx"));
    }

    ScratchDrives drives;
    HeadlessPlatform platform{drives.Root(), "Host"};
    CGPX gpx{platform.Files()};
    CWindFarmList farms{platform.Files()};
};

TEST_F(ReferenceDlgs, TracksAreTickedAndStored) {
    Load("<trk><name>A</name><trkseg><trkpt lat='1' lon='2'/></trkseg></trk><trk><name>B</name></trk>");
    gpx.tracks[1].show = false;
    gpx.trackColour = 0;
    CGpxTracksDlg dialog(platform);
    dialog.SetData(&gpx);
    platform.AnswerDialog([&](CDialog& shown) {
        auto& list = Of<CListCtrl>(shown, CGpxTracksDlg::kTracks);
        auto& button = Of<CButton>(shown, CGpxTracksDlg::kSelectAll);
        EXPECT_EQ(Row(list, 0) + " " + Row(list, 1), "A|1 B|0");
        EXPECT_EQ(button.GetWindowText(), "Select ALL");
        user::Click(list, 1);
        EXPECT_TRUE(list.IsChecked(1));
        EXPECT_EQ(button.GetWindowText(), "Clear ALL");
        EXPECT_EQ(drives.Read("C:\\Jobs\\day.INI"), "Waypoints = 1\r\nA = 1\r\nB = 1\r\n");
        user::Press(button);
        EXPECT_FALSE(list.IsChecked(0));
        EXPECT_EQ(drives.Read("C:\\Jobs\\day.INI"), "Waypoints = 1\r\nA = 1\r\nB = 1\r\n") << "no file by the button";
        user::Check(Of<CCheckBox>(shown, CGpxTracksDlg::kShowDots), true);
        user::Select(Of<CItemList>(shown, CGpxTracksDlg::kColour), 1);
        user::Dismiss(shown);
    });
    dialog.DoModal();
    EXPECT_EQ(drives.Read("C:\\MySettings\\Host\\GPX_DATA.INI"),
              "File Path = C:\\Jobs\\day.gpx\r\nTrack Colour = " + Format("%u", kPalette[1].colour) +
                  "\r\nShow Dots = 1\r\n");
    gpx.Clear();
    CGpxTracksDlg empty(platform);
    empty.SetData(&gpx);
    platform.AnswerDialog([&](CDialog& shown) {
        user::Press(Of<CButton>(shown, CGpxTracksDlg::kSelectAll));
        EXPECT_EQ(Of<CButton>(shown, CGpxTracksDlg::kSelectAll).GetWindowText(), "Select ALL");
        user::Dismiss(shown);
    });
    empty.DoModal();
}

TEST_F(ReferenceDlgs, ATrackListsItsLegs) {
    Load(
        "<trk><name>A</name><trkseg><trkpt lat='0' lon='0'><time>2000-01-02T00:00:01Z</time></trkpt>"
        "<trkpt lat='0' lon='1'><time>2000-01-03T01:01:02Z</time></trkpt></trkseg></trk>"
        "<rte><name>B</name><rtept lat='0.5' lon='-1.25'/><rtept lat='0.5' lon='-1.25'/></rte><trk/>");
    CGpxTracksDisplayDlg dialog(platform);
    dialog.SetData(&gpx);
    platform.AnswerDialog([&](CDialog& shown) {
        const CListCtrl& table = dialog.GetTable();
        auto& combo = Of<CItemList>(shown, CGpxTracksDisplayDlg::kTrack);
        EXPECT_EQ(table.GetColumn(9).header, "Track\nAverage\nSpeed");
        EXPECT_EQ(Row(table, 0), "02 Jan 2000|00:00:01|00\xB0 00'.0000N|000\xB0 00'.0000E|090.0\xB0|60.108|2.403|||");
        EXPECT_EQ(Row(table, 1),
                  "03 Jan 2000|01:01:02|00\xB0 00'.0000N|001\xB0 00'.0000E||||60.108|1 Day 01:01:01|2.403");
        user::Select(combo, 1);
        EXPECT_EQ(table.GetColumnCount(), 0) << "a track without points";
        user::Select(combo, 2);
        EXPECT_EQ(Row(table, 0), "00\xB0 30'.0000N|001\xB0 15'.0000W|000.0\xB0|0.000|") << "no times, five columns";
        user::Dismiss(shown);
    });
    dialog.DoModal();
    struct Row {
        double seconds;
        const char* text;
    };
    for (const auto& [seconds, text] : std::initializer_list<Row>{{90061, "1 Day 01:01:01"},
                                                                  {61, "01:01"},
                                                                  {3600, "01:00:00"},
                                                                  {172800 + 59, "2 Days 00:59"},
                                                                  {0, "00:00"}}) {
        EXPECT_EQ(TotalTimeText(seconds), text);
    }
}

TEST_F(ReferenceDlgs, WindFarmsAreChosenFoundAndListed) {
    TurbineDef turbine;
    turbine.farm = "North";
    turbine.title = "64 turbines";
    for (const char* const id : {"A1", "A2"}) {
        turbine.id = id;
        turbine.remarks = std::string("about ") + id;
        turbine.maxHeight = id[1] == '1' ? 180.5f : kUnknownFloat;
        turbine.fogSignal = "Horn";
        farms.turbines.push_back(turbine);
    }
    farms.farms = {{"South", {1, 1}, {}}, {"North", {0.5, 0.25}, {}}};

    CWindFarmDlg options(platform);
    options.SetData(&farms);
    platform.AnswerDialog([&](CDialog& shown) {
        user::Check(Of<CCheckBox>(shown, CWindFarmDlg::kTurbines), false);
        user::Select(Of<CItemList>(shown, CWindFarmDlg::kBoundaryColour), 2);
        user::Accept(shown);
    });
    EXPECT_EQ(options.DoModal(), IDOK);
    EXPECT_EQ(drives.Read("C:\\MySettings\\Host\\WindFarms.INI"),
              "Display Turbines = 0\r\nLabel Turbines = 0\r\nColour Turbines = 16711680\r\nDisplay Boundary = 1\r\n"
              "Label Wind Farm = 1\r\nColour Boundary = " +
                  Format("%u", kPalette[2].colour) + "\r\n");
    CWindFarmList next(platform.Files());
    next.ReadSettings();
    EXPECT_FALSE(next.displayTurbines);

    CFindWindFarm find(platform);
    find.SetData(&farms);
    platform.AnswerDialog([&](CDialog& shown) { user::Accept(shown); });
    EXPECT_EQ(find.DoModal(), IDCANCEL) << "nothing chosen";
    platform.AnswerDialog([&](CDialog& shown) { user::DoubleClick(Of<CListBox>(shown, CFindWindFarm::kNames), 1); });
    EXPECT_EQ(find.DoModal(), IDOK);
    EXPECT_EQ(find.GetFound(), (tagXY{0.5, 0.25}));

    CWindFarmTurbinesDlg list(platform);
    list.SetData("North", "A1", &farms);
    platform.AnswerDialog([&](CDialog& shown) {
        EXPECT_EQ(shown.GetWindowText(), "North Wind Farm (64 turbines)");
        EXPECT_EQ(list.GetTable().GetSelection(), 1) << "the later turbine stands on top";
        EXPECT_EQ(list.GetTable().GetItemText(1, 3) + "," + list.GetTable().GetItemText(0, 3), "180.5,");
        EXPECT_EQ(list.GetTable().GetItemText(0, 6), "Horn");
        auto& remarks = Of<CEdit>(shown, CWindFarmTurbinesDlg::kRemarks);
        EXPECT_EQ(remarks.GetWindowText(), "about A1");
        user::Click(list.GetTable(), 0);
        EXPECT_EQ(remarks.GetWindowText(), "about A2");
        user::Dismiss(shown);
    });
    list.DoModal();
}

}  // namespace
}  // namespace quillon
