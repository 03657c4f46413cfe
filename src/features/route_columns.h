#pragma once

#include <array>

#include "features/route.h"
#include "foundation/columns.h"

namespace quillon {

// clang-format off
/// The columns of a route. A KP is in metres here, in kilometres along a pipeline.
inline constexpr std::array<Column<RouteDef>, 10> kRouteColumns = {{
    // header    key                         cell               value
    {"Easting",  "easting",                  CELL::METRES,       [](const RouteDef& r) { return r.position.x; }},
    {"Northing", "northing",                 CELL::METRES,       [](const RouteDef& r) { return r.position.y; }},
    {"Range",    "range",                    CELL::RANGE,        [](const RouteDef& r) { return r.range; }},
    {"Bearing",  "bearing",                  CELL::BEARING,      [](const RouteDef& r) { return r.bearing; }},
    {"",         "reverse_bearing",          CELL::ANGLE,        [](const RouteDef& r) { return r.reverseBearing; }},
    {"",         "kp",                       CELL::KP_METRES,    [](const RouteDef& r) { return r.kp; }},
    {"",         "kp_scale",                 CELL::KM_PER_METRE, [](const RouteDef& r) { return r.kpScale; }},
    {"",         "port_corridor_start",      CELL::POSITION,     [](const RouteDef& r) { return r.portCorridorStart; }},
    {"",         "starboard_corridor_start", CELL::POSITION,     [](const RouteDef& r) { return r.starboardCorridorStart; }},
    {"Name",     "name",                     CELL::TEXT,         [](const RouteDef& r) -> std::string_view { return r.name; }},
}};
// clang-format on

}  // namespace quillon
