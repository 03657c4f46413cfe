#include "background/dtm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <string>
#include <vector>

#include "background/dtm_load.h"
#include "platform/text.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr const char* kOne = "C:\\Job\\one.xyz";
constexpr const char* kTwo = "C:\\Job\\two.xyz";
constexpr const char* kThree = "C:\\Job\\three.xyz";
constexpr const char* kCache = "C:\\Job\\one.DTM";

/// 3 columns, 2 rows, 10 m apart; the last cell has no depth.
constexpr const char* kGridText =
    "100 200 -5\n110 200 -6.5\n120 200 -12.345\n"
    "100 210 7\n110 210 -8\n120 210 0\n";

class Dtm : public testing::Test {
protected:
    bool Load() {
        DtmProgress progress;
        return LoadDtmFiles(dtm, progress);
    }
    std::vector<std::int32_t> Cells() const { return {dtm.depths.Span().begin(), dtm.depths.Span().end()}; }
    static std::string Field(const std::string& bytes, std::size_t offset, double) {
        double value = 0.0;
        std::memcpy(&value, bytes.data() + offset, sizeof value);
        return Format("%.3lf", value);
    }
    static std::int32_t Int(const std::string& bytes, std::size_t offset) {
        std::int32_t value = 0;
        std::memcpy(&value, bytes.data() + offset, sizeof value);
        return value;
    }
    void SetTime(const char* path, std::int64_t unixSeconds) {
        using namespace std::chrono;
        const auto system = system_clock::time_point(seconds(unixSeconds));
        std::filesystem::last_write_time(drives.Files().Native(path), file_clock::from_sys(system));
    }

    ScratchDrives drives;
    CDtm dtm{drives};
};

// Other programs read the cache: every byte of it is pinned, with depths cut to centimetres and not rounded.
TEST_F(Dtm, WritesTheCacheAsOthersReadIt) {
    drives.Write(kOne, kGridText);
    SetTime(kOne, 1709251199);  // 29 Feb 2024 23:59:59 UTC
    dtm.fileName[0] = kOne;
    ASSERT_TRUE(Load());
    const std::string bytes = drives.Read(kCache);
    ASSERT_EQ(bytes.size(), 1072U + 6 * 4);
    EXPECT_EQ(bytes.substr(0, 8), std::string("DTM\0"
                                              "1001",
                                              8));
    std::vector<std::string> doubles;
    for (std::size_t at : {8, 16, 24, 40, 48, 104, 112, 120, 128}) doubles.push_back(Field(bytes, at, 0));
    EXPECT_THAT(doubles, ElementsAre("100.000", "200.000", "10.000", "-12.345", "7.000", "100.000", "200.000",
                                     "120.000", "210.000"));
    EXPECT_EQ(Int(bytes, 32), 3);
    EXPECT_EQ(Int(bytes, 36), 2);
    EXPECT_EQ(Int(bytes, 56), (23 << 11 | 59 << 5 | 29) << 16);
    EXPECT_EQ(Int(bytes, 60), 44 << 9 | 2 << 5 | 29);
    EXPECT_EQ(Int(bytes, 64), static_cast<int>(std::strlen(kGridText)));
    EXPECT_EQ(bytes.substr(68, 36), std::string(36, '\0'));
    EXPECT_EQ(bytes.substr(136, 1072 - 136), std::string(1072 - 136, '\0'));
    std::vector<std::int32_t> cells;
    for (std::size_t i = 0; i < 6; ++i) cells.push_back(Int(bytes, 1072 + 4 * i));
    EXPECT_THAT(cells, ElementsAre(500, 650, 1234, 700, 800, kNoDepth));
    EXPECT_EQ(Cells(), cells);
    EXPECT_EQ(dtm.dateText[0] + " " + dtm.timeText[0] + " " + dtm.sizeText[0], "29 Feb 2024 23:59:58 71b");
    EXPECT_EQ(dtm.report.withoutDepth, 1U);
    EXPECT_EQ(dtm.report.cellsWithDepth, 5U);
}

TEST_F(Dtm, TellsCellsAndDepths) {
    drives.Write(kOne, kGridText);
    dtm.fileName[0] = kOne;
    ASSERT_TRUE(Load());
    struct Row {
        double easting, northing;
        int column, row;
        std::int64_t cell;
        double depth;
    };
    const std::vector<Row> rows = {
        {100, 200, 0, 0, 0, 5.0},
        {109.999, 209.999, 0, 0, 0, 8.0},
        {129.9, 200, 2, 0, 2, MISSING_VALUE},
        {124.9, 204.9, 2, 0, 2, 12.34},
        {130, 219.9, -2, 1, -1, MISSING_VALUE},
        {99.9, 205, -1, 0, -1, 7.0},
        {94.9, 220, -1, -2, -1, MISSING_VALUE},
        {120, 210, 2, 1, 5, MISSING_VALUE},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(dtm.CellOf(row.easting, row.northing), row.cell) << row.easting;
        EXPECT_EQ(dtm.lastColumn, row.column) << row.easting;
        EXPECT_EQ(dtm.lastRow, row.row) << row.easting;
        EXPECT_EQ(dtm.DepthAt({row.easting, row.northing}), row.depth) << row.easting;
    }
}

TEST_F(Dtm, ReadsTheCacheOnlyWhileItIsWholeAndFresh) {
    drives.Write(kOne, kGridText);
    drives.Write(kTwo, "130 200 -1\n");
    const auto fresh = [&] {
        dtm.Unload();
        ASSERT_TRUE(Load());
        ASSERT_FALSE(dtm.NeedsImport());
    };
    struct Row {
        const char* why;
        std::function<void(std::string&)> damage;
    };
    const std::vector<Row> rows = {
        {"cut short", [](std::string& bytes) { bytes.pop_back(); }},
        {"too long", [](std::string& bytes) { bytes += "...."; }},
        {"cut in its head", [](std::string& bytes) { bytes.resize(1000); }},
        {"empty", [](std::string& bytes) { bytes.clear(); }},
        {"another magic", [](std::string& bytes) { bytes[0] = 'X'; }},
        {"another version", [](std::string& bytes) { bytes[7] = '2'; }},
        {"a count that its length doesn't hold", [](std::string& bytes) { bytes[35] = 0x7F; }},
        {"no step", [](std::string& bytes) { bytes.replace(24, 8, 8, '\0'); }},
        {"another length of the text", [](std::string& bytes) { ++bytes[64]; }},
        {"another date of the text", [](std::string& bytes) { ++bytes[60]; }},
    };
    dtm.fileName[0] = kOne;
    fresh();
    const std::string whole = drives.Read(kCache);
    for (const Row& row : rows) {
        std::string bytes = whole;
        row.damage(bytes);
        drives.Write(kCache, bytes);
        EXPECT_TRUE(dtm.NeedsImport()) << row.why;
        fresh();
        EXPECT_EQ(drives.Read(kCache), whole) << row.why;
    }
    // From the cache, without the text being read: it holds a depth that the text doesn't.
    std::string bytes = whole;
    bytes[1072] = 77;
    drives.Write(kCache, bytes);
    ASSERT_TRUE(Load());
    EXPECT_EQ(Cells()[0], 0x100 + 77);
    EXPECT_FALSE(dtm.report.imported);
    EXPECT_EQ(dtm.report.cellsWithDepth, 5U);
    EXPECT_EQ(dtm.extents.easting.maximum, 120);

    // Two files have a cache of their own, which a change of the second makes stale.
    dtm.fileName[1] = kTwo;
    EXPECT_EQ(dtm.CacheFileName(), "C:\\Job\\Combined.DTM");
    fresh();
    EXPECT_THAT(Cells(), ElementsAre(500, 650, 1234, 100, 700, 800, kNoDepth, kNoDepth));
    drives.Write(kTwo, "130 200 -12\n");
    EXPECT_TRUE(dtm.NeedsImport());
    std::filesystem::remove(drives.Files().Native(kTwo));
    EXPECT_TRUE(dtm.NeedsImport());
    dtm.fileName[2] = kThree;
    EXPECT_EQ(dtm.CacheFileName(), "C:\\Job\\Triple.DTM");
}

TEST_F(Dtm, RefusesWhatMakesNoArrayAndSaysWhy) {
    struct Row {
        const char* text;
        DTM_REFUSAL refusal;
        const char* words;
    };
    // 1.5 m down to 1 mm over 100 km; a file without a sample; one that runs along a single line.
    const std::vector<Row> rows = {
        {"0 0 -1\n1.5 0 -1\n1.501 0 -1\n100000 100000 -1\n", DTM_REFUSAL::TOO_MANY_CELLS,
         "too many cells: the step of 0.0009999999999998899 m"},
        {"0 0 -1\n1 0 -1\n4000 0 -1\n4000 4000 -1\n", DTM_REFUSAL::TOO_MUCH_MEMORY, "16008001 cells are more than"},
        {"Easting\n", DTM_REFUSAL::NO_SAMPLES, "no line holds"},
        {"1 1 -1\n2 1 -1\n3 1 -1\n", DTM_REFUSAL::NO_GRID,
         "the step of 1 m makes 3 columns and 0 rows; line 1 of A (1, 1) and line 2 of A (2, 1) set it"},
    };
    dtm.limits.mostBytes = 60'000'000;
    dtm.fileName[0] = kOne;
    for (const Row& row : rows) {
        drives.Write(kOne, kGridText);
        ASSERT_TRUE(Load());
        const std::string before = drives.Read(kCache);
        drives.Write(kOne, row.text);
        EXPECT_TRUE(Load());
        EXPECT_EQ(dtm.report.refusal, row.refusal) << row.text;
        EXPECT_THAT(RefusalText(dtm.report, {"A", "B", "C"}), HasSubstr(row.words));
        EXPECT_FALSE(dtm.IsLoaded());
        EXPECT_EQ(drives.Read(kCache), before);
    }
}

TEST_F(Dtm, NeverWritesOverWhatIsNoCache) {
    // On a drive, capitals make no difference: the cache of "one.dtm" would be the file itself.
    drives.Write("C:\\Job\\one.dtm", kGridText);
    dtm.fileName[0] = "C:\\Job\\one.dtm";
    ASSERT_TRUE(Load());
    EXPECT_EQ(Cells().size(), 6U);
    EXPECT_EQ(drives.Read("C:\\Job\\one.dtm"), kGridText);
    EXPECT_THAT(dtm.report.cacheFault, HasSubstr("is no depth cache"));
}

TEST_F(Dtm, LoadsFromAFolderThatCantBeWritten) {
    drives.Write(kOne, kGridText);
    FileSystem readOnly(drives.Root(), "Host", FILE_ACCESS::READ_ONLY);
    CDtm looked(readOnly);
    looked.fileName[0] = kOne;
    DtmProgress progress;
    EXPECT_TRUE(LoadDtmFiles(looked, progress));
    EXPECT_TRUE(looked.IsLoaded());
    EXPECT_NE(looked.report.cacheFault, "");
    EXPECT_EQ(drives.Read(kCache), "(none)");
}

TEST_F(Dtm, StoppedKeepsTheOldCacheAndNoHalfArray) {
    drives.Write(kOne, kGridText);
    dtm.fileName[0] = kOne;
    ASSERT_TRUE(Load());
    const std::string before = drives.Read(kCache);
    drives.Write(kOne, "1 1 -1\n2 1 -1\n3 2 -1\n");
    DtmProgress first;
    first.Cancel();
    EXPECT_FALSE(LoadDtmFiles(dtm, first));
    EXPECT_EQ(drives.Read(kCache), before);
    // An array may stay, but only beside its own header.
    EXPECT_EQ(dtm.depths.Size(), dtm.header.Grid().CellCount());

    DtmProgress second;
    EXPECT_TRUE(ImportDtm(dtm, second));
    second.Cancel();
    EXPECT_FALSE(MakeDtmDepths(dtm, second));
    EXPECT_FALSE(dtm.IsLoaded());
    EXPECT_EQ(drives.Read(kCache), before);
}

TEST_F(Dtm, KeepsItsSettings) {
    dtm.fileName = {kOne, "C:\\Job\\a,b.xyz", ""};
    dtm.displayCoverage = false;
    dtm.pen[1] = {.style = 2, .thickness = 3, .colour = 0xFFFFFFFF, .fill = 5};
    dtm.SaveSettings();
    EXPECT_EQ(drives.Read("C:\\MySettings\\Host\\DTM.INI"),
              "Dtm One File Name = C:\\Job\\one.xyz\r\n"
              "Dtm Two File Name = C:\\Job\\a\xAB"
              "COMMA\xBB"
              "b.xyz\r\n"
              "Dtm Three File Name = \r\n"
              "Display Coverage = 0\r\n"
              "Dtm One Pen = 32768, 0, 1, 65534\r\n"
              "Dtm Two Pen = 4294967295, 2, 3, 5\r\n"
              "Dtm Three Pen = 8388736, 0, 1, 65534\r\n");
    CDtm again(drives);
    again.ReadSettings();
    EXPECT_EQ(again.fileName, dtm.fileName);
    EXPECT_EQ(again.displayCoverage, false);
    EXPECT_EQ(again.pen, dtm.pen);
}

// Real soundings. The counts of lines are those of the files (wc, awk); columns and rows follow from the smallest
// change in them, which rounding has made smaller than the true step.
TEST_F(Dtm, TakesRealSoundings) {
    const std::filesystem::path samples = std::filesystem::path(QUILLON_SHARED_DATA) / "samples" / "xyz";
    if (!std::filesystem::exists(samples)) GTEST_SKIP() << "no samples";
    struct Row {
        const char* file;
        std::size_t lines, taken;
        DTM_REFUSAL refusal;
    };
    const std::vector<Row> rows = {{"borssele_utm31_comma.xyz", 9600, 9600, DTM_REFUSAL::NO},
                                   {"borssele_utm31_blank_positive.txt", 4801, 4800, DTM_REFUSAL::NO},
                                   {"baja_lon_lat_depth.csv", 6001, 6000, DTM_REFUSAL::TOO_MANY_CELLS},
                                   {"baja_utm12_tab.txt", 6000, 6000, DTM_REFUSAL::TOO_MANY_CELLS},
                                   {"cidco_2022.05.30_201358.xyz", 3118, 3118, DTM_REFUSAL::TOO_MANY_CELLS}};
    for (const Row& row : rows) {
        const std::string path = std::string("C:\\Job\\") + row.file;
        drives.MakeFolder("C:\\Job");
        std::filesystem::copy_file(samples / row.file, drives.Files().Native(path));
        dtm.fileName[0] = path;
        EXPECT_TRUE(Load());
        const DtmReport& report = dtm.report;
        EXPECT_EQ(report.lines[0].lines, row.lines) << row.file;
        EXPECT_EQ(report.lines[0].taken, row.taken) << row.file;
        EXPECT_EQ(report.refusal, row.refusal) << RefusalText(report, {row.file, "", ""});
        if (row.refusal != DTM_REFUSAL::NO) continue;
        EXPECT_EQ(report.cellsWithDepth + report.merged + report.dropped, row.taken) << row.file;
    }
}

}  // namespace
}  // namespace quillon
