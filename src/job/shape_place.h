#pragma once

#include <span>
#include <string>

#include "background/shape.h"
#include "foundation/values.h"
#include "geodesy/job_geodesy.h"

namespace quillon {

/// How the coordinates of a shape file come to stand on the grid of a job.
enum class SHAPE_PLACE {
    NO_GRID,       ///< as they are: the job has chosen no grid
    UNKNOWN,       ///< as they are: the file doesn't tell what they are
    FROM_DEGREES,  ///< longitudes and latitudes
    FROM_GRID      ///< of the file's own grid
};

SHAPE_PLACE PlaceOf(const CShape& shape, const CJobGeodesy& geodesy);
/// The same for people, with the datum of the file where it is taken for that of the job: none is shifted.
std::string PlaceText(const CShape& shape, const CJobGeodesy& geodesy);

/// Brings positions of the shape onto the job's grid. What the grid doesn't hold becomes no number. Works on another
/// thread as long as neither shape nor geodesy changes.
void PlaceOnGrid(const CShape& shape, const CJobGeodesy& geodesy, std::span<tagXY> points);

}  // namespace quillon
