#pragma once

#include "geodesy/catalogue/defs.h"

namespace quillon::catalogue {

// Hotine's oblique Mercator; the zone is the subtype. The NAD 83 row holds the rectification of the older ellipsoid and
// so lies 11 m from the official zone: it stands for positions that were made with it.
//
// M. Hotine, "The Orthomorphic Projection of the Spheroid", Empire Survey Review, 1946-47. Alaska: Charles N. Claire,
// "State Plane Coordinates by Automatic Data Processing", Publication 62-4, US Coast and Geodetic Survey, 1968.

// clang-format off
inline constexpr std::array<double, 6> kAlaska1Table = {-0.327015517176, 0.945018968871, 7000000, -1000000, 5000000, -5000000};

inline constexpr ObliqueDef kObliqueMercator[] = {
    // name              comment     ell  lat0     lon0           FE FN k0        W0 to W5
    {{"R.S.O.",          "Borneo",    15, Dms(4),  Dms(115),      0, 0, 0.99984}, {0.8, 0.6}},                                                                       // 0
    {{"R.S.O.",          "Malaysia",  16, Dms(4),  Dms(102, 15),  0, 0, 0.99984}, {-0.6, 0.8, 482802.77986502094, -643737.0398200279, 804671.2997750349}},           // 1
    {{"Alaska (Zone 1)", "NAD 27",     7, Dms(57), -Dms(133, 40), 0, 0, 0.9999},  kAlaska1Table},                                                                    // 2
    {{"Alaska (Zone 1)", "NAD 83",    17, Dms(57), -Dms(133, 40), 0, 0, 0.9999},  kAlaska1Table},                                                                    // 3 sic
};
// clang-format on

static_assert(std::size(kObliqueMercator) == 4);
static_assert(AllInRange(kObliqueMercator));

}  // namespace quillon::catalogue
