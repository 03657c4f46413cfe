#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commands/cli_run.h"
#include "support/dxf_groups.h"

namespace quillon {
namespace {

using testing::EndsWith;
using testing::HasSubstr;

class DrawingCommands : public testing::Test {
protected:
    DrawingCommands() {
        drives.Write("C:\\Job\\plan.dxf", Section("ENTITIES", "0 LINE|62 5|10 5|20 6|11 7|21 8|0 TEXT|1 A"));
        drives.Write("C:\\Job\\coast.csv", "Easting,Northing,Pen\r\n1,2,0\r\n3,4.5,1\r\n");
    }
    ScratchDrives drives;
};

TEST_F(DrawingCommands, ConvertByTheExtentsThatWereChosen) {
    const CliOutcome header = RunOn(drives, {"dxf", "to-dig", "C:\\Job\\plan.dxf"});
    EXPECT_EQ(header.out, "C:\\Job\\plan.DIG: 0 records of 0 entities\n");
    EXPECT_THAT(header.err, HasSubstr("  LINE outside the extents\n"));
    EXPECT_THAT(header.err, EndsWith("quillon dxf to-dig FILE --own-extents\n"));
    EXPECT_EQ(header.code, CLI_USELESS);
    // The second time by what was kept; and back.
    for (const char* option : {"--own-extents", ""}) {
        std::vector<std::string> arguments = {"dxf", "to-dig", "C:\\Job\\plan.dxf"};
        if (*option) arguments.emplace_back(option);
        const CliOutcome own = RunOn(drives, arguments);
        EXPECT_EQ(own.out, "C:\\Job\\plan.DIG: 2 records of 1 entities\n");
        EXPECT_EQ(own.code, CLI_OK);
    }
    const CliOutcome shown = RunOn(drives, {"show", "dig", "C:\\Job\\plan.dxf", "--records", "--json"});
    EXPECT_THAT(shown.out, HasSubstr("\"display\": true, \"count\": 2, \"min_easting\": 5, \"min_northing\": 6, "
                                     "\"max_easting\": 7, \"max_northing\": 8, \"source_length\": "));
    EXPECT_THAT(shown.out, HasSubstr("\"records\": [\n[5, 6, -6],\n[7, 8, 6]\n]"));
    EXPECT_THAT(shown.out, HasSubstr("\"report\": {\"taken\": 2, \"passed_over\": []}"));
    EXPECT_EQ(RunOn(drives, {"dxf", "to-dig", "C:\\Job\\plan.dxf", "--header-extents"}).code, CLI_USELESS);
}

TEST_F(DrawingCommands, ShowWhatATextMakesAndWriteNothing) {
    const CliOutcome run = RunOn(drives, {"show", "dig", "C:\\Job\\coast.csv", "--json", "--records"});
    EXPECT_THAT(run.out, HasSubstr("\"records\": [\n[1, 2, -8],\n[3, 4.5, 8]\n]"));
    EXPECT_THAT(run.out, HasSubstr("\"passed_over\": [\n{\"line\": 1, \"count\": 1, \"reason\": \"no northing\"}\n]"));
    EXPECT_EQ(drives.Read("C:\\Job\\coast.DIG"), "(none)");
    for (const char* path : {"C:\\Job\\none.dig", "C:\\Job\\none.dxf"}) {
        const CliOutcome none = RunOn(drives, {"show", "dig", path});
        EXPECT_EQ(none.err, std::string(path) + ": can't be read\n");
        EXPECT_EQ(none.code, CLI_USELESS);
    }
    EXPECT_EQ(RunOn(drives, {"dxf", "to-dig", "C:\\Job\\coast.csv"}).code, CLI_USELESS);
}

}  // namespace
}  // namespace quillon
