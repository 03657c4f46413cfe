#include "scene/scene_paths.h"

#include <unordered_map>
#include <utility>

namespace quillon {

bool ScenePaths::Fits(const Entry& entry, const ChartPath& path) {
    return entry.data == path.points.data() && entry.count == path.points.size() &&
           entry.generation == path.generation && entry.closed == path.closed && entry.starts == path.starts;
}

ScenePaths::Entry ScenePaths::EntryOf(const ChartPath& path) {
    return {path.points.data(), path.points.size(), path.generation,
            path.closed,        path.starts,        PathLod(path.points, path.starts, path.closed)};
}

void ScenePaths::Update(const ChartScene& scene) {
    std::unordered_map<std::uint64_t, std::vector<Entry>> before;
    for (Layer& layer : layers) before[layer.id] = std::move(layer.paths);
    layers.clear();
    layers.reserve(scene.layers.size());
    for (const ChartLayer& source : scene.layers) {
        std::vector<Entry> entries = std::exchange(before[source.id], {});
        entries.resize(source.paths.size());
        for (std::size_t i = 0; i < entries.size(); ++i) {
            if (!Fits(entries[i], source.paths[i])) entries[i] = EntryOf(source.paths[i]);
        }
        layers.push_back({source.id, std::move(entries)});
    }
}

ChartBox ScenePaths::Extent(const ChartScene& scene) const {
    ChartBox box;
    for (std::size_t i = 0; i < layers.size(); ++i) {
        for (std::size_t path = 0; path < layers[i].paths.size(); ++path) {
            if (scene.layers[i].paths[path].extends) box.Add(layers[i].paths[path].lod.Box());
        }
        for (const ChartCircle& circle : scene.layers[i].circles) {
            if (!IsPlace(circle.centre)) continue;
            box.Add(ChartBox{circle.centre.x, circle.centre.y, circle.centre.x, circle.centre.y}.Grown(circle.radius));
        }
        for (const ChartText& text : scene.layers[i].texts) {
            if (IsPlace(text.at)) box.Add(text.at.x, text.at.y);
        }
    }
    return box;
}

std::optional<ChartHit> ScenePaths::Hit(const ChartScene& scene, const ChartView& view, PixelPoint at,
                                        double radius) const {
    const tagXY place = view.ToWorld(at);
    std::optional<ChartHit> best;
    for (std::size_t layer = layers.size(); layer-- > 0;) {
        for (std::size_t path = layers[layer].paths.size(); path-- > 0;) {
            if (!scene.layers[layer].paths[path].canBeHit) continue;
            const std::optional<PathHit> hit = HitPath(Of(layer, path), place, radius * view.MetresPerPixel());
            if (hit && (!best || IsBetterHit(*hit, best->hit))) best = ChartHit{layers[layer].id, path, *hit};
        }
    }
    return best;
}

}  // namespace quillon
