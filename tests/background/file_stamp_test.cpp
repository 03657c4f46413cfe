#include "background/file_stamp.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/scratch_drives.h"

namespace quillon {
namespace {

constexpr std::int64_t kSecond = 1'000'000'000;

TEST(DosStamp, TellsDateAndTimeInUtc) {
    struct Row {
        std::int64_t unixSeconds;
        std::uint16_t date, time;
        const char* dateText;
        const char* timeText;
    };
    // Words worked out by hand: year - 1980 in 7 bits, month in 4, day in 5; hour in 5, minute in 6, second / 2 in 5.
    const std::vector<Row> rows = {
        {1709251199, 44 << 9 | 2 << 5 | 29, 23 << 11 | 59 << 5 | 29, "29 Feb 2024", "23:59:58"},
        {315532800, 1 << 5 | 1, 0, "01 Jan 1980", "00:00:00"},
        // The words can't tell 1979.
        {315532799, 0, 0, "00 Jan 1980", "00:00:00"},
    };
    for (const Row& row : rows) {
        const DosStamp stamp = DosStampOf(FileStamp{7, row.unixSeconds * kSecond + kSecond / 2});
        EXPECT_EQ(stamp.date, row.date) << row.dateText;
        EXPECT_EQ(stamp.time, row.time);
        EXPECT_EQ(stamp.length, 7U);
        EXPECT_EQ(DateText(stamp), row.dateText);
        EXPECT_EQ(TimeText(stamp), row.timeText);
    }
}

TEST(SizeText, CutsZerosAndGoesUpTheUnits) {
    struct Row {
        std::uint64_t length;
        const char* text;
    };
    const std::vector<Row> rows = {{0, "0b"},
                                   {1023, "1023b"},
                                   {1024, "1Kb"},
                                   {1536, "1.5Kb"},
                                   {300'000'000, "286.102Mb"},
                                   {std::uint64_t{10} << 30, "10Gb"},
                                   {std::uint64_t{1} << 40, ""}};
    for (const Row& row : rows) EXPECT_EQ(SizeText(row.length), row.text);
}

}  // namespace
}  // namespace quillon
