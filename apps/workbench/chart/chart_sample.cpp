#include "chart/chart_sample.h"

#include <QPainter>
#include <algorithm>
#include <tuple>

#include "chart/chart_canvas.h"

namespace quillon {
namespace {

/// Wider pens would leave nothing of the patch.
constexpr int kMostThickness = 5;
constexpr double kAreaInset = 3.0;
constexpr double kLineInset = 2.0;

/// In metres, of which each is a pixel; the view's centre is 0, 0.
std::vector<tagXY> OutlineOf(QSize place, bool isArea) {
    const double halfWidth = 0.5 * place.width() - (isArea ? kAreaInset : kLineInset);
    if (!isArea) return {{-halfWidth, 0.5}, {halfWidth, 0.5}};
    const double halfHeight = 0.5 * place.height() - kAreaInset;
    return {{-halfWidth, -halfHeight},
            {halfWidth, -halfHeight},
            {halfWidth, halfHeight},
            {-halfWidth, halfHeight},
            {-halfWidth, -halfHeight}};
}

}  // namespace

bool operator==(const ChartSample& a, const ChartSample& b) {
    const auto key = [](const ChartSample& s) {
        return std::tuple(s.line.colour, s.line.thickness, s.line.style, s.fill.style, s.fill.colour, s.symbol,
                          s.symbolColour, s.isArea);
    };
    return key(a) == key(b);
}

QImage MakeChartSample(QSize size, double scale, const ChartSample& sample, bool night) {
    QImage image((QSizeF(size) * scale).toSize(), QImage::Format_RGB32);
    image.fill(ToQColor(ColoursOf(night).ground));
    QPainter painter(&image);
    painter.scale(scale, scale);
    ChartView view;
    view.SetSize(size.width(), size.height());
    view.SetScale(1.0);
    view.SetCentre({0, 0});
    PaintStore store;
    ChartCanvas canvas(store, painter, view, night);
    ChartPath path;
    path.line = sample.line;
    path.line.thickness = std::min(path.line.thickness, kMostThickness);
    path.fill = sample.fill;
    path.path = MakePath(OutlineOf(size, sample.isArea));
    PaintAreas(canvas, path);
    PaintLines(canvas, path);
    if (sample.symbol > 0) {
        painter.setRenderHint(QPainter::Antialiasing);
        const int pixels = std::min(size.width(), size.height()) - 3;
        canvas.dc.DrawVectorSymbol(sample.symbol, FeatureColour(sample.symbolColour, night), FeatureColour(0, night),
                                   pixels, size.width() / 2, size.height() / 2);
    }
    painter.end();
    image.setDevicePixelRatio(scale);
    return image;
}

}  // namespace quillon
