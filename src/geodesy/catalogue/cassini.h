#pragma once

#include "geodesy/catalogue/defs.h"

namespace quillon::catalogue {

// Cassini-Soldner grids.
//
// International Association of Oil and Gas Producers, EPSG Geodetic Parameter Dataset: Qatar Grid (its false northing
// is 100000 m there), Singapore Grid.

// clang-format off
inline constexpr ProjectionDef kCassini[] = {
    //name             comment      ell  lat0                 lon0                    FE      FN       k0
    {"Modified Grid",  "Qatar",      18, Dms(25, 22, 56.5),   Dms(50, 45, 41),        100000, 1100000, 1},  // 0
    {" Grid",          "Singapore",  16, Dms(1, 17, 15.528),  Dms(103, 51, 10.808),   30000,  30000,   1},  // 1 sic
};
// clang-format on

static_assert(std::size(kCassini) == 2);
static_assert(AllInRange(kCassini));

}  // namespace quillon::catalogue
