// Rasters, each value in its colour.

#include <QImage>
#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

#include "chart/chart_canvas.h"
#include "scene/relief.h"

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

/// Shades of relief that are told apart.
constexpr int kShades = 32;

/// A colour in a light of which 1 is that of level ground.
QColor Lit(const QColor& colour, double light, bool night) {
    constexpr double kDepthOfShade = 0.6, kNightLight = 0.4;
    if (light > 1.0 && !night) {
        const auto lighter = [&](int part) {
            return part + static_cast<int>((255 - part) * (light - 1.0) * kDepthOfShade);
        };
        return {lighter(colour.red()), lighter(colour.green()), lighter(colour.blue())};
    }
    const double factor = 1.0 + (light - 1.0) * (light > 1.0 ? kNightLight : kDepthOfShade);
    const auto scaled = [factor](int part) { return std::clamp(static_cast<int>(std::lround(part * factor)), 0, 255); };
    return {scaled(colour.red()), scaled(colour.green()), scaled(colour.blue())};
}

/// The colours of a scale as the chart shows them, ready for its pixels; with relief, those of each shade one after the
/// other.
struct Inks {
    std::vector<QRgb> all;
    std::size_t count = 0;
    double least = 0.0;
    double perUnit = 0.0;

    std::size_t PlaceOf(std::int32_t value) const {
        return static_cast<std::size_t>(std::clamp((value - least) * perUnit, 0.0, static_cast<double>(count - 1)) +
                                        0.5);
    }
};

Inks InksOf(const ChartCanvas& canvas, const ChartImage& image) {
    const ChartColourScale& scale = *image.colours;
    Inks inks;
    inks.count = scale.colours.size();
    inks.least = scale.least;
    inks.perUnit =
        static_cast<double>(inks.count - 1) / std::max(1.0, static_cast<double>(scale.greatest) - scale.least);
    const int shades = image.heightPerValue != 0.0 ? kShades : 1;
    for (int shade = 0; shade < shades; ++shade) {
        const double light = shades == 1 ? 1.0 : shade * (256.0 / kShades) / Relief::kFlat;
        for (std::size_t i = 0; i < inks.count; ++i) {
            QColor ink = Lit(ToQColor(scale.Shown(i, canvas.night)), light, canvas.night);
            ink.setAlpha(image.opacity);
            inks.all.push_back(qPremultiply(ink.rgba()));
        }
    }
    return inks;
}

/// The first and the last of the cells shown; -1 for none.
std::pair<int, int> RangeOf(const std::vector<int>& cells) {
    int first = -1, last = -1;
    for (const int cell : cells) {
        if (cell < 0) continue;
        if (first < 0) first = cell;
        last = cell;
    }
    return {first, last};
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
    const auto [firstColumn, lastColumn] = RangeOf(columns);
    if (firstColumn < 0) return;
    const Inks inks = InksOf(canvas, image);
    const Relief relief(image.heightPerValue);
    std::vector<std::uint8_t> shades(static_cast<std::size_t>(lastColumn - firstColumn + 1));
    QImage picture(wide, high, QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    int rowBefore = -1;
    for (int y = 0; y < high; ++y) {
        const int row = rows[static_cast<std::size_t>(y)];
        if (row < 0) continue;
        QRgb* const line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        if (row == std::exchange(rowBefore, row)) {
            std::memcpy(line, picture.constScanLine(y - 1), static_cast<std::size_t>(wide) * sizeof *line);
            continue;
        }
        if (image.heightPerValue != 0.0) relief.ShadeRow(level, row, firstColumn, shades);
        for (int x = 0; x < wide; ++x) {
            const int column = columns[static_cast<std::size_t>(x)];
            const std::int32_t value = column < 0 ? ChartRaster::kNone : level.At(column, row);
            if (value == ChartRaster::kNone) continue;
            std::size_t ink = inks.PlaceOf(value);
            if (image.heightPerValue != 0.0) {
                const std::uint8_t shade = shades[static_cast<std::size_t>(column - firstColumn)];
                ink += static_cast<std::size_t>(shade) * kShades / 256 * inks.count;
            }
            line[x] = inks.all[ink];
        }
    }
    picture.setDevicePixelRatio(scale);
    canvas.painter.drawImage(QPointF(0, 0), picture);
}

}  // namespace quillon
