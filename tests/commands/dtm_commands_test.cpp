#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "commands/cli_run.h"

namespace quillon {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* kText = "C:\\Job\\block.xyz";
constexpr const char* kCache = "C:\\Job\\block.DTM";
constexpr const char* kJson =
    "\"columns\": 3, \"rows\": 2, \"step\": 10, \"min_easting\": 100, \"min_northing\": 200, \"max_easting\": 120, "
    "\"max_northing\": 210, \"min_depth\": -8, \"max_depth\": -5, \"cells_with_depth\": 4, ";

class DtmCommands : public testing::Test {
protected:
    DtmCommands() { drives.Write(kText, "Easting Northing Depth\n100 200 -5\n110 200 -6\n120 200 -7\n100 210 -8\n"); }
    CliOutcome Run(std::vector<std::string> arguments) { return RunOn(drives, std::move(arguments)); }

    ScratchDrives drives;
};

TEST_F(DtmCommands, ShowTheModelFromTextAndFromItsCache) {
    const CliOutcome text = Run({"show", "dtm", kText, "--json"});
    EXPECT_EQ(text.code, CLI_OK) << text.err;
    EXPECT_THAT(text.out, HasSubstr(kJson));
    EXPECT_THAT(text.out, HasSubstr("\"step_from_line\": 2, \"step_from\": [100, 200], \"step_to_line\": 3, "
                                    "\"step_to\": [110, 200], \"lines\": 5, \"taken\": 4, \"passed_over_count\": 1, "
                                    "\"passed_over\": [\n{\"line\": 1, \"reason\": \"not three numbers\"}\n]}"));
    EXPECT_EQ(text.err,
              "C:\\Job\\block.xyz: 5 lines, 4 taken, 1 passed over\n  line 1: not three numbers\n"
              "  0 samples without a depth; 0 fell into a cell that an earlier one held; 0 lie outside the array\n"
              "  step 10 m, set by line 2 and line 3\n");
    EXPECT_EQ(drives.Read(kCache), "(none)");

    const CliOutcome made = Run({"dtm", "make", kText});
    EXPECT_EQ(made.code, CLI_OK) << made.err;
    EXPECT_EQ(made.out, "C:\\Job\\block.DTM: 3 columns, 2 rows, 4 cells with a depth\n");
    const CliOutcome cache = Run({"show", "dtm", kCache, "--json"});
    EXPECT_EQ(cache.code, CLI_OK) << cache.err;
    EXPECT_THAT(cache.out, HasSubstr(kJson));

    drives.Write(kCache, drives.Read(kCache).substr(0, 1080));
    const CliOutcome cut = Run({"show", "dtm", kCache});
    EXPECT_EQ(cut.code, CLI_USELESS);
    EXPECT_THAT(cut.err, HasSubstr("cut short or damaged"));
}

TEST_F(DtmCommands, MakeOneModelOfThreeFiles) {
    drives.Write("C:\\Job\\b.xyz", "130 200 -1\n");
    drives.Write("C:\\Job\\c.xyz", "100 220 -2.345\n130 220 -3\n");
    const CliOutcome made = Run({"dtm", "make", kText, "C:\\Job\\b.xyz", "C:\\Job\\c.xyz"});
    EXPECT_EQ(made.out, "C:\\Job\\Triple.DTM: 4 columns, 3 rows, 7 cells with a depth\n") << made.err;
    EXPECT_THAT(made.err, HasSubstr("C:\\Job\\c.xyz: 2 lines, 2 taken, 0 passed over\n"));
    EXPECT_THAT(made.err, HasSubstr("set by line 2 of C:\\Job\\block.xyz and line 3 of C:\\Job\\block.xyz"));
    EXPECT_EQ(Run({"dtm", "make", kText, "C:\\Job\\gone.xyz"}).err, "C:\\Job\\gone.xyz: can't be read\n");
    EXPECT_EQ(Run({"dtm", "make", "a", "b", "c", "d"}).code, CLI_USAGE);
}

// Soundings anywhere: refused with the reason and the way out, which then works.
TEST_F(DtmCommands, RegularIsTheWayOutOfARefusal) {
    drives.Write(kText, "0 0 -5\n10.001 0.002 -6\n9.999 7 -7\n50000 40000 -8\n0.5 0.25 0\n");
    const CliOutcome refused = Run({"show", "dtm", kText, "--json"});
    EXPECT_EQ(refused.code, CLI_USELESS);
    EXPECT_THAT(refused.err, HasSubstr("too many cells: the step of 0.0019999999999988916 m makes"));
    EXPECT_THAT(refused.err, HasSubstr("quillon dtm regular"));
    EXPECT_THAT(refused.out, HasSubstr("\"cells_with_depth\": 0"));

    const std::vector<std::string> regular = {"dtm",    "regular",  kText,   "--step",           "10",
                                              "--take", "shoalest", "--out", "C:\\Job\\even.xyz"};
    const CliOutcome done = Run(regular);
    EXPECT_EQ(done.code, CLI_OK) << done.err;
    EXPECT_EQ(done.out,
              "C:\\Job\\even.xyz: 5001 columns, 4001 rows, 3 cells with a depth; 1 samples without one left out\n");
    EXPECT_THAT(drives.Read("C:\\Job\\even.xyz"), HasSubstr("\r\n5.0,5.0,-5\r\n15.0,5.0,-6\r\n"));
    const CliOutcome shown = Run({"show", "dtm", "C:\\Job\\even.xyz", "--json"});
    EXPECT_EQ(shown.code, CLI_OK) << shown.err;
    EXPECT_THAT(shown.out, HasSubstr("\"columns\": 5001, \"rows\": 4001, \"step\": 10,"));
    EXPECT_THAT(shown.out, HasSubstr("\"cells_with_depth\": 3"));

    // What is there is replaced only if the operator says so, and never the soundings themselves.
    EXPECT_THAT(Run(regular).err, HasSubstr("give --yes to replace it"));
    std::vector<std::string> onto = regular;
    onto.back() = kText;
    onto.emplace_back("--yes");
    EXPECT_THAT(Run(onto).err, HasSubstr("is the file that is read"));
    for (const char* step : {"0", "-1", "x"}) {
        std::vector<std::string> wrong = regular;
        wrong[4] = step;
        EXPECT_EQ(Run(wrong).code, CLI_USAGE) << step;
    }
}

}  // namespace
}  // namespace quillon
