#include "geodesy_commands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

#include "angle_command.h"
#include "geodesy/gsb_bytes.h"
#include "number_lines.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

struct Outcome {
    std::string out, err;
    int result = 0;
};

class GeodesyCommandsTest : public testing::Test {
protected:
    /// Runs as the program does; `arguments` stand apart by blanks.
    Outcome Run(const std::string& arguments, const std::string& input = {}) {
        std::istringstream in(input);
        std::ostringstream out, err;
        CliContext context(in, out, err);
        context.drives = drives.Root().string();
        CLI::App app;
        app.require_subcommand(1);
        AddGeodesyCommands(app, context);
        AddAngleCommand(app, context);
        try {
            app.parse(arguments);
        } catch (const CLI::ParseError& error) {
            context.result = app.exit(error, out, err) == 0 ? CLI_OK : CLI_USAGE;
        }
        return {out.str(), err.str(), context.result};
    }

    ScratchDrives drives;
};

struct Case {
    const char* arguments;
    const char* input;
    const char* out;
    const char* why;
};

TEST_F(GeodesyCommandsTest, AnswersLineByLine) {
    for (const Case& c : {
             Case{"grid forward --type 0 --zone 31", "52 3\n", "500000.0000 5761038.2131\n", "a round position"},
             Case{"grid forward --type 0 --zone 31 --subtype 1", "-10 3\n", "500000.0000 8894587.5087\n", "the south"},
             Case{"grid forward --type 0 --zone 31 --ellipsoid 20", "52,3\r\n", "500000.0000 5761157.9810\n",
                  "UTM keeps the ellipsoid in use"},
             Case{"grid forward --type 1 --zone 0 --ellipsoid 20", "52.657570305556 1.717921583333",
                  "651409.9030 313177.2720\n", "any other row brings its own; the last line needs no end"},
             Case{"grid forward --type 12 --zone 15", "\t35   -92.5 \n", "563956.8426 74075.2367\n",
                  "1927 feet as metres"},
             Case{"grid forward --type 6 --zone 8", "52.9 172.9\n52.9 -187.1\n",
                  "256132.5169 268945.3954\n256132.5169 268945.3954\n", "Attu, west of the 180th meridian's zone"},
             Case{"grid forward --type 12 --zone 11", "52.9 172.9\n52.9 -187.1\n",
                  "170508.5987 268948.5469\n170508.5987 268948.5469\n", "the same in 1927"},
             Case{"grid forward --type 13 --zone 1", "60 9\n", "222793.4051 34239.2272\n", "northing first"},
             Case{"grid forward --type 3 --zone 5", "-29 26\n", "97444.5142 3209428.2135\n", "west and south positive"},
             Case{"grid inverse --type 0 --zone 31", "500000 5761038.2131\n166021.443 0\n",
                  "52.000000000 3.000000000\n0.000000000 -0.000000001\n", "and back"},
             Case{"grid inverse --type 6 --zone 8", "256132.5169 268945.3954\n", "52.900000000 172.900000000\n",
                  "Attu"},
             Case{"grid inverse --type 3 --zone 5", "97444.5142 3209428.2135\n", "-29.000000000 26.000000000\n",
                  "from westing and southing"},
             Case{"grid inverse --type 13 --zone 1 --subtype 2", "222793.405 34239.227\n", "59.999999992 9.000000056\n",
                  "within the bound of the axes"},
             Case{"angle --type 2 --format 2 --decimals 3", "1\n 2e0 \r\n", "057\u00B0.296\n114\u00B0.592\n", "angles"},
             Case{"grid forward --type 0 --zone 31", "", "", "nothing"},
             Case{"ellipsoid distance --index 17",
                  "-37.951033416667 144.424867888889 -37.652821138889 143.926495527778\n0 10 0 10\n",
                  "54972.2711\n0.0000\n", "two lines of Victoria"},
         }) {
        const Outcome outcome = Run(c.arguments, c.input);
        EXPECT_EQ(outcome.out, c.out) << c.why;
        EXPECT_EQ(outcome.result, CLI_OK) << c.why << ": " << outcome.err;
    }
}

struct BadCase {
    const char* arguments;
    const char* input;
    const char* out;
    const char* err;
    const char* why;
};

// A line out for each line in, each line without an answer named, and an exit code that says so.
TEST_F(GeodesyCommandsTest, NamesTheLinesWithoutAnAnswer) {
    for (const BadCase& c : {
             BadCase{"grid forward --type 0 --zone 31", "52 3\n52;3\n", "500000.0000 5761038.2131\nnan nan\n",
                     "line 2: not a position: 52;3\n", "another separator"},
             BadCase{"grid forward --type 0 --zone 31", "a\x1b[2J\n\n52 3 1\n1e9 3\n52 3x\nnan 3\n+52. 3e0\n",
                     "nan nan\nnan nan\nnan nan\nnan nan\nnan nan\nnan nan\n500000.0000 5761038.2131\n",
                     "line 1: not a position: a [2J\n", "no order reaches the terminal"},
             BadCase{"grid forward --type 0 --zone 31", "0 0\n", "nan nan\n", "line 1: no position on this grid\n",
                     "0, 0 stands for none"},
             BadCase{"grid forward --type 13 --zone 1", "60 9\n64.86 11.24\n", "222793.4051 34239.2272\nnan nan\n",
                     "line 2: no position on this grid\n", "no axis chosen, and not the one of the line before"},
             BadCase{"grid inverse --type 0 --zone 31", "x y\n500000 5761038.2131\n9e6 6e6\n",
                     "nan nan\n52.000000000 3.000000000\nnan nan\n", "line 3: outside the grid\n", "the Pacific"},
             BadCase{"ellipsoid distance", "1 2 3\n", "nan\n", "line 1: not a position: 1 2 3\n", "three numbers"},
             BadCase{"angle --type 2 --format 2 --decimals 3", "abc\n\n1\n1e999\n", "nan\nnan\n057\u00B0.296\nnan\n",
                     "line 1: not a number: abc\n", "text is no angle"},
         }) {
        const Outcome outcome = Run(c.arguments, c.input);
        EXPECT_EQ(outcome.out, c.out) << c.why;
        EXPECT_NE(outcome.err.find(c.err), std::string::npos) << c.why << ": " << outcome.err;
        EXPECT_EQ(outcome.result, CLI_USELESS) << c.why;
    }
}

TEST_F(GeodesyCommandsTest, TellsWhatAFigureMeans) {
    const struct {
        const char* arguments;
        const char* out;
        const char* err;
    } rows[] = {
        {"grid forward --type 11 --zone 3", "", "warning: Alaska (Zone 1) NAD 83 lies 11 m, at the edges 15 m"},
        {"grid forward --type 3 --zone 0", "", "columns: westing southing"},
        {"grid forward --type 13 --zone 1", "", "columns: northing (X) easting (Y)"},
        {"grid forward --help", "westing southing", ""},
        {"grid info --type 3 --zone 0", "axes          westing southing", ""},
        {"grid info --type 12 --zone 15", "FE            2000000               US survey feet", ""},
        {"grid info --type 12 --zone 15", "lon0          92                    degrees, positive west", ""},
        {"grid info --type 12 --zone 15", "W8            3.81452               L1", ""},
        {"grid info --type 12 --zone 0", "lat0          30.5\n", ""},
        {"grid list --type 12", "(FE and FN in US survey feet, lon0 positive west)", ""},
        {"grid list --type 12 --json", "\"lon0_positive\": \"west\"", ""},
    };
    for (const auto& row : rows) {
        const Outcome outcome = Run(row.arguments);
        EXPECT_NE(outcome.out.find(row.out), std::string::npos) << row.arguments << outcome.out.substr(0, 2000);
        EXPECT_NE(outcome.err.find(row.err), std::string::npos) << row.arguments << outcome.err;
    }
}

TEST_F(GeodesyCommandsTest, WrongUsageIsTold) {
    for (const char* arguments :
         {"grid forward --type 0 --zone 62", "grid forward --type 15 --zone 0", "grid forward --zone 3",
          "grid forward --type 0 --zone -1", "grid forward --type 0 --zone 3 --ellipsoid 53",
          "grid info --type x --zone 1", "grid list --type 15", "ellipsoid distance --index -1",
          "ellipsoid distance --index 31", "grid inverse --type 13 --zone 1", "grid", "ellipsoid", "gsb"}) {
        const Outcome outcome = Run(arguments, "52 3\n");
        EXPECT_EQ(outcome.result, CLI_USAGE) << arguments;
        EXPECT_EQ(outcome.out, "") << arguments;
        EXPECT_NE(outcome.err, "") << arguments;
    }
}

TEST_F(GeodesyCommandsTest, ListsTheCatalogue) {
    const std::string all = Run("grid list").out;
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 430 + 1);
    EXPECT_NE(Run("grid list --type 1 --json").out.find("\"comment\": \"(12\u00B0E C.M.)\""), std::string::npos);
    EXPECT_NE(
        Run("grid list --type 11 --json").out.find("[-0.327015517176, 0.945018968871, 7000000, -1000000, 5000000,"),
        std::string::npos);
    EXPECT_NE(Run("grid info --type 6 --zone 7").out.find("lat1          30\n"), std::string::npos);
    const std::string ellipsoids = Run("ellipsoid list").out;
    EXPECT_EQ(std::count(ellipsoids.begin(), ellipsoids.end(), '\n'), 53 + 1);
}

TEST_F(GeodesyCommandsTest, ShowsGridShiftFiles) {
    // Two rows of two nodes, from 50 N 2 E westwards.
    drives.Write("C:\\a.gsb", GsbBytes{.wLong = -6900, .longInc = 300}.Make());
    const Outcome whole = Run("gsb C:/a.gsb");
    EXPECT_EQ(whole.result, CLI_OK);
    EXPECT_NE(whole.out.find("SUB_NAME  TESTGRID\n"), std::string::npos);
    EXPECT_NE(
        whole.out.find("          3    50.083333333     1.916666667     3.000000     0.300000     0.0300     0.0030\n"),
        std::string::npos)
        << whole.out;
    EXPECT_EQ(Run("gsb --header C:/a.gsb").out.find("latitude"), std::string::npos);

    // The unit of the header's angles is the file's own to say; what its texts hold is no order to the terminal.
    std::string minutes =
        GsbBytes{.sLat = 3000, .nLat = 3005, .eLong = -120, .wLong = -115, .latInc = 5, .longInc = 5}.Make();
    minutes.replace(GS_TYPE * 16 + 8, 8, "MINUTES ");
    minutes.replace(SUB_NAME * 16 + 8, 4, "\x1b[2J");
    drives.Write("C:\\minutes.gsb", minutes);
    const std::string listed = Run("gsb C:/minutes.gsb").out;
    EXPECT_NE(listed.find("          3    50.083333333     1.916666667 "), std::string::npos) << listed;
    EXPECT_NE(listed.find("SUB_NAME   [2JGRID"), std::string::npos) << listed;
    minutes.replace(GS_TYPE * 16 + 8, 8, "FURLONGS");
    drives.Write("C:\\minutes.gsb", minutes);
    EXPECT_NE(Run("gsb C:/minutes.gsb").err.find("GS_TYPE"), std::string::npos);
}

TEST_F(GeodesyCommandsTest, TellsBrokenGridShiftFilesApart) {
    std::string bigEndian = GsbBytes{}.Make();
    std::reverse(bigEndian.begin() + 8, bigEndian.begin() + 12);
    const struct {
        std::string bytes;
        const char* reason;
    } files[] = {
        {GsbBytes{}.Make().substr(0, 300), "ends within its header"},
        {std::string(1000, '\1'), "isn't an NTv2 file"},
        {bigEndian, "is big-endian, which isn't read"},
        {GsbBytes{.count = 0, .nodes = 4}.Make(), "counts no nodes"},
        {GsbBytes{}.Make().substr(0, 400), "holds fewer nodes than it counts"},
    };
    for (const auto& file : files) {
        drives.Write("C:\\broken.gsb", file.bytes);
        const Outcome outcome = Run("gsb C:/broken.gsb");
        EXPECT_EQ(outcome.err, std::string("C:/broken.gsb: ") + file.reason + "\n");
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.result, CLI_USELESS);
    }
    EXPECT_EQ(Run("gsb C:/none.gsb").result, CLI_USELESS);
}

// Lines across the ends of blocks and batches: a block is 256 KB, a batch 4096 lines.
TEST(NumberLines, KeepsEveryLineOfALongInput) {
    std::string input;
    constexpr int kLines = 100000;
    for (int i = 0; i < kLines; ++i) input += std::to_string(i) + (i % 3 ? " 1\n" : " 1\r\n");
    input += std::string(10000, '7') + "\n5 5\n";
    std::istringstream in(input);
    std::ostringstream err;
    NumberLines lines(in, err, 2, [](std::span<const double>) { return true; });
    int next = 0;
    double last = 0;
    const auto bad = lines.Run([&](std::span<const std::span<double>> columns, std::uint64_t firstLine) {
        EXPECT_EQ(firstLine, static_cast<std::uint64_t>(next) + 1);
        for (const double value : columns[0]) {
            if (next < kLines) {
                EXPECT_EQ(value, next);
            }
            last = value;
            ++next;
        }
    });
    EXPECT_EQ(next, kLines + 2);
    EXPECT_EQ(bad, 1u) << "the line without an end in sight";
    EXPECT_EQ(last, 5);
}

}  // namespace
}  // namespace quillon
