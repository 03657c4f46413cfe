#pragma once

#include <vector>

#include "background/dxf.h"
#include "scene/chart_scene.h"

namespace quillon {

/// The texts of a drawing, and where they stand.
struct DrawnLetters {
    std::vector<tagXY> places;
    std::vector<ChartLetter> letters;
};

/// With their height, rotation and justification; what stands on a layer that is off is left out. `scale` is metres to
/// a unit of the drawing.
DrawnLetters LettersOf(const CDxf& drawing, double scale);

}  // namespace quillon
