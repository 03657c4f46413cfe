#pragma once

#include <cmath>
#include <cstddef>
#include <random>
#include <string_view>
#include <vector>

#include "foundation/values.h"
#include "platform/text.h"
#include "scene/path_lod.h"

namespace quillon {

/// "0,0 100,0 100,50"
inline std::vector<tagXY> Points(std::string_view text) {
    std::vector<tagXY> points;
    while (!(text = TrimLeft(text)).empty()) {
        const std::size_t end = std::min(text.find(' '), text.size());
        points.push_back({Atof(text), Atof(text.substr(text.find(',') + 1))});
        text.remove_prefix(end);
    }
    return points;
}

/// Over points that the caller keeps.
inline PathLod LodOf(const std::vector<tagXY>& points, bool closed, std::vector<std::uint32_t> starts = {}) {
    return {ChartPoints::Lent(points), {.starts = std::move(starts), .closed = closed}};
}

/// A ring round 500000, 6000000 with bays of every size down to single points, and `noise` metres of jitter on top.
inline std::vector<tagXY> Coast(std::size_t count, double noise, unsigned seed = 1) {
    std::mt19937 random(seed);
    std::vector<tagXY> points(count);
    const auto jitter = [&] { return noise * (static_cast<double>(random()) / 2147483647.5 - 1.0); };
    for (std::size_t i = 0; i < count; ++i) {
        const double t = 6.283185307179586 * static_cast<double>(i) / static_cast<double>(count);
        double radius = 10000.0;
        for (double waves = 3.0, height = 1500.0; height > 0.5; waves = waves * 2.3 + 1.0, height *= 0.45) {
            radius += height * std::sin(waves * t + waves);
        }
        points[i] = {500000.0 + 1.6 * radius * std::sin(t) + jitter(), 6000000.0 + radius * std::cos(t) + jitter()};
    }
    return points;
}

/// A walk of steps of up to `step` metres in any direction.
inline std::vector<tagXY> Walk(std::size_t count, double step, unsigned seed) {
    std::mt19937 random(seed);
    const auto part = [&] { return step * (static_cast<double>(random()) / 2147483647.5 - 1.0); };
    std::vector<tagXY> points(1);
    while (points.size() < count) points.push_back({points.back().x + part(), points.back().y + part()});
    return points;
}

}  // namespace quillon
