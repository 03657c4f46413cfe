#include "chart/chart_picture.h"

#include "chart/chart_painter.h"

namespace quillon {

QImage RenderChart(const ChartScene& scene, const QSize& size, bool night) {
    ChartView view;
    view.SetSize(size.width(), size.height());
    view.ZoomTo(ExtentOf(scene));
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

}  // namespace quillon
