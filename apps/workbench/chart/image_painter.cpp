// Rasters, each value in its colour.

#include <QImage>
#include <cmath>

#include "chart/chart_canvas.h"

namespace quillon {
namespace {

/// The cells that each column, or row, of some pixels shows; -1 for none.
std::vector<int> CellsOf(int pixels, double first, double step, int cells) {
    std::vector<int> shown(static_cast<std::size_t>(pixels));
    for (int i = 0; i < pixels; ++i) {
        const double cell = std::floor(first + step * (i + 0.5));
        shown[static_cast<std::size_t>(i)] = cell >= 0 && cell < cells ? static_cast<int>(cell) : -1;
    }
    return shown;
}

/// The colours of a scale as the chart shows them, ready for its pixels.
std::vector<QRgb> InksOf(const ChartCanvas& canvas, const ChartImage& image) {
    std::vector<QRgb> inks;
    for (const COLORREF colour : image.colours->colours) {
        QColor ink = ToQColor(ImageColour(colour, canvas.night));
        ink.setAlpha(image.opacity);
        inks.push_back(qPremultiply(ink.rgba()));
    }
    return inks;
}

}  // namespace

void PaintImage(ChartCanvas& canvas, const ChartImage& image) {
    const ChartView& view = canvas.view;
    if (!image.colours || image.colours->colours.empty() || !image.raster->Box().Meets(view.WorldBox())) return;
    const double scale = canvas.reach.scale, metresPerPixel = view.MetresPerPixel() / scale;
    const ChartRaster::Level& level = image.raster->For(metresPerPixel);
    const int wide = static_cast<int>(std::ceil(view.Width() * scale)),
              high = static_cast<int>(std::ceil(view.Height() * scale));
    const ChartBox world = view.WorldBox();
    const double step = metresPerPixel / level.cell;
    const std::vector<int> columns =
        CellsOf(wide, (world.minX - image.raster->Box().minX) / level.cell, step, level.columns);
    const std::vector<int> rows =
        CellsOf(high, (world.maxY - image.raster->Box().minY) / level.cell, -step, level.rows);
    const std::vector<QRgb> inks = InksOf(canvas, image);
    const double least = image.colours->least;
    const double inksPerUnit =
        static_cast<double>(inks.size() - 1) / std::max(1.0, static_cast<double>(image.colours->greatest) - least);
    QImage picture(wide, high, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    for (int y = 0; y < high; ++y) {
        const int row = rows[static_cast<std::size_t>(y)];
        if (row < 0) continue;
        QRgb* const line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < wide; ++x) {
            const int column = columns[static_cast<std::size_t>(x)];
            const std::int32_t value = column < 0 ? ChartRaster::kNone : level.At(column, row);
            if (value == ChartRaster::kNone) continue;
            const double ink = std::clamp((value - least) * inksPerUnit, 0.0, static_cast<double>(inks.size() - 1));
            line[x] = inks[static_cast<std::size_t>(ink + 0.5)];
        }
    }
    picture.setDevicePixelRatio(scale);
    canvas.painter.drawImage(QPointF(0, 0), picture);
}

}  // namespace quillon
