#pragma once

#include <cstdint>

namespace quillon {

class SceneBuilder;

/// The layer of the vessels and templates, which lies above those of the kinds. Nothing in it can be chosen.
inline constexpr std::uint64_t kTargetLayer = 1000;

/// Each vessel and template where it stands; at its target the shadow with the tracked point, the tolerance with its
/// labels, the zone lines; and the sail line that it follows.
void AddTargets(SceneBuilder& scene);

}  // namespace quillon
