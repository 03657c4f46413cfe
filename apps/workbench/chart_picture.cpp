#include "workbench/chart_picture.h"

#include <algorithm>

#include "chart/chart_painter.h"

namespace quillon {
namespace {

/// The pixels of a symbol in a row: as large as the row allows, but not so large that its lines look thin.
constexpr int kLargestInRow = 16;
constexpr int kRoomInRow = 4;

}  // namespace

QImage RenderChart(const ChartScene& scene, const QSize& size, bool night) {
    ScenePaths paths;
    paths.Update(scene);
    ChartView view;
    view.SetSize(size.width(), size.height());
    view.ZoomTo(paths.Extent(scene));
    return RenderChart(scene, view, night, 1.0);
}

QImage RenderChart(const ChartScene& scene, const ChartView& view, bool night, double pixelsToOne) {
    QImage picture((QSizeF(view.Width(), view.Height()) * pixelsToOne).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(pixelsToOne);
    ChartPainter chart;
    QPainter painter(&picture);
    chart.Paint(painter, view, scene, night);
    painter.end();
    picture.setDevicePixelRatio(1.0);
    return picture;
}

SymbolPainter ChartSymbols() {
    return [](QPainter& painter, const QRect& place, int symbol, COLORREF colour) {
        const int pixels = std::min({place.width() - kRoomInRow, place.height() - kRoomInRow, kLargestInRow});
        if (pixels <= 0) return;
        SymbolSprites sprites;
        const double scale = painter.device()->devicePixelRatioF();
        const QImage& sprite = sprites.Of({symbol, pixels, colour, colour, 0xFFFFFF - colour, scale});
        const QSizeF size = QSizeF(sprite.size()) / scale;
        painter.drawImage(QRectF(QRectF(place).center() - QPointF(size.width(), size.height()) / 2, size), sprite);
    };
}

}  // namespace quillon
