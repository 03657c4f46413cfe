#include "scene/polyline_thinning.h"

#include <cmath>

namespace quillon {
namespace {

/// So many points are looked at behind the last that would do, in the hope of a better one.
constexpr std::size_t kLookAhead = 256;

struct Direction {
    double x = 0.0;
    double y = 0.0;
};

double Cross(Direction a, Direction b) {
    return a.x * b.y - a.y * b.x;
}

/// The directions from one point in which a ray passes within the tolerance of all points met so far.
class Cone {
public:
    bool Holds(Direction d) const { return isWhole || (Cross(right, d) >= 0 && Cross(d, left) >= 0); }

    /// Leaves only rays that pass a point, seen in the direction d (of length 1), by at most `sine` times its distance,
    /// which is below 1. False, and of no more use, if none is left.
    bool Narrow(Direction d, double sine) {
        const double cosine = std::sqrt(1.0 - sine * sine);
        const Direction newLeft{d.x * cosine - d.y * sine, d.x * sine + d.y * cosine};
        const Direction newRight{d.x * cosine + d.y * sine, d.y * cosine - d.x * sine};
        if (isWhole) {
            isWhole = false;
            left = newLeft;
            right = newRight;
            return true;
        }
        const bool takesLeft = Holds(newLeft), takesRight = Holds(newRight);
        if (!takesLeft && !takesRight) return Cross(newRight, right) >= 0 && Cross(right, newLeft) >= 0;
        if (takesLeft) left = newLeft;
        if (takesRight) right = newRight;
        return true;
    }

private:
    bool isWhole = true;
    Direction left, right;
};

/// The place in `vertices` that the segment from place `anchor` ends at.
std::size_t EndOfSegment(const ChartPoints& points, std::span<const std::uint32_t> vertices, std::size_t anchor,
                         double tolerance) {
    const tagXY from = points[vertices[anchor]];
    Cone cone;
    double farthest = 0.0;
    std::size_t end = anchor + 1;
    for (std::size_t i = end; i < vertices.size() && i - end <= kLookAhead; ++i) {
        const tagXY to = points[vertices[i]];
        Direction d{to.x - from.x, to.y - from.y};
        const double distance = std::sqrt(d.x * d.x + d.y * d.y);
        if (distance >= farthest) {
            if (cone.Holds(d)) end = i;
            farthest = distance;
        }
        if (distance > tolerance) {
            d = {d.x / distance, d.y / distance};
            if (!cone.Narrow(d, tolerance / distance)) break;
        }
    }
    return end;
}

}  // namespace

void ThinPolyline(const ChartPoints& points, std::span<const std::uint32_t> vertices, double tolerance,
                  std::vector<std::uint32_t>& kept) {
    if (vertices.empty()) return;
    std::size_t at = 0;
    kept.push_back(vertices[0]);
    while (at + 1 < vertices.size()) {
        at = EndOfSegment(points, vertices, at, tolerance);
        kept.push_back(vertices[at]);
    }
}

}  // namespace quillon
