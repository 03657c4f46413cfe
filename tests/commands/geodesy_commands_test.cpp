#include "geodesy_commands.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <string>
#include <vector>

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
             Case{"grid forward --type 0 --zone 31", "0 0\n", "0.0000 0.0000\n", "no position"},
             Case{"grid forward --type 0 --zone 31", "abc\n\n52 3 1\n1e9 3\n52 3x\nnan 3\n+52. 3e0\n",
                  "nan nan\nnan nan\nnan nan\nnan nan\nnan nan\nnan nan\n500000.0000 5761038.2131\n", "bad lines"},
             Case{"grid forward --type 0 --zone 31", "", "", "nothing"},
             Case{"ellipsoid distance --index 17",
                  "-37.951033416667 144.424867888889 -37.652821138889 143.926495527778\n0 10 0 10\n",
                  "54972.2711\n0.0000\n", "two lines of Victoria"},
         }) {
        const Outcome outcome = Run(c.arguments, c.input);
        EXPECT_EQ(outcome.out, c.out) << c.why;
        EXPECT_EQ(outcome.result, CLI_OK) << c.why << ": " << outcome.err;
    }
    EXPECT_EQ(Run("grid forward --type 0 --zone 31", "52 3\n52;3\n").err, "line 2: not a position: 52;3\n");
}

TEST_F(GeodesyCommandsTest, WrongUsageIsTold) {
    for (const char* arguments : {"grid forward --type 0 --zone 62", "grid forward --type 15 --zone 0",
                                  "grid forward --zone 3", "grid forward --type 0 --zone -1",
                                  "grid forward --type 0 --zone 3 --ellipsoid 53", "grid info --type x --zone 1",
                                  "grid list --type 15", "ellipsoid distance --index -1", "grid", "ellipsoid", "gsb"}) {
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

    drives.Write("C:\\short.gsb", GsbBytes{}.Make().substr(0, 400));
    drives.Write("C:\\text.gsb", std::string(1000, '\1'));
    for (const char* arguments : {"gsb C:/short.gsb", "gsb C:/text.gsb", "gsb C:/none.gsb"}) {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.result, CLI_USELESS) << arguments;
        EXPECT_EQ(outcome.out, "") << arguments;
        EXPECT_NE(outcome.err.find(".gsb: "), std::string::npos) << arguments;
    }
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
    const auto bad = lines.Run([&](std::span<const std::span<double>> columns) {
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
