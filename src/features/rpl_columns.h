#pragma once

#include <array>

#include "features/rpl_curves.h"
#include "foundation/columns.h"

namespace quillon {

namespace rpl_columns {

// What a plain corner or an end hasn't is missing, and not the 0 that stands in the record.
constexpr double OfCurve(const RPLDef& r, double value) {
    return r.IsCurve() ? value : MISSING_VALUE;
}
constexpr tagXY OfCurve(const RPLDef& r, tagXY at) {
    return r.IsCurve() ? at : tagXY{MISSING_VALUE, MISSING_VALUE};
}

}  // namespace rpl_columns

// clang-format off
/// The columns of a route position list. KPs are in kilometres.
inline constexpr std::array<Column<RPLDef>, 21> kRplColumns = {{
    // header key                    cell            value
    {"", "position",                 CELL::POSITION, [](const RPLDef& r) { return r.position; }},
    {"", "range",                    CELL::RANGE,    [](const RPLDef& r) { return r.range; }},
    {"", "bearing",                  CELL::ANGLE,    [](const RPLDef& r) { return r.bearing; }},
    {"", "reverse_bearing",          CELL::ANGLE,    [](const RPLDef& r) { return r.reverseBearing; }},
    {"", "kp",                       CELL::KP_KM,    [](const RPLDef& r) { return r.kp; }},
    {"", "radius",                   CELL::METRES,   [](const RPLDef& r) { return r.radius; }},
    {"", "centre",                   CELL::POSITION, [](const RPLDef& r) { return rpl_columns::OfCurve(r, r.centre); }},
    {"", "curve_start",              CELL::POSITION, [](const RPLDef& r) { return rpl_columns::OfCurve(r, r.curveStart); }},
    {"", "curve_end",                CELL::POSITION, [](const RPLDef& r) { return rpl_columns::OfCurve(r, r.curveEnd); }},
    {"", "curve_start_kp",           CELL::KP_KM,    [](const RPLDef& r) { return rpl_columns::OfCurve(r, r.curveStartKp); }},
    {"", "curve_end_kp",             CELL::KP_KM,    [](const RPLDef& r) { return rpl_columns::OfCurve(r, r.curveEndKp); }},
    {"", "start_radial",             CELL::ANGLE,    [](const RPLDef& r) { return rpl_columns::OfCurve(r, r.startRadial); }},
    {"", "end_radial",               CELL::ANGLE,    [](const RPLDef& r) { return rpl_columns::OfCurve(r, r.endRadial); }},
    {"", "interior_angle",           CELL::ANGLE,    [](const RPLDef& r) { return rpl_columns::OfCurve(r, r.interiorAngle); }},
    {"", "sweep",                    CELL::ANGLE,    [](const RPLDef& r) { return rpl_columns::OfCurve(r, r.sweep); }},
    {"", "arc_length",               CELL::RANGE,    [](const RPLDef& r) { return rpl_columns::OfCurve(r, r.arcLength); }},
    {"", "direction",                CELL::INTEGER,  [](const RPLDef& r) -> long long { return r.direction; }},
    // A list without a corridor leaves these out.
    {"", "port_corridor_start",      CELL::POSITION, [](const RPLDef& r) { return r.portCorridorStart; }},
    {"", "port_corridor_end",        CELL::POSITION, [](const RPLDef& r) { return r.portCorridorEnd; }},
    {"", "starboard_corridor_start", CELL::POSITION, [](const RPLDef& r) { return r.starboardCorridorStart; }},
    {"", "starboard_corridor_end",   CELL::POSITION, [](const RPLDef& r) { return r.starboardCorridorEnd; }},
}};
// clang-format on

inline constexpr std::size_t kRplCorridorColumns = 4;  ///< the last ones

}  // namespace quillon
