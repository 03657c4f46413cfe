#include "host/scene_builder.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "host/scene_kinds.h"
#include "host/scene_references.h"
#include "host/scene_targets.h"

namespace quillon {
namespace {

/// Levels of so many points are made in a moment.
constexpr std::size_t kMadeAtOnce = 20000;
/// What a path is shown with until its levels are made.
constexpr std::size_t kSketchPoints = 8000;

bool AreEqual(const ChartPoints& a, const ChartPoints& b) {
    if (a.size() != b.size()) return false;
    std::size_t same = 0;
    while (same < a.size() && a[same] == b[same]) ++same;
    return same == a.size();
}

}  // namespace

ChartScene SceneBuilder::Build() {
    ChartScene scene;
    building = &scene;
    TakeReady();
    recordOf.clear();
    before = std::exchange(kept, {});
    const auto add = [&](std::uint64_t id, void (*items)(SceneBuilder&)) {
        layer = &scene.layers.emplace_back();
        layer->id = id;
        layer->priority = static_cast<int>(scene.layers.size());
        items(*this);
    };
    add(kReferenceLayer, AddReferences);
    if (layer->items.empty()) scene.layers.clear();
    for (const SceneKind& kind : SceneKinds()) add(static_cast<std::uint64_t>(kind.kind), kind.add);
    add(kTargetLayer, AddTargets);
    layer = nullptr;
    building = nullptr;
    DropUnused();
    return scene;
}

void SceneBuilder::TakeReady() {
    if (!maker) return;
    for (ItemMaker::Made& made : maker->Take()) {
        for (auto& [name, item] : kept) {
            if (item.ticket != made.ticket) continue;
            item.data = std::move(made.data);
            item.ticket = 0;
            break;
        }
    }
}

void SceneBuilder::DropUnused() {
    for (const auto& [name, item] : before) {
        if (item.ticket != 0) maker->Drop(item.ticket);
    }
    before.clear();
}

SceneBuilder::Kept& SceneBuilder::Find(const std::string& name) {
    KeptByName::key_type key(layer->id, name);
    if (auto old = before.extract(key)) return kept.insert(std::move(old)).position->second;
    return kept[std::move(key)];
}

SceneBuilder::Data SceneBuilder::KeepAny(const std::string& name, std::uint64_t stamp,
                                         const std::function<Data()>& make) {
    Kept& item = Find(name);
    if (item.stamp != stamp || !item.data) {
        item.data = make();
        item.stamp = stamp;
    }
    return item.data;
}

void SceneBuilder::AskFor(Kept& item, ItemMaker::Make make) {
    if (item.ticket != 0) maker->Drop(item.ticket);
    item.ticket = maker->Ask(std::move(make));
}

SceneBuilder::Data SceneBuilder::KeepAnyLater(const std::string& name, std::uint64_t stamp, ItemMaker::Make make) {
    Kept& item = Find(name);
    if (std::exchange(item.stamp, stamp) == stamp) return item.data;
    if (maker) {
        AskFor(item, std::move(make));
    } else {
        item.data = make(ItemMaker::Stop(false));
    }
    return item.data;
}

PathPtr SceneBuilder::KeepPath(const std::string& name, std::uint64_t stamp, const PathParts& parts,
                               const std::function<ChartPoints()>& make) {
    Kept& item = Find(name);
    auto path = std::static_pointer_cast<const PathLod>(item.data);
    if (std::exchange(item.stamp, stamp) == stamp) return path;
    const ChartPoints points = make();
    if (path && item.ticket == 0 && AreEqual(path->Points(), points)) return path;
    if (maker && points.size() > kMadeAtOnce) {
        AskFor(item, [points, parts](const ItemMaker::Stop& stop) {
            return std::make_shared<const PathLod>(points, parts, &stop);
        });
        if (!path) path = std::make_shared<const PathLod>(PathLod::Sketch(points, parts, kSketchPoints));
    } else {
        if (item.ticket != 0) maker->Drop(std::exchange(item.ticket, 0));
        path = std::make_shared<const PathLod>(points, parts);
    }
    item.data = path;
    return path;
}

void SceneBuilder::SetLegend(ChartLegend legend) {
    building->legend = std::move(legend);
}

void SceneBuilder::AddShown(ChartItem item, Shown shown) {
    if (shown.file < 0 && !shown.textOf) {
        if (auto* const path = std::get_if<ChartPath>(&item)) path->canBeHit = false;
    }
    recordOf[layer->id].push_back(std::move(shown));
    layer->items.push_back(std::move(item));
}

void SceneBuilder::Add(int file, ChartItem item, int pointsPerRecord) {
    AddShown(std::move(item), {.file = file, .pointsPerRecord = pointsPerRecord});
}

void SceneBuilder::AddRecord(int file, int record, ChartItem item) {
    AddShown(std::move(item), {.file = file, .pointsPerRecord = 1, .record = record});
}

void SceneBuilder::AddBackground(ChartItem item, HitText textOf) {
    AddShown(std::move(item), {.file = -1, .pointsPerRecord = 1, .textOf = std::move(textOf)});
}

void SceneBuilder::AddUnderlay(int file, ChartItem item, HitText textOf) {
    AddShown(std::move(item), {.file = file, .pointsPerRecord = 1, .textOf = std::move(textOf)});
}

void SceneBuilder::Add(int file, ChartPath path, RecordNumbers numbers) {
    const PathPtr points = path.path;
    Add(file, ChartItem(std::move(path)));
    Shown& shown = recordOf[layer->id].back();
    shown.recordOf = std::move(numbers);
    shown.path = points;
}

int SceneBuilder::RecordOf(const Shown& shown, const PathHit& hit) {
    const ChartPoints& points = shown.path->Points();
    std::size_t point = hit.point;
    const auto distance = [&](std::size_t i) { return std::hypot(points[i].x - hit.at.x, points[i].y - hit.at.y); };
    if (point >= points.size()) return -1;
    if (!hit.isVertex && hit.next < points.size() && distance(hit.next) < distance(point)) point = hit.next;
    // A path that is still being made is the one before, with other points.
    return point < shown.recordOf->size() ? static_cast<int>((*shown.recordOf)[point]) : -1;
}

const SceneBuilder::Shown* SceneBuilder::ShownBy(const ChartHit& hit) const {
    const auto records = recordOf.find(hit.layer);
    return records == recordOf.end() || hit.item >= records->second.size() ? nullptr : &records->second[hit.item];
}

std::string SceneBuilder::TextOf(const ChartHit& hit) const {
    const Shown* const shown = ShownBy(hit);
    return shown && shown->textOf ? shown->textOf(hit) : std::string();
}

PathPtr SceneBuilder::PathOf(const ChartScene& scene, KIND kind, int file) const {
    for (const ChartLayer& shownLayer : scene.layers) {
        if (shownLayer.id != static_cast<std::uint64_t>(kind)) continue;
        for (std::size_t i = 0; i < shownLayer.items.size(); ++i) {
            const auto* const path = std::get_if<ChartPath>(&shownLayer.items[i]);
            const Shown* const shown = ShownBy({.layer = shownLayer.id, .item = i});
            if (path && shown && shown->file == file && shown->record < 0) return path->path;
        }
    }
    return nullptr;
}

JobPoint SceneBuilder::PointOf(const ChartHit& hit) const {
    const Shown* const found = ShownBy(hit);
    if (!found) return {};
    const Shown& shown = *found;
    if (shown.file < 0) return {};
    const JobKind& kind = KindOf(static_cast<KIND>(hit.layer));
    if (shown.file >= kind.fileCount(record)) return {};
    if (hit.kind == HIT_KIND::AREA) return {kind.id, shown.file, -1};
    const int count = kind.pointCount(record, shown.file);
    if (shown.record >= 0) return shown.record < count ? JobPoint{kind.id, shown.file, shown.record} : JobPoint();
    if (shown.recordOf) {
        const int point = RecordOf(shown, hit.hit);
        return point >= 0 && point < count ? JobPoint{kind.id, shown.file, point} : JobPoint{};
    }
    const JobPoint first{kind.id, shown.file, static_cast<int>(hit.hit.point) / shown.pointsPerRecord};
    if (first.point >= count) return {};
    if (hit.kind != HIT_KIND::SEGMENT || shown.pointsPerRecord > 1) return first;
    const auto distance = [&](int point) {
        const tagXY at = kind.point(record, first.file, point);
        return std::hypot(at.x - hit.hit.at.x, at.y - hit.hit.at.y);
    };
    // Behind the last point a segment leads back to the first, where the path is closed.
    const int next = first.point + 1 < count ? first.point + 1 : 0;
    return distance(next) < distance(first.point) ? JobPoint{first.kind, first.file, next} : first;
}

ChartBox SceneBuilder::BoxOf(const ChartScene& scene, KIND kind, int file) const {
    ChartBox box;
    const auto records = recordOf.find(static_cast<std::uint64_t>(kind));
    if (records == recordOf.end() || file < 0) return box;
    for (const ChartLayer& shown : scene.layers) {
        if (shown.id != records->first) continue;
        for (std::size_t item = 0; item < std::min(shown.items.size(), records->second.size()); ++item) {
            if (records->second[item].file == file) box.Add(ExtentOf(shown.items[item]));
        }
    }
    return box;
}

std::uint64_t MixedStamp(std::uint64_t stamp, double setting) {
    // The finaliser of Steele, Lea and Flood, "Fast splittable pseudorandom number generators" (2014).
    std::uint64_t mixed = stamp * 0x9E3779B97F4A7C15 + std::bit_cast<std::uint64_t>(setting);
    mixed = (mixed ^ (mixed >> 30)) * 0xBF58476D1CE4E5B9;
    mixed = (mixed ^ (mixed >> 27)) * 0x94D049BB133111EB;
    return mixed ^ (mixed >> 31);
}

}  // namespace quillon
