#pragma once

#include <QImage>
#include <QSize>

#include "scene/chart_scene.h"

namespace quillon {

/// What a sample shows; the same as in a `ChartPath`, without points.
struct ChartSample {
    ChartLine line = {};
    ChartFill fill = {};
    VECTOR_SYMBOL symbol = 0;  ///< 0 for none
    COLORREF symbolColour = 0;
    bool isArea = false;  ///< closed, filled if it has a fill; else the line runs across
    friend bool operator==(const ChartSample& a, const ChartSample& b);
};

/// How something looks on the chart, on a patch of the chart's ground: for a tree, a legend, a list. `scale` device
/// pixels to one of `size`.
QImage MakeChartSample(QSize size, double scale, const ChartSample& sample, bool night);

}  // namespace quillon
