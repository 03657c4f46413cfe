#include "chart/symbol_sprites.h"

#include <cmath>

#include "chart/qpainter_device.h"
#include "display/my_dc.h"

namespace quillon {
namespace {

constexpr std::size_t kMostSprites = 256;

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
