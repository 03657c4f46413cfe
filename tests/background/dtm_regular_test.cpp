#include "background/dtm_regular.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <map>
#include <random>
#include <string>
#include <vector>

#include "background/dtm_load.h"
#include "platform/text.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

constexpr const char* kOut = "C:\\Job\\regular.xyz";

class DtmRegular : public testing::Test {
protected:
    DtmRegularResult Make(const std::string& bytes, double step, DTM_TAKE take) {
        drives.MakeFolder("C:\\Job");
        CRandomFile text;
        text.OpenBytes(bytes);
        CStdioFile out(drives);
        EXPECT_TRUE(out.OpenForWriting(kOut));
        DtmProgress progress;
        const DtmRegularResult result = MakeRegularDtm(text, {step, take}, limits, progress, out);
        EXPECT_EQ(result.fault == DTM_REGULAR_FAULT::NO && out.Commit(), result.fault == DTM_REGULAR_FAULT::NO);
        return result;
    }

    ScratchDrives drives;
    DtmLimits limits;
};

// The text pinned once; 5 m cells, depths below the surface negative, so that the drying height is the shoalest.
TEST_F(DtmRegular, TakesOneDepthACell) {
    const std::string bytes = "12 21 -3.5\n13 22 -9.25\n14.9 24 1.5\n23 21 -7\n24 33 0\n";
    const std::string frame = "12.5,22.5,0\r\n17.5,22.5,0\r\n22.5,27.5,0\r\n";
    struct Row {
        DTM_TAKE take;
        const char* first;
    };
    for (const Row& row : {Row{DTM_TAKE::SHOALEST, "1.5"}, {DTM_TAKE::DEEPEST, "-9.25"}, {DTM_TAKE::MEAN, "-3.750"}}) {
        const DtmRegularResult result = Make(bytes, 5, row.take);
        const std::string last = row.take == DTM_TAKE::MEAN ? "-7.000" : "-7";
        EXPECT_EQ(drives.Read(kOut), frame + "12.5,22.5," + row.first + "\r\n22.5,22.5," + last + "\r\n");
        EXPECT_EQ(result.cellsWithDepth, 2U);
        EXPECT_EQ(result.withoutDepth, 1U);
    }
    // Positive below the surface.
    Make("12 21 3.5\n13 22 9.25\n14 24 -1.5\n", 5, DTM_TAKE::SHOALEST);
    EXPECT_EQ(drives.Read(kOut), frame + "12.5,22.5,-1.5\r\n");
}

// Whatever the step and however sparse the soundings, a DTM takes the file as that grid: no cell merged, none dropped,
// each depth where it was binned.
TEST_F(DtmRegular, LoadsAsTheGridThatItIs) {
    std::mt19937 random(1);
    for (const double step : {0.1, 0.25, 0.3, 1.0, 2.5, 7.77, 100.0}) {
        for (const int count : {1, 3, 400}) {
            std::string bytes;
            std::map<std::pair<double, double>, double> deepest;  // by cell
            for (int i = 0; i < count; ++i) {
                const double easting = 490563.38 + static_cast<double>(random() % 20000) / 100.0;
                const double northing = 5728099.17 + static_cast<double>(random() % 9000) / 100.0;
                const double depth = -static_cast<double>(random() % 9000 + 1) / 100.0;
                bytes += Format("%.2lf\t%.2lf\t%.2lf\n", easting, northing, depth);
                double& cell = deepest[{std::floor(easting / step), std::floor(northing / step)}];
                cell = std::min(cell, depth);
            }
            const DtmRegularResult result = Make(bytes, step, DTM_TAKE::DEEPEST);
            ASSERT_EQ(result.fault, DTM_REGULAR_FAULT::NO) << step;
            CDtm dtm(drives);
            dtm.fileName[0] = kOut;
            // Within the two seconds that a stamp can't tell apart, the cache of the round before could pass for this.
            std::filesystem::remove(drives.Files().Native(dtm.CacheFileName()));
            DtmProgress progress;
            ASSERT_TRUE(LoadDtmFiles(dtm, progress));
            ASSERT_TRUE(dtm.IsLoaded()) << step << " " << count;
            EXPECT_NEAR(dtm.header.step, step, 1e-7);
            EXPECT_EQ(dtm.header.columns, std::max<std::int64_t>(result.grid.columns, 3));
            EXPECT_EQ(dtm.header.rows, std::max<std::int64_t>(result.grid.rows, 2));
            EXPECT_EQ(dtm.report.dropped, 0U);
            EXPECT_EQ(dtm.report.cellsWithDepth, deepest.size()) << step << " " << count;
            for (const auto& [cell, depth] : deepest) {
                // In the middle of the cell, away from where rounding tells.
                const double found = dtm.DepthAt({(cell.first + 0.5) * step, (cell.second + 0.5) * step});
                ASSERT_NEAR(found, -depth, 0.0101) << step << " " << count;
            }
        }
    }
}

TEST_F(DtmRegular, RefusesWhatMakesNoGrid) {
    EXPECT_EQ(Make("1 1 0\n2 2 0\n", 1, DTM_TAKE::MEAN).fault, DTM_REGULAR_FAULT::NO_DEPTHS);
    EXPECT_EQ(Make("1 1 -1\n1000000 1000000 -1\n", 1, DTM_TAKE::MEAN).fault, DTM_REGULAR_FAULT::TOO_MANY_CELLS);
    EXPECT_EQ(Make("5000000 1 -1\n5000010 1 -1\n", 1e-8, DTM_TAKE::MEAN).fault, DTM_REGULAR_FAULT::STEP_TOO_FINE);
    limits.mostBytes = 100;
    EXPECT_EQ(Make("1 1 -1\n10 10 -1\n", 1, DTM_TAKE::MEAN).fault, DTM_REGULAR_FAULT::TOO_MANY_CELLS);
}

}  // namespace
}  // namespace quillon
