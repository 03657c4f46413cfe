#pragma once

#include "geodesy/ellipsoid.h"

namespace quillon {

/// The bearing from north, 0 to 2 pi, in which the geodesic from the first point to the second starts. Radians. By
/// Vincenty's inverse formula (T. Vincenty, Direct and Inverse Solutions of Geodesics on the Ellipsoid, Survey Review
/// 23, 1975), good to 1e-9 radians over more than a metre; between points that lie almost opposite each other, where it
/// doesn't settle, the bearing on the sphere. 0 between equal points.
double GeodesicBearing(const CEllipsoid& ellipsoid, double lat1, double lon1, double lat2, double lon2);

}  // namespace quillon
