#pragma once

#include <array>
#include <cstdint>

#include "frame/row_effects.h"

namespace quillon {

/// The rows of the target pane that react, over all its tabs. The numbers between mean nothing.
enum TARGET_ROW : UINT {
    TARGET_FILE = 1,
    TARGET_WAYPOINT = 2,
    TARGET_TRUE = 3,
    TARGET_RINGS = 4,
    TARGET_SHAPE = 5,
    TARGET_BOX_X = 6,
    TARGET_BOX_Y = 7,
    TARGET_RING_COUNT = 9,
    TARGET_RING_SIZE = 10,
    TARGET_RING_COLOUR = 11,
    TARGET_HEADING = 12,
    TARGET_ZONE_LINES = 13,
    TARGET_ZONE_COLOUR = 14,
    TARGET_PITCH = 15,
    TARGET_ROLL = 16,
    TARGET_DEPTH = 17,
    SHADOW_SHOW = 18,
    SHADOW_TRUE = 21,
    SHADOW_TYPE = 22,
    SHADOW_OFFSET = 23,
    SHADOW_X = 24,
    SHADOW_Y = 25,
    SHADOW_COLOUR = 26,
    SHADOW_THICKNESS = 27,
    SHADOW_FILL = 28,
    TARGET_CARDINALS = 30,
    TARGET_CARDINAL_COLOUR = 31,
    TARGET_RING_LABELS = 32,
    TARGET_TEXT_COLOUR = 33,
    SAIL_FILE = 34,
    SAIL_LINE = 35,
    SAIL_COLOUR = 36
};

/// What is worked out anew and shown after a row's value is stored.
enum class TARGET_STEP : std::uint8_t {
    NONE,
    BOX,             ///< the corners of the tolerance box
    SHOW_WAYPOINT,   ///< name, choice and position of the waypoint
    SHOW_ALIGNMENT,  ///< true and grid alignment and convergence, on both tabs
    SHOW_OFFSETS,    ///< the choice of points of the tracked class
    SHOW_OFFSET,     ///< the tracked point's place on the object
    TRACK,           ///< the tracked position, shown
    ZONES,           ///< the zone lines, shown
    SHOW_ZONES,
    SHOW_SAIL_LINES,  ///< the choice of lines of the file
    SHOW_SAIL_LINE    ///< the line that is followed
};

/// What follows a row, in this order: the steps, the save, the messages.
struct TargetRow {
    std::array<TARGET_STEP, 5> steps;
    RowEffect effect;
};

/// The line of a row; of an id without a reaction a line that saves and redraws alone.
const TargetRow& FindTargetRow(UINT id);

}  // namespace quillon
