// Depth models and shape files as they come from elsewhere, all of them under one job. Skipped where there are none.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "host/scene_builder.h"
#include "platform/headless.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

class UnderlaySamples : public ::testing::Test {
protected:
    UnderlaySamples() : platform(drives.Root(), "C:\\Programs\\Host.exe") {}

    /// Copies a folder of samples to the scratch drives; the paths of those with such an extension.
    std::vector<std::string> Copy(const std::string& folder, const std::vector<std::string>& extensions) {
        std::vector<std::string> paths;
        const fs::path from = fs::path(QUILLON_SHARED_DATA) / "samples" / folder;
        const fs::path to = drives.Root() / "c" / folder;
        if (!fs::exists(from)) return paths;
        fs::copy(from, to, fs::copy_options::recursive);
        for (const auto& entry : fs::recursive_directory_iterator(to)) {
            const std::string extension = entry.path().extension().string();
            if (std::find(extensions.begin(), extensions.end(), extension) != extensions.end()) {
                paths.push_back(entry.path().string());
            }
        }
        return paths;
    }
    /// Whether every item of the scene lies somewhere, or is empty.
    static void ExpectPlaces(const ChartScene& scene) {
        const ChartBox box = ExtentOf(scene);
        EXPECT_TRUE(box.IsEmpty() || (IsPlace({box.minX, box.minY}) && IsPlace({box.maxX, box.maxY})));
    }

    ScratchDrives drives;
    HeadlessPlatform platform;
};

TEST_F(UnderlaySamples, ShapesLieUnderTheChart) {
    const std::vector<std::string> paths = Copy("shp", {".shp", ".SHP"});
    if (paths.empty()) GTEST_SKIP() << "no samples";
    for (const bool onGrid : {false, true}) {
        Job job(platform);
        if (onGrid) job.Record().geodesy.Choose({.chosen = true});
        for (const std::string& path : paths) job.Record().shapes.files.Add(path);
        job.Loads().Start();
        job.Loads().Settle();
        for (const auto& shape : job.Record().shapes.shapes) {
            shape->labelMode = 1;
            shape->labelPosition = 5;
            shape->pen.fill = kFillSolid;
        }
        const JobKind& kind = KindOf(KIND::SHAPE);
        std::size_t drawn = 0;
        for (int i = 0; i < kind.fileCount(job.Record()); ++i) {
            SCOPED_TRACE(kind.path(job.Record(), i));
            const ReadReport& report = kind.report(job.Record(), i);
            EXPECT_EQ(report.opened, kind.isDisplayed(job.Record(), i));
            EXPECT_NE(report.opened, !report.fault.empty());
            EXPECT_LE(report.taken, report.lines);
            drawn += report.opened;
        }
        EXPECT_GT(drawn, paths.size() / 2);
        SceneBuilder scenes(job.Record());
        ExpectPlaces(scenes.Build());
    }
}

TEST_F(UnderlaySamples, DepthModelsLieUnderTheChart) {
    const std::vector<std::string> paths = Copy("xyz", {".xyz", ".txt", ".csv"});
    if (paths.empty()) GTEST_SKIP() << "no samples";
    for (const std::string& path : paths) {
        SCOPED_TRACE(path);
        Job job(platform);
        CDtm& dtm = job.Record().dtm;
        dtm.fileName[0] = path;
        dtm.limits.mostCells = 20'000'000;
        job.Loads().Start();
        job.Loads().Settle();
        const bool refused = dtm.report.refusal != DTM_REFUSAL::NO;
        EXPECT_NE(dtm.IsLoaded(), refused);
        EXPECT_NE(KindOf(KIND::DTM).notes(job.Record(), 0).size(), 0U);
        SceneBuilder scenes(job.Record());
        const ChartScene scene = scenes.Build();
        ExpectPlaces(scene);
        EXPECT_EQ(scene.legend.has_value(), dtm.IsLoaded() && dtm.report.cellsWithDepth > 0);
    }
}

}  // namespace
}  // namespace quillon
