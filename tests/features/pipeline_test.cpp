#include "features/pipeline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numbers>
#include <string>
#include <vector>

#include "support/scratch_drives.h"

namespace quillon {
namespace {

using Texts = std::vector<std::string>;

class PipelineTest : public testing::Test {
protected:
    bool Read(int order, std::string_view bytes) {
        CStdioFile file(drives);
        file.OpenBytes(bytes);
        pipeline.dataOrder = order;
        return pipeline.ReadFrom(file);
    }
    std::vector<double> Kps() const {
        std::vector<double> kps;
        for (const PipelineDef& point : pipeline) kps.push_back(point.kp);
        return kps;
    }
    Texts Labels() const {
        Texts texts;
        for (const KPListingDef& label : pipeline.GetKpListing()) texts.push_back(label.text);
        return texts;
    }

    ScratchDrives drives;
    CPipeline pipeline{drives};
    const ReadReport& report = pipeline.GetReport();
};

TEST_F(PipelineTest, TakesTheFieldsOfEveryOrder) {
    struct Case {
        int order;
        const char* bytes;
        std::vector<PipelineDef> points;
        PASSED_OVER fault = PASSED_OVER::NO;
    };
    const auto point = [](double easting, double northing, double kp) {
        PipelineDef p;
        p.easting = easting;
        p.northing = northing;
        p.kp = kp;
        return p;
    };
    for (const Case& c : std::vector<Case>{
             {0, "1.5,2.5,9", {point(1.5, 2.5, 0)}},
             {1, "9.5,1.5,2.5", {point(1.5, 2.5, 9.5)}},
             {1, "?,1.5,2.5", {point(1.5, 2.5, 0)}},
             {1, "1.5,2.5", {}, PASSED_OVER::NO_NORTHING},
             {2, "1.5,2.5,9.5,7", {point(1.5, 2.5, 9.5)}},
             {2, "1.5,2.5", {point(1.5, 2.5, 0)}},
             {3, "1.5,2.5", {}, PASSED_OVER::UNKNOWN_ORDER},
             {-1, "1.5,2.5", {}, PASSED_OVER::UNKNOWN_ORDER},
             {0, "Easting,Northing\n1.5,2.5", {point(1.5, 2.5, 0)}, PASSED_OVER::NO_EASTING},
             {0, "0,0\n1.5,2.5", {point(1.5, 2.5, 0)}, PASSED_OVER::ZERO_POSITION},
             // The position of the point before is dropped, also across lines of no use; coming back is none.
             {2, "1,2,3\n0,0\n1,2,4", {point(1, 2, 3)}, PASSED_OVER::ZERO_POSITION},
             {2,
              "1,2,3\n1.0,2.00,4\n5,2,5\n1,2,6",
              {point(1, 2, 3), point(5, 2, 5), point(1, 2, 6)},
              PASSED_OVER::REPEATED_POSITION}}) {
        EXPECT_EQ(Read(c.order, c.bytes), !c.points.empty()) << c.bytes;
        ASSERT_EQ(pipeline.GetSize(), static_cast<CPipeline::Index>(c.points.size())) << c.bytes;
        for (CPipeline::Index i = 0; i < pipeline.GetSize(); ++i) {
            EXPECT_EQ(pipeline[i].Position(), c.points[static_cast<std::size_t>(i)].Position()) << c.bytes;
            EXPECT_EQ(pipeline[i].kp, c.points[static_cast<std::size_t>(i)].kp) << c.bytes;
        }
        ASSERT_EQ(report.named.empty(), c.fault == PASSED_OVER::NO) << c.bytes;
        if (report.named.empty()) continue;
        EXPECT_EQ(report.named[0].reason, c.fault) << c.bytes;
    }
}

TEST_F(PipelineTest, LegsComeFromThePositions) {
    Read(1, "10,1000,1000\n11.5,1000,2500\n11.5,1300,2100\n");
    EXPECT_EQ(pipeline[0].range, 1500.0);
    EXPECT_EQ(pipeline[0].bearing, 0.0);
    EXPECT_EQ(pipeline[0].reverseBearing, std::numbers::pi);
    EXPECT_DOUBLE_EQ(pipeline[0].kpRate, 0.001);
    EXPECT_DOUBLE_EQ(pipeline[1].range, 500.0);
    EXPECT_DOUBLE_EQ(pipeline[1].sine, 0.6);
    EXPECT_DOUBLE_EQ(pipeline[1].cosine, -0.8);
    EXPECT_DOUBLE_EQ(pipeline[1].bearing, std::atan2(300.0, -400.0));
    EXPECT_EQ(pipeline[1].kpRate, 0.0);
    EXPECT_EQ(pipeline[2].range + pipeline[2].bearing + pipeline[2].sine + pipeline[2].reverseBearing, 0.0);
    // KPs of the file stand whatever the start and the direction say.
    pipeline.startKp = 100;
    pipeline.increasingKps = false;
    pipeline.ComputeKps();
    EXPECT_EQ(Kps(), (std::vector<double>{10, 11.5, 11.5}));
}

TEST_F(PipelineTest, LabelsTheKps) {
    struct Case {
        const char* what;
        int order;
        const char* bytes;
        double start;
        bool increasing;
        double interval;
        std::vector<double> kps;
        Texts labels;
    };
    constexpr const char* kNorth1500 = "1000,1000\n1000,2500\n";
    constexpr const char* kNorth1000 = "1000,1000\n1000,2000\n";
    for (const Case& c : std::vector<Case>{
             {"falling", 0, kNorth1500, 5.0, false, 1.0, {5.0, 3.5}, {"5", "4"}},
             {"falling to a label", 0, "1,1\n1,2001\n", 5.0, false, 1.0, {5.0, 3.0}, {"5", "4"}},
             {"falling below 0", 0, "1,1\n1,1501\n", 0.5, false, 0.5, {0.5, -1.0}, {"0.5", "0", "-0.5"}},
             {"from a broken start", 0, kNorth1500, 0.4, true, 1.0, {0.4, 1.9}, {"1"}},
             {"the last KP isn't listed", 0, kNorth1000, 0.0, true, 0.25, {0, 1}, {"0", "0.25", "0.5", "0.75"}},
             {"thousands keep their zeros", 0, kNorth1500, 1000.0, true, 1.0, {1000, 1001.5}, {"1000", "1001"}},
             {"over several legs", 0, "0,1\n0,601\n0,1201\n", 0.0, true, 0.5, {0, 0.6, 1.2}, {"0", "0.5", "1"}},
             {"KPs of the file", 1, "12,0,1\n13.5,0,2\n", 0.0, true, 1.0, {12, 13.5}, {"12", "13"}},
             {"a leg that runs against",
              1,
              "0,0,1\n2,0,2\n1,0,3\n3,0,4\n",
              0.0,
              true,
              1.0,
              {0, 2, 1, 3},
              {"0", "1", "2"}},
             {"all run against", 1, "3,0,1\n2,0,2\n1,0,3\n", 0.0, true, 1.0, {3, 2, 1}, {}},
             {"no interval", 0, kNorth1500, 0.0, true, 0.0, {0, 1.5}, {}},
             {"interval below 0", 0, kNorth1500, 0.0, true, -1.0, {0, 1.5}, {}}}) {
        pipeline.startKp = c.start;
        pipeline.increasingKps = c.increasing;
        pipeline.kpInterval = c.interval;
        pipeline.labelKps = true;
        ASSERT_TRUE(Read(c.order, c.bytes)) << c.what;
        ASSERT_EQ(Kps().size(), c.kps.size()) << c.what;
        for (std::size_t i = 0; i < c.kps.size(); ++i) EXPECT_NEAR(Kps()[i], c.kps[i], 1e-12) << c.what;
        EXPECT_EQ(Labels(), c.labels) << c.what;
        pipeline.labelKps = false;
        pipeline.ComputeKpListing();
        EXPECT_EQ(Labels(), Texts()) << c.what;
    }
}

TEST_F(PipelineTest, PlacesLabelsAlongTheLeg) {
    struct Case {
        double east, north;
        std::int32_t offsetX, offsetY, rotation;
    };
    pipeline.labelKps = true;
    pipeline.startKp = 0.75;
    for (const Case& c : {Case{0, 1000, 10, 0, 0}, Case{1000, 0, 0, 10, 270}, Case{0, -1000, -9, 0, 180},
                          Case{-1000, 0, 0, -10, 90}, Case{1000, 1000, 7, 7, 315}, Case{-1000, 1000, 7, -7, 45}}) {
        Read(0, "5000,5000\n" + std::to_string(5000 + c.east) + "," + std::to_string(5000 + c.north));
        ASSERT_GE(pipeline.GetKpListing().GetSize(), 1);
        const KPListingDef& label = pipeline.GetKpListing()[0];
        const double fraction = 250.0 / pipeline[0].range;
        EXPECT_EQ(label.kp, 1.0);
        EXPECT_NEAR(label.position.x, 5000 + fraction * c.east, 1e-9);
        EXPECT_NEAR(label.position.y, 5000 + fraction * c.north, 1e-9);
        EXPECT_NEAR(label.offsetX, c.offsetX, 1) << c.east << ", " << c.north;
        EXPECT_NEAR(label.offsetY, c.offsetY, 1) << c.east << ", " << c.north;
        EXPECT_LE(std::abs(label.rotation - c.rotation), 1) << c.east << ", " << c.north;
    }
}

// A slip of the hand in the interval must not take the memory or the day.
TEST_F(PipelineTest, BoundsItsLabels) {
    pipeline.labelKps = true;
    for (const double interval :
         {1e-9, 1e-300, std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        pipeline.kpInterval = interval;
        pipeline.startKp = 0;
        ASSERT_TRUE(Read(0, "1,1\n1,3000\n1,6000\n"));
        EXPECT_LE(pipeline.GetKpListing().GetSize(), 1'000'000);
        pipeline.startKp = 1e18;
        pipeline.ComputeKps();
        EXPECT_LE(pipeline.GetKpListing().GetSize(), 1'000'000);
    }
    pipeline.startKp = 0;
    for (const auto& [interval, cut] : {std::pair{1e-9, true}, std::pair{1e-300, true}, std::pair{0.5, false}}) {
        pipeline.kpInterval = interval;
        EXPECT_TRUE(Read(0, "1,1\n1,3000\n"));
        EXPECT_EQ(pipeline.IsKpListingCut(), cut) << interval;
    }
    pipeline.kpInterval = 0.1;
    EXPECT_TRUE(Read(1, "0.3,1,1\n0.3,1,100\n0.3,1,200\n0.6,1,300\n"));
    for (const KPListingDef& label : pipeline.GetKpListing()) {
        EXPECT_TRUE(std::isfinite(label.position.x) && std::isfinite(label.position.y)) << label.text;
        EXPECT_GE(label.position.y, 1.0);
    }
    // A KP that is no number counts as missing and piles no labels on its leg.
    EXPECT_TRUE(Read(1, "0.1,1,1\n1e999,1,100\n0.35,1,200\n"));
    EXPECT_EQ(pipeline.GetKpListing().GetSize(), 3);
}

TEST_F(PipelineTest, KpTexts) {
    struct Case {
        double kp;
        const char* text;
    };
    for (const Case& c :
         {Case{12, "12"}, Case{0.25, "0.25"}, Case{100, "100"}, Case{0, "0"}, Case{-0.0, "0"}, Case{-1.5, "-1.5"},
          Case{1.0005, "1"}, Case{0.3 + 1e-16, "0.3"}, Case{-0.0001, "0"}, Case{1234.5678, "1234.568"}}) {
        EXPECT_EQ(KpText(c.kp), c.text);
    }
}

TEST_F(PipelineTest, LoadsBySettingsAndForgets) {
    drives.Write("C:\\Job\\Line A.csv", "1,5,6\n2,7,8\n");
    drives.Write("C:\\MySettings\\Host\\Line_A_PIPELINE.INI", "Data Order = 1\r\nUse = 1\r\n");
    EXPECT_TRUE(pipeline.Load("C:\\Job\\Line A.csv"));
    EXPECT_EQ(Kps(), (std::vector<double>{1, 2}));
    pipeline.clearance = 12;
    pipeline.WriteActive();
    EXPECT_EQ(drives.Read("C:\\MySettings\\Host\\Active_Pipeline.INI"), "Path = C:\\Job\\Line A.csv\r\n");
    EXPECT_EQ(ReadActivePipeline(drives), "C:\\Job\\Line A.csv");
    pipeline.Clear();
    EXPECT_TRUE(pipeline.GetPath().empty() && pipeline.IsEmpty() && pipeline.GetKpListing().IsEmpty());
    EXPECT_EQ(pipeline.clearance, 12.0);
    pipeline.WriteActive();
    EXPECT_EQ(drives.Read("C:\\MySettings\\Host\\Active_Pipeline.INI"), "Path = \r\n");
    EXPECT_FALSE(pipeline.Load("C:\\Job\\None.csv"));
    EXPECT_EQ(pipeline.GetPath(), "C:\\Job\\None.csv");
    EXPECT_EQ(pipeline.clearance, 10.0);
}

}  // namespace
}  // namespace quillon
