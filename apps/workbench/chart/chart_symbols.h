#pragma once

#include <QRect>

#include "platform/palette.h"

class QPainter;

namespace quillon {

/// Draws a symbol as the chart does, as large as fits the rectangle. What the symbol rows of property lists show:
///
///     BindingFactory factory(DrawChartSymbol);
void DrawChartSymbol(QPainter& painter, const QRect& place, int symbol, COLORREF colour);

}  // namespace quillon
