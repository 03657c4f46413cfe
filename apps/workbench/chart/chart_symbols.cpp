#include "chart/chart_symbols.h"

#include <QPainter>
#include <algorithm>

#include "chart/qpainter_device.h"
#include "drawing/my_dc.h"

namespace quillon {

void DrawChartSymbol(QPainter& painter, const QRect& place, int symbol, COLORREF colour) {
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterDevice device(painter);
    CMyDC context(&device);
    // No colour at all: a row brings a ground on which its symbol shows, and needs none turned round.
    context.background = 0xFF000000;
    const int size = std::min(place.width(), place.height()) - 2;
    context.DrawVectorSymbol(symbol, colour, colour, size, place.center().x(), place.center().y());
}

}  // namespace quillon
