#include "scene/line_clip.h"

namespace quillon {
namespace {

/// One step of Liang and Barsky, "A new concept and method for line clipping" (1984): where a segment crosses one side
/// of the box. `run` is how far the segment runs towards the outside, `room` how far its start lies inside.
bool CutAt(double run, double room, double& fromPart, double& toPart) {
    if (run == 0) return room >= 0;
    const double part = room / run;
    if (run < 0) {
        if (part > toPart) return false;
        fromPart = std::max(fromPart, part);
    } else {
        if (part < fromPart) return false;
        toPart = std::min(toPart, part);
    }
    return true;
}

/// One side of the box, as Sutherland and Hodgman, "Reentrant polygon clipping" (1974), cut at it. `Depth` is how far a
/// corner lies inside.
template <class Depth>
void CutArea(const std::vector<PixelPoint>& corners, std::vector<PixelPoint>& cut, Depth depth) {
    cut.clear();
    if (corners.empty()) return;
    PixelPoint from = corners.back();
    double fromDepth = depth(from);
    for (const PixelPoint& to : corners) {
        const double toDepth = depth(to);
        if ((fromDepth < 0) != (toDepth < 0)) {
            const double part = fromDepth / (fromDepth - toDepth);
            cut.push_back({from.x + (to.x - from.x) * part, from.y + (to.y - from.y) * part});
        }
        if (toDepth >= 0) cut.push_back(to);
        from = to;
        fromDepth = toDepth;
    }
}

}  // namespace

bool ClipSegment(const ChartBox& box, PixelPoint& from, PixelPoint& to, double* fromPart, double* toPart) {
    const double dx = to.x - from.x, dy = to.y - from.y;
    double begin = 0.0, end = 1.0;
    if (!CutAt(-dx, from.x - box.minX, begin, end) || !CutAt(dx, box.maxX - from.x, begin, end) ||
        !CutAt(-dy, from.y - box.minY, begin, end) || !CutAt(dy, box.maxY - from.y, begin, end)) {
        return false;
    }
    const PixelPoint start = from;
    if (begin > 0) from = {start.x + dx * begin, start.y + dy * begin};
    if (end < 1) to = {start.x + dx * end, start.y + dy * end};
    if (fromPart) *fromPart = begin;
    if (toPart) *toPart = end;
    return true;
}

void ClipArea(const ChartBox& box, std::vector<PixelPoint>& corners) {
    std::vector<PixelPoint> cut;
    CutArea(corners, cut, [&](PixelPoint p) { return p.x - box.minX; });
    CutArea(cut, corners, [&](PixelPoint p) { return box.maxX - p.x; });
    CutArea(corners, cut, [&](PixelPoint p) { return p.y - box.minY; });
    CutArea(cut, corners, [&](PixelPoint p) { return box.maxY - p.y; });
}

}  // namespace quillon
