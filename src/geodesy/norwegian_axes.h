#pragma once

#include "geodesy/grid.h"

namespace quillon {

/// A position on a Norwegian axis: X northward, Y eastward, metres.
struct tagNorwegian {
    double X = 0;
    double Y = 0;
};

/// The NGO position whose polynomial image is a UTM position of the grid, by successive substitution. Below UTM zone 33
/// the position chooses the axis; from there on the grid's own axis, 1 to 8, serves. The grid keeps the axis that
/// served and its name as comment. Where there is none (an axis out of range, or a position so far away that the
/// substitution does not settle) the result is 0, 0, no position, and the grid stays as it was.
tagNorwegian NorwegianFromUtm(CGrid& grid, double easting, double northing);

}  // namespace quillon
