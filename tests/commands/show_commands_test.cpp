#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <ostream>
#include <set>

#include "commands/cli_run.h"
#include "support/comma_locale.h"

namespace quillon {
namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

const std::filesystem::path kData = QUILLON_TEST_DATA "/commands";

std::string BytesOf(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    EXPECT_TRUE(in) << path;
    return {std::istreambuf_iterator<char>(in), {}};
}

/// With QUILLON_REWRITE_GOLDENS set, the golden file is made anew: look at it before it is kept.
void ExpectGolden(const std::string& name, const std::string& text) {
    if (std::getenv("QUILLON_REWRITE_GOLDENS")) std::ofstream(kData / name, std::ios::binary) << text;
    EXPECT_EQ(text, BytesOf(kData / name)) << name;
}

/// A job with one file of each kind, and settings for most of them.
class ShowFiles : public testing::Test {
protected:
    ShowFiles() {
        for (const char* name : {"area", "wrecks", "export", "transit", "block", "cable"}) {
            drives.Write("C:\\Job\\" + std::string(name) + ".csv", BytesOf(kData / (std::string(name) + ".csv")));
        }
        drives.Write("C:\\Job\\area.INI", "Status = 0\r\nHighlight = 1\r\n");
        drives.Write("C:\\MyData\\Boundaries\\area.DRW",
                     "Vector Symbol = 7\r\nSymbol Size = 4\r\nColour = 33023\r\nLine Thickness = 3\r\nFill = 65535\r\n"
                     "Pen Style = 2\r\nLabel Mode = 3\r\nLabel Position = 5\r\nShow Leg Label = 1\r\n");
        drives.Write("C:\\MyData\\Routes\\transit.COR", "Display Corridor = 1\r\nPort Corridor Width = 50\r\n");
        drives.Write("C:\\MySettings\\Quillon\\wrecks_GRID_WAYPOINT.INI", "Data Order = 9\r\nUse = 1\r\n");
        drives.Write("C:\\MySettings\\Quillon\\transit_DATA_ORDER.INI", "Data Order = 2\r\n");
    }

    CliOutcome Run(std::vector<std::string> arguments) { return RunOn(drives, std::move(arguments)); }

    std::set<std::string> Everything() const {
        std::set<std::string> paths;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(drives.Root())) {
            paths.insert(entry.path().string());
        }
        return paths;
    }

    ScratchDrives drives;
};

struct ShowCase {
    const char* golden;
    std::vector<std::string> arguments;
    const char* report;  ///< what follows the file's name on the error stream

    friend std::ostream& operator<<(std::ostream& out, const ShowCase& row) { return out << row.golden; }
};

const std::vector<ShowCase>& Cases() {
    static const std::vector<ShowCase> cases = {
        {"area",
         {"boundary", "C:\\Job\\area.csv"},
         ": 6 lines, 3 taken, 3 passed over\n"
         "  line 1: no easting\n  line 4: 0, 0 stands for no position\n  line 5: no northing\n"},
        {"wrecks", {"waypoint", "C:\\Job\\wrecks.csv"}, ": 3 lines, 3 taken, 0 passed over\n"},
        {"export",
         {"pipeline", "C:\\Job\\export.csv", "--order", "1", "--port", "10.5", "--starboard", "20", "--label-kps",
          "--interval", "0.5"},
         ": 4 lines, 3 taken, 1 passed over\n  line 3: the position of the point before\n"},
        {"transit",
         {"route", "C:\\Job\\transit.csv", "--starboard", "75"},
         ": 4 lines, 3 taken, 1 passed over\n  line 3: no easting\n"},
        {"block",
         {"sail-line", "C:\\Job\\block.csv"},
         ": 4 lines, 2 taken, 2 passed over\n  line 2: 0, 0 stands for no position\n  line 4: no easting\n"},
        {"cable",
         {"rpl", "C:\\Job\\cable.csv", "--port", "20", "--starboard", "30"},
         ": 6 lines, 5 taken, 1 passed over\n  line 1: no easting\n  line 4: a negative radius; a plain corner\n"},
    };
    return cases;
}

TEST_F(ShowFiles, PrintsEachKindAsItsGoldenText) {
    const auto before = Everything();
    for (const ShowCase& row : Cases()) {
        std::vector<std::string> arguments = row.arguments;
        arguments.insert(arguments.begin(), "show");
        const CliOutcome text = Run(arguments);
        arguments.emplace_back("--json");
        const CliOutcome json = Run(arguments);
        ExpectGolden(row.golden + std::string(".txt"), text.out);
        ExpectGolden(row.golden + std::string(".json"), json.out);
        EXPECT_EQ(text.code, CLI_OK) << row;
        EXPECT_EQ(json.code, CLI_OK) << row;
        EXPECT_EQ(text.err, row.arguments[1] + row.report) << row;
        EXPECT_EQ(json.err, text.err) << row;
    }
    EXPECT_EQ(Everything(), before) << "looking at files left something behind";
}

TEST_F(ShowFiles, PrintsTheSameUnderADecimalComma) {
    const CommaLocale locale;
    if (!CommaLocale::IsSet()) GTEST_SKIP() << "no locale with a decimal comma";
    for (const ShowCase& row : Cases()) {
        std::vector<std::string> arguments = row.arguments;
        arguments.insert(arguments.begin(), "show");
        EXPECT_EQ(Run(arguments).out, BytesOf(kData / (row.golden + std::string(".txt")))) << row;
        arguments.emplace_back("--json");
        EXPECT_EQ(Run(arguments).out, BytesOf(kData / (row.golden + std::string(".json")))) << row;
    }
}

TEST_F(ShowFiles, ComputesKpsByTheOptionsGiven) {
    const CliOutcome run = Run({"show", "pipeline", "C:\\Job\\transit.csv", "--start-kp", "20", "--decreasing",
                                "--label-kps", "--interval", "0.75", "--json"});
    // Legs of 500 m and 1250 m: KPs 20, 19.5, 18.25, and labels at 19.5 and 18.75.
    EXPECT_THAT(run.out, HasSubstr("\"kp\": 18.25, "));
    EXPECT_THAT(run.out, HasSubstr("{\"kp\": 19.5, \"position\": [451300, 6712400], "));
    EXPECT_THAT(run.out, HasSubstr("{\"kp\": 18.75, \"position\": [450700, 6712850], "));
    EXPECT_EQ(run.code, CLI_OK);
}

TEST_F(ShowFiles, ReadsByTheOrderGivenInPlaceOfTheStoredOne) {
    // As positions alone, the points of the route get names by their places; the corridor is the stored one.
    const CliOutcome route = Run({"show", "route", "C:\\Job\\transit.csv", "--order", "0", "--json"});
    EXPECT_THAT(route.out, HasSubstr("\"name\": \"WPT 2\""));
    EXPECT_THAT(route.out, HasSubstr("\"port_width\": 50"));
    EXPECT_THAT(route.err, HasSubstr("4 lines, 3 taken"));
    const CliOutcome waypoints = Run({"show", "waypoint", "C:\\Job\\area.csv", "--order", "6", "--json"});
    EXPECT_THAT(waypoints.out,
                HasSubstr("{\"easting\": 451000, \"northing\": 6712000, \"height\": 0, \"radius\": null, "
                          "\"name\": \"Wpt 1\"}"));
}

TEST_F(ShowFiles, TakesNamesInUtf8AndPathsOfThisSystem) {
    drives.Write("C:\\Job\\Sm\xF8rbukk.csv", "451000, 6712000\n");
    const std::string native = (drives.Root() / "c/Job/Smørbukk.csv").string();
    for (const std::string& path : {std::string("C:\\Job\\Smørbukk.csv"), native}) {
        const CliOutcome run = Run({"show", "boundary", path, "--json"});
        EXPECT_THAT(run.out, HasSubstr("\"name\": \"Smørbukk\"")) << run.err;
        EXPECT_EQ(run.code, CLI_OK);
    }
}

TEST_F(ShowFiles, KeepsOrdersOfTheTerminalOutOfItsText) {
    drives.Write("C:\\Job\\odd.csv", "451000, 6712000, 1, \x1B[2Jgone\n");
    EXPECT_THAT(Run({"show", "waypoint", "C:\\Job\\odd.csv", "--order", "0"}).out, HasSubstr("   [2Jgone\n"));
    EXPECT_THAT(Run({"show", "waypoint", "C:\\Job\\odd.csv", "--order", "0", "--json"}).out,
                HasSubstr("\"name\": \"\\u001b[2Jgone\""));
}

TEST_F(ShowFiles, PrintsLargeFilesWhole) {
    constexpr int kPoints = 5000;
    std::string bytes;
    for (int i = 1; i <= kPoints; ++i) bytes += std::to_string(i) + ", 7\n";
    drives.Write("C:\\Job\\large.csv", bytes);
    for (const char* form : {"--json", ""}) {
        std::vector<std::string> arguments = {"show", "boundary", "C:\\Job\\large.csv"};
        if (*form) arguments.emplace_back(form);
        const std::string out = Run(arguments).out;
        EXPECT_THAT(out, HasSubstr(*form ? "{\"easting\": 2500, \"northing\": 7},\n{\"easting\": 2501, "
                                         : "    2500      2500.000         7.000\n    2501      2501.000"));
        EXPECT_THAT(
            out,
            EndsWith(*form ? "\"taken_in_part_count\": 0, \"taken_in_part\": [], \"labels_cut\": false}, \"units\": "
                             "{\"easting\": \"m\", \"northing\": \"m\"}}\n"
                           : "    5000      5000.000         7.000\n"));
    }
}

TEST_F(ShowFiles, EndsWithACodeThatSaysWhy) {
    drives.Write("C:\\Job\\empty.csv", "");
    drives.Write("C:\\MySettings\\Quillon\\block_DATA_ORDER.INI", "Data Order = 4\r\n");
    struct Row {
        std::vector<std::string> arguments;
        int code;
        const char* said;
    };
    const std::vector<Row> rows = {
        {{"show", "boundary", "C:\\Job\\none.csv"},
         CLI_USELESS,
         "C:\\Job\\none.csv: can't be read: there is no such file or folder\n"},
        {{"show", "boundary", "C:\\Job"}, CLI_USELESS, "C:\\Job: can't be read: it is a folder\n"},
        {{"show", "route", "C:\\Job\\empty.csv"}, CLI_USELESS, "empty.csv: no usable point\n"},
        {{"show", "sail-line", "C:\\Job\\block.csv"}, CLI_USELESS, "line 1: unknown data order\n"},
        {{"show", "boundary"}, CLI_USAGE, "FILE is required"},
        {{"show", "anchor", "C:\\Job\\area.csv"},
         CLI_USAGE,
         "'anchor' is no command of quillon show; there are boundary, waypoint, "},
        {{"show"}, CLI_USAGE, "quillon show needs a command; there are boundary, "},
        {{"show", "route", "C:\\Job\\transit.csv", "--order", "3"}, CLI_USAGE, "--order"},
        {{"show", "route", "C:\\Job\\transit.csv", "--port", "5,5"}, CLI_USAGE, "5,5 is not a number"},
        {{"show", "boundary", "C:\\Job\\area.csv", "--port", "5"}, CLI_USAGE, "--port"},
        {{}, CLI_USAGE, "quillon needs a command; there are show, "},
    };
    for (const Row& row : rows) {
        const CliOutcome run = Run(row.arguments);
        EXPECT_EQ(run.code, row.code) << testing::PrintToString(row.arguments);
        EXPECT_THAT(run.err, HasSubstr(row.said));
        EXPECT_THAT(run.out, IsEmpty()) << testing::PrintToString(row.arguments);
    }
}

TEST_F(ShowFiles, HelpsWithExamplesForEveryCommand) {
    const std::vector<std::vector<std::string>> commands = {{},
                                                            {"show"},
                                                            {"show", "boundary"},
                                                            {"show", "waypoint"},
                                                            {"route"},
                                                            {"show", "pipeline"},
                                                            {"show", "route"},
                                                            {"show", "sail-line"},
                                                            {"angle"},
                                                            {"route", "rewrite"}};
    for (std::vector<std::string> arguments : commands) {
        arguments.emplace_back("--help");
        const CliOutcome run = Run(arguments);
        EXPECT_EQ(run.code, CLI_OK);
        EXPECT_THAT(run.out, HasSubstr("Example")) << testing::PrintToString(arguments);
        EXPECT_THAT(run.out, HasSubstr("quillon ")) << testing::PrintToString(arguments);
    }
    EXPECT_THAT(Run({"--version"}).out, testing::MatchesRegex("quillon [0-9.]+\n"));
}

TEST(Output, ThatCantBeWrittenIsAFailure) {
    ScratchDrives drives;
    drives.Write("C:\\a.csv", "1, 2\n");
    std::istringstream in;
    std::ostringstream out;
    std::ostringstream err;
    out.setstate(std::ios::badbit);
    CliContext context(in, out, err);
    EXPECT_EQ(RunQuillon({"show", "boundary", "C:\\a.csv", "--drives", drives.Root().string()}, context), CLI_USELESS);
    EXPECT_THAT(err.str(), HasSubstr("can't be written"));
}

}  // namespace
}  // namespace quillon
