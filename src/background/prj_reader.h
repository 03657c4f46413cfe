#pragma once

#include <string>
#include <string_view>

#include "background/shape_report.h"
#include "geodesy/ellipsoid.h"
#include "geodesy/grid.h"

namespace quillon {

/// What a .prj file says beyond what the grid can hold: whether the grid is that of the file.
struct ProjectionRemarks {
    std::string projection{};    ///< as it is named; empty for geographic coordinates
    double unit = 0;             ///< the last of the text: radians, or metres behind a projection; 0 for none
    bool flatteningKept = true;  ///< the ellipsoid has the flattening that is written
};

/// What a .prj file fills. The grid has the ellipsoid lent.
struct ProjectionTarget {
    CEllipsoid& ellipsoid;
    CGrid& grid;
    std::string& transformationName;
    bool& geographic;
    ProjectionRemarks* remarks = nullptr;
};

/// Reads well-known text as ESRI software writes it, keyword by keyword from the left, without a grammar: what the
/// first line says of datum, ellipsoid and projection goes into the target, and a text that breaks off leaves what was
/// set so far. Two projections are known, transverse Mercator and Mercator; another one keeps the type of the grid,
/// whose parameters are set all the same. Units are passed over: the false origin counts as metres. An inverse
/// flattening outside 290 to 310, that of a sphere too, becomes 297.
///
/// Takes any bytes. The report gets a line for a byte order mark, for brackets that don't pair, for what stands behind
/// the first line, and for a projection that isn't known.
void ReadProjectionText(std::string_view bytes, const ProjectionTarget& target, ShapeReport* report = nullptr);

}  // namespace quillon
