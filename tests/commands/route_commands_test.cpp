#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "commands/cli_run.h"
#include "platform/drives_lock.h"

namespace quillon {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* kFile = "C:\\Job\\transit.csv";
constexpr const char* kOrderFile = "C:\\MySettings\\Quillon\\transit_DATA_ORDER.INI";
constexpr const char* kGoOn = "left as it is; give --yes to rewrite it all the same\n";

class RewriteRoute : public testing::Test {
protected:
    CliOutcome Run(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"route", "rewrite", kFile});
        return RunOn(drives, std::move(arguments));
    }

    ScratchDrives drives;
};

TEST_F(RewriteRoute, KeepsPointsAndNamesInTheNewOrder) {
    drives.Write(kFile, "451000.123, 6712000\n451300 6712400\n\n");
    const CliOutcome named = Run({"--order", "1"});
    EXPECT_EQ(named.code, CLI_OK) << named.err;
    EXPECT_EQ(named.out, "C:\\Job\\transit.csv: 2 points written as Name, Easting, Northing\n");
    EXPECT_EQ(drives.Read(kFile), "WPT 1, 451000.123, 6712000.000\r\nWPT 2, 451300.000, 6712400.000\r\n");
    EXPECT_EQ(drives.Read(kOrderFile), "Data Order = 1\r\n");

    // The order just stored is the one that it is read by now.
    EXPECT_EQ(Run({"--order", "2"}).code, CLI_OK);
    EXPECT_EQ(drives.Read(kFile), "451000.123, 6712000.000, WPT 1\r\n451300.000, 6712400.000, WPT 2\r\n");
}

TEST_F(RewriteRoute, AsksBeforeAnythingIsLost) {
    struct Row {
        const char* bytes;
        std::vector<std::string> arguments;
        const char* said;
        const char* after;
    };
    const std::vector<Row> rows = {
        {"Transit\n1, 2\n0, 0\n3, 4\n",
         {"--order", "0"},
         "  2 lines without a point\n  line 1: Transit\n  line 3: 0, 0\n",
         "1.000, 2.000\r\n3.000, 4.000\r\n"},
        {"Pilot, 1, 2\nB, 3.0001, 4\n",
         {"--from", "1", "--order", "0"},
         "  2 names\n  1 positions with more than 3 decimals\n  line 1: Pilot, 1, 2\n  line 2: B, 3.0001, 4\n",
         "1.000, 2.000\r\n3.000, 4.000\r\n"},
        {"Pilot, 1, 2\n",
         {"--order", "1"},
         "  1 lines with text that belongs to no field\n  line 1: Pilot, 1, 2\n",
         "WPT 1, 1.000, 2.000\r\n"},
    };
    for (Row row : rows) {
        drives.Write(kFile, row.bytes);
        std::filesystem::remove(drives.Files().Native(kOrderFile));
        const CliOutcome refused = Run(row.arguments);
        EXPECT_EQ(refused.code, CLI_USELESS) << row.bytes;
        EXPECT_THAT(refused.err, HasSubstr(row.said));
        EXPECT_THAT(refused.err, testing::EndsWith(kGoOn));
        EXPECT_THAT(refused.out, IsEmpty());
        EXPECT_EQ(drives.Read(kFile), row.bytes);
        EXPECT_EQ(drives.Read(kOrderFile), "(none)");

        row.arguments.emplace_back("--yes");
        const CliOutcome done = Run(row.arguments);
        EXPECT_EQ(done.code, CLI_OK) << row.bytes;
        EXPECT_THAT(done.err, HasSubstr(row.said));
        EXPECT_EQ(drives.Read(kFile), row.after);
        EXPECT_THAT(done.out, testing::EndsWith("kept as it was: C:\\Job\\transit (original).csv\n"));
        EXPECT_EQ(drives.Read("C:\\Job\\transit (original).csv"), row.bytes);
        std::filesystem::remove(drives.Files().Native("C:\\Job\\transit (original).csv"));
    }
}

TEST_F(RewriteRoute, LeavesAFileThatItCantReadOrWrite) {
    EXPECT_EQ(Run({"--order", "1"}).code, CLI_USELESS);
    drives.Write(kFile, "no positions here\n");
    EXPECT_EQ(Run({"--order", "1", "--yes"}).code, CLI_USELESS);
    EXPECT_EQ(drives.Read(kFile), "no positions here\n");

    // Another writer has it: the data file stands, and the order that it is read by stands with it.
    drives.Write(kFile, "1, 2\n");
    CStdioFile other(drives.Files());
    ASSERT_TRUE(other.OpenForWriting(kFile));
    const CliOutcome run = Run({"--order", "1"});
    EXPECT_EQ(run.code, CLI_USELESS);
    EXPECT_THAT(run.err, HasSubstr("can't be written: another program is writing it"));
    EXPECT_EQ(drives.Read(kFile), "1, 2\n");
    EXPECT_EQ(drives.Read(kOrderFile), "Data Order = 0\r\n");

    other.Close();

    // The workbench is at work on these drives.
    DrivesLock workbench(drives.Root(), "Workbench");
    ASSERT_TRUE(workbench.Take());
    EXPECT_THAT(Run({"--order", "1"}).err, HasSubstr("in use by Workbench, process "));
    EXPECT_EQ(drives.Read(kFile), "1, 2\n");
    workbench.Release();

    EXPECT_EQ(Run({}).code, CLI_USAGE);
    EXPECT_EQ(Run({"--order", "3"}).code, CLI_USAGE);
}

}  // namespace
}  // namespace quillon
