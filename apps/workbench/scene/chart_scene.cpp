#include "scene/chart_scene.h"

#include <algorithm>

namespace quillon {

ChartPath AreaBetween(std::span<const tagXY> port, std::span<const tagXY> starboard) {
    const std::size_t count = std::min(port.size(), starboard.size());
    auto points = std::make_shared<std::vector<tagXY>>(port.begin(), port.begin() + static_cast<std::ptrdiff_t>(count));
    points->insert(points->end(), starboard.rend() - static_cast<std::ptrdiff_t>(count), starboard.rend());
    ChartPath path;
    path.points = *points;
    path.owner = std::move(points);
    path.closed = true;
    return path;
}

}  // namespace quillon
