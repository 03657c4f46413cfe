#include "features/corridor_mitre.h"

#include <cmath>

namespace quillon {
namespace {

/// The sine of a turn back, below which it is a reversal: its lines cross beyond a million widths.
constexpr double kReversal = 1e-6;

}  // namespace

CorridorCorner SquareCorner(tagXY at, double sine, double cosine, CorridorWidths widths) {
    return {{at.x - cosine * widths.port, at.y + sine * widths.port},
            {at.x + cosine * widths.starboard, at.y - sine * widths.starboard}};
}

CorridorCorner MitreCorner(tagXY before, tagXY at, tagXY after, CorridorWidths widths) {
    const tagXY in{at.x - before.x, at.y - before.y};
    const tagXY out{after.x - at.x, after.y - at.y};
    const double inLength = std::hypot(in.x, in.y);
    const double outLength = std::hypot(out.x, out.y);
    const double sine = inLength > 0.0 ? in.x / inLength : 0.0;
    const double cosine = inLength > 0.0 ? in.y / inLength : 1.0;
    CorridorCorner corner = SquareCorner(at, sine, cosine, widths);
    if (inLength == 0.0 || outLength == 0.0) return corner;
    const double lengths = inLength * outLength;
    const double turnCosine = (in.x * out.x + in.y * out.y) / lengths;
    const double turnSine = (in.y * out.x - in.x * out.y) / lengths;
    if (turnCosine < 0.0 && std::fabs(turnSine) < kReversal) return corner;
    // Positive for a turn to starboard, where the starboard corner comes earlier and the port corner later. Of the two
    // forms of the tangent, each side of a right angle has the one that subtracts no nearly equal numbers.
    const double halfTurn = turnCosine < 0.0 ? (1.0 - turnCosine) / turnSine : turnSine / (1.0 + turnCosine);
    const double port = widths.port * halfTurn;
    const double starboard = widths.starboard * halfTurn;
    corner.port.x += sine * port;
    corner.port.y += cosine * port;
    corner.starboard.x -= sine * starboard;
    corner.starboard.y -= cosine * starboard;
    return corner;
}

}  // namespace quillon
