// Rings and discs round points.

#include <algorithm>
#include <cmath>
#include <numbers>

#include "chart/chart_canvas.h"
#include "scene/line_clip.h"

namespace quillon {
namespace {

constexpr double kLeastPixels = 1.0;

std::vector<PixelPoint> CircleOf(PixelPoint centre, double radius) {
    // A chord departs from its arc by radius * (1 - cos(half its angle)).
    constexpr double kDeparture = 0.2;
    const double half = std::acos(std::max(0.0, 1.0 - kDeparture / radius));
    const auto count = static_cast<std::size_t>(std::clamp(std::ceil(std::numbers::pi / half), 12.0, 20000.0));
    std::vector<PixelPoint> ring(count);
    for (std::size_t i = 0; i < count; ++i) {
        const double t = 2.0 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(count);
        ring[i] = {centre.x + radius * std::sin(t), centre.y - radius * std::cos(t)};
    }
    return ring;
}

/// True if a circle's border or inside can be seen in a box of pixels.
bool Shows(const ChartBox& box, PixelPoint centre, double radius, bool isFilled) {
    if (!box.Grown(radius).Contains(centre.x, centre.y)) return false;
    const double dx = std::max(std::abs(centre.x - box.minX), std::abs(centre.x - box.maxX));
    const double dy = std::max(std::abs(centre.y - box.minY), std::abs(centre.y - box.maxY));
    return isFilled || std::hypot(dx, dy) >= radius;
}

/// Calls `each(centre, radius)`, in pixels, for the circles of a ring that can be seen.
template <class Each>
void EachCircle(const ChartCanvas& canvas, const ChartRings& rings, const ChartRings::Ring& ring, bool isFilled,
                double margin, Each each) {
    const ChartView& view = canvas.view;
    const double reach = ring.radius + (rings.own ? rings.own->greatest : 0.0);
    if (!(reach / view.MetresPerPixel() >= kLeastPixels)) return;
    const ChartBox world = view.WorldBox(margin).Grown(std::min(reach, kFarthestPlace));
    const ChartBox box = view.PixelBox(margin);
    const PathLod::Level& level = rings.centres->Full();
    for (const PathLod::Chunk& chunk : level.Chunks()) {
        if (!chunk.box.Meets(world)) continue;
        for (std::uint32_t i = chunk.first; i < chunk.first + chunk.count; ++i) {
            const std::uint32_t point = level.PointOf(i);
            const double radius = rings.RadiusOf(ring, point) / view.MetresPerPixel();
            if (!(radius >= kLeastPixels)) continue;
            const PixelPoint centre = view.ToPixel(rings.centres->Points()[point]);
            if (Shows(box, centre, radius, isFilled)) each(centre, radius);
        }
    }
}

}  // namespace

void PaintAreas(ChartCanvas& canvas, const ChartRings& rings) {
    constexpr double kMargin = 2.0;
    PixelLines& area = canvas.store.lines.lines;
    for (const ChartRings::Ring& ring : rings.rings) {
        if (ring.fill.style == kFillNone) continue;
        EachCircle(canvas, rings, ring, true, kMargin, [&](PixelPoint centre, double radius) {
            area.Clear();
            area.points = CircleOf(centre, radius);
            ClipArea(canvas.view.PixelBox(kMargin), area.points);
            area.runs.push_back({});
            PaintFill(canvas, ring.fill, IsUsable(ring.line), area);
        });
    }
}

void PaintLines(ChartCanvas& canvas, const ChartRings& rings) {
    PixelLines& lines = canvas.store.lines.lines;
    for (const ChartRings::Ring& ring : rings.rings) {
        if (!IsUsable(ring.line)) continue;
        const double margin = ring.line.thickness + 2.0;
        EachCircle(canvas, rings, ring, false, margin, [&](PixelPoint centre, double radius) {
            std::vector<PixelPoint> circle = CircleOf(centre, radius);
            circle.push_back(circle.front());
            ClipLine(circle, canvas.view.PixelBox(margin), lines);
            PaintLines(canvas.painter, canvas.reach, canvas.PenOf(ring.line), canvas.store.lines);
        });
    }
}

}  // namespace quillon
