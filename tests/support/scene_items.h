#pragma once

#include <string>
#include <vector>

#include "scene/chart_scene.h"

namespace quillon {

/// The items of one layer, by their types, with all that would be asked for while they are drawn.
struct SceneItems {
    struct Circle {
        double radius;
        COLORREF colour;
    };
    struct Text : ChartText {
        tagXY at;
        COLORREF colour = 0;
    };

    explicit SceneItems(const ChartLayer& layer) {
        for (std::size_t i = 0; i < layer.items.size(); ++i) {
            if (const auto* path = std::get_if<ChartPath>(&layer.items[i])) {
                paths.push_back(*path);
                pathPlaces.push_back(i);
            }
            if (const auto* rings = std::get_if<ChartRings>(&layer.items[i])) Take(*rings);
            if (const auto* all = std::get_if<ChartTexts>(&layer.items[i])) Take(*all);
        }
    }
    static std::vector<tagXY> PointsOf(const ChartPath& path) {
        std::vector<tagXY> points;
        for (std::size_t i = 0; i < path.path->Points().size(); ++i) points.push_back(path.path->Points()[i]);
        return points;
    }

    std::vector<ChartPath> paths;
    std::vector<std::size_t> pathPlaces;  ///< of the paths in the layer
    std::vector<Circle> circles;          ///< point by point
    std::vector<Text> texts;

private:
    void Take(const ChartRings& rings) {
        for (std::size_t point = 0; point < rings.centres->Points().size(); ++point) {
            for (const ChartRings::Ring& ring : rings.rings) {
                if (rings.RadiusOf(ring, point) > 0) {
                    circles.push_back({rings.RadiusOf(ring, point), ring.line.colour});
                }
            }
        }
    }
    void Take(const ChartTexts& all) {
        for (std::size_t i = 0; i < all.places->Points().size(); ++i) {
            Text text;
            static_cast<ChartText&>(text) = all.textOf(i);
            text.at = all.places->Points()[i];
            text.colour = all.colour;
            texts.push_back(text);
        }
    }
};

}  // namespace quillon
