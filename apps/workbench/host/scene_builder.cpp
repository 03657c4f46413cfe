#include "host/scene_builder.h"

#include <cmath>

#include "host/scene_kinds.h"

namespace quillon {

ChartScene SceneBuilder::Build() {
    ChartScene scene;
    recordOf.clear();
    before = std::exchange(kept, {});
    for (const SceneKind& kind : SceneKinds()) {
        layer = &scene.layers.emplace_back();
        layer->id = kind.layer;
        layer->priority = kind.labelPriority;
        kind.add(*this);
    }
    layer = nullptr;
    before.clear();
    return scene;
}

ScenePoints& SceneBuilder::Keep(const std::string& name, std::size_t count,
                                const std::function<tagXY(std::size_t)>& point) {
    const KeptPoints::key_type key(layer->id, name);
    ScenePoints& now = kept[key];
    if (const auto old = before.find(key); old != before.end()) now = old->second;
    if (now.points && now.points->size() == count) {
        std::size_t same = 0;
        while (same < count && (*now.points)[same] == point(same)) ++same;
        if (same == count) return now;
    }
    auto points = std::make_shared<std::vector<tagXY>>();
    points->reserve(count);
    for (std::size_t i = 0; i < count; ++i) points->push_back(point(i));
    now = {std::move(points), ++lastGeneration, false, std::nullopt};
    return now;
}

ChartPath SceneBuilder::PathOver(const ScenePoints& kept) {
    ChartPath path;
    path.points = *kept.points;
    path.owner = kept.points;
    path.generation = kept.generation;
    return path;
}

void SceneBuilder::AddPath(int file, ChartPath path, int pointsPerRecord) {
    recordOf[layer->id].push_back({file, pointsPerRecord});
    layer->paths.push_back(std::move(path));
}

void SceneBuilder::AddBackground(ChartPath path) {
    path.canBeHit = false;
    path.extends = false;
    AddPath(-1, std::move(path));
}

JobPoint SceneBuilder::PointOf(const ChartHit& hit) const {
    const auto records = recordOf.find(hit.layer);
    const FeatureKind* const kind = FindFeatureKind(static_cast<FEATURE_TYPES>(hit.layer));
    if (!kind || records == recordOf.end() || hit.path >= records->second.size()) return {};
    const Shown& shown = records->second[hit.path];
    const CFileListBase& list = kind->list(features);
    if (!list.IsValidIndex(shown.file)) return {};
    const int count = list.GetPointCount(shown.file);
    const JobPoint first{kind->type, shown.file, static_cast<int>(hit.hit.point) / shown.pointsPerRecord};
    if (first.point >= count) return {};
    if (hit.hit.isVertex || shown.pointsPerRecord > 1) return first;
    const auto distance = [&](int point) {
        const tagXY at = kind->point(features, first.file, point);
        return std::hypot(at.x - hit.hit.at.x, at.y - hit.hit.at.y);
    };
    // Behind the last point a segment leads back to the first, where the path is closed.
    const int next = first.point + 1 < count ? first.point + 1 : 0;
    return distance(next) < distance(first.point) ? JobPoint{first.type, first.file, next} : first;
}

}  // namespace quillon
