#pragma once

#include "scene/chart_scene.h"
#include "scene/chart_view.h"

class QPainter;

namespace quillon {

/// What lies above all items: the lines of latitude and longitude with their figures, the figures of the grid, the
/// scale bar, the legend, and the mark round the point shown.
void PaintFurniture(QPainter& painter, const ChartView& view, const ChartScene& scene, bool night);

}  // namespace quillon
