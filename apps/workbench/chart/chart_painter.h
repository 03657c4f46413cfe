#pragma once

#include <QPainter>
#include <vector>

#include "chart/symbol_sprites.h"
#include "scene/chart_colours.h"
#include "scene/chart_scene.h"
#include "scene/chart_view.h"
#include "scene/label_places.h"
#include "scene/scene_paths.h"
#include "scene/visible_path.h"

namespace quillon {

/// Paints a scene as a view shows it. What it has worked out about a scene it keeps for the next paint, so one painter
/// serves one chart.
///
/// From below: ground, grid, areas of all layers, then layer by layer lines, circles and symbols; labels and texts as
/// far as there is room; the point shown; figures of the grid and the scale bar.
///
/// The view's size is in the painter's coordinates, so a picture for a screen of two pixels to one, or a page, needs no
/// more than a scaled painter.
class ChartPainter {
public:
    void Paint(QPainter& painter, const ChartView& view, const ChartScene& scene, bool night);

    /// To look things up in the scene last painted or updated.
    ScenePaths& Paths() { return paths; }

private:
    friend class ChartPaint;

    ScenePaths paths;
    SymbolSprites sprites;
    LabelPlaces places;
    // Kept for their storage.
    PixelLines lines;
    PixelLines dashes;
    std::vector<PixelMark> marks;
    std::vector<PixelLeg> legs;
};

}  // namespace quillon
