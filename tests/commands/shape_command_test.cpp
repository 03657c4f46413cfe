#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commands/cli_run.h"
#include "support/shape_bytes.h"

namespace quillon {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

class ShowShape : public testing::Test {
protected:
    ShowShape() {
        ShapeBytes coast(3);
        coast.AddPaths(3, {{{5, 60}, {5.5, 60}}, {{6, 61}}});
        coast.AddNull();
        coast.SetBounds({5, 60}, {6, 61});
        drives.Write("C:\\Charts\\coast.shp", coast.Shp());
        drives.Write("C:\\Charts\\coast.shx", coast.Shx());
        drives.Write("C:\\Charts\\coast.dbf", DbaseBytes({"ID", "TEXTSTRING"}, {{"1", "a"}, {"2", "b"}}));
    }

    ScratchDrives drives;
};

TEST_F(ShowShape, PrintsHeadProjectionAndReport) {
    const CliOutcome run = RunOn(drives, {"show", "shape", "C:\\Charts\\coast.shp", "--json"});
    EXPECT_THAT(
        run.out,
        StartsWith("{\"path\": \"C:\\\\Charts\\\\coast.shp\", \"name\": \"coast\", \"records\": 2, \"shape_type\": 3, "
                   "\"bounds_min\": [5, 60, 0, 0], \"bounds_max\": [6, 61, 0, 0], \"geographic\": true, "
                   "\"columns\": [\"ID\", \"TEXTSTRING\"], \"label_column\": 1, "
                   "\"ellipsoid\": {\"name\": \"WGS84\", \"a\": 6378137, \"inverse_flattening\": 298.257223563}, "
                   "\"grid\": {\"name\": "));
    EXPECT_THAT(run.out, HasSubstr("\"null_records\": 1, \"total_length\": 14"));
    EXPECT_THAT(run.out,
                HasSubstr("\"report\": {\"records\": 2, \"taken\": 1, \"passed_over_count\": 1, \"passed_over\": [\n"
                          "{\"line\": 2, \"reason\": \"a null record\"}\n]}, \"units\": {"));
    EXPECT_EQ(run.err, "C:\\Charts\\coast.shp: 2 records, 1 taken\n  record 2: a null record\n");
    EXPECT_EQ(run.code, CLI_OK);
    EXPECT_EQ(drives.Read("C:\\Charts\\coast.INI"), "(none)") << "looking at a file writes none";
}

TEST_F(ShowShape, ListsRecords) {
    const CliOutcome json = RunOn(drives, {"show", "shape", "C:\\Charts\\coast.shp", "--json", "--records"});
    EXPECT_THAT(json.out, HasSubstr("\"records\": [\n{\"type\": 3, \"vertices\": 3, \"parts\": 2, \"length\": 14"));
    EXPECT_THAT(json.out, HasSubstr("{\"type\": 0, \"vertices\": 0, \"parts\": 0, \"length\": 0}\n]"));
    const CliOutcome text = RunOn(drives, {"show", "shape", "C:\\Charts\\coast.shp", "--records"});
    EXPECT_THAT(text.out, HasSubstr("Shape type                3  polyline\n"));
    EXPECT_THAT(text.out, HasSubstr("Columns                   ID, TEXTSTRING\n"));
    EXPECT_THAT(text.out, HasSubstr("\n       2             0             0             0         0.000\n"));
}

TEST_F(ShowShape, SaysWhatIsMissing) {
    const CliOutcome run = RunOn(drives, {"show", "shape", "C:\\Charts\\none.shp", "--json"});
    EXPECT_EQ(run.err,
              "C:\\Charts\\none.shp: 0 records, 0 taken\n  there is no .shp file\n"
              "C:\\Charts\\none.shp: can't be read\n");
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.code, CLI_USELESS);
}

}  // namespace
}  // namespace quillon
