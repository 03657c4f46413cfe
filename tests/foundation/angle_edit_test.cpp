#include "foundation/angle_edit.h"

#include <gtest/gtest.h>

#include <random>

#include "foundation/angle_text.h"
#include "foundation/typed_keys.h"
#include "foundation/values.h"
#include "platform/text.h"

namespace quillon {
namespace {

void Play(tagEditText& edit, int type, int format, std::string_view keys) {
    const CAngleTyping typing(type, format);
    PlayKeys(
        keys, [&](char key) { typing.Type(edit, key); },
        [&](std::string_view name) {
            ASSERT_EQ(name, "ALL");
            edit.SelectAll();
        },
        [&](std::size_t from, std::size_t to) {
            edit.from = from;
            edit.to = to;
        });
}

struct Scenario {
    int type, format;
    const char* text;  // "d" for the degree sign; all selected at first
    const char* keys;
    const char* expected;  // the caret as "|"
};

void Check(const Scenario& row) {
    tagEditText edit{Replace(row.text, "d", "\xB0")};
    edit.SelectAll();
    Play(edit, row.type, row.format, row.keys);
    EXPECT_EQ(Replace(ShowEdit(edit), "\xB0", "d"), row.expected)
        << row.text << " typed " << row.keys << " type " << row.type << " format " << row.format;
}

TEST(AngleEdit, TypesWholeAngles) {
    const Scenario rows[] = {
        {5, 1, "", "5230", "52d 30'.|0000000N"},
        {5, 1, "", "52301234567s", "52d 30'.1234567S|"},
        {5, 1, "12d 34'.5678N", "5230", "52d 30'.|0000N"},  // keeps its four decimals
        {6, 0, "", "0011530.5w", "001d 15' 30\".50000W|"},
        {2, 2, "n/a", "1235", "123d.5|00000000"},
        {2, 4, "", "123", "123g.|000000000"},
        {1, 1, "", "-1230", "-123d 0|0'.0000000"},
        {1, 1, "", "-12301", "-123d 01'.|0000000"},
        {9, 0, "", "+0850102", "+085d 01' 02\".|00"},
        {3, 3, "+5d.5", "-45", "-45d.|0"},
        {5, 3, "", "-521", "-52d.1|00000000"},
        {6, 2, "", "17912w", "179d.120000000W|"},
    };
    for (const Scenario& row : rows) Check(row);
}

TEST(AngleEdit, HoldsTheLargestValue) {
    const Scenario rows[] = {
        {2, 1, "123d 45'.6", "<0>36", "360d 00'.0|"},  // exactly 360: all behind is zero
        {6, 1, "123d 45'.6W", "<0>18", "180d 00'.0|W"},
        {5, 1, "12d 34'.5S", "<0>9", "90d 00'.0|S"},
        {1, 0, "-123d 45' 06\".7", "<1>18", "-180d 00' 00\".0|"},
        {2, 4, "123g.4", "<0>4", "400g.0|"},
        {1, 4, "+123g.4", "<1>2", "+200g.0|"},
        {5, 4, "012g.3N", "<0>1", "100g.0|N"},
        // The second digit depends on the first.
        {2, 1, "200d 00'.0", "<1>7", "27|0d 00'.0"},
        {2, 1, "300d 00'.0", "<1>7", "3|00d 00'.0"},
        {1, 1, "+000d 00'.0", "<2>8", "+08|0d 00'.0"},
        {1, 1, "+100d 00'.0", "<2>9", "+1|00d 00'.0"},
        {5, 1, "00d 00'.0N", "<0>89", "89d |00'.0N"},
        // Minutes and seconds end at 59.
        {2, 0, "000d 00' 00\".0", "<5>6", "000d |00' 00\".0"},
        {2, 0, "000d 00' 00\".0", "<5>595999", "000d 59' 59\".9|"},
        // A digit before the others lets them give way rather than pass the end of the range.
        {6, 1, "095d 30'.0E", "<0>1", "1|05d 30'.0E"},
        {2, 1, "295d 30'.0", "<0>3", "3|05d 30'.0"},
        {2, 1, "260d 30'.0", "<0>3", "3|00d 30'.0"},
        {6, 1, "180d 00'.0E", "<2>5", "18|0d 00'.0E"},
        {6, 1, "180d 00'.0E", "<8>5", "180d 00'|.0E"},
        // Where a text from outside lies beyond the range it can still be mended.
        {6, 1, "195d 30'.0E", "<2>4", "194d |30'.0E"},
    };
    for (const Scenario& row : rows) Check(row);
}

TEST(AngleEdit, StepsAndMarks) {
    const Scenario rows[] = {
        {5, 1, "12d 34'.5N", "<0> ", "1|2d 34'.5N"},
        {5, 1, "12d 34'.5N", "<1> ", "12d |34'.5N"},
        {5, 1, "12d 34'.5N", "<8> ", "12d 34'.5|N"},
        {5, 1, "12d 34'.5N", "<9>  ", "12d 34'.5N|"},
        {5, 1, "12d 34'.5N", "<0>.", "12d 34'.|5N"},
        {5, 1, "12d 34'.5N", "<0>'", "12d 34'.|5N"},
        {5, 0, "12d 34' 56\".7N", "<0>'", "12d 34' |56\".7N"},
        {5, 0, "12d 34' 56\".7N", "<0>\"", "12d 34' 56\".|7N"},
        {5, 1, "12d 34'.5N", "<8>'", "12d 34'.|5N"},      // none behind
        {5, 1, "12d 34'.5N", "<2-5>\"", "12[d 3]4'.5N"},  // ignored: the selection stays
        {5, 1, "12d 34'.5N", "<2>7", "12|d 34'.5N"},      // no digit's place
        {5, 1, "12d 34'.5N", "<9>7", "12d 34'.5|N"},
        {5, 1, "12d 34'.5N", "<10>7", "12d 34'.5N|"},
        {5, 1, "12d 34'.5N", "<0>x+-", "|12d 34'.5N"},
        {5, 1, "12d 34'.5N", "<0>s", "12d 34'.5S|"},
        {5, 1, "12d 34'.5N", "<0>ew", "|12d 34'.5N"},
        {6, 1, "012d 34'.5E", "<0>WnS", "012d 34'.5W|"},
        {2, 1, "012d 34'.5", "<0>nsew", "|012d 34'.5"},
        {1, 1, "+012d 34'.5", "<0>-", "-|012d 34'.5"},
        {1, 1, "-012d 34'.5", "<0>+", "+|012d 34'.5"},
        {1, 1, "+012d 34'.5", "<1>-", "+|012d 34'.5"},
        {5, 3, "012d.5", "<0>-", "-|12d.5"},
        {5, 3, "-12d.5", "<0>+", "0|12d.5"},
        {5, 3, "012d.5", "<6>s", "-12d.5|"},
        {5, 3, "-12d.5", "<6>n", "012d.5|"},
        {6, 3, "0012d.5", "<7>w", "-012d.5|"},
        {5, 3, "012d.5", "<0>7", "|012d.5"},   // the sign's place takes no digit
        {1, 3, "+05d.5", "<1>7", "+07|5d.5"},  // comes with a digit less than it can have
    };
    for (const Scenario& row : rows) Check(row);
}

TEST(AngleEdit, Backspace) {
    const Scenario rows[] = {
        {5, 1, "12d 34'.5S", "<10><BS>", "12d 34'.5|N"},
        {6, 1, "012d 34'.5W", "<11><BS><BS>", "012d 34'.|0E"},
        {5, 1, "12d 34'.5S", "<8><BS>", "12d 3|0'.5S"},
        {5, 1, "12d 34'.5S", "<4><BS>", "1|0d 34'.5S"},
        {5, 1, "12d 34'.5S", "<0><BS>", "|12d 34'.5S"},
        {5, 1, "12d 34'.5S", "<ALL><BS>", "|00d 00'.0N"},
        {5, 1, "12d 34'.5S", "<0-2><BS>", "|00d 34'.5S"},
        {5, 1, "12d 34'.5S", "<4-9>1", "12d 1|0'.0S"},
        {5, 1, "12d 34'.5S", "<4-5>1", "12d 1|4'.5S"},
        {2, 1, "123d 45'", "<8><BS>", "123d 4|0'"},
        // A sign comes back as plus.
        {1, 1, "-012d 34'.5", "<1><BS>", "|+012d 34'.5"},
        {5, 3, "-12d.5", "<1><BS>", "|012d.5"},
        {2, 2, "359d.5", "<BS>245", "245d.|0"},
        {4, 2, "123d.5", "<BS>", "|000d.0"},
    };
    for (const Scenario& row : rows) Check(row);
}

/// The text with every digit as "0", letters as N or E and signs as their place.
std::string ShapeOf(std::string text) {
    for (char& c : text) {
        if (IsDigit(c)) c = '0';
        if (c == 'S') c = 'N';
        if (c == 'W') c = 'E';
    }
    if (!text.empty() && text.front() == '-') text.front() = '+';
    return text;
}

double WholeDegrees(const std::string& text, std::size_t first) {
    std::string digits;
    for (std::size_t i = first; i < text.size() && IsDigit(text[i]); ++i) digits += text[i];
    return Atof(digits);
}

// Whatever is typed, the text keeps the shape of an angle, the caret stays inside, and the range holds.
TEST(AngleEdit, AnyKeysKeepTheShape) {
    std::mt19937 random(11);
    constexpr std::string_view kKeys = "0123456789012345678901234567890123456789 .'\"+-nsewNSEWx\b\b\b\b\x03\x16\x18";
    const double largest[] = {0, 180, 360, 90, 180, 90, 180, 360, 90, 180};
    for (int round = 0; round < 900; ++round) {
        const int type = 1 + round % 9;
        const int format = round / 9 % 5;
        const double end = largest[type] / (format == ANGLE_GRADS ? 0.9 : 1.0);
        const bool hasSignPlace = format == ANGLE_SIGNED_DEGREES && (type == 5 || type == 6);
        tagEditText edit{FormatAngle(0.5, type, format, static_cast<int>(random() % 5))};
        const CAngleTyping typing(type, format);
        typing.Type(edit, ' ');  // brings the text to its full width
        std::string shape = ShapeOf(edit.text);
        if (hasSignPlace) shape.front() = '+';
        for (int i = 0; i < 200; ++i) {
            if (random() % 8 == 0) edit.from = random() % (edit.text.size() + 3);
            if (random() % 8 == 0) edit.to = random() % (edit.text.size() + 3);
            const char key = kKeys[random() % kKeys.size()];
            if (!typing.Type(edit, key)) continue;
            std::string now = ShapeOf(edit.text);
            if (hasSignPlace) now.front() = '+';
            ASSERT_EQ(now, shape) << "type " << type << " format " << format;
            ASSERT_TRUE(edit.from == edit.to && edit.to <= edit.text.size());
            const std::size_t first = hasSignPlace || shape.front() == '+' ? 1 : 0;
            ASSERT_LE(WholeDegrees(edit.text, first), end) << edit.text;
            if (WholeDegrees(edit.text, first) == end) {
                ASSERT_EQ(edit.text.find_first_of("123456789", first + 3), std::string::npos) << edit.text;
            }
        }
    }
}

}  // namespace
}  // namespace quillon
