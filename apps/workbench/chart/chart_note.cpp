#include "chart/chart_note.h"

#include <algorithm>

#include "chart/chart_canvas.h"

namespace quillon {

void PaintNote(QPainter& painter, const ChartView& view, bool night, PixelPoint beside, const QStringList& lines) {
    constexpr int kGap = 14, kPadding = 6;
    const ChartColours& colours = ColoursOf(night);
    const QFont font = FontMeasures::Of(kChartFont).Font();
    const QFontMetrics metrics(font);
    int wide = 0;
    for (const QString& line : lines) wide = std::max(wide, metrics.horizontalAdvance(line));
    const int x = static_cast<int>(beside.x), y = static_cast<int>(beside.y);
    QRect box(x + kGap, y + kGap, wide + 2 * kPadding,
              metrics.lineSpacing() * static_cast<int>(lines.size()) + kPadding);
    if (box.right() >= view.Width()) box.moveRight(x - kGap);
    if (box.bottom() >= view.Height()) box.moveBottom(y - kGap);
    QColor patch = ToQColor(colours.ground);
    patch.setAlpha(kPatchAlpha);
    painter.fillRect(box, patch);
    painter.setFont(font);
    painter.setPen(ToQColor(colours.scaleBar));
    painter.drawText(box.adjusted(kPadding, kPadding / 2, 0, 0), Qt::AlignLeft | Qt::AlignTop, lines.join('\n'));
}

}  // namespace quillon
