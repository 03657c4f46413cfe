#pragma once

#include "geodesy/catalogue/defs.h"

namespace quillon::catalogue {

// The American polyconic grid of Brazil.
//
// International Association of Oil and Gas Producers, EPSG Geodetic Parameter Dataset: Brazil Polyconic.

// clang-format off
inline constexpr ProjectionDef kPolyconic[] = {
    //name        comment   ell  lat0  lon0      FE       FN        k0
    {"Polyconic", "Brazil",  42, 0,    -Dms(54), 5000000, 10000000, 1},  // 0
};
// clang-format on

static_assert(std::size(kPolyconic) == 1);
static_assert(AllInRange(kPolyconic));

}  // namespace quillon::catalogue
