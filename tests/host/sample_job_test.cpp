// The sample job as it is delivered: all of it can be read, and its files are those that this program would write.

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <set>

#include "background/dtm_load.h"
#include "host/scene_builder.h"
#include "job/kinds.h"
#include "job/shape_place.h"
#include "platform/headless.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

namespace fs = std::filesystem;

class SampleFilesTest : public ::testing::Test {
protected:
    SampleFilesTest() : platform(drives.Root(), "C:\\Programs\\Quillon.exe"), features(platform.Files()) {
        fs::copy(QUILLON_SAMPLE_JOB, drives.Root(), fs::copy_options::recursive | fs::copy_options::overwrite_existing);
        features.Load();
    }
    static std::string Bytes(const fs::path& file) {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    ScratchDrives drives;
    HeadlessPlatform platform;
    JobRecord features;
};

TEST_F(SampleFilesTest, EveryListedFileHoldsPoints) {
    for (const JobKind& kind : JobKinds()) {
        EXPECT_GT(kind.fileCount(features), 0) << kind.name;
        for (int i = 0; i < kind.fileCount(features); ++i) {
            // Depth models and shapes are loaded by the host, later.
            if (kind.id == KIND::DTM || kind.id == KIND::SHAPE) continue;
            EXPECT_GT(kind.report(features, i).taken, 1u) << kind.path(features, i);
        }
    }
    EXPECT_EQ(features.sailLines[0].GetSize(), 20);
    for (int i = 0; i < features.pipelines.GetCount(); ++i) {
        const CPipeline& pipeline = features.pipelines[i];
        EXPECT_FALSE(pipeline.GetKpListing().IsEmpty()) << pipeline.GetPath();
    }
}

// The sea bed lies under the field, and the licence blocks, which are in degrees, come to lie round it.
TEST_F(SampleFilesTest, WhatLiesUnderTheChartLoads) {
    DtmProgress progress;
    ASSERT_TRUE(LoadDtmFiles(features.dtm, progress));
    ASSERT_TRUE(features.dtm.IsLoaded());
    EXPECT_EQ(features.dtm.header.step, 50.0);
    EXPECT_NEAR(features.dtm.DepthAt({503150, 5843620}), 30.0, 8.0) << "at a platform";
    LoadShapeFiles(features.shapes);
    ASSERT_EQ(features.shapes.shapes.size(), 1U);
    const CShape& blocks = *features.shapes.shapes[0];
    ASSERT_EQ(PlaceOf(blocks, features.geodesy), SHAPE_PLACE::FROM_DEGREES);
    std::vector<tagXY> corner = {{blocks.records[0].X()[0], blocks.records[0].Y()[0]}};
    PlaceOnGrid(blocks, features.geodesy, corner);
    // 2 46 E, 52 38 N on UTM 31, by PROJ.
    EXPECT_NEAR(corner[0].x, 484208.589, 0.001);
    EXPECT_NEAR(corner[0].y, 5831508.706, 0.001);
}

TEST_F(SampleFilesTest, SettingsAreAsTheProgramWritesThem) {
    for (const JobKind& kind : JobKinds()) {
        const CFileListBase* const list = kind.list(features);
        EXPECT_TRUE(!list || list->Save()) << kind.name;
    }
    for (int i = 0; i < features.waypoints.GetCount(); ++i) features.waypoints[i].SaveSettings();
    for (int i = 0; i < features.pipelines.GetCount(); ++i) features.pipelines[i].WriteSettings();
    for (const COutlineList* const list :
         std::initializer_list<const COutlineList*>{&features.vessels, &features.templates}) {
        ASSERT_NE(list->GetCurrent(), nullptr);
        EXPECT_TRUE(list->GetCurrent()->waypointValid && list->Save() && list->GetCurrent()->Save());
        EXPECT_FALSE(list->GetCurrent()->points.empty());
    }
    EXPECT_TRUE(features.targetPlot.Save(platform.Files()));
    for (int i = 0; i < features.rpls.GetCount(); ++i) features.rpls[i].WriteSettings();
    EXPECT_TRUE(features.geodesy.Save());
    features.pipeRoute.WriteSettings();
    features.pipeRoute.WriteActive();
    for (int i = 0; i < features.routes.GetCount(); ++i) {
        features.routes[i].SaveDrawingOptions();
        features.routes[i].SaveCorridorOptions();
        features.routes[i].SaveOrder();
    }
    for (int i = 0; i < features.sailLines.GetCount(); ++i) {
        features.sailLines[i].SaveDrawingOptions();
        features.sailLines[i].SaveOrder();
    }
    features.dtm.SaveSettings();
    features.shapes.Save();
    LoadShapeFiles(features.shapes);
    for (const auto& shape : features.shapes.shapes) shape->WriteSettings();
    std::set<fs::path> written, delivered;
    for (const auto& [root, found] :
         {std::pair{drives.Root(), &written}, std::pair{fs::path(QUILLON_SAMPLE_JOB), &delivered}}) {
        for (const auto& entry : fs::recursive_directory_iterator(root)) {
            if (entry.is_regular_file()) found->insert(fs::relative(entry.path(), root));
        }
    }
    EXPECT_EQ(written, delivered);
    for (const fs::path& file : delivered) {
        EXPECT_EQ(Bytes(drives.Root() / file), Bytes(fs::path(QUILLON_SAMPLE_JOB) / file)) << file;
    }
}

}  // namespace
}  // namespace quillon
