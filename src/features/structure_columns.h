#pragma once

#include <array>

#include "features/structure.h"
#include "foundation/columns.h"

namespace quillon {

// clang-format off
/// The columns of a structure file, as far as they don't hang on the list of shapes.
inline constexpr std::array<Column<StructureDef>, 9> kStructureColumns = {{
    // header    key             cell              value
    {"No.",      "",             CELL::ROW_NUMBER, {}},
    {"Name",     "name",         CELL::TEXT,       [](const StructureDef& r) -> std::string_view { return r.name; }},
    {"Easting",  "easting",      CELL::METRES,     [](const StructureDef& r) { return r.position.x; }},
    {"Northing", "northing",     CELL::METRES,     [](const StructureDef& r) { return r.position.y; }},
    {"",         "height",       CELL::METRES,     [](const StructureDef& r) { return r.height; }},
    {"Heading",  "heading",      CELL::DEGREES,    [](const StructureDef& r) { return r.heading; }},
    {"",         "length",       CELL::METRES,     [](const StructureDef& r) { return r.length; }},
    {"",         "shape_number", CELL::INTEGER,    [](const StructureDef& r) -> long long { return r.shapeNumber; }},
    {"",         "shape",        CELL::TEXT,       [](const StructureDef& r) -> std::string_view { return r.shape; }},
}};
// clang-format on

}  // namespace quillon
