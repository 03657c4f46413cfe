#pragma once

#include "geodesy/catalogue/defs.h"

namespace quillon::catalogue {

// Mercator grids, as the surveys that use them state them. "NZ 168.55" is named for its meridian, 168 degrees 55
// minutes. The false northing of a subtype-1 row applies at the equator.

// clang-format off
inline constexpr MercatorDef kMercator[] = {
    // name                comment           ell  lat0      lon0          FE        FN        k0  subtype
    {{"General",           "",                26, 0,        0,            0,        0,        1}, 0},  // 0
    {{"Portugal",          "",                26, Dms(33),  -Dms(20),     0,        0,        1}, 0},  // 1
    {{"Mercator",          "Origin Unknown",   3, 0,        Dms(98),      500000,   0,        1}, 0},  // 2
    {{"NZ 168.55",         "New Zealnd",      20, -Dms(41), Dms(168, 55), 500000,   10000000, 1}, 1},  // 3 sic
    {{"LP Changi North",   "Singapore",       26, Dms(23),  Dms(180),     12000000, 0,        1}, 1},  // 4
};
// clang-format on

/// The row that follows no survey: its ellipsoid may be changed.
inline constexpr int kGeneralMercatorZone = 0;

static_assert(std::size(kMercator) == 5);
static_assert(AllInRange(kMercator));

}  // namespace quillon::catalogue
