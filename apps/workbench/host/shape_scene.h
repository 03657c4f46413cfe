#pragma once

namespace quillon {

class SceneBuilder;

/// The shape files of the job on its grid, where their projection is known, and as they stand where it isn't. Vertices
/// and labels are made in the background.
void AddShapeFiles(SceneBuilder& scene);

}  // namespace quillon
