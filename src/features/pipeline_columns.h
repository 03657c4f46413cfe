#pragma once

#include <array>

#include "features/pipeline.h"
#include "foundation/columns.h"

namespace quillon {

// clang-format off
/// The columns of a pipeline. A KP is in kilometres here, in metres along a route.
inline constexpr std::array<Column<PipelineDef>, 9> kPipelineColumns = {{
    // header    key                   cell                value
    {"Easting",  "easting",            CELL::METRES,        [](const PipelineDef& r) { return r.easting; }},
    {"Northing", "northing",           CELL::METRES,        [](const PipelineDef& r) { return r.northing; }},
    {"Range",    "range",              CELL::RANGE,         [](const PipelineDef& r) { return r.range; }},
    {"Bearing",  "bearing",            CELL::PLAIN_BEARING, [](const PipelineDef& r) { return r.bearing; }},
    {"",         "reverse_bearing",    CELL::ANGLE,         [](const PipelineDef& r) { return r.reverseBearing; }},
    {"K.P.",     "kp",                 CELL::KP_KM,         [](const PipelineDef& r) { return r.kp; }},
    {"",         "kp_rate",            CELL::KM_PER_METRE,  [](const PipelineDef& r) { return r.kpRate; }},
    {"",         "port_corridor",      CELL::POSITION,      [](const PipelineDef& r) { return r.portCorridor; }},
    {"",         "starboard_corridor", CELL::POSITION,      [](const PipelineDef& r) { return r.starboardCorridor; }},
}};

/// The columns of the KP labels of a pipeline.
inline constexpr std::array<Column<KPListingDef>, 6> kKpListingColumns = {{
    // header key         cell           value
    {"", "kp",       CELL::KP_KM,    [](const KPListingDef& r) { return r.kp; }},
    {"", "position", CELL::POSITION, [](const KPListingDef& r) { return r.position; }},
    {"", "offset_x", CELL::INTEGER,  [](const KPListingDef& r) -> long long { return r.offsetX; }},
    {"", "offset_y", CELL::INTEGER,  [](const KPListingDef& r) -> long long { return r.offsetY; }},
    {"", "rotation", CELL::INTEGER,  [](const KPListingDef& r) -> long long { return r.rotation; }},
    {"", "text",     CELL::TEXT,     [](const KPListingDef& r) -> std::string_view { return r.text; }},
}};
// clang-format on

/// What the points tables of pipelines show. Files without KPs leave the first out.
inline constexpr auto kPipelineTableColumns =
    ColumnsWithHeaders(kPipelineColumns, "K.P.", "Easting", "Northing", "Range", "Bearing");

}  // namespace quillon
