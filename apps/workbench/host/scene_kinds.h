#pragma once

#include <span>

#include "job/kinds.h"

namespace quillon {

class SceneBuilder;

/// How one kind gets into the scene: the function that adds its files to the layer of the kind.
struct SceneKind {
    KIND kind;
    void (*add)(SceneBuilder& scene);
};

/// From the lowest layer to the topmost. Where there is no room for all labels, those of the higher layer stay.
std::span<const SceneKind> SceneKinds();

}  // namespace quillon
