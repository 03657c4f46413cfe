#pragma once

#include <cstdint>
#include <span>

namespace quillon {

class SceneBuilder;

/// How one kind gets into the scene: the layer that it is drawn in, and the function that adds its features there.
struct SceneKind {
    std::uint64_t layer;  ///< the number of the kind, for kinds whose points can be chosen on the chart
    int labelPriority;    ///< where there is no room for all labels, the higher stay
    void (*add)(SceneBuilder& scene);
};

/// From the lowest layer to the topmost.
std::span<const SceneKind> SceneKinds();

}  // namespace quillon
