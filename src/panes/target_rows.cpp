#include "panes/target_rows.h"

#include <algorithm>

namespace quillon {
namespace {

using enum TARGET_STEP;
using enum POST;

/// Whatever is done to a row, also one that doesn't react: the settings file is written and the host redraws.
constexpr RowEffect Always(UINT row) {
    return {row, EQUAL_VALUE::COUNTS, 1, false, {REDRAW}};
}

// clang-format off
constexpr std::array<TargetRow, 33> kRows = {{
    //  steps                                                    effect
    {{},                                                         Always(0)},
    {{SHOW_WAYPOINT, SHOW_ALIGNMENT, SHOW_ZONES, TRACK},         Always(TARGET_FILE)},
    {{SHOW_ALIGNMENT, SHOW_ZONES, SHOW_WAYPOINT, TRACK},         Always(TARGET_WAYPOINT)},
    // The alignment of the target's tab moves box and zones along; the shadow's leaves them where they are.
    {{BOX, SHOW_ALIGNMENT, TRACK, ZONES},                        Always(TARGET_TRUE)},
    {{SHOW_ALIGNMENT, TRACK},                                    Always(SHADOW_TRUE)},
    {{},                                                         Always(TARGET_RINGS)},
    {{},                                                         Always(TARGET_SHAPE)},
    {{BOX},                                                      Always(TARGET_BOX_X)},
    {{BOX},                                                      Always(TARGET_BOX_Y)},
    {{},                                                         Always(TARGET_RING_COUNT)},
    {{},                                                         Always(TARGET_RING_SIZE)},
    {{},                                                         Always(TARGET_RING_COLOUR)},
    {{ZONES},                                                    Always(TARGET_HEADING)},
    {{},                                                         Always(TARGET_ZONE_LINES)},
    {{},                                                         Always(TARGET_ZONE_COLOUR)},
    {{},                                                         Always(TARGET_PITCH)},
    {{},                                                         Always(TARGET_ROLL)},
    {{},                                                         Always(TARGET_DEPTH)},
    {{},                                                         Always(SHADOW_SHOW)},
    // Another class says nothing yet about the point, so nothing moves until one is picked.
    {{SHOW_OFFSETS, SHOW_OFFSET},                                Always(SHADOW_TYPE)},
    {{SHOW_OFFSET, TRACK},                                       Always(SHADOW_OFFSET)},
    {{},                                                         Always(SHADOW_X)},
    {{},                                                         Always(SHADOW_Y)},
    {{},                                                         Always(SHADOW_COLOUR)},
    {{},                                                         Always(SHADOW_THICKNESS)},
    {{},                                                         Always(SHADOW_FILL)},
    {{},                                                         Always(TARGET_CARDINALS)},
    {{},                                                         Always(TARGET_CARDINAL_COLOUR)},
    {{},                                                         Always(TARGET_RING_LABELS)},
    {{},                                                         Always(TARGET_TEXT_COLOUR)},
    {{SHOW_SAIL_LINES, SHOW_SAIL_LINE},                          Always(SAIL_FILE)},
    {{SHOW_SAIL_LINE},                                           Always(SAIL_LINE)},
    // The pair goes out once for the colour and once for the row.
    {{},                                                         {SAIL_COLOUR, EQUAL_VALUE::COUNTS, 1, false, {REDRAW, REDRAW}}},
}};
// clang-format on

}  // namespace

const TargetRow& FindTargetRow(UINT id) {
    const auto found =
        std::find_if(kRows.begin(), kRows.end(), [id](const TargetRow& row) { return row.effect.id == id; });
    return found == kRows.end() ? kRows.front() : *found;
}

}  // namespace quillon
