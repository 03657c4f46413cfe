#pragma once

#include "geodesy/catalogue/defs.h"

namespace quillon::catalogue {

// The named Transverse Mercator grids.
//
// Great Britain: Ordnance Survey, "A guide to coordinate systems in Great Britain". Ireland: Ordnance Survey Ireland
// and OSNI, "The Irish Grid". Others: International Association of Oil and Gas Producers, EPSG Geodetic Parameter
// Dataset, where it has the grid.

// clang-format off
inline constexpr ProjectionDef kTransverseMercator[] = {
    //name                    comment                  ell  lat0                   lon0                      FE                  FN                  k0
    {"Ordnance Survey",       "National Grid",           0, Dms(49),               -Dms(2),                  400000,             -100000,            0.9996012717},  // 0
    {"OSGRS80 Grid",          "",                       17, Dms(49),               -Dms(2),                  400000,             -100000,            0.9996012717},  // 1
    {"Irish",                 "National Grid",           1, Dms(53, 30),           -Dms(8),                  200000,             250000,             1.000035},      // 2
    {"Irish",                 "GPS Grid",               17, Dms(53, 30),           -Dms(8),                  200000,             250000,             1.000035},      // 3
    {"Shell North Sea",       "(0\xB0 C.M.)",           20, 0,                     0,                        500000,             0,                  0.9996},        // 4
    {"(0\xB0 C.M.)",          "GPS Based",              26, 0,                     0,                        500000,             0,                  0.9996},        // 5
    {"NAM North Sea",         "(5\xB0" "E C.M.)",       20, 0,                     Dms(5),                   500000,             0,                  0.9996},        // 6
    {"(5\xB0" "E C.M.)",      "GPS Based",              26, 0,                     Dms(5),                   500000,             0,                  0.9996},        // 7
    {"German UTM31",          "(3\xB0" "E C.M.)",       20, 0,                     Dms(3),                   3150000,            0,                  0.9996},        // 8
    {"German UTM32",          "(9\xB0" "E C.M.)",       20, 0,                     Dms(9),                   3250000,            0,                  0.9996},        // 9
    {"German UTM33",          "(12\xB0" "E C.M.)",      20, 0,                     Dms(12),                  3350000,            0,                  0.9996},        // 10: by its comment; UTM 33 itself is at 15 E
    {"Italy (Zone 1)",        "West of 12\xB0" "E",     20, 0,                     Dms(9),                   1500000,            0,                  0.9996},        // 11
    {"Italy (Zone 2)",        "East of 12\xB0" "E",     20, 0,                     Dms(15),                  2520000,            0,                  0.9996},        // 12
    {"Gauss",                 "Luxemburg",              20, Dms(49, 50),           Dms(6, 10),               80000,              100000,             1},             // 13
    {"Portugal",              "",                       20, Dms(39, 40),           -Dms(8, 7, 54.86),        200000,             300000,             1},             // 14
    {"Red Belt",              "Egyptian",               18, Dms(30),               Dms(31),                  615000,             810000,             1},             // 15
    {"Blue Belt",             "Egyptian",               18, Dms(30),               Dms(35),                  300000,             1100000,            1},             // 16
    {"Purple Belt",           "Egyptian",               18, Dms(30),               Dms(27),                  700000,             200000,             1},             // 17
    {"Purple Extended",       "Egyptian",               18, Dms(30),               Dms(27),                  700000,             1200000,            1},             // 18
    {"Pulkovo 1942 - Bursa",  "GK Zone 9",              21, 0,                     Dms(51),                  500000,             0,                  1},             // 19
    {"West Belt",             "Nigeria",                11, Dms(4),                Dms(4, 30),               230738.266,         0,                  0.99975},       // 20
    {"Mid Belt",              "Nigeria",                11, Dms(4),                Dms(8, 30),               670553.984,         0,                  0.99975},       // 21
    {"East Belt",             "Nigeria",                11, Dms(4),                Dms(12, 30),              1110369.702,        0,                  0.99975},       // 22
    {"KTM",                   "Kuwait",                 26, 0,                     Dms(48),                  500000,             0,                  1},             // 23
    {"KUDAMS",                "Kuwait",                 26, 0,                     Dms(48),                  500000,             -3000000,           1},             // 24
    {"TM83",                  "(SC-42)",                21, 0,                     Dms(39),                  75000000,           0,                  1},             // 25 sic
    {"Bombay High",           "India (ONGC)",           14, 0,                     Dms(69),                  500175,             5,                  0.9996},        // 26
    {"MbPT",                  "India",                  14, Dms(18, 57, 56.13),    Dms(72, 50, 39.54),       17525,              25000,              0.9996},        // 27
    {"North Island",          "New Zealand",            20, -Dms(39),              Dms(175, 30),             274319.5243848086,  365759.36584641144, 1},             // 28
    {"South Island",          "New Zealand",            20, -Dms(44),              Dms(171, 30),             457199.20730801433, 457199.20730801433, 1},             // 29
    {"National Grid",         "Qatar (QNG)",            20, Dms(24, 27),           Dms(51, 13),              200000,             300000,             0.99999},       // 30
    {"ITM (Old)",             "Israel",                 17, Dms(31, 44, 3.817),    Dms(35, 12, 16.261),      219529.584,         626907.3899999999,  1.0000067},     // 31
    {"ITM (New)",             "Israel",                 17, Dms(31, 44, 3.817),    Dms(35, 12, 16.261),      219529.584,         626907.3899999999,  1.0000067},     // 32 sic
    {"PetroBaltic",           "Poland",                 26, 0,                     Dms(18),                  500000,             0,                  1},             // 33
    {"Abidjan 1987",          "Cote d'Ivoire",          11, 0,                     -Dms(5),                  500000,             0,                  0.9996},        // 34
    {"Accra",                 "Ghana National Grid",    25, Dms(4, 40),            -Dms(1),                  274319.73916335806, 0,                  0.99975},       // 35
    {"Accra",                 "Ghana TM",               25, 0,                     -Dms(1),                  500000,             0,                  0.9996},        // 36
    {"Gauss Kruger 9N",       "Eastern Europe",         21, 0,                     Dms(51),                  500000,             0,                  1},             // 37
    {"Gauss Kruger 9N",       "WGS 84",                 26, 0,                     Dms(51),                  500000,             0,                  1},             // 38
};
// clang-format on

static_assert(std::size(kTransverseMercator) == 39);
static_assert(AllInRange(kTransverseMercator));

}  // namespace quillon::catalogue
