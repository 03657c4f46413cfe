#pragma once

#include <array>

#include "features/sail_line.h"
#include "foundation/columns.h"

namespace quillon {

// clang-format off
/// The columns of a sail line file. A sheet has each end as one position, a table as two numbers.
inline constexpr std::array<Column<SailLineDef>, 9> kSailLineColumns = {{
    // header   key        cell             value
    {"Line No", "",        CELL::ROW_NUMBER, {}},
    {"",        "sol",     CELL::POSITION,   [](const SailLineDef& r) { return r.sol; }},
    {"",        "eol",     CELL::POSITION,   [](const SailLineDef& r) { return r.eol; }},
    {"SOL Eng", "",        CELL::METRES,     [](const SailLineDef& r) { return r.sol.x; }},
    {"SOL Nng", "",        CELL::METRES,     [](const SailLineDef& r) { return r.sol.y; }},
    {"EOL Eng", "",        CELL::METRES,     [](const SailLineDef& r) { return r.eol.x; }},
    {"EOL Nng", "",        CELL::METRES,     [](const SailLineDef& r) { return r.eol.y; }},
    {"Range",   "range",   CELL::RANGE,      [](const SailLineDef& r) { return r.leg.range; }},
    {"Bearing", "bearing", CELL::BEARING,    [](const SailLineDef& r) { return r.leg.bearing; }},
}};
// clang-format on

}  // namespace quillon
