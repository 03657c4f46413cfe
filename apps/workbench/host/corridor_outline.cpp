#include "host/corridor_outline.h"

#include <algorithm>
#include <cmath>

namespace quillon {
namespace {

/// As far from its point as a corner is drawn, in widths of its side: the limit of mitres that drawing programs share.
constexpr double kMostWidths = 4.0;

double Dot(tagXY a, tagXY b) {
    return a.x * b.x + a.y * b.y;
}

tagXY Between(tagXY from, tagXY to) {
    return {to.x - from.x, to.y - from.y};
}

/// Of length 1, or of none.
tagXY Unit(tagXY v) {
    const double length = std::hypot(v.x, v.y);
    return length > 0 ? tagXY{v.x / length, v.y / length} : tagXY();
}

/// Adds one corner, or the two that stand for one too far out: on the sides of the legs coming in and going out, as far
/// along as the bound lies.
void AddCorner(tagXY before, tagXY at, tagXY after, tagXY corner, double width, std::vector<tagXY>& outline) {
    const double most = kMostWidths * std::abs(width), distance = std::hypot(corner.x - at.x, corner.y - at.y);
    if (!(distance > most)) return outline.push_back(corner);
    const tagXY out = Unit(Between(at, corner));
    for (const tagXY along : {Unit(Between(before, at)), Unit(Between(at, after))}) {
        const double ahead = Dot(out, along);
        // The corner is where the side of the leg, `across` of it, is crossed by the other one.
        const tagXY across{out.x - ahead * along.x, out.y - ahead * along.y};
        const tagXY foot{at.x + distance * across.x, at.y + distance * across.y};
        const double aside = Dot(Between(at, foot), out);
        const bool isLeg = along != tagXY() && ahead != 0;
        const double step = isLeg ? (most - aside) / ahead : 0.0;
        outline.push_back(isLeg ? tagXY{foot.x + step * along.x, foot.y + step * along.y}
                                : tagXY{at.x + most * out.x, at.y + most * out.y});
    }
}

}  // namespace

std::vector<tagXY> CorridorOutline(std::size_t count, CorridorWidths widths,
                                   const std::function<CorridorPoint(std::size_t)>& pointOf) {
    std::vector<tagXY> port, starboard;
    port.reserve(2 * count);
    starboard.reserve(count);
    CorridorPoint before, here, after;
    for (std::size_t i = 0; i < count; ++i) {
        here = i == 0 ? pointOf(0) : after;
        after = i + 1 < count ? pointOf(i + 1) : here;
        if (i == 0) before = here;
        AddCorner(before.at, here.at, after.at, here.port, widths.port, port);
        AddCorner(before.at, here.at, after.at, here.starboard, widths.starboard, starboard);
        before = here;
    }
    port.insert(port.end(), starboard.rbegin(), starboard.rend());
    return port;
}

}  // namespace quillon
