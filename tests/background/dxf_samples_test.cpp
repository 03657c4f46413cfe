// Real drawings of many programs, against the counts of two other readers. Skipped where the drawings aren't at hand.

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "background/dxf.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

const std::filesystem::path kSamples = QUILLON_SHARED_DATA "/samples/dxf";

struct Sample {
    const char* file;
    const char* entities;  ///< of the drawing, by ezdxf 0.18, of the kinds that are kept
    const char* blocks;    ///< of its blocks, the same
    int features;          ///< by GDAL 3.6; -1 where it expands, splits or leaves out some
};

constexpr Sample kSampleCounts[] = {
    {"ASCII_R12.dxf", "INSERT 1 LINE 2", "TEXT 1", -1},
    {"Leica_Disto_S910.dxf", "LINE 10 POINT 11 TEXT 11", "", 32},
    {"PinkEggFromLW.dxf", "", "", -1},
    {"additional-entities.dxf", "HATCH 2 INSERT 1 SPLINE 1", "ATTDEF 1 LWPOLYLINE 1", -1},
    {"assorted.dxf", "ARC 1 ELLIPSE 2 INSERT 1 LINE 2 MTEXT 1 POINT 1", "LINE 5 MTEXT 2", -1},
    {"blocks1.dxf", "INSERT 2", "CIRCLE 1 LINE 4", -1},
    {"cc_dxflib.dxf", "POLYLINE 1", "", 1},
    {"circlesellipsesarcs.dxf", "ARC 2 CIRCLE 1 ELLIPSE 2", "", 5},
    {"entities_only.dxf", "POINT 2", "", 2},
    {"extendeddata.dxf", "LINE 8 VIEWPORT 1", "", -1},
    {"floorplan.dxf", "ARC 20 CIRCLE 9 HATCH 13 INSERT 10 LINE 624 LWPOLYLINE 124 MTEXT 9 TEXT 89 VIEWPORT 3",
     "ARC 60 ATTDEF 2 CIRCLE 23 HATCH 13 INSERT 275 LINE 1365 LWPOLYLINE 278 MTEXT 135 POINT 378 TEXT 80", -1},
    {"frozen-off.dxf", "INSERT 4 LINE 4", "CIRCLE 1 INSERT 4 LINE 8 POLYLINE 1", -1},
    {"hatches_1.dxf", "ARC 6 HATCH 10 LWPOLYLINE 16", "", 32},
    {"houses_of_parliament_georeferenced.dxf", "LWPOLYLINE 1", "", 1},
    {"mtext_complex_inline_codes.dxf", "LINE 4 MTEXT 8", "", 12},
    {"nested-insert-layers.dxf", "INSERT 1", "INSERT 1 LINE 1", -1},
    {"north_atlantic_coast_degrees.dxf", "LWPOLYLINE 183", "", 183},
    {"north_sea_coast_utm31.dxf", "LWPOLYLINE 31", "", 31},
    {"polylines.dxf", "POLYLINE 12", "", 12},
    {"sample_AC1009_ascii.dxf", "ARC 1 CIRCLE 8 INSERT 45 LINE 28 POINT 6 POLYLINE 26 SOLID 1 TEXT 29 VIEWPORT 2",
     "ARC 2 ATTDEF 5 CIRCLE 5 INSERT 38 LINE 1296 POINT 34 POLYLINE 286 SOLID 344 TEXT 227", -1},
    {"sample_AC1032.dxf",
     "ARC 2 CIRCLE 3 ELLIPSE 1 HATCH 3 INSERT 1 LINE 16 LWPOLYLINE 1 MTEXT 2 POINT 1 POLYLINE 5 SOLID 1 SPLINE 1 TEXT "
     "1 VIEWPORT 2",
     "ARC 10 ATTDEF 1 CIRCLE 2 INSERT 4 LINE 50 LWPOLYLINE 1 MTEXT 21 POINT 44 SOLID 17", -1},
    {"usa.dxf", "LWPOLYLINE 59", "", 59},
    {"utf-8.dxf", "POINT 1", "", 1},
    {"world.dxf", "CIRCLE 1 LINE 2872 TEXT 2", "", 2875},
    {"POLI-ALL210_12.DXF", "POLYLINE 30", "", -1},
};

using Entities = std::vector<const CDxfEntity*>;

std::string Counts(const Entities& entities, std::map<std::string_view, int> counts = {}) {
    for (const CDxfEntity* entity : entities) ++counts[DxfKeyword(*entity)];
    std::string text;
    for (const auto& [keyword, count] : counts) {
        text.append(text.empty() ? "" : " ").append(keyword).append(" ").append(std::to_string(count));
    }
    return text;
}

class DxfSamplesTest : public testing::Test {
protected:
    void SetUp() override {
        if (!std::filesystem::exists(kSamples)) GTEST_SKIP() << "no sample drawings";
    }
    bool Read(const std::string& file) {
        report = {};
        return dxf.Read((kSamples / file).string(), nullptr, &report);
    }

    ScratchDrives drives;
    CDxf dxf{drives};
    KindReport report;
};

TEST_F(DxfSamplesTest, HoldTheEntitiesThatOthersFind) {
    for (const Sample& sample : kSampleCounts) {
        ASSERT_TRUE(Read(sample.file)) << sample.file;
        EXPECT_EQ(Counts(dxf.entities), sample.entities) << sample.file;
        Entities blocks;
        for (const CDxfBlock& block : dxf.blocks) {
            blocks.insert(blocks.end(), block.entities.begin(), block.entities.end());
        }
        EXPECT_EQ(Counts(blocks), sample.blocks) << sample.file;
        const auto features = sample.features < 0 ? std::ssize(dxf.entities) : sample.features;
        EXPECT_EQ(std::ssize(dxf.entities), features) << sample.file;
    }
}

TEST_F(DxfSamplesTest, AreReportedAsTheyAre) {
    Read("PinkEggFromLW.dxf");
    EXPECT_EQ(report.CountOf("3DFACE"), 288u);
    Read("bin_dxf_r2000.dxf");
    EXPECT_FALSE(dxf.hasSections);
    Read("frozen-off.dxf");
    EXPECT_EQ(std::count_if(dxf.layers.begin(), dxf.layers.end(), [](const CDxfLayer& l) { return l.IsOff(); }), 2);
    Read("mtext_complex_inline_codes.dxf");
    const std::string shown = dxf.ShownText(dxf.entities[0]->As<CDxfText>());
    EXPECT_EQ(shown.substr(0, 33), "Complex MTEXT content:\n\nHEADLINE\n");
    EXPECT_NE(shown.find("Bulletlist:\n\x95 first item\n"), std::string::npos) << shown;
    EXPECT_NE(shown.find("fractions: 1/2 and 1/2 and 1/2"), std::string::npos) << shown;
    EXPECT_EQ(shown.find_first_of("{}\\"), std::string::npos);
}

}  // namespace
}  // namespace quillon
