#pragma once

#include <QPainter>

#include "platform/dc.h"
#include "scene/line_mask.h"
#include "scene/visible_path.h"

namespace quillon {

/// How a painter reaches its device.
struct PaintTarget {
    explicit PaintTarget(const QPainter& painter);
    double scale = 1.0;       ///< device pixels for a pixel
    bool isRaster = false;    ///< pixels, not strokes of a page
    QImage* image = nullptr;  ///< the picture that is painted on, where one may write to its pixels
};

/// The lines that are to be painted, and what painting them needs besides. Kept for its storage.
struct LineStore {
    PixelLines lines;
    PixelLines dashes;
    LineMask mask;
};

/// How many vertices of a line of some pixels can be drawn in a fraction of a frame.
std::size_t MostLineVertices(double width, const PaintTarget& target);
/// The same for their length in pixels.
double MostLinePixels(double width, const PaintTarget& target);

/// Draws the lines of a store, smooth and with round joins. Level and upright ones are set on whole pixels, which
/// changes the store.
void PaintLines(QPainter& painter, const PaintTarget& target, const CPen& pen, LineStore& store);

/// Fills areas, one run each, as one: where they overlap with opposite sense they cut holes.
void PaintAreas(QPainter& painter, const QBrush& brush, bool isSmooth, const PixelLines& areas);

}  // namespace quillon
