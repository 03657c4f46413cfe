#pragma once

namespace quillon {

class SceneBuilder;

// Drawings that lie under the features. Their data are made in the background.

/// Digitised lines, by the palette and the pen signs of their records.
void AddDigFiles(SceneBuilder& scene);

/// Drawings with their texts, where these are shown.
void AddDxfFiles(SceneBuilder& scene);

}  // namespace quillon
