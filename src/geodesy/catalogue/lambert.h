#pragma once

#include "geodesy/catalogue/defs.h"

namespace quillon::catalogue {

// Lambert conformal conic grids. Zones 0 to 7; the State Plane zones of 1983 follow them.
//
// International Association of Oil and Gas Producers, EPSG Geodetic Parameter Dataset: Jamaica National Grid, Nord and
// Sud Tunisie, Iraq zone; Puerto Rico CS27, which is defined by two parallels in US survey feet there. Syria has
// another origin than the Syria Lambert published.

// clang-format off
inline constexpr LambertDef kLambert[] = {
    // name                     comment           ell  lat0         lon0          FE                  FN                 k0            sub lat1     lat2
    {{"Jamaican National Grid", "Jamaica 1969",     7, Dms(18),     -Dms(77),     250000,             150000,            1},            0, 0,       0},        // 0
    {{"Nord Tunisie",           "North of 38.5g",  11, Dms(36),     Dms(9, 54),   500000,             300000,            0.999625544},  0, 0,       0},        // 1
    {{"Sud Tunisie",            "South of 38.5g",  11, Dms(33, 18), Dms(9, 54),   500000,             300000,            0.9996258},    0, 0,       0},        // 2
    {{"Syrian Arab Republic",   "",                11, Dms(36),     Dms(37, 21),  300000,             450000,            1},            0, 0,       0},        // 3
    {{"Iraq Zone",              "",                11, Dms(32, 30), Dms(45),      1500000,            1166200,           0.9987864078}, 0, 0,       0},        // 4
    {{"Puerto Rico",            "CS27",             7, Dms(18, 14), -Dms(66, 26), 152400.30480060962, 44270.04521209044, 0.9999939449}, 0, 0,       0},        // 5
    {{"China",                  "",                35, 0,           Dms(114),     500000,             501138.398,        1},            1, Dms(18), Dms(24)},  // 6
    {{"South Stream",           "Black Sea",       26, Dms(43),     Dms(34),      0,                  0,                 1},            1, Dms(30), Dms(50)},  // 7
};
// clang-format on

static_assert(std::size(kLambert) == 8);
static_assert(AllInRange(kLambert));

}  // namespace quillon::catalogue
