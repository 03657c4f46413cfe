#include "foundation/delimited_line.h"

#include <gtest/gtest.h>

namespace quillon {
namespace {

TEST(DelimitedLine, TestsAndCutsAChecksum) {
    struct Row {
        const char* line;
        const char* text;
        bool matched;
    };
    for (const Row& row : {
             Row{"$GPXXX,1,2*4C\r\n", "$GPXXX,1,2", true},
             Row{"$GPXXX,1,2*3A", "$GPXXX,1,2", false},
             Row{"$A*4b", "$A", false},  // small hex digits don't match; the sum is 41 besides
             Row{"$A*41", "$A", true},
             Row{"$*00", "$", true},
             Row{"*00", "*00", false},
             Row{"$GPXXX,1,2", "$GPXXX,1,2", false},
             Row{"GPXXX,1,2*4C", "GPXXX,1,2*4C", false},
             Row{"a\rb\nc", "abc", false},
         }) {
        CDelimitedLine line;
        line.SetLine(row.line);
        EXPECT_EQ(line.GetText(), row.text);
        EXPECT_EQ(line.IsChecksumMatched(), row.matched) << row.line;
    }
}

TEST(DelimitedLine, DetectsSeparators) {
    struct Row {
        const char* line;
        const char* text;
    };
    for (const Row& row : {
             Row{"1, 2\t3 4", "1, 2\t3 4"},  // a comma settles it
             Row{"1\t\t2 3", "1,,2 3"},      // each tab counts, blanks stay
             Row{"1  2   3", "1,2,3"},       // a run of blanks is one
             Row{"  1 2 ", ",1,2,"},         // at the ends too
             Row{"abc", "abc"},              // nothing to detect
             Row{"$A  B*23\r\n", "$A,B"},    // set afresh: the sentence loses its checksum
             Row{"1\t2\r\n", "1,2\r\n"},     // not set afresh
         }) {
        CDelimitedLine line;
        line.Fill(row.line);
        EXPECT_EQ(line.DetectSeparators(), row.text);
    }
}

TEST(DelimitedLine, BuildsALineInEveryForm) {
    CDelimitedLine line;
    EXPECT_EQ(line.AddString("Wreck, old\r\n"),
              "Wreck\xAB"
              "COMMA>\xBB old\xAB"
              "CR>\xBB\xAB"
              "LF>\xBB");
    line.Fill("");
    line.AddString("Rig", true);
    line.AddNumber(500000.12349, 3);
    line.AddNumber(-0.0005, 2);
    line.AddNumber(7, 0);
    line.AddInt(-2147483647 - 1);
    line.AddLong(9223372036854775807);
    line.AddShort(-32768);
    line.AddBool(true);
    line.AddBool(false);
    line.AddString("");
    EXPECT_EQ(line.Finish(), "\"Rig\", 500000.123, -0.00, 7, -2147483648, 9223372036854775807, -32768, 1, 0, \r\n");
}

}  // namespace
}  // namespace quillon
