#include "scene/chart_scene.h"

#include <algorithm>
#include <utility>

namespace quillon {
namespace {

ChartBox Round(tagXY centre, double radius) {
    return ChartBox{centre.x, centre.y, centre.x, centre.y}.Grown(radius);
}

struct ItemExtent {
    bool all;
    ChartBox operator()(const ChartImage& image) const { return image.raster->Box(); }
    ChartBox operator()(const ChartPath& path) const { return path.extends || all ? path.path->Box() : ChartBox(); }
    ChartBox operator()(const ChartRings& rings) const { return rings.Box(); }
    ChartBox operator()(const ChartTexts& texts) const {
        return texts.extends || all ? texts.places->Box() : ChartBox();
    }
    ChartBox operator()(const ChartLetters&) const { return {}; }
};

ChartBox ExtentOf(const ChartScene& scene, bool all) {
    ChartBox box;
    for (const ChartLayer& layer : scene.layers) {
        for (const ChartItem& item : layer.items) box.Add(std::visit(ItemExtent{all}, item));
    }
    return box;
}

}  // namespace

ChartRadii::ChartRadii(const ChartPoints& centres, std::vector<double> radii) : of(std::move(radii)) {
    of.resize(centres.size(), 0.0);
    for (std::size_t i = 0; i < of.size(); ++i) {
        if (!(of[i] > 0) || !(of[i] < kFarthestPlace)) of[i] = 0.0;
        greatest = std::max(greatest, of[i]);
        if (of[i] > 0 && IsPlace(centres[i])) box.Add(Round(centres[i], of[i]));
    }
}

double ChartRings::RadiusOf(const Ring& ring, std::size_t point) const {
    const double radius = ring.radius + (own ? own->of[point] : 0.0);
    return radius < kFarthestPlace ? radius : 0.0;
}

ChartBox ChartRings::Box() const {
    ChartBox box;
    const ChartBox& of = own ? own->box : centres->Box();
    for (const Ring& ring : rings) {
        if (!of.IsEmpty() && ring.radius >= 0 && ring.radius < kFarthestPlace) box.Add(of.Grown(ring.radius));
        if (own && ring.radius > 0 && ring.radius < kFarthestPlace) box.Add(centres->Box().Grown(ring.radius));
    }
    return box;
}

PathPtr MakePath(std::vector<tagXY> points, const PathParts& parts) {
    return std::make_shared<const PathLod>(std::move(points), parts);
}

ChartBox ExtentOf(const ChartItem& item) {
    return std::visit(ItemExtent{true}, item);
}

ChartBox ExtentOf(const ChartScene& scene) {
    const ChartBox box = ExtentOf(scene, false);
    return box.IsEmpty() ? ExtentOf(scene, true) : box;
}

}  // namespace quillon
