#include "geodesy/grid_figures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>
#include <vector>

#include "foundation/angle_units.h"
#include "geodesy/catalogue/grid_row.h"
#include "geodesy/grid.h"

namespace quillon {
namespace {

class GridFigures : public testing::Test {
protected:
    GridFigures() {
        ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
        grid.ellipsoid = &ellipsoid;
    }
    void Choose(const GridFiguresBlock& block) {
        ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
        ASSERT_TRUE(grid.SetGrid(block.zone, block.type, block.subtype));
    }
    double Miss(const GridFiguresBlock::Position& p) {
        double easting = 0, northing = 0;
        grid.Forward(&easting, &northing, p.lat * kRadiansPerDegree, p.lon * kRadiansPerDegree);
        return std::hypot(easting - p.easting, northing - p.northing);
    }

    const std::vector<GridFiguresBlock> blocks = ReadGridFigures();
    CEllipsoid ellipsoid;
    CGrid grid;
};

TEST_F(GridFigures, EveryRowIsWhereTheAuthorityHasIt) {
    for (const GridFiguresBlock& block : blocks) {
        Choose(block);
        for (const GridFiguresBlock::Position& p : block.positions) {
            EXPECT_LE(Miss(p), block.tolerance)
                << grid.name << ' ' << grid.comment << " (type " << block.type << ", zone " << block.zone << ") at "
                << p.lat << ' ' << p.lon << ": " << block.source;
        }
    }
}

// The array form chooses the formula once for all positions; it must choose the same one.
TEST_F(GridFigures, ArraysGiveTheSamePositions) {
    for (const GridFiguresBlock& block : blocks) {
        Choose(block);
        std::vector<double> lats, lons;
        for (const GridFiguresBlock::Position& p : block.positions) {
            lats.push_back(p.lat * kRadiansPerDegree);
            lons.push_back(p.lon * kRadiansPerDegree);
        }
        std::vector<double> eastings(lats.size()), northings(lats.size());
        grid.ForwardAll(eastings, northings, lats, lons);
        for (std::size_t i = 0; i < lats.size(); ++i) {
            double easting = 0, northing = 0;
            grid.ForwardAlone(&easting, &northing, lats[i], lons[i]);
            EXPECT_NEAR(eastings[i], easting, 1e-6) << grid.name << ' ' << grid.comment;
            EXPECT_NEAR(northings[i], northing, 1e-6) << grid.name << ' ' << grid.comment;
        }
    }
}

}  // namespace
}  // namespace quillon
