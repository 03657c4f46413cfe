#pragma once

#include "geodesy/catalogue/defs.h"

namespace quillon::catalogue {

// Guam: the azimuthal equidistant grid of 1945 about Agana Monument.
//
// John P. Snyder, "Map Projections: A Working Manual", US Geological Survey Professional Paper 1395, 1987, page 201.

// clang-format off
inline constexpr ProjectionDef kGuam[] = {
    //name                   comment  ell  lat0                   lon0                     FE     FN     k0
    {"Agana Monument 1945",  "Guam",    7, Dms(13, 28, 20.87887), Dms(144, 44, 55.50254),  50000, 50000, 1},  // 0
};
// clang-format on

static_assert(std::size(kGuam) == 1);
static_assert(AllInRange(kGuam));

}  // namespace quillon::catalogue
