#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

#include "foundation/values.h"

namespace quillon {

/// Pixels of the chart, before the screen's own scale; y grows downwards, and whole numbers lie between pixels.
struct PixelPoint {
    double x = 0.0;
    double y = 0.0;
    friend bool operator==(const PixelPoint&, const PixelPoint&) = default;
};

/// An upright box of points, in metres or in pixels; empty until a point was added.
struct ChartBox {
    double minX = std::numeric_limits<double>::infinity();
    double minY = std::numeric_limits<double>::infinity();
    double maxX = -std::numeric_limits<double>::infinity();
    double maxY = -std::numeric_limits<double>::infinity();

    bool IsEmpty() const { return !(minX <= maxX && minY <= maxY); }
    double Width() const { return maxX - minX; }
    double Height() const { return maxY - minY; }
    void Add(double x, double y) {
        minX = std::min(minX, x);
        minY = std::min(minY, y);
        maxX = std::max(maxX, x);
        maxY = std::max(maxY, y);
    }
    void Add(const ChartBox& box) {
        minX = std::min(minX, box.minX);
        minY = std::min(minY, box.minY);
        maxX = std::max(maxX, box.maxX);
        maxY = std::max(maxY, box.maxY);
    }
    ChartBox Grown(double by) const { return {minX - by, minY - by, maxX + by, maxY + by}; }
    bool Contains(double x, double y) const { return x >= minX && x <= maxX && y >= minY && y <= maxY; }
    bool Contains(const ChartBox& box) const {
        return box.minX >= minX && box.maxX <= maxX && box.minY >= minY && box.maxY <= maxY;
    }
    bool Meets(const ChartBox& box) const {
        return box.minX <= maxX && box.maxX >= minX && box.minY <= maxY && box.maxY >= minY;
    }
    friend bool operator==(const ChartBox&, const ChartBox&) = default;
};

/// Metres; farther off than any grid reaches.
inline constexpr double kFarthestPlace = 1e12;

/// False for what can't be drawn: no number, an infinity, a missing value, a place farther off than any grid reaches.
inline bool IsPlace(tagXY point) {
    return std::abs(point.x) <= kFarthestPlace && std::abs(point.y) <= kFarthestPlace;
}

/// From a point to the nearest of a segment, squared.
inline double SquaredDistance(double x, double y, double ax, double ay, double bx, double by) {
    const double dx = bx - ax, dy = by - ay;
    const double length2 = dx * dx + dy * dy;
    const double t = length2 > 0 ? std::clamp(((x - ax) * dx + (y - ay) * dy) / length2, 0.0, 1.0) : 0.0;
    const double ex = x - (ax + t * dx), ey = y - (ay + t * dy);
    return ex * ex + ey * ey;
}

}  // namespace quillon
