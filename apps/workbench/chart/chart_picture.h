#pragma once

#include <QImage>

#include "scene/chart_scene.h"
#include "scene/chart_view.h"

namespace quillon {

/// A picture of the whole scene, as large as asked for.
QImage RenderChart(const ChartScene& scene, const QSize& size, bool night);

/// A picture of what a view shows, with so many pixels of the picture to one of the view.
QImage RenderChart(const ChartScene& scene, const ChartView& view, bool night, double pixelsToOne);

}  // namespace quillon
