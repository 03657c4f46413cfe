#pragma once

#include <array>

#include "features/boundary.h"
#include "foundation/columns.h"

namespace quillon {

// clang-format off
/// The columns of a boundary.
inline constexpr std::array<Column<tagXY>, 3> kBoundaryColumns = {{
    // header    key         cell             value
    {"No",       "",         CELL::ROW_NUMBER, {}},
    {"Easting",  "easting",  CELL::METRES,     [](const tagXY& r) { return r.x; }},
    {"Northing", "northing", CELL::METRES,     [](const tagXY& r) { return r.y; }},
}};
// clang-format on

}  // namespace quillon
