#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commands/cli_run.h"
#include "features/wind_farm_store.h"
#include "foundation/angle_units.h"

namespace quillon {
namespace {

using testing::HasSubstr;

TEST(WindFarmCommands, AFarmComesFromSeveralFiles) {
    ScratchDrives drives;
    drives.Write(
        "C:\\Jobs\\north.csv",
        "\xEF\xBB\xBFid,substation_id,name,Longitude,Latitude,Max Height,Navigation_Lights,Fog Signal,Remarks\r\n"
        "A1,OSS,T-1,2.5,57.25,180.5,\"Fl Y, 5s\",,\"said \"\"on\"\"\nand off\"\r\n"
        "OSS,OSS,OSS,2.6,57.5,,,Horn,\r\nA2,OSS,T-2,2.7,95,,,,\r\nA3,OSS,T-3,,57,,,,\r\n");
    CliOutcome run = RunOn(drives, {"windfarm", "import", "C:\\Jobs\\north.csv", "--farm", "North Bank"});
    EXPECT_EQ(run.out, "C:\\Jobs\\north.csv: 2 turbines and 0 sites of 1 wind farms\n") << run.err;
    EXPECT_THAT(run.err, HasSubstr("2 without a position")) << run.err;
    EXPECT_THAT(run.err, HasSubstr("the first is number 5")) << "its line, behind a text of two lines";

    drives.Write("C:\\Jobs\\site.geojson", R"({"type": "FeatureCollection", "features": [
        {"type": "Feature", "properties": {"farm": "North Bank"}, "geometry": {"type": "Polygon",
         "coordinates": [[[2, 57], [4, 57], [4, 58], [2, 57]]]}},
        {"type": "Feature", "properties": {"name": "A1", "hub height": 120}, "geometry":
         {"type": "Point", "coordinates": [2.55, 57.25]}},
        {"type": "Feature", "properties": null, "geometry": {"type": "LineString", "coordinates": []}}]})");
    run = RunOn(drives, {"windfarm", "import", "C:\\Jobs\\site.geojson"});
    EXPECT_EQ(run.out, "C:\\Jobs\\site.geojson: 1 turbines and 1 sites of 1 wind farms\n") << run.err;

    CWindFarmList list(drives.Files());
    std::string fault;
    ASSERT_TRUE(ReadWindFarms(list, fault)) << fault;
    ASSERT_EQ(list.turbines.size(), 2u);
    const TurbineDef& first = list.turbines[0];
    EXPECT_EQ(first.id + " " + first.farm, "A1 North Bank");
    EXPECT_NEAR(first.longitude * kDegreesPerRadian, 2.55, 1e-12) << "the later file counts";
    EXPECT_EQ(TurbineFloatText(first.structureHeight) + "," + TurbineFloatText(first.maxHeight), "120,");
    EXPECT_EQ(list.turbines[1].fogSignal + " " + list.turbines[1].remarks, "Horn ");
    EXPECT_EQ(list.turbines[1].image, 1) << "a substation";
    ASSERT_EQ(list.farms.size(), 1u);
    ASSERT_EQ(list.farms[0].boundary.size(), 1u);
    EXPECT_NEAR(list.farms[0].position.x * kDegreesPerRadian, 3, 1e-12);
    EXPECT_THAT(RunOn(drives, {"windfarm", "list"}).out, HasSubstr("North Bank"));

    for (const char* const useless : {"lat\r\n1\r\n", "", "a,b\r\n"}) {
        drives.Write("C:\\Jobs\\none.csv", useless);
        EXPECT_EQ(RunOn(drives, {"windfarm", "import", "C:\\Jobs\\none.csv"}).code, CLI_USELESS) << useless;
    }
    drives.Write("C:\\MyData\\Wind Farms\\WindFarms.db", "no database at all, but long enough to be looked at");
    EXPECT_EQ(RunOn(drives, {"windfarm", "list"}).code, CLI_USELESS);
    EXPECT_EQ(RunOn(drives, {"windfarm", "import", "C:\\Jobs\\north.csv"}).code, CLI_USELESS);
}

}  // namespace
}  // namespace quillon
