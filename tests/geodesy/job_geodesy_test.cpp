#include "geodesy/job_geodesy.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "geodesy/grid_search.h"
#include "support/scratch_drives.h"

namespace quillon {
namespace {

constexpr const char* kFile = "C:\\MySettings\\Host\\Geodesy.INI";

class JobGeodesy : public testing::Test {
protected:
    ScratchDrives drives;
    CJobGeodesy geodesy{drives};
};

TEST_F(JobGeodesy, WithoutAChoiceThereIsNoLatitude) {
    EXPECT_EQ(geodesy.Load(), GEODESY_FAULT::NONE);
    EXPECT_FALSE(geodesy.IsChosen());
    EXPECT_EQ(geodesy.GridText(), "no grid chosen");
    EXPECT_EQ(geodesy.DatumText(), "");
    EXPECT_FALSE(geodesy.ToGeographic({500000, 6000000}));
    EXPECT_FALSE(geodesy.FromGeographic({52, 3}));
    EXPECT_FALSE(geodesy.ScaleAt({500000, 6000000}));
    EXPECT_FALSE(drives.Exists(kFile));
}

TEST_F(JobGeodesy, LeadsToGeographicAndBack) {
    ASSERT_EQ(geodesy.Choose({}), GEODESY_FAULT::NONE);
    EXPECT_EQ(geodesy.GridText(), "Grid Zone 31 (3\xB0 E) N");
    EXPECT_EQ(geodesy.DatumText(), "WGS84");
    const auto there = geodesy.ToGeographic({500000, 5761038.2131});
    ASSERT_TRUE(there);
    EXPECT_NEAR(there->latitude, 52, 1e-9);
    EXPECT_NEAR(there->longitude, 3, 1e-9);
    const auto back = geodesy.FromGeographic({52, 3 - 360});
    ASSERT_TRUE(back);
    EXPECT_NEAR(back->y, 5761038.2131, 1e-4);
    EXPECT_NEAR(geodesy.ScaleAt({500000, 5761038})->scale, 0.9996, 1e-9);
    EXPECT_FALSE(geodesy.FromGeographic({52, 80})) << "beyond the reach of the series";
    EXPECT_FALSE(geodesy.FromGeographic({0, 0})) << "stands for no position";
    EXPECT_FALSE(geodesy.FromGeographic({95, 3}));
    EXPECT_FALSE(geodesy.ToGeographic({4e6, 6e6}));

    // Across the 180th meridian, in an array of more than one block, in place.
    ASSERT_EQ(geodesy.Choose({.type = LAMBERT, .zone = 8}), GEODESY_FAULT::NONE);
    EXPECT_EQ(geodesy.DatumText(), "GRS80") << "a grid that has an ellipsoid of its own brings it";
    std::vector<double> x(1000), y(1000);
    for (std::size_t i = 0; i < 1000; ++i) {
        x[i] = 51 + 0.003 * static_cast<double>(i);
        y[i] = i % 2 == 0 ? 172.9 : -175.0;
    }
    x[7] = 120;
    EXPECT_EQ(geodesy.FromGeographic(x, y, x, y), 999u);
    EXPECT_TRUE(std::isnan(x[7]) && std::isnan(y[7]));
    EXPECT_EQ(geodesy.ToGeographic(x, y, x, y), 999u);
    EXPECT_NEAR(x[998], 51 + 0.003 * 998, 1e-9);
    EXPECT_NEAR(y[998], 172.9, 1e-9);
    EXPECT_NEAR(y[999], -175, 1e-9);
}

TEST_F(JobGeodesy, NorwegianAxesEndWithinTheirBound) {
    EXPECT_EQ(geodesy.Choose({.type = NORWEGIAN_AXES, .zone = 1}), GEODESY_FAULT::NO_AXIS);
    ASSERT_EQ(geodesy.Choose({.type = NORWEGIAN_AXES, .zone = 1, .subtype = 2}), GEODESY_FAULT::NONE);
    EXPECT_EQ(geodesy.GridText(), "Grid Zone 32 (9\xB0 E), axis 2");
    const auto on = geodesy.FromGeographic({60, 9});
    ASSERT_TRUE(on);
    EXPECT_NEAR(on->x, 222793.405, 0.01);
    EXPECT_NEAR(geodesy.ToGeographic(*on)->latitude, 60, 1e-6);
    EXPECT_FALSE(geodesy.FromGeographic({60, 6})) << "another axis serves there";
}

// Every line of the file differs from its default; a file that was cut, or tells of what there isn't, chooses nothing.
TEST_F(JobGeodesy, KeepsTheChoice) {
    const GeodesyChoice own{.ellipsoid = GeodesyChoice::kOwn,
                            .ellipsoidName = "Clarke, of the survey",
                            .semiMajor = 6378249.145326,
                            .inverseFlattening = 293.4663077,
                            .type = TRANSVERSE_MERCATOR,
                            .zone = GeodesyChoice::kOwn,
                            .subtype = 1,
                            .gridName = "Field grid",
                            .originLatitude = -12.5,
                            .originLongitude = 12.25,
                            .falseEasting = 400000.25,
                            .falseNorthing = 9999.5,
                            .scale = 0.99965,
                            .firstParallel = 10.5,
                            .secondParallel = 20.75,
                            .shiftFile = "D:\\Shifts\\field.gsb"};
    ASSERT_EQ(geodesy.Choose(own), GEODESY_FAULT::NONE);
    ASSERT_TRUE(geodesy.Save());
    const std::string bytes = drives.Read(kFile);
    EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\n'), 17);
    CJobGeodesy again(drives);
    ASSERT_EQ(again.Load(), GEODESY_FAULT::NONE);
    GeodesyChoice expected = own;
    expected.chosen = true;
    EXPECT_TRUE(again.Choice() == expected);
    EXPECT_EQ(again.GridText(), "Field grid");
    EXPECT_EQ(again.DatumText(), "Clarke, of the survey");
    EXPECT_NEAR(again.FromGeographic({-12.5, 12.25})->x, 400000.25, 1e-6);

    geodesy.Clear();
    ASSERT_TRUE(geodesy.Save());
    EXPECT_EQ(again.Load(), GEODESY_FAULT::NONE);
    EXPECT_FALSE(again.IsChosen());
    drives.Write(kFile, "Grid Chosen = 1\r\nEllipsoid = 99\r\n");
    EXPECT_EQ(again.Load(), GEODESY_FAULT::NO_ELLIPSOID);
    EXPECT_FALSE(again.IsChosen());
}

TEST_F(JobGeodesy, RefusesWhatCannotBeWorkedOn) {
    ASSERT_EQ(geodesy.Choose({}), GEODESY_FAULT::NONE);
    constexpr std::int32_t kOwn = GeodesyChoice::kOwn;
    const struct {
        GeodesyChoice choice;
        GEODESY_FAULT fault;
    } rows[] = {
        {{.ellipsoid = 53}, GEODESY_FAULT::NO_ELLIPSOID},
        {{.ellipsoid = 31}, GEODESY_FAULT::BAD_AXES},
        {{.ellipsoid = kOwn, .semiMajor = 1737400}, GEODESY_FAULT::BAD_AXES},
        {{.ellipsoid = kOwn, .inverseFlattening = 0}, GEODESY_FAULT::BAD_AXES},
        {{.zone = 62}, GEODESY_FAULT::NO_GRID},
        {{.type = 15}, GEODESY_FAULT::NO_GRID},
        {{.type = STATE_PLANE_27, .zone = kOwn}, GEODESY_FAULT::NO_PROJECTION},
        {{.type = LAMBERT, .zone = kOwn}, GEODESY_FAULT::BAD_PARAMETERS},
        {{.type = LAMBERT, .zone = kOwn, .subtype = 1, .firstParallel = 5, .secondParallel = -5},
         GEODESY_FAULT::BAD_PARAMETERS},
        {{.type = TRANSVERSE_MERCATOR, .zone = kOwn, .scale = 0}, GEODESY_FAULT::BAD_PARAMETERS},
        {{.type = TRANSVERSE_MERCATOR, .zone = kOwn, .originLongitude = std::nan("")}, GEODESY_FAULT::BAD_PARAMETERS},
        {{.type = STEREOGRAPHIC, .zone = kOwn, .subtype = 2, .originLatitude = 90}, GEODESY_FAULT::NONE},
        {{.type = LAMBERT, .zone = kOwn, .subtype = 1, .originLatitude = 40, .firstParallel = 30, .secondParallel = 50},
         GEODESY_FAULT::NONE},
    };
    for (const auto& row : rows) {
        GeodesyChoice expected = row.fault == GEODESY_FAULT::NONE ? row.choice : geodesy.Choice();
        expected.chosen = true;
        EXPECT_EQ(geodesy.Choose(row.choice), row.fault) << FaultText(row.fault);
        EXPECT_TRUE(geodesy.Choice() == expected) << FaultText(row.fault);
        if (row.fault != GEODESY_FAULT::NONE) continue;
        const auto on = geodesy.FromGeographic({row.choice.originLatitude == 90 ? 85.0 : 41.0, 5});
        ASSERT_TRUE(on);
        EXPECT_NEAR(geodesy.ToGeographic(*on)->longitude, 5, 1e-9);
    }
}

TEST(GridSearch, FindsByNameAreaAndNumber) {
    ASSERT_EQ(AllGrids().size(), 430u);
    EXPECT_EQ(FindGrids("  ").size(), 430u);
    for (const GridListing& grid : AllGrids()) EXPECT_NE(grid.area, "") << grid.name;
    const struct {
        const char* query;
        std::int32_t type, zone;  ///< of the first one found
        std::size_t count;        ///< 0: not looked at
    } rows[] = {
        {"utm 31", 0, 31, 1},       {"UTM 6\xB0 e", 0, 31, 0},
        {"great britain", 1, 0, 2}, {"5010", 12, 11, 1},
        {"1/14", 1, 14, 1},         {"oregon 83", 6, 50, 0},
        {"indiana east", 4, 28, 2}, {"massachusetts island", 6, 33, 2},
        {"netherlands", 9, 2, 0},   {"norw", 13, 0, 5},
        {"north sea nam", 1, 6, 1}, {"rd amersfoort", 9, 2, 1},
        {"jutland", 14, 0, 1},      {"qatar", 1, 30, 2},
    };
    for (const auto& row : rows) {
        const auto found = FindGrids(row.query);
        ASSERT_FALSE(found.empty()) << row.query;
        const bool has = std::any_of(found.begin(), found.end(), [&](const GridListing* grid) {
            return grid->type == row.type && grid->zone == row.zone;
        });
        EXPECT_TRUE(has) << row.query << " finds " << found.front()->name;
        EXPECT_TRUE(row.count == 0 || found.size() == row.count) << row.query << ' ' << found.size();
    }
    EXPECT_TRUE(FindGrids("atlantis").empty());
    EXPECT_TRUE(FindGrids("utm 62").empty()) << "a number is a number, and no part of one";
}

}  // namespace
}  // namespace quillon
