#include "chart/symbol_sprites.h"

#include <algorithm>
#include <cmath>

#include "chart/qpainter_device.h"
#include "drawing/my_dc.h"

namespace quillon {
namespace {

constexpr std::size_t kMostSprites = 256;

/// The white inside some symbols is no feature's colour, and too bright for the night.
void Dim(QImage& image, int brightest) {
    for (int y = 0; y < image.height(); ++y) {
        QRgb* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const int strongest = std::max({qRed(line[x]), qGreen(line[x]), qBlue(line[x])});
            if (strongest <= brightest) continue;
            const auto dimmed = [&](int part) { return part * brightest / strongest; };
            line[x] = qRgba(dimmed(qRed(line[x])), dimmed(qGreen(line[x])), dimmed(qBlue(line[x])), qAlpha(line[x]));
        }
    }
}

QImage Draw(const SymbolSprites::Key& key) {
    const int reach = SymbolReach(key.pixels);
    const int side = static_cast<int>(std::ceil(2 * reach * key.scale));
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(key.scale);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterDevice device(painter);
    CMyDC dc(&device);
    dc.background = key.ground;
    dc.DrawVectorSymbol(key.symbol, key.first, key.second, key.pixels, reach, reach);
    painter.end();
    if (key.brightest < 255) Dim(image, key.brightest);
    return image;
}

}  // namespace

const QImage& SymbolSprites::Of(const Key& key) {
    for (const Sprite& sprite : sprites) {
        if (sprite.key == key) return sprite.image;
    }
    if (sprites.size() >= kMostSprites) sprites.clear();
    sprites.push_back({key, Draw(key)});
    return sprites.back().image;
}

}  // namespace quillon
