#pragma once

#include <optional>

#include "scene/chart_view.h"

class QPainter;

namespace quillon {

/// What lies on the glass and not on the grid: the figures of the grid, the scale bar, and the mark round the point
/// shown.
void PaintFurniture(QPainter& painter, const ChartView& view, const std::optional<tagXY>& shown, bool night);

}  // namespace quillon
