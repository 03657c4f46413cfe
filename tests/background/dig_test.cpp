#include "background/dig.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>

#include "background/dig_converter.h"
#include "background/dig_load.h"
#include "background/load_dig.h"
#include "platform/headless.h"
#include "platform/user_actions.h"
#include "support/dxf_groups.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

constexpr const char* kDxf = "C:\\Job\\Platform A.dxf";
constexpr const char* kDigFile = "C:\\Job\\Platform A.DIG";

/// Records as text, each "code easting,northing".
std::string TextOf(std::span<const BinaryDigDef> records) {
    std::string text;
    for (const BinaryDigDef& record : records) {
        text += Format("%s%d %g,%g", text.empty() ? "" : "; ", int{record.code}, record.easting, record.northing);
    }
    return text;
}

std::string Bytes(const std::vector<BinaryDigDef>& records) {
    return std::string(BytesOf(records));
}

/// A header with its extents from 0, 0 to 100, 100, and entities.
std::string Drawing(std::string_view entities) {
    return Section("HEADER", "9 $EXTMIN|10 0|20 0|9 $EXTMAX|10 100|20 100") +
           Section("TABLES", "0 TABLE|2 LAYER|0 LAYER|2 Pipe|62 0|0 LAYER|2 Off|62 -3|0 LAYER|2 Red|62 1|0 ENDTAB") +
           Section("ENTITIES", entities);
}

class DigTest : public testing::Test {
protected:
    std::vector<BinaryDigDef> Convert(const std::string& bytes, bool ownExtents = false) {
        CDxf dxf(drives);
        dxf.OpenBytes(bytes);
        while (dxf.ReadSection()) {
        }
        dxf.Close();
        dxf.ownExtents = ownExtents;
        std::vector<BinaryDigDef> records;
        EXPECT_TRUE(ConvertToDig(dxf, records, report));
        return records;
    }
    bool Load(const char* path) {
        dig.fileName = path;
        return LoadDigFile(dig, progress);
    }
    std::string Told() {
        std::string text;
        for (const KindReport::Kind& kind : report.GetKinds()) text += Format("%zu ", kind.count) + kind.reason + "; ";
        return text;
    }

    ScratchDrives drives;
    CDig dig{drives};
    LoadProgress progress;
    KindReport report;
};

TEST_F(DigTest, FlattensWhatLiesInsideTheHeader) {
    struct Row {
        const char* entities;
        const char* records;
    };
    const Row rows[] = {
        // Both ends inside, the edges too; one outside drops the line whole.
        {"0 LINE|10 0|20 0|11 100|21 100", "-8 0,0; 8 100,100"},
        {"0 LINE|10 1|20 1|11 100.1|21 1", ""},
        // Vertices outside are left out and bridged; closing takes two that are inside.
        {"0 LWPOLYLINE|70 1|10 1|20 1|10 101|20 1|10 9|20 9", "-8 1,1; 8 9,9; 8 1,1"},
        {"0 LWPOLYLINE|70 1|10 1|20 1|10 101|20 1", "-8 1,1"},
        {"0 POLYLINE|70 0|0 VERTEX|10 1|20 2|0 VERTEX|10 3|20 4|0 SEQEND", "-8 1,2; 8 3,4"},
        // Corners in the order of the outline; the first alone is looked at.
        {"0 SOLID|10 1|20 1|11 2|21 2|12 3|22 3|13 400|23 4", "-8 1,1; 8 2,2; 8 400,4; 8 3,3; 8 1,1"},
        {"0 SOLID|10 101|20 1|11 2|21 2|12 3|22 3|13 4|23 4", ""},
        // Its own colour; its layer's, also 0; none where the layer is off, unknown or the number no colour.
        {"0 LINE|62 5|8 Red", "-6 0,0; 6 0,0"},
        {"0 LINE|62 256|8 Red", "-2 0,0; 2 0,0"},
        {"0 LINE|8 Pipe", "-1 0,0; 1 0,0"},
        {"0 LINE|8 Off", "-8 0,0; 8 0,0"},
        {"0 LINE|62 300", "-8 0,0; 8 0,0"},
        // Nothing but the two ends of what is smaller than the chords may be off.
        {"0 CIRCLE|10 5|20 5|40 0.04", "-8 5,5.04; 8 5,5.04"},
        {"0 CIRCLE|10 5|20 5|40 0", ""},
        {"0 TEXT|1 A|0 ELLIPSE|11 1|40 1", ""},
    };
    for (const Row& row : rows) EXPECT_EQ(TextOf(Convert(Drawing(row.entities))), row.records) << row.entities;
    // Blocks come first, at their own coordinates; inserts aren't expanded.
    EXPECT_EQ(TextOf(Convert(Section("BLOCKS", "0 BLOCK|2 A|10 50|0 LINE|11 7|0 ENDBLK") +
                             Drawing("0 INSERT|2 A|10 9|0 LINE|11 8"))),
              "-8 0,0; 8 7,0; -8 0,0; 8 8,0");
}

TEST_F(DigTest, WalksArcsInChordsOfADecimetre) {
    // 50 m: chords of 2 acos(49.9 / 50) radians at most, so 50 of them.
    const auto circle = Convert(Drawing("0 CIRCLE|10 50|20 50|40 50"));
    ASSERT_EQ(circle.size(), 50u + 2u);
    EXPECT_EQ(circle[0].Position(), (tagXY{50, 100}));
    EXPECT_EQ(circle[1].Position(), circle[0].Position());
    EXPECT_GT(circle[2].Position().x, 50) << "clockwise";
    EXPECT_NEAR(circle.back().Position().x, 50, 1e-9);
    for (std::size_t i = 2; i + 1 < circle.size(); ++i) {
        const double sagitta = 50 - std::hypot((circle[i].easting + circle[i - 1].easting) / 2 - 50,
                                               (circle[i].northing + circle[i - 1].northing) / 2 - 50);
        EXPECT_LE(sagitta, 0.1 + 1e-9);
    }
    // From 10 to 80 degrees anticlockwise of east in the file; clockwise here, from its end to its start, which comes
    // twice. The other arc crosses north.
    for (const auto& [from, to] : {std::pair{10.0, 80.0}, {45.0, 135.0}}) {
        const auto arc = Convert(Drawing(Format("0 ARC|10 50|20 50|40 20|50 %g|51 %g", from, to)));
        const auto near = [&](const BinaryDigDef& record, double degrees) {
            EXPECT_NEAR(record.Position().x, 50 + 20 * std::cos(degrees * M_PI / 180), 1e-6);
            EXPECT_NEAR(record.Position().y, 50 + 20 * std::sin(degrees * M_PI / 180), 1e-6);
        };
        ASSERT_GT(arc.size(), 5u);
        near(arc[0], to);
        near(arc[1], to);
        near(arc[arc.size() - 2], from);
        near(arc.back(), from);
        for (const BinaryDigDef& record : arc) {
            const double degrees = std::atan2(record.northing - 50, record.easting - 50) * 180 / M_PI;
            EXPECT_TRUE(degrees > from - 1e-6 && degrees < to + 1e-6) << degrees;
        }
    }
    // A few bytes don't take all memory.
    EXPECT_LE(Convert(Drawing("0 CIRCLE|10 50|20 50|40 1e30")).size(), DigConverter::kMostSteps + 2);
}

TEST_F(DigTest, SaysWhatItLeftOut) {
    Convert(Drawing("0 LINE|10 -1|0 TEXT|0 MTEXT|0 LWPOLYLINE|10 1|20 1|10 -1|20 1|0 CIRCLE|10 5|20 5|0 LINE|11 5"));
    EXPECT_EQ(report.taken, 2u);
    EXPECT_EQ(Told(),
              "1 LINE outside the extents; 1 TEXT without line work; 1 MTEXT without line work; "
              "1 vertex of a polyline outside the extents; 1 circle or arc without a radius; ");
    const std::string lines = Section("ENTITIES", "0 LINE|10 5|20 5|11 9|21 9");
    EXPECT_TRUE(Convert(lines).empty());
    EXPECT_EQ(report.CountOf("extents in the header: there are none, and all that isn't at 0, 0 is left out"), 1u);
    const std::string turned = Section("HEADER", "9 $EXTMIN|10 1e20|20 1e20|9 $EXTMAX|10 -1e20|20 -1e20") + lines;
    EXPECT_TRUE(Convert(turned).empty());
    EXPECT_EQ(report.CountOf("extents in the header: they are turned round, and everything is left out"), 1u);
    EXPECT_EQ(TextOf(Convert(turned, true)), "-8 5,5; 8 9,9");
}

TEST_F(DigTest, TellsAHeaderFromARecord) {
    struct Row {
        int hour, minute, second, day, month, year;
        std::uint64_t length;
        bool believable;
    };
    const Row rows[] = {
        {0, 0, 0, 1, 1, 1980, 0, true},
        {23, 59, 58, 31, 12, 2024, DigHeader::kLongest - 1, true},
        {24, 0, 0, 1, 1, 2000, 0, true},
        {24, 0, 2, 1, 1, 2000, 0, false},
        {0, 0, 0, 1, 0, 2000, 0, false},
        {0, 0, 0, 1, 13, 2000, 0, false},
        {0, 0, 0, 0, 1, 2000, 0, false},
        {0, 0, 0, 1, 1, 2107, 0, false},
        {0, 0, 0, 1, 1, 2000, DigHeader::kLongest, false},
    };
    for (const Row& row : rows) {
        const DigHeader header{.display = 7,
                               .time = static_cast<std::uint16_t>(row.hour << 11 | row.minute << 5 | row.second / 2),
                               .date = static_cast<std::uint16_t>((row.year - 1980) << 9 | row.month << 5 | row.day),
                               .length = row.length};
        EXPECT_EQ(header.IsBelievable(), row.believable) << row.day << '.' << row.month << '.' << row.year;
    }
    // Dates that no header can tell, of archives and of clocks gone wrong, still make files that are read back.
    drives.Write(kDxf, Drawing("0 LINE|10 1|11 2"));
    for (const int days : {-20000, 20000}) {
        std::filesystem::last_write_time(drives.Files().Native(kDxf),
                                         std::filesystem::file_time_type::clock::now() + std::chrono::hours(24) * days);
        std::filesystem::remove(drives.Files().Native(kDigFile));
        EXPECT_TRUE(Load(kDxf) && dig.converted) << days;
        EXPECT_TRUE(Load(kDxf) && !dig.converted) << days;
        EXPECT_EQ(TextOf(dig.Records()), "-8 1,0; 8 2,0") << days;
    }
}

TEST_F(DigTest, ConvertsADrawingOnceForEachChange) {
    drives.Write(kDxf, Drawing("0 LINE|10 1|20 2|11 3|21 4"));
    EXPECT_TRUE(Load(kDxf));
    EXPECT_TRUE(dig.converted && dig.fault.empty());
    const std::string made = drives.Read(kDigFile);
    EXPECT_EQ(made.size(), 16u + 36u);
    EXPECT_EQ(made[0], '\1');
    const std::uint64_t stamp = dig.GetStamp();
    EXPECT_TRUE(Load(kDxf));
    EXPECT_FALSE(dig.converted);
    EXPECT_NE(dig.GetStamp(), stamp);
    EXPECT_EQ(TextOf(dig.Records()), "-8 1,2; 8 3,4");
    EXPECT_EQ(std::tuple(dig.extents.minEasting, dig.extents.minNorthing, dig.extents.maxEasting,
                         dig.extents.maxNorthing, dig.report.taken),
              std::tuple(1, 2, 3, 4, 2u));
    EXPECT_EQ(dig.sizeText, SizeText(drives.Read(kDxf).size()));
    // Hidden, it stays so: the file is as it was but for its flag.
    dig.header.display = 0;
    EXPECT_TRUE(dig.Save());
    EXPECT_EQ(drives.Read(kDigFile), std::string(1, '\0') + made.substr(1));
    EXPECT_TRUE(Load(kDxf) && dig.header.display == 0);
    // A cut file is made anew as far as its header is; by Quit none is written.
    drives.Write(kDxf, Drawing("0 LINE|10 1|20 2|11 3|21 44"));
    const std::string old = drives.Read(kDigFile);
    progress.Cancel();
    EXPECT_FALSE(Load(kDxf));
    EXPECT_EQ(drives.Read(kDigFile), old);
    // Where nothing can be written, its records are there all the same.
    LoadProgress again;
    drives.Files().SetAccess(FILE_ACCESS::READ_ONLY);
    EXPECT_TRUE(LoadDigFile(dig, again));
    EXPECT_EQ(TextOf(dig.Records()), "-8 1,2; 8 3,44");
    EXPECT_EQ(dig.fault, "the job is open for reading only");
    EXPECT_EQ(drives.Read(kDigFile), old);
}

TEST_F(DigTest, ReadsFilesOfAnyForm) {
    const std::vector<BinaryDigDef> records = {
        {0, 0, -8}, {512345.25, 6200000.5, -1}, {0, 0, 8}, {512000, 6200100, 300}};
    const char* const path = "C:\\Job\\coast.dig";
    // Without a header, with a record cut short.
    drives.Write(path, Bytes(records) + "cut");
    EXPECT_TRUE(Load(path));
    EXPECT_EQ(TextOf(dig.Records()), TextOf(records));
    EXPECT_EQ(dig.header.display, 1);
    EXPECT_EQ(dig.sizeText, "75b");
    EXPECT_EQ(dig.extents.minEasting, 512000) << "a record at 0, 0 stretches nothing";
    EXPECT_EQ(dig.extents.maxNorthing, 6200100);
    EXPECT_EQ(dig.report.CountOf("last record cut short"), 1u);
    EXPECT_EQ(dig.report.CountOf("record at 0, 0, which stretches no extents"), 2u);
    EXPECT_EQ((std::vector{dig[0].ColourIndex(), dig[1].ColourIndex(), dig[3].ColourIndex()}), (std::vector{7, 0, 7}));
    EXPECT_THROW(dig[4], InvalidArgument);
    // With a header, cut at every length.
    const std::string whole = std::string(BytesOf(DigHeader{.display = 0, .date = 33, .length = 5})) + Bytes(records);
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        drives.Write(path, whole.substr(0, length));
        EXPECT_TRUE(Load(path));
        EXPECT_EQ(dig.GetSize(), length < 16 ? 0 : static_cast<std::ptrdiff_t>((length - 16) / 18)) << length;
    }
    EXPECT_EQ(dig.header.display, 0);
    EXPECT_EQ(dig.dateText, "01 Jan 1980");
    EXPECT_TRUE(Load("C:\\Job\\gone.dig") && dig.IsEmpty() && !dig.report.opened && dig.extents.maxEasting == 0);
}

TEST_F(DigTest, MakesADigFileOfAText) {
    const char* const csv = "C:\\Job\\Coast.csv";
    struct Row {
        const char* text;
        const char* records;
    };
    const Row rows[] = {
        {"Easting,Northing,Pen,Colour\r\n1,2\r\n3,4\r\n", "-8 1,2; 8 3,4"},
        {"1,2,1,5\n3,4,1,1\n5,6,0,0\n7,8,,255\n", "-6 1,2; 2 3,4; -1 5,6; 256 7,8"},
        {"1,2\n3,4,up\n5,6,down,3\n7,8,Move,3\n9,9,-8\n", "-8 1,2; -8 3,4; 4 5,6; -4 7,8; -8 9,9"},
        // What has no position parts the line work; so does an empty line.
        {"1 2\n\n3 4\n> coast\n5 6\n0,0\n7 8 1 256\n", "-8 1,2; -8 3,4; -8 5,6; -8 7,8"},
    };
    for (const Row& row : rows) {
        drives.Write(csv, row.text);
        EXPECT_TRUE(Load(csv) && dig.converted) << row.text;
        EXPECT_EQ(TextOf(dig.Records()), row.records) << row.text;
        EXPECT_TRUE(Load(csv) && !dig.converted) << row.text;
        EXPECT_EQ(TextOf(dig.Records()), row.records) << row.text;
    }
    // A text of no use leaves the file of its name alone.
    const std::string old = drives.Read("C:\\Job\\Coast.DIG");
    drives.Write(csv, "see the DIG file\n");
    EXPECT_TRUE(Load(csv));
    EXPECT_EQ(dig.GetSize(), 4);
    EXPECT_EQ(drives.Read("C:\\Job\\Coast.DIG"), old);
    // What somebody digitised without a header is kept beside.
    const std::string digitised = Bytes({{5, 6, -1}, {7, 8, 1}});
    drives.Write("C:\\Job\\Coast.DIG", digitised);
    drives.Write(csv, "1,2\n");
    EXPECT_TRUE(Load(csv) && dig.fault.empty());
    EXPECT_EQ(drives.Read("C:\\Job\\Coast (original).DIG"), digitised);
    EXPECT_EQ(drives.Read("C:\\Job\\Coast.DIG").size(), 16u + 18u);
}

TEST_F(DigTest, KeepsHowADrawingIsConverted) {
    drives.Write(kDxf, Section("ENTITIES", "0 LINE|10 5|20 6|11 7|21 8"));
    EXPECT_TRUE(Load(kDxf) && dig.IsEmpty() && dig.outsideHeader);
    EXPECT_EQ(drives.Read(kDigFile).size(), 16u);
    SaveOwnExtents(drives, kDxf, true);
    EXPECT_TRUE(RemakeDigFile(dig, progress));
    EXPECT_EQ(TextOf(dig.Records()), "-8 5,6; 8 7,8");
    EXPECT_TRUE(ReadOwnExtents(drives, kDxf) && !dig.outsideHeader);
    // As a drawing the same file makes it too, where it is stale.
    std::filesystem::remove(drives.Files().Native(kDigFile));
    CDxf dxf(drives);
    dxf.fileName = kDxf;
    EXPECT_TRUE(LoadDxfFile(dxf, progress));
    EXPECT_EQ(dxf.report.taken, 1u);
    EXPECT_EQ(drives.Read(kDigFile).size(), 16u + 36u);
}

TEST_F(DigTest, LoadsBehindItsWindows) {
    HeadlessPlatform platform{drives.Root()};
    drives.Write(kDxf, Drawing("0 LINE|10 1|20 2|11 3|21 4"));
    std::vector<std::string> captions;
    const auto note = [&](CDialog& dialog) { captions.push_back(dialog.GetWindowText()); };
    dig.fileName = kDxf;
    platform.AnswerDialog(note);
    CLoadDig load(platform);
    load.SetDig(&dig);
    EXPECT_EQ(load.DoModal(), IDOK);
    EXPECT_EQ(dig.GetSize(), 2);
    CDxf dxf(drives);
    dxf.fileName = kDxf;
    CLoadDxf stopped(platform), loadDxf(platform);
    stopped.SetDxf(&dxf);
    loadDxf.SetDxf(&dxf);
    platform.AnswerDialog([](CDialog& dialog) { user::Dismiss(dialog); });
    EXPECT_EQ(stopped.DoModal(), IDCANCEL);
    platform.AnswerDialog(note);
    EXPECT_EQ(loadDxf.DoModal(), IDOK);
    EXPECT_EQ(dxf.entities.size(), 1u);
    EXPECT_THAT(captions, testing::ElementsAre("Loading DIG Platform A.........", "Loading DXF Platform A........."));
}

}  // namespace
}  // namespace quillon
