#pragma once

#include <cstdint>

namespace quillon {

class SceneBuilder;

/// Of what lies under the job and is no kind of it.
inline constexpr std::uint64_t kReferenceLayer = 900;

/// GPX tracks and waypoints, turbines and sites of wind farms, on the grid of the job; nothing while none is chosen,
/// and nothing of what lies outside of it.
void AddReferences(SceneBuilder& scene);

}  // namespace quillon
