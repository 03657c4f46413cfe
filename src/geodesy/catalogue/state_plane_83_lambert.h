#pragma once

#include "geodesy/catalogue/defs.h"

namespace quillon::catalogue {

// The Lambert zones of the State Plane Coordinate System of 1983 (GRS 80). They follow the named Lambert grids: the
// first is zone 8.
//
// James E. Stem, "State Plane Coordinate System of 1983", NOAA Manual NOS NGS 5, National Geodetic Survey, 1989,
// appendix A. Lambert zones that publish feet are held in metres.

// clang-format off
inline constexpr StatePlane83LambertDef kStatePlane83Lambert[] = {
    //name                          lat0           lon0           FE           FN         lat1         lat2
    {"Alaska Zone 10",           Dms(51),     -Dms(176),     1000000,           0, Dms(51, 50), Dms(53, 50)},  // 8
    {"Arkansas North",       Dms(34, 20),      -Dms(92),      400000,           0, Dms(34, 56), Dms(36, 14)},  // 9
    {"Arkansas South",       Dms(32, 40),      -Dms(92),      400000,      400000, Dms(33, 18), Dms(34, 46)},  // 10
    {"California 1",         Dms(39, 20),     -Dms(122),     2000000,      500000,     Dms(40), Dms(41, 40)},  // 11
    {"California 2",         Dms(37, 40),     -Dms(122),     2000000,      500000, Dms(38, 20), Dms(39, 50)},  // 12
    {"California 3",         Dms(36, 30), -Dms(120, 30),     2000000,      500000,  Dms(37, 4), Dms(38, 26)},  // 13
    {"California 4",         Dms(35, 20),     -Dms(119),     2000000,      500000,     Dms(36), Dms(37, 15)},  // 14
    {"California 5",         Dms(33, 30),     -Dms(118),     2000000,      500000,  Dms(34, 2), Dms(35, 28)},  // 15
    {"California 6",         Dms(32, 10), -Dms(116, 15),     2000000,      500000, Dms(32, 47), Dms(33, 53)},  // 16
    {"Colorado North",       Dms(39, 20), -Dms(105, 30), 914401.8289, 304800.6096, Dms(39, 43), Dms(40, 47)},  // 17
    {"Colorado Central",     Dms(37, 50), -Dms(105, 30), 914401.8289, 304800.6096, Dms(38, 27), Dms(39, 45)},  // 18
    {"Colorado South",       Dms(36, 40), -Dms(105, 30), 914401.8289, 304800.6096, Dms(37, 14), Dms(38, 26)},  // 19
    {"Connecticut",          Dms(40, 50),  -Dms(72, 45), 304800.6096, 152400.3048, Dms(41, 12), Dms(41, 52)},  // 20
    {"Florida North",            Dms(29),  -Dms(84, 30),      600000,           0, Dms(29, 35), Dms(30, 45)},  // 21
    {"Iowa North",           Dms(41, 30),  -Dms(93, 30),     1500000,     1000000,  Dms(42, 4), Dms(43, 16)},  // 22
    {"Iowa South",               Dms(40),  -Dms(93, 30),      500000,           0, Dms(40, 37), Dms(41, 47)},  // 23
    {"Kansas North",         Dms(38, 20),      -Dms(98),      400000,           0, Dms(38, 43), Dms(39, 47)},  // 24
    {"Kansas South",         Dms(36, 40),  -Dms(98, 30),      400000,      400000, Dms(37, 16), Dms(38, 34)},  // 25
    {"Kentucky North",       Dms(37, 30),  -Dms(84, 15),      500000,           0, Dms(37, 58), Dms(38, 58)},  // 26
    {"Kentucky South",       Dms(36, 20),  -Dms(85, 45),      500000,      500000, Dms(36, 44), Dms(37, 56)},  // 27
    {"Louisiana North",      Dms(30, 30),  -Dms(92, 30),     1000000,           0, Dms(31, 10), Dms(32, 40)},  // 28
    {"Louisiana South",      Dms(28, 30),  -Dms(91, 20),     1000000,           0, Dms(29, 18), Dms(30, 42)},  // 29
    {"Louisiana Offshore",   Dms(25, 30),  -Dms(91, 20),     1000000,           0, Dms(26, 10), Dms(27, 50)},  // 30
    {"Maryland",             Dms(37, 40),      -Dms(77),      400000,           0, Dms(38, 18), Dms(39, 27)},  // 31
    {"Mass Mainland",            Dms(41),  -Dms(71, 30),      200000,      750000, Dms(41, 43), Dms(42, 41)},  // 32
    {"Mass Island",              Dms(41),  -Dms(70, 30),      500000,           0, Dms(41, 17), Dms(41, 29)},  // 33
    {"Michigan North",       Dms(44, 47),      -Dms(87),     8000000,           0, Dms(45, 29),  Dms(47, 5)},  // 34
    {"Michigan Central",     Dms(43, 19),  -Dms(84, 22),     6000000,           0, Dms(44, 11), Dms(45, 42)},  // 35
    {"Michigan South",       Dms(41, 30),  -Dms(84, 22),     4000000,           0,  Dms(42, 6), Dms(43, 40)},  // 36
    {"Minnesota North",      Dms(46, 30),   -Dms(93, 6),      800000,      100000,  Dms(47, 2), Dms(48, 38)},  // 37
    {"Minnesota Central",        Dms(45),  -Dms(94, 15),      800000,      100000, Dms(45, 37),  Dms(47, 3)},  // 38
    {"Minnesota South",          Dms(43),      -Dms(94),      800000,      100000, Dms(43, 47), Dms(45, 13)},  // 39
    {"Montana",              Dms(44, 15), -Dms(109, 30),      600000,           0,     Dms(45),     Dms(49)},  // 40
    {"Nebraska",             Dms(39, 50),     -Dms(100),      500000,           0,     Dms(40),     Dms(43)},  // 41
    {"New York Long Island", Dms(40, 10),      -Dms(74),      300000,           0, Dms(40, 40),  Dms(41, 2)},  // 42
    {"North Carolina",       Dms(33, 45),      -Dms(79),   609601.22,           0, Dms(34, 20), Dms(36, 10)},  // 43
    {"North Dakota North",       Dms(47), -Dms(100, 30),      600000,           0, Dms(47, 26), Dms(48, 44)},  // 44
    {"North Dakota South",   Dms(45, 40), -Dms(100, 30),      600000,           0, Dms(46, 11), Dms(47, 29)},  // 45
    {"Ohio North",           Dms(39, 40),  -Dms(82, 30),      600000,           0, Dms(40, 26), Dms(41, 42)},  // 46
    {"Ohio South",               Dms(38),  -Dms(82, 30),      600000,           0, Dms(38, 44),  Dms(40, 2)},  // 47
    {"Oklahoma North",           Dms(35),      -Dms(98),      600000,           0, Dms(35, 34), Dms(36, 46)},  // 48
    {"Oklahoma South",       Dms(33, 20),      -Dms(98),      600000,           0, Dms(33, 56), Dms(35, 14)},  // 49
    {"Oregan North",         Dms(43, 40), -Dms(120, 30),     2500000,           0, Dms(44, 20),     Dms(46)},  // 50 sic
    {"Oregan South",         Dms(41, 40), -Dms(120, 30),     1500000,           0, Dms(42, 20),     Dms(44)},  // 51 sic
    {"Pennsylvania North",   Dms(40, 10),  -Dms(77, 45),      600000,           0, Dms(40, 53), Dms(41, 57)},  // 52
    {"Pennsylvania South",   Dms(39, 20),  -Dms(77, 45),      600000,           0, Dms(39, 56), Dms(40, 58)},  // 53
    {"South Carolina",       Dms(31, 50),      -Dms(81),      609600,           0, Dms(32, 30), Dms(34, 50)},  // 54
    {"South Dakota North",   Dms(43, 50),     -Dms(100),      600000,           0, Dms(44, 25), Dms(45, 41)},  // 55
    {"South Dakota South",   Dms(42, 20), -Dms(100, 20),      600000,           0, Dms(42, 50), Dms(44, 24)},  // 56
    {"Tennessee",            Dms(34, 20),      -Dms(86),      600000,           0, Dms(35, 15), Dms(36, 25)},  // 57
    {"Texas North",              Dms(34), -Dms(101, 30),      200000,     1000000, Dms(34, 39), Dms(36, 11)},  // 58
    {"Texas North Central",  Dms(31, 40),  -Dms(98, 30),      600000,     2000000,  Dms(32, 8), Dms(33, 58)},  // 59
    {"Texas Central",        Dms(29, 40), -Dms(100, 20),      700000,     3000000,  Dms(30, 7), Dms(31, 53)},  // 60
    {"Texas South Central",  Dms(27, 50),      -Dms(99),      600000,     4000000, Dms(28, 23), Dms(30, 17)},  // 61
    {"Texas South",          Dms(25, 40),  -Dms(98, 30),      300000,     5000000, Dms(26, 10), Dms(27, 50)},  // 62
    {"Utah North",           Dms(40, 20), -Dms(111, 30),      500000,     1000000, Dms(40, 43), Dms(41, 47)},  // 63
    {"Utah Central",         Dms(38, 20), -Dms(111, 30),      500000,     2000000,  Dms(39, 1), Dms(40, 39)},  // 64
    {"Utah South",           Dms(36, 40), -Dms(111, 30),      500000,     3000000, Dms(37, 13), Dms(38, 21)},  // 65
    {"Virginia North",       Dms(37, 40),  -Dms(78, 30),     3500000,     2000000,  Dms(38, 2), Dms(39, 12)},  // 66
    {"Virginia South",       Dms(36, 20),  -Dms(78, 30),     3500000,     1000000, Dms(36, 46), Dms(37, 58)},  // 67
    {"Washington North",         Dms(47), -Dms(120, 50),      500000,           0, Dms(47, 30), Dms(48, 44)},  // 68
    {"Washington South",     Dms(45, 20), -Dms(120, 30),      500000,           0, Dms(45, 50), Dms(47, 20)},  // 69
    {"West Virginia North",  Dms(38, 30),  -Dms(79, 30),      600000,           0,     Dms(39), Dms(40, 15)},  // 70
    {"West Virginia South",      Dms(37),      -Dms(81),      600000,           0, Dms(37, 29), Dms(38, 53)},  // 71
    {"Wisconsin North",      Dms(45, 10),      -Dms(90),      600000,           0, Dms(45, 34), Dms(46, 46)},  // 72
    {"Wisconsin Central",    Dms(43, 50),      -Dms(90),      600000,           0, Dms(44, 15), Dms(45, 30)},  // 73
    {"Wisconsin South",          Dms(42),      -Dms(90),      600000,           0, Dms(42, 44),  Dms(44, 4)},  // 74
    {"Puerto Rico/Virgin I", Dms(17, 50),  -Dms(66, 26),      200000,      200000,  Dms(18, 2), Dms(18, 26)},  // 75
};
// clang-format on

static_assert(std::size(kStatePlane83Lambert) == 68);
static_assert(AllInRange(kStatePlane83Lambert));

}  // namespace quillon::catalogue
