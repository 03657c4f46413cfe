#pragma once

#include <string>

#include "foundation/angle_display.h"
#include "geodesy/job_geodesy.h"

namespace quillon {

/// "UTM Zone 31 N / WGS 84": the grid of the job and the ellipsoid that stands for its datum, or "no grid chosen".
std::string GridBadgeText(const CJobGeodesy& geodesy);

/// What the job's grid says of a position.
struct GridPlaceText {
    /// Latitude and longitude; "outside the grid" where there are none, empty while no grid is chosen.
    std::string geographic;
    /// "convergence +1.2345°  scale 0.999612"; empty without a latitude. True bearing = grid bearing + convergence.
    std::string scale;
};
/// In the operator's notation, to a few centimetres.
GridPlaceText TextOfPlace(const CJobGeodesy& geodesy, tagXY position, const tagAngleDisplay& display);

}  // namespace quillon
