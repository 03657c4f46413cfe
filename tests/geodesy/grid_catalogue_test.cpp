#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <string>

#include "foundation/angle_units.h"
#include "geodesy/catalogue/grid_row.h"
#include "geodesy/grid.h"

namespace quillon {
namespace {

double Degrees(double radians) {
    return radians / kRadiansPerDegree;
}

class GridCatalogueTest : public testing::Test {
protected:
    GridCatalogueTest() {
        ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
        grid.ellipsoid = &ellipsoid;
    }
    CEllipsoid ellipsoid;
    CGrid grid;
};

struct Row {
    std::int32_t zone, type, subtype;
    const char* name;
    const char* comment;
    std::int32_t ellipsoid;
    std::int32_t storedSubtype;
    double lon0, FE, FN;
};

// One row of each rule, and of each form of table: a rule off by a zone, a text off by a blank, a subtype not forced.
TEST_F(GridCatalogueTest, RowsAreSetWhole) {
    for (const Row& row : {
             Row{0, 0, 0, "Grid Zone  0 (183\xB0 W)", "", 26, 0, -183, 500000, 0},
             Row{31, 0, 0, "Grid Zone 31 (3\xB0 E)", "", 26, 0, 3, 500000, 0},
             Row{30, 0, 1, "Grid Zone 30 (3\xB0 W)", "", 26, 1, -3, 500000, 10000000},
             Row{61, 0, 9, "Grid Zone 61 (183\xB0 E)", "", 26, 0, 183, 500000, 0},
             Row{10, 1, 4, "German UTM33",
                 "(12\xB0"
                 "E C.M.)",
                 20, 4, 12, 3350000, 0},
             Row{3, 2, 0, "DHDN Zone 05", "West Germany (15\xB0 E)", 3, 0, 15, 5500000, 0},
             Row{4, 2, 0, "GK Zone 01", "(3\xB0 E)", 21, 0, 3, 1500000, 0},
             Row{34, 2, 0, "GK Zone 31", "(177\xB0 W)", 21, 0, -177, 31500000, 0},
             Row{35, 2, 0, "GK Zone 32", "(171\xB0 W)", 21, 0, -171, 32500000, 0},
             Row{9, 3, 2, "Lo 35\xB0 E", "South Africa", 12, 2, 35, 0, 0},
             Row{1, 4, 0, "Alabama Wast", "NAD 83", 17, 0, -87.5, 600000, 0},
             Row{3, 5, 0, "NZ 168.55", "New Zealnd", 20, 1, 168 + 55 / 60.0, 500000, 10000000},
             Row{8, 6, 0, "Alaska Zone 10", "NAD 83", 17, 2, -176, 1000000, 0},
             Row{75, 6, 0, "Puerto Rico/Virgin I", "NAD 83", 17, 2, -(66 + 26 / 60.0), 200000, 200000},
             Row{1, 7, 0, " Grid", "Singapore", 16, 0, 103 + 51 / 60.0 + 10.808 / 3600, 30000, 30000},
             Row{2, 9, 1, "Amersfoot", "(RD) System", 3, 0, 5 + 23 / 60.0 + 15.5 / 3600, 155000, 463000},
             Row{8, 12, 7, "Alaska (Zone 7)", "Code 5007", 7, 0, -162, 213360.42672085346, 0},
             Row{10, 12, 0, "Alaska (Zone 9)", "Code 5009", 7, 0, -170, 182880.36576073154, 0},
             Row{0, 12, 0, "Alabama (East)", "Code  101", 7, 2, -309000 / 3600.0, 500000, 0},
             Row{31, 12, 0, "Florida (North) ", "Code  903", 7, 1, 304200 / 3600.0, 2000000, 36454924.53 - 36030443.05},
             Row{4, 13, 7, "Grid Zone 35 (27\xB0 E)", "NGO (Axis V)", 20, 7, 27, 500000, 0},
             Row{1, 14, 0, "Seelland", "System 34", 20, 0, 9, 500000, 0},
         }) {
        ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
        ASSERT_TRUE(grid.SetGrid(row.zone, row.type, row.subtype)) << row.name;
        EXPECT_EQ(grid.name, row.name);
        EXPECT_EQ(grid.comment, row.comment);
        EXPECT_EQ(ellipsoid.index, row.ellipsoid) << row.name;
        EXPECT_EQ(grid.subtype, row.storedSubtype) << row.name;
        EXPECT_NEAR(Degrees(grid.lon0), row.lon0, 1e-10) << row.name;
        EXPECT_NEAR(grid.FE, row.FE, 1e-9) << row.name;
        EXPECT_NEAR(grid.FN, row.FN, 1e-6) << row.name;
        EXPECT_EQ(grid.zone, row.zone);
        EXPECT_EQ(grid.type, row.type);
    }
}

TEST_F(GridCatalogueTest, UtmKeepsTheEllipsoidInUse) {
    ellipsoid.SetEllipsoid(20);
    EXPECT_TRUE(grid.SetGrid(12, UTM_GRID, 0));
    EXPECT_EQ(ellipsoid.index, 20);
    EXPECT_FALSE(grid.ellipsoidFixed);
    EXPECT_EQ(grid.utmZone, 12);
    ellipsoid = CEllipsoid();
    EXPECT_TRUE(grid.SetGrid(12, UTM_GRID, 0));
    EXPECT_EQ(ellipsoid.name, "WGS84") << "an empty one is filled";
    grid.ellipsoid = nullptr;
    EXPECT_TRUE(grid.SetGrid(5, LAMBERT, 0));
    EXPECT_EQ(grid.name, "Puerto Rico");
    grid.ellipsoid = &ellipsoid;
    EXPECT_TRUE(grid.SetGrid(0, MERCATOR, 0));
    EXPECT_FALSE(grid.ellipsoidFixed) << "the general Mercator follows no survey";
    EXPECT_TRUE(grid.SetGrid(1, MERCATOR, 0));
    EXPECT_TRUE(grid.ellipsoidFixed);
}

// The origin of a projection lies at its false origin; a false easting beside the wrong meridian doesn't show that way,
// a slip in a derivation does.
TEST_F(GridCatalogueTest, OriginsMapToTheFalseOrigin) {
    int checked = 0;
    for (const std::int32_t type : {1, 2, 4, 6, 7, 8, 9}) {
        for (std::int32_t zone = 0; zone < kGridFamilySizes[static_cast<std::size_t>(type)]; ++zone) {
            ASSERT_TRUE(grid.SetGrid(zone, type, 0));
            if (grid.lat0 == 0 && grid.lon0 == 0) continue;  // no position
            double easting = 0, northing = 0;
            grid.Forward(&easting, &northing, grid.lat0, grid.lon0);
            EXPECT_NEAR(easting, grid.FE, 1e-6) << grid.name << ' ' << grid.comment;
            EXPECT_NEAR(northing, grid.FN, 1e-6) << grid.name << ' ' << grid.comment;
            ++checked;
        }
    }
    EXPECT_EQ(checked, 39 + 36 + 54 + 76 + 2 + 1 + 3 - 2);
}

// A 1927 zone names no latitude; the derived constants must be those of the one that its table leads to.
TEST_F(GridCatalogueTest, ZonesOf1927HaveTheirOrigin) {
    const struct {
        std::int32_t zone;
        double lat0;       // degrees
        double tolerance;  // of the published figure
    } rows[] = {{0, 30.5, 1e-9}, {12, 31, 1e-9}, {28, 38, 1e-9}, {15, 35.5842283, 1e-6}};
    for (const auto& row : rows) {
        ASSERT_TRUE(grid.SetGrid(row.zone, STATE_PLANE_27, 0));
        const double lat = row.lat0 * kRadiansPerDegree;
        EXPECT_NEAR(grid.lat0, lat, row.tolerance) << grid.name;
        EXPECT_NEAR(grid.M0, ellipsoid.MeridianArc(lat), 10) << grid.name;
        EXPECT_NEAR(grid.nu0, ellipsoid.a / std::sqrt(1 - ellipsoid.e2 * std::pow(std::sin(lat), 2)), 1) << grid.name;
        double easting = 0, northing = -1;
        grid.Forward(&easting, &northing, grid.lat0, -std::fabs(grid.lon0));
        EXPECT_TRUE(grid.subtype != 2 || std::fabs(northing) < 0.01) << grid.name << northing;
    }
}

struct Match {
    std::int32_t zone, type;
    std::int32_t ellipsoid;  ///< set after the row
    std::int32_t zoneAfter, typeAfter;
    const char* why;
};

TEST_F(GridCatalogueTest, MatchEllipsoidStaysInTheFamilyWhereItCan) {
    for (const Match& match : {
             Match{0, 1, 21, 19, 1, "the first row on that ellipsoid"},
             Match{5, 1, 26, 5, 1, "a row that is on it already stays, though it isn't the first"},
             Match{6, 1, 17, 1, 1, "the first row on that ellipsoid"},
             Match{3, 3, 26, 31, 0, "no Lo row is on WGS84"},
             Match{34, 2, 3, 0, 2, "DHDN is Gauss-Kruger on Bessel"},
             Match{12, 0, 20, 12, 0, "UTM goes with any ellipsoid"},
             Match{90, 12, 17, 31, 0, "no 1927 zone is on GRS80"},
             Match{40, 6, 7, 0, 6, "Jamaica"},
         }) {
        ASSERT_TRUE(grid.SetGrid(match.zone, match.type, 0));
        ellipsoid.SetEllipsoid(match.ellipsoid);
        grid.Init();
        grid.MatchEllipsoid();
        EXPECT_EQ(grid.zone, match.zoneAfter) << match.why;
        EXPECT_EQ(grid.type, match.typeAfter) << match.why;
        EXPECT_EQ(ellipsoid.index, match.ellipsoid) << match.why;
    }
    // An ellipsoid is the same by name and comment, whatever its numbers say.
    ASSERT_TRUE(grid.SetGrid(0, TRANSVERSE_MERCATOR, 0));
    ellipsoid.a += 5;
    grid.MatchEllipsoid();
    EXPECT_EQ(grid.name, "Ordnance Survey");
    ellipsoid.name = "Of a file";
    grid.MatchEllipsoid();
    EXPECT_EQ(grid.name, "Grid Zone 31 (3\xB0 E)");
    // Numbers that are no row of the catalogue are on no ellipsoid but WGS84.
    EXPECT_FALSE(grid.SetGrid(0, 15, 0));
    grid.MatchEllipsoid();
    EXPECT_EQ(grid.type, UTM_GRID);
    grid.ellipsoid = nullptr;
    grid.SetGrid(0, GAUSS_KRUGER, 0);
    grid.MatchEllipsoid();
    EXPECT_EQ(grid.type, GAUSS_KRUGER) << "no ellipsoid, nothing to match";
}

}  // namespace
}  // namespace quillon
