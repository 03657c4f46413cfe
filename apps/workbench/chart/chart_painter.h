#pragma once

#include <QPainter>

#include "chart/chart_canvas.h"

namespace quillon {

/// Paints scenes as views show them. What it has worked out it keeps for the next paint, so one painter serves one
/// chart; it belongs to one thread, whichever that is.
///
/// From below: ground, grid, images and then areas of all layers; layer by layer rings, lines and symbols; labels and
/// texts as far as there is room; on the glass the point shown, figures of the grid and the scale bar.
///
/// The view's size is in the painter's coordinates, so a picture for a screen of two pixels to one, or a page, needs no
/// more than a scaled painter.
class ChartPainter {
public:
    void Paint(QPainter& painter, const ChartView& view, const ChartScene& scene, bool night);
    /// All but what lies on the glass.
    void PaintGrid(QPainter& painter, const ChartView& view, const ChartScene& scene, bool night);

private:
    PaintStore store;
};

}  // namespace quillon
