#include "foundation/config_file.h"

#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <tuple>
#include <vector>

#include "foundation/settings_lines.h"
#include "foundation/values.h"
#include "platform/errors.h"
#include "support/comma_locale.h"
#include "support/scratch_drives.h"

namespace quillon {

std::ostream& operator<<(std::ostream& out, const tagPen& pen) {
    return out << pen.style << ' ' << pen.thickness << ' ' << pen.colour << ' ' << pen.fill;
}

namespace {

constexpr const char* kFolder = "C:\\Job\\";

enum class KIND : std::int16_t { NONE, SOME, OTHER };

/// A record with a member of every kind, none of them at the value of a neighbour.
struct EveryForm {
    int count = 1;
    std::int16_t small = 2;
    KIND kind = KIND::SOME;
    bool use = false;
    bool show = true;
    double width = 3.5;
    COLORREF colour = 4;
    std::string name = "none";
    tagPen pen{5, 6, 7, 8};
    char letter = 'x';
    friend bool operator==(const EveryForm&, const EveryForm&) = default;
};

template <class F, class T>
void EachLine(F& lines, T& record) {
    lines.Int("Count", record.count);
    lines.Int("Small", record.small);
    lines.Int("Kind", record.kind);
    lines.Bool("Use", record.use);
    lines.Bool("Show", record.show);
    lines.Double("Width", record.width, 3);
    lines.Colour("Colour", record.colour);
    lines.Text("Name", record.name);
    lines.Pen("Pen", record.pen);
}

const EveryForm kSample = {
    -12, -32768, KIND::OTHER, true, false, 1234567.0626, 0xFFC08040, " B, 1\r\n", {-1, 2, 0x80000001, 65535}, 'x'};

const std::vector<std::string> kGolden = {"Count = -12",
                                          "Small = -32768",
                                          "Kind = 2",
                                          "Use = 1",
                                          "Show = 0",
                                          "Width = 1234567.063",
                                          "Colour = 4290805824",
                                          "Name =  B\xAB"
                                          "COMMA\xBB 1\xAB"
                                          "CR\xBB\xAB"
                                          "LF\xBB",
                                          "Pen = 2147483649, -1, 2, 65535"};

std::string Joined(const std::vector<std::string>& lines, std::size_t count) {
    std::string bytes;
    for (std::size_t i = 0; i < count; ++i) bytes += lines[i] + "\r\n";
    return bytes;
}

class ConfigFile : public testing::Test {
protected:
    ConfigFile() { drives.MakeFolder(kFolder); }

    template <class Write>
    std::string Written(Write write) {
        CConfigFile file(drives);
        EXPECT_TRUE(file.OpenForWrite(kFolder, "a"));
        write(file);
        EXPECT_TRUE(file.Commit());
        return drives.Read("C:\\Job\\a.INI");
    }

    /// The result of one read of `line`.
    template <class Read>
    auto FromLine(std::string_view line, Read read) {
        CConfigFile file(drives);
        file.OpenBytes(line);
        return read(file);
    }

    ScratchDrives drives;
};

TEST_F(ConfigFile, WritesEveryFormInItsOrder) {
    EXPECT_EQ(Written([](CConfigFile& file) { WriteLines(file, kSample); }), Joined(kGolden, kGolden.size()));
}

/// The members behind a cut keep their defaults, those before it are read; so no two lines can have changed places.
TEST_F(ConfigFile, ReadsAsFarAsTheFileGoes) {
    const EveryForm fresh;
    for (std::size_t lines = 0; lines <= kGolden.size(); ++lines) {
        EveryForm expected = kSample;
        expected.width = 1234567.063;
        if (lines < 1) expected.count = fresh.count;
        if (lines < 2) expected.small = fresh.small;
        if (lines < 3) expected.kind = fresh.kind;
        if (lines < 4) expected.use = fresh.use;
        if (lines < 5) expected.show = fresh.show;
        if (lines < 6) expected.width = fresh.width;
        if (lines < 7) expected.colour = fresh.colour;
        if (lines < 8) expected.name = fresh.name;
        if (lines < 9) expected.pen = fresh.pen;
        drives.Write("C:\\Job\\a.INI", Joined(kGolden, lines));

        EveryForm record;
        CConfigFile file(drives);
        ASSERT_TRUE(file.OpenForReadIn(kFolder, "a"));
        ReadLines(file, record);
        EXPECT_EQ(record, expected) << lines << " lines";
    }
}

TEST_F(ConfigFile, WritesAndReadsThePointUnderALocaleWithAComma) {
    const CommaLocale locale;
    if (!locale.IsSet()) GTEST_SKIP() << "no locale with a decimal comma on this machine";
    EXPECT_EQ(Written([](CConfigFile& file) { WriteLines(file, kSample); }), Joined(kGolden, kGolden.size()));
    EXPECT_EQ(FromLine("a = 1.5", [](CConfigFile& file) { return file.ReadDouble(0); }), 1.5);
}

TEST_F(ConfigFile, ReadsByPositionAndNeverLooksAtTheKey) {
    drives.Write("C:\\Job\\a.INI", "[Head]\nUse = 7\n= 8\nno value\n\nB=9");
    CConfigFile file(drives);
    ASSERT_TRUE(file.OpenForReadIn(kFolder, "a"));
    std::vector<int> values;
    for (int i = 0; i < 7; ++i) values.push_back(file.ReadInt(-1));
    EXPECT_EQ(values, (std::vector{-1, 7, 8, -1, -1, 9, -1}));
}

TEST_F(ConfigFile, ReadsNumbersFromWhateverStandsThere) {
    struct Row {
        const char* line;
        int whole;
        bool on;
        double real;
        COLORREF colour;
    };
    for (const Row& row : {
             Row{"a = 12", 12, true, 12, 12}, Row{"a=-3", -3, true, -3, 0xFFFFFFFD}, Row{"a = 0.75", 0, false, 0.75, 0},
             Row{"a = 2147483648", 2147483647, true, 2147483648.0, 0x80000000},
             Row{"a = 4294967295", 2147483647, true, 4294967295.0, 0xFFFFFFFF},
             Row{"a = 4294967297", 2147483647, true, 4294967297.0, 1}, Row{"a = 1e300", 1, true, 1e300, 0},
             Row{"a = Red", 0, false, 0, 0}, Row{"a =", 0, false, 0, 0},
             Row{"a = b = 5", 0, false, 0, 0},  // the first "=" counts
             Row{"a", 77, true, 77, 77},        // no "=": the defaults stand
         }) {
        SCOPED_TRACE(row.line);
        EXPECT_EQ(FromLine(row.line, [](CConfigFile& file) { return file.ReadInt(77); }), row.whole);
        EXPECT_EQ(FromLine(row.line, [](CConfigFile& file) { return file.ReadBool(true); }), row.on);
        EXPECT_EQ(FromLine(row.line, [](CConfigFile& file) { return file.ReadDouble(77); }), row.real);
        EXPECT_EQ(FromLine(row.line, [](CConfigFile& file) { return file.ReadColour(77); }), row.colour);
    }
}

TEST_F(ConfigFile, KeepsOddDoubles) {
    for (const double value : {MISSING_VALUE, -0.5, 0.0}) {
        double back = 1;
        drives.Write("C:\\Job\\a.INI", Written([&](CConfigFile& file) { file.WriteDouble("a", value, 16); }));
        CConfigFile file(drives);
        ASSERT_TRUE(file.OpenForReadIn(kFolder, "a"));
        back = file.ReadDouble(back);
        EXPECT_EQ(back, value);
    }
    EXPECT_EQ(FromLine("a = 1e999", [](CConfigFile& file) { return file.ReadDouble(77); }), 77);
}

TEST_F(ConfigFile, ReadsPensAsFarAsTheirCommasGo) {
    const tagPen usual{10, 11, 12, 13};
    struct Row {
        const char* line;
        tagPen pen;
    };
    for (const Row& row : {
             Row{"Pen = 255, 0, 2", {0, 2, 255, 13}},
             Row{"Pen = 255", {10, 11, 255, 13}},
             Row{"Pen = ", {10, 11, 0, 13}},
             Row{"Pen = 4294967295,1,2,3,4", {1, 2, 0xFFFFFFFF, 3}},
             Row{"Pen = ,,,", {0, 0, 0, 0}},
             Row{"Pen", usual},
             Row{"", usual},
         }) {
        EXPECT_EQ(FromLine(row.line, [&](CConfigFile& file) { return file.ReadPen(usual); }), row.pen) << row.line;
    }
}

TEST_F(ConfigFile, BringsTextsBackAsTheyWere) {
    for (const std::string& text : {std::string("a,b"), std::string("two\r\nlines"), std::string(" blank ahead"),
                                    std::string(), std::string("a = b"), std::string("\xB0 \xAB\xBB behind "),
                                    std::string("a\xAB"
                                                "COMMA>\xBB"
                                                "b")}) {
        const std::string bytes = Written([&](CConfigFile& file) { file.WriteText("Text", text); });
        EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), 1) << text;
        EXPECT_EQ(FromLine(bytes, [](CConfigFile& file) { return file.ReadText("x"); }), text);
    }
    EXPECT_EQ(FromLine("Text=bare", [](CConfigFile& file) { return file.ReadText("x"); }), "bare");
    EXPECT_EQ(FromLine("Text", [](CConfigFile& file) { return file.ReadText("x"); }), "x");
    EXPECT_EQ(FromLine("Text", [](CConfigFile& file) { return file.ReadText(); }), "");
}

TEST_F(ConfigFile, LeavesTheOldFileWhenASaveIsRefusedOrDropped) {
    drives.Write("C:\\Job\\a.INI", "old\r\n");
    CConfigFile writer(drives);
    ASSERT_TRUE(writer.OpenForWrite(kFolder, "a"));
    writer.WriteInt("new", 1);
    CConfigFile second(drives);
    EXPECT_FALSE(second.OpenForWrite(kFolder, "a"));
    writer.Close();
    EXPECT_EQ(drives.Read("C:\\Job\\a.INI"), "old\r\n");
    EXPECT_FALSE(second.OpenForWrite("C:\\No such folder\\", "a"));
    EXPECT_FALSE(second.OpenForReadIn(kFolder, "b"));
}

}  // namespace
}  // namespace quillon
