// Any bytes as a .prj file: the ellipsoid stays earth-like, and the grid one of the types that a .prj can name.
#include <cstdint>
#include <string>
#include <string_view>

#include "background/prj_reader.h"
#include "feature_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quillon::CEllipsoid ellipsoid;
    quillon::CGrid grid;
    std::string transformation;
    bool geographic = false;
    quillon::ShapeReport report;
    ellipsoid.SetEllipsoid(quillon::CEllipsoid::kWgs84);
    grid.ellipsoid = &ellipsoid;
    grid.Init();
    const int before = grid.type;
    quillon::ReadProjectionText({reinterpret_cast<const char*>(data), size},
                                {ellipsoid, grid, transformation, geographic}, &report);
    fuzz::Require(ellipsoid.rf >= 290 && ellipsoid.rf <= 310);
    fuzz::Require(grid.type == before || grid.type == quillon::TRANSVERSE_MERCATOR || grid.type == quillon::MERCATOR);
    fuzz::Require(!geographic || grid.type == before);
    fuzz::Require(transformation.size() <= size && report.lines.size() <= quillon::ShapeReport::kMostNamed);
    return 0;
}
