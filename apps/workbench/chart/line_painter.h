#pragma once

#include <QPainter>

#include "platform/dc.h"
#include "scene/visible_path.h"

namespace quillon {

/// How a painter reaches its device.
struct PaintTarget {
    explicit PaintTarget(const QPainter& painter);
    double scale = 1.0;    ///< device pixels for a pixel
    bool isRaster = true;  ///< pixels, not strokes of a page
};

/// How many vertices of a line of some pixels can be drawn in a fraction of a frame.
std::size_t MostLineVertices(double width, const PaintTarget& target);
/// The same for their length in pixels.
double MostLinePixels(double width, const PaintTarget& target);

/// Draws lines, and as well as their number allows: with round joins and smooth where there are few, segment by segment
/// and at last without smoothing where there are thousands. Level and upright lines are set on whole pixels. `lines` is
/// changed; `scratch` is for the dashes.
void PaintLines(QPainter& painter, const PaintTarget& target, const CPen& pen, PixelLines& lines, PixelLines& scratch);

/// Fills areas, one run each, as one: where they overlap with opposite sense they cut holes.
void PaintAreas(QPainter& painter, const QBrush& brush, bool isSmooth, const PixelLines& areas);

}  // namespace quillon
