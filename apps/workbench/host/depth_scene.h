#pragma once

namespace quillon {

class SceneBuilder;

/// The depth model of the job: its depths as a picture with a legend, and the limits of its files by their pens.
void AddDepthModel(SceneBuilder& scene);

}  // namespace quillon
