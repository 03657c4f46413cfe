#pragma once

#include <optional>
#include <vector>

#include "scene/chart_hit.h"
#include "scene/chart_scene.h"
#include "scene/path_lod.h"

namespace quillon {

/// The levels of detail of all paths of a scene, kept from one scene to the next as long as a path stays what it was:
/// the same layer, place, points and generation.
class ScenePaths {
public:
    void Update(const ChartScene& scene);

    /// By their places in the scene of the last `Update`.
    const PathLod& Of(std::size_t layer, std::size_t path) const { return layers[layer].paths[path].lod; }

    /// All that the scene shows, but for what only surrounds something.
    ChartBox Extent(const ChartScene& scene) const;
    /// What lies within so many pixels of a pixel. Of equals, the one that is drawn last.
    std::optional<ChartHit> Hit(const ChartScene& scene, const ChartView& view, PixelPoint at, double radius) const;

private:
    struct Entry {
        const tagXY* data = nullptr;
        std::size_t count = 0;
        std::uint64_t generation = 0;
        bool closed = false;
        std::vector<std::uint32_t> starts;
        PathLod lod;
    };
    struct Layer {
        std::uint64_t id = 0;
        std::vector<Entry> paths;
    };
    static bool Fits(const Entry& entry, const ChartPath& path);
    static Entry EntryOf(const ChartPath& path);

    std::vector<Layer> layers;
};

}  // namespace quillon
