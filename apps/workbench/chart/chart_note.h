#pragma once

#include <QStringList>

#include "scene/chart_view.h"

class QPainter;

namespace quillon {

/// Lines of text beside a place, on a patch of the chart's ground, on the side where the chart has room for them.
void PaintNote(QPainter& painter, const ChartView& view, bool night, PixelPoint beside, const QStringList& lines);

}  // namespace quillon
