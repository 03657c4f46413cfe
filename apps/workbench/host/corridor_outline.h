#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "features/corridor_mitre.h"

namespace quillon {

/// A point of a line and the corners of the corridor either side of it.
struct CorridorPoint {
    tagXY at;
    tagXY port;
    tagXY starboard;
};

/// The outline of a corridor as it is drawn: along port, and back along starboard. At a sharp turn a corner lies far
/// out, where the sides cross at last, kilometres from a turn of metres; what is drawn ends at 4 widths, cut square.
std::vector<tagXY> CorridorOutline(std::size_t count, CorridorWidths widths,
                                   const std::function<CorridorPoint(std::size_t)>& pointOf);

}  // namespace quillon
