#pragma once

#include "geodesy/catalogue/defs.h"

namespace quillon::catalogue {

// Oblique (double) stereographic grids.
//
// International Association of Oil and Gas Producers, EPSG Geodetic Parameter Dataset: Levant Stereographic, RD New.

// clang-format off
inline constexpr ProjectionDef kStereographic[] = {
    //name             comment         ell  lat0                  lon0               FE      FN      k0
    {"Levant Oblique", "",              30, Dms(34, 12),          Dms(39, 9),        0,      0,      0.9995341},  // 0
    {"Levant II",      "",              30, Dms(34, 12),          Dms(39, 9),        500000, 100000, 0.9995341},  // 1
    {"Amersfoot",      "(RD) System",    3, Dms(52, 9, 22.178),   Dms(5, 23, 15.5),  155000, 463000, 0.9999079},  // 2 sic
};
// clang-format on

static_assert(std::size(kStereographic) == 3);
static_assert(AllInRange(kStereographic));

}  // namespace quillon::catalogue
