#pragma once

#include <array>

#include "features/grid_waypoint.h"
#include "foundation/columns.h"

namespace quillon {

// clang-format off
/// The columns of a waypoint file. Which of them a table shows hangs on the data order.
inline constexpr std::array<Column<GridWaypointDef>, 5> kWaypointColumns = {{
    // header    key         cell         value
    {"Easting",  "easting",  CELL::METRES, [](const GridWaypointDef& r) { return r.easting; }},
    {"Northing", "northing", CELL::METRES, [](const GridWaypointDef& r) { return r.northing; }},
    {"Ht",       "height",   CELL::METRES, [](const GridWaypointDef& r) { return r.height; }},
    {"Radius",   "radius",   CELL::METRES, [](const GridWaypointDef& r) { return r.radius; }},
    {"Name",     "name",     CELL::TEXT,   [](const GridWaypointDef& r) -> std::string_view { return r.name; }},
}};
// clang-format on

}  // namespace quillon
