#pragma once

#include "geodesy/catalogue/defs.h"

namespace quillon::catalogue {

// The Transverse Mercator zones of the State Plane Coordinate System of 1983 (GRS 80).
//
// James E. Stem, "State Plane Coordinate System of 1983", NOAA Manual NOS NGS 5, National Geodetic Survey, 1989,
// appendix A.

inline constexpr std::string_view kStatePlane83Comment = "NAD 83";
inline constexpr int kStatePlane83Ellipsoid = 17;

// clang-format off
inline constexpr StatePlane83TransverseDef kStatePlane83Transverse[] = {
    //name                          lat0           lon0      FE       FN  k0
    {"Alabama East",         Dms(30, 30),  -Dms(85, 50), 200000,       0, OneIn(25000)},  // 0
    {"Alabama Wast",             Dms(30),  -Dms(87, 30), 600000,       0, OneIn(15000)},  // 1 sic
    {"Alaska Zone 2",            Dms(54),     -Dms(142), 500000,       0, OneIn(10000)},  // 2
    {"Alaska Zone 3",            Dms(54),     -Dms(146), 500000,       0, OneIn(10000)},  // 3
    {"Alaska Zone 4",            Dms(54),     -Dms(150), 500000,       0, OneIn(10000)},  // 4
    {"Alaska Zone 5",            Dms(54),     -Dms(154), 500000,       0, OneIn(10000)},  // 5
    {"Alaska Zone 6",            Dms(54),     -Dms(158), 500000,       0, OneIn(10000)},  // 6
    {"Alaska Zone 7",            Dms(54),     -Dms(162), 500000,       0, OneIn(10000)},  // 7
    {"Alaska Zone 8",            Dms(54),     -Dms(166), 500000,       0, OneIn(10000)},  // 8
    {"Alaska Zone 9",            Dms(54),     -Dms(170), 500000,       0, OneIn(10000)},  // 9
    {"Arizona East",             Dms(31), -Dms(110, 10), 213360,       0, OneIn(10000)},  // 10
    {"Arizona Central",          Dms(31), -Dms(111, 55), 213360,       0, OneIn(10000)},  // 11
    {"Arizona West",             Dms(31), -Dms(113, 45), 213360,       0, OneIn(15000)},  // 12
    {"Delaware",                 Dms(38),  -Dms(75, 25), 200000,       0, OneIn(200000)},  // 13
    {"Florida East",         Dms(24, 20),      -Dms(81), 200000,       0, OneIn(17000)},  // 14
    {"Florida West",         Dms(24, 20),      -Dms(82), 200000,       0, OneIn(17000)},  // 15
    {"Georgia East",             Dms(30),  -Dms(82, 10), 200000,       0, OneIn(10000)},  // 16
    {"Georgia West",             Dms(30),  -Dms(84, 10), 700000,       0, OneIn(10000)},  // 17
    {"Hawaii Zone 1",        Dms(18, 50), -Dms(155, 30), 500000,       0, OneIn(30000)},  // 18
    {"Hawaii Zone 2",        Dms(20, 20), -Dms(156, 40), 500000,       0, OneIn(30000)},  // 19
    {"Hawaii Zone 3",        Dms(21, 10),     -Dms(158), 500000,       0, OneIn(100000)},  // 20
    {"Hawaii Zone 4",        Dms(21, 50), -Dms(159, 30), 500000,       0, OneIn(100000)},  // 21
    {"Hawaii Zone 5",        Dms(21, 40), -Dms(160, 10), 500000,       0, 1.0},  // 22
    {"Idaho East",           Dms(41, 40), -Dms(112, 10), 200000,       0, OneIn(19000)},  // 23
    {"Idaho Central",        Dms(41, 40),     -Dms(114), 500000,       0, OneIn(19000)},  // 24
    {"Idaho West",           Dms(41, 40), -Dms(115, 45), 800000,       0, OneIn(15000)},  // 25
    {"Illinois East",        Dms(36, 40),  -Dms(88, 20), 300000,       0, OneIn(40000)},  // 26
    {"Illinois West",        Dms(36, 40),  -Dms(90, 10), 700000,       0, OneIn(17000)},  // 27
    {"Indianna East",        Dms(37, 30),  -Dms(85, 40), 100000,  250000, OneIn(30000)},  // 28 sic
    {"Indianna West",        Dms(37, 30),   -Dms(87, 5), 900000,  250000, OneIn(30000)},  // 29 sic
    {"Maine East",           Dms(43, 40),  -Dms(68, 30), 300000,       0, OneIn(10000)},  // 30
    {"Maine West",           Dms(42, 50),  -Dms(70, 10), 900000,       0, OneIn(30000)},  // 31
    {"Mississippi East",     Dms(29, 30),  -Dms(88, 50), 300000,       0, OneIn(20000)},  // 32
    {"Mississippi West",     Dms(29, 30),  -Dms(90, 20), 700000,       0, OneIn(20000)},  // 33
    {"Missouri East",        Dms(35, 50),  -Dms(90, 30), 250000,       0, OneIn(15000)},  // 34
    {"Missouri Central",     Dms(35, 50),  -Dms(92, 30), 500000,       0, OneIn(15000)},  // 35
    {"Missouri West",        Dms(36, 10),  -Dms(94, 30), 850000,       0, OneIn(17000)},  // 36
    {"Nevada East",          Dms(34, 45), -Dms(115, 35), 200000, 8000000, OneIn(10000)},  // 37
    {"Nevada Central",       Dms(34, 45), -Dms(116, 40), 500000, 6000000, OneIn(10000)},  // 38
    {"Nevada West",          Dms(34, 45), -Dms(118, 35), 800000, 4000000, OneIn(10000)},  // 39
    {"New Hampshire",        Dms(42, 30),  -Dms(71, 40), 300000,       0, OneIn(30000)},  // 40
    {"New Jersey",           Dms(38, 50),  -Dms(74, 30), 150000,       0, OneIn(10000)},  // 41
    {"New Mexico East",          Dms(31), -Dms(104, 20), 165000,       0, OneIn(11000)},  // 42
    {"New Mexico Central",       Dms(31), -Dms(106, 15), 500000,       0, OneIn(10000)},  // 43
    {"New Mexico West",          Dms(31), -Dms(107, 50), 830000,       0, OneIn(12000)},  // 44
    {"New York East",        Dms(38, 50),  -Dms(74, 30), 150000,       0, OneIn(10000)},  // 45
    {"New York Central",         Dms(40),  -Dms(76, 35), 250000,       0, OneIn(16000)},  // 46
    {"New York West",            Dms(40),  -Dms(78, 35), 350000,       0, OneIn(16000)},  // 47
    {"Rhode Island",          Dms(41, 5),  -Dms(71, 30), 100000,       0, OneIn(160000)},  // 48
    {"Vermont",              Dms(42, 30),  -Dms(72, 30), 500000,       0, OneIn(28000)},  // 49
    {"Wyoming East",         Dms(40, 30), -Dms(105, 10), 200000,       0, OneIn(16000)},  // 50
    {"Wyoming East Central", Dms(40, 30), -Dms(107, 20), 400000,  100000, OneIn(16000)},  // 51
    {"Wyoming West Central", Dms(40, 30), -Dms(108, 45), 600000,       0, OneIn(16000)},  // 52
    {"Wyoming West",         Dms(40, 30),  -Dms(110, 5), 800000,  100000, OneIn(16000)},  // 53
};
// clang-format on

static_assert(std::size(kStatePlane83Transverse) == 54);
static_assert(AllInRange(kStatePlane83Transverse));

}  // namespace quillon::catalogue
