#include "host/area_label.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

namespace quillon {
namespace {

constexpr std::size_t kMostPoints = 400;
constexpr int kScanLines = 24;
constexpr int kDirections = 36;
/// Text follows an area this many times longer than wide.
constexpr double kNarrow = 3.0;
/// How much of a metre's clearance a metre off the middle is worth: little, but corridors are equally wide all along.
constexpr double kPullToMiddle = 0.02;
constexpr int kRefinements = 12;

using Ring = std::vector<tagXY>;

/// Calls `edge(a, b)` for each edge, the closing one too.
template <class Edge>
void EachEdge(const Ring& ring, Edge edge) {
    for (std::size_t i = 0, before = ring.size() - 1; i < ring.size(); before = i++) edge(ring[before], ring[i]);
}

double Distance(tagXY a, tagXY b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

double DistanceToEdge(tagXY point, tagXY a, tagXY b) {
    const double dx = b.x - a.x, dy = b.y - a.y, length2 = dx * dx + dy * dy;
    const double along = length2 > 0.0 ? ((point.x - a.x) * dx + (point.y - a.y) * dy) / length2 : 0.0;
    const double t = std::clamp(along, 0.0, 1.0);
    return Distance(point, {a.x + t * dx, a.y + t * dy});
}

/// The distance to the nearest edge; negative outside (even-odd).
double Clearance(const Ring& ring, tagXY point) {
    double nearest = std::numeric_limits<double>::max();
    bool inside = false;
    EachEdge(ring, [&](tagXY a, tagXY b) {
        nearest = std::min(nearest, DistanceToEdge(point, a, b));
        if ((a.y > point.y) != (b.y > point.y) && point.x < a.x + (point.y - a.y) / (b.y - a.y) * (b.x - a.x)) {
            inside = !inside;
        }
    });
    return inside ? nearest : -nearest;
}

struct Bounds {
    tagXY least{std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
    tagXY greatest{std::numeric_limits<double>::lowest(), std::numeric_limits<double>::lowest()};
    tagXY Middle() const { return {(least.x + greatest.x) / 2, (least.y + greatest.y) / 2}; }
};

Bounds BoundsOf(const Ring& ring) {
    Bounds bounds;
    for (const tagXY& point : ring) {
        bounds.least = {std::min(bounds.least.x, point.x), std::min(bounds.least.y, point.y)};
        bounds.greatest = {std::max(bounds.greatest.x, point.x), std::max(bounds.greatest.y, point.y)};
    }
    return bounds;
}

/// Where the line through `from` in the direction (dx, dy) crosses the ring, as distances along it, ascending.
std::vector<double> Crossings(const Ring& ring, tagXY from, double dx, double dy) {
    std::vector<double> crossings;
    EachEdge(ring, [&](tagXY a, tagXY b) {
        const double sideA = dx * (a.y - from.y) - dy * (a.x - from.x);
        const double sideB = dx * (b.y - from.y) - dy * (b.x - from.x);
        if ((sideA > 0.0) == (sideB > 0.0)) return;
        const double t = sideA / (sideA - sideB);
        crossings.push_back(dx * (a.x + t * (b.x - a.x) - from.x) + dy * (a.y + t * (b.y - a.y) - from.y));
    });
    std::sort(crossings.begin(), crossings.end());
    return crossings;
}

/// The length of the stretch of that line which lies inside round `from`.
double Chord(const Ring& ring, tagXY from, double dx, double dy) {
    double ahead = std::numeric_limits<double>::max(), behind = ahead;
    for (const double at : Crossings(ring, from, dx, dy)) {
        if (at >= 0.0) ahead = std::min(ahead, at);
        if (at <= 0.0) behind = std::min(behind, -at);
    }
    const double none = std::numeric_limits<double>::max();
    return ahead == none || behind == none ? 0.0 : ahead + behind;
}

/// The middles of the stretches inside of level and upright lines across the area. However narrow it is, some lie in
/// it.
std::vector<tagXY> Candidates(const Ring& ring, const Bounds& bounds) {
    std::vector<tagXY> candidates;
    const auto scan = [&](tagXY from, double dx, double dy) {
        const std::vector<double> crossings = Crossings(ring, from, dx, dy);
        for (std::size_t i = 0; i + 1 < crossings.size(); i += 2) {
            const double middle = (crossings[i] + crossings[i + 1]) / 2;
            candidates.push_back({from.x + dx * middle, from.y + dy * middle});
        }
    };
    for (int i = 0; i < kScanLines; ++i) {
        const double share = (i + 0.5) / kScanLines;
        scan({bounds.least.x, bounds.least.y + share * (bounds.greatest.y - bounds.least.y)}, 1, 0);
        scan({bounds.least.x + share * (bounds.greatest.x - bounds.least.x), bounds.least.y}, 0, 1);
    }
    return candidates;
}

/// The place with the greatest clearance, less what it is off the middle.
tagXY InnerPlace(const Ring& ring, const Bounds& bounds) {
    const tagXY middle = bounds.Middle();
    const auto worth = [&](tagXY point) { return Clearance(ring, point) - kPullToMiddle * Distance(point, middle); };
    tagXY best = middle;
    double bestWorth = worth(best);
    const auto consider = [&](tagXY point) {
        const double value = worth(point);
        if (value <= bestWorth) return false;
        best = point;
        bestWorth = value;
        return true;
    };
    for (const tagXY& candidate : Candidates(ring, bounds)) consider(candidate);
    double step = std::max(Clearance(ring, best), Distance(bounds.least, bounds.greatest) / 1000) / 2;
    for (int i = 0; i < kRefinements; ++i) {
        bool better = false;
        for (const auto& [x, y] : {tagXY{1, 0}, tagXY{-1, 0}, tagXY{0, 1}, tagXY{0, -1}}) {
            better |= consider({best.x + x * step, best.y + y * step});
        }
        if (!better) step /= 2;
    }
    return best;
}

/// The direction of the edge nearest to a place, 0 to pi: in a strip it is that of the strip.
double BearingOfNearestEdge(const Ring& ring, tagXY from) {
    double nearest = std::numeric_limits<double>::max(), bearing = 0.0;
    EachEdge(ring, [&](tagXY a, tagXY b) {
        const double distance = DistanceToEdge(from, a, b);
        if (distance >= nearest || a == b) return;
        nearest = distance;
        bearing = std::atan2(b.x - a.x, b.y - a.y);
    });
    if (bearing < 0.0) bearing += std::numbers::pi;
    return bearing < std::numbers::pi ? bearing : 0.0;
}

/// Turns a label along its area where that is much longer than wide.
void TurnAlong(const Ring& ring, AreaLabel& label) {
    double longest = 0.0, bearing = 0.0;
    const auto consider = [&](double direction) {
        const double length = Chord(ring, label.at, std::sin(direction), std::cos(direction));
        if (length <= longest) return;
        longest = length;
        bearing = direction;
    };
    consider(BearingOfNearestEdge(ring, label.at));
    for (int i = 0; i < kDirections; ++i) consider(std::numbers::pi * i / kDirections);
    if (longest <= kNarrow * Chord(ring, label.at, std::cos(bearing), -std::sin(bearing))) return;
    label.along = bearing;
    label.room = longest;
}

Ring Thinned(const ChartPoints& ring) {
    const std::size_t step = ring.size() / kMostPoints + 1;
    Ring thinned;
    for (std::size_t i = 0; i < ring.size(); i += step) thinned.push_back(ring[i]);
    return thinned;
}

}  // namespace

std::optional<AreaLabel> PlaceAreaLabel(const ChartPoints& points) {
    if (points.size() < 3) return std::nullopt;
    const Ring ring = Thinned(points);
    const tagXY at = InnerPlace(ring, BoundsOf(ring));
    if (!(Clearance(ring, at) > 0.0)) return std::nullopt;
    AreaLabel label{at, std::nullopt, Chord(ring, at, 1, 0)};
    TurnAlong(ring, label);
    return label;
}

}  // namespace quillon
