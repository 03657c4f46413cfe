#pragma once

#include <cstdint>
#include <map>
#include <vector>

#include "background/dxf.h"
#include "foundation/values.h"
#include "platform/palette.h"

namespace quillon {

/// Line work of one colour: parts one after the other.
struct DrawnLines {
    std::vector<tagXY> points;
    std::vector<std::uint32_t> starts;  ///< where the parts after the first begin
};

/// Where a drawing stands on the grid.
struct DrawingPlace {
    tagXY origin;          ///< of the drawing's 0, 0; metres
    double scale = 1.0;    ///< metres to a unit of the drawing
    double heading = 0.0;  ///< degrees clockwise
};

/// The line work of a drawing where it is placed, by colour. Circles and arcs are cut into chords; what stands on a
/// layer that is off, and texts, are left out.
std::map<COLORREF, DrawnLines> PlaceDrawing(const CDxf& drawing, const DrawingPlace& place);

}  // namespace quillon
