#include "geodesy/grid_to_grid.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <filesystem>
#include <memory>
#include <string>

#include "geodesy/gsb_bytes.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

constexpr const char* kForward = "C:\\Programs\\OSTN15_NTv2_ETRStoOSGB.gsb";
constexpr const char* kSettings = "C:\\MySettings\\Host\\NTv2.INI";
constexpr const char* kReverse = "C:\\Programs\\OSTN15_NTv2_OSGBtoETRS.gsb";

class GridToGridTest : public testing::Test {
protected:
    ScratchDrives drives;
};

TEST_F(GridToGridTest, LoadsTheOstnPairBesideTheProgram) {
    drives.Write(kForward, GsbBytes{.count = 6}.Make());
    drives.Write(kReverse, GsbBytes{.majorT = 6378388, .minorT = 6356911.9461279465, .wLong = -6900}.Make());
    FileSystem quoted(drives.Root(), "\"C:\\Programs\\Host.exe\"");
    for (FileSystem* system : {&drives.Files(), &quoted}) {
        COstnShift ostn;
        ostn.Load(*system);
        ASSERT_TRUE(ostn.forwardNodes && ostn.reverseNodes);
        EXPECT_EQ(ostn.forwardNodes->size(), 6u);
        EXPECT_EQ(ostn.reverseNodes->size(), 4u);
        EXPECT_EQ(ostn.columns, 101) << "100 spacings of 3 seconds";
        EXPECT_EQ(ostn.window.eLong, -7200);
        EXPECT_EQ(ostn.window.latInc, 300);
        EXPECT_NEAR(ostn.fromSpheroid.e2, 0.006670540, 1e-9) << "Airy";
        EXPECT_NEAR(ostn.toSpheroid.e2, 2 / 297.0 - 1 / (297.0 * 297.0), 1e-12) << "International";
        // The arc to 49 N by the same ellipsoids' constants.
        CEllipsoid airy;
        airy.SetEllipsoid(0);
        EXPECT_NEAR(ostn.fromSpheroid.M49, airy.MeridianArc(0.855211333477207), 0.01);
    }
}

TEST_F(GridToGridTest, HalfAPairIsNone) {
    const std::string whole = GsbBytes{}.Make();
    struct Case {
        const char* what;
        std::string forward, reverse;
    };
    for (const Case& pair : {Case{"nothing", "", ""}, Case{"the first only", whole, ""},
                             Case{"the second only", "", whole}, Case{"a short second", whole, whole.substr(0, 400)},
                             Case{"a second of a false count", whole, GsbBytes{.count = 1 << 30, .nodes = 4}.Make()}}) {
        drives.Write(kForward, pair.forward);
        drives.Write(kReverse, pair.reverse);
        COstnShift ostn;
        ostn.Load(drives);
        EXPECT_TRUE(ostn.forwardHeader.IsEmpty() && ostn.reverseHeader.IsEmpty()) << pair.what;
        EXPECT_FALSE(ostn.forwardNodes || ostn.reverseNodes) << pair.what;
        EXPECT_EQ(ostn.columns, 0) << pair.what;
    }
}

TEST_F(GridToGridTest, ColumnsOfSenselessWindowsStayInRange) {
    struct Case {
        double eLong, wLong, longInc;
        std::int32_t columns;
    };
    std::chrono::seconds age{0};
    for (const Case& window : {Case{0, 300, 3, 101}, Case{0, 299, 3, 100}, Case{0, 65536, 1, 1}, Case{0, -1, 1, 65536},
                               Case{0, 300, 0, 1}, Case{0, 1e300, 1, 1}, Case{0, 0, 0, 1}}) {
        drives.Write(kForward, GsbBytes{}.Make());
        drives.Write(kReverse,
                     GsbBytes{.eLong = window.eLong, .wLong = window.wLong, .longInc = window.longInc}.Make());
        // The size is the same each time, and the clock of some file systems is coarse.
        std::filesystem::last_write_time(drives.Files().Native(kReverse), std::filesystem::file_time_type{} + ++age);
        COstnShift ostn;
        ostn.Load(drives);
        EXPECT_EQ(ostn.columns, window.columns) << window.wLong << " by " << window.longInc;
    }
}

TEST_F(GridToGridTest, LeavesTheReferencePointInTheSettings) {
    { CNTv2 ntv2(drives); }
    EXPECT_EQ(drives.Read(kSettings),
              "NAD27 Latitude = 0.0000000000000000\r\nNAD27 Longitude = 0.0000000000000000\r\n"
              "NAD83 Latitude = 0.0000000000000000\r\nNAD83 Longitude = 0.0000000000000000\r\n");
    {
        CGridToGrid conversion(drives);
        conversion.ntv2.reference = {29.5, -90.125, 29.25, -90.0625};
        auto set = std::make_unique<DataSetDef>();
        set->nodes.SetSize(3);
        conversion.ntv2.Add(std::move(set));
    }
    EXPECT_EQ(drives.Read(kSettings),
              "NAD27 Latitude = 29.5000000000000000\r\nNAD27 Longitude = -90.1250000000000000\r\n"
              "NAD83 Latitude = 29.2500000000000000\r\nNAD83 Longitude = -90.0625000000000000\r\n");
    drives.Write(kSettings, drives.Read(kSettings) + "more\r\n");
    { CNTv2 ntv2(drives); }
    EXPECT_EQ(drives.Read(kSettings).substr(0, 40), "NAD27 Latitude = 0.0000000000000000\r\nNAD");
    EXPECT_EQ(drives.Read(kSettings).find("more"), std::string::npos);
}

}  // namespace
}  // namespace quillon
