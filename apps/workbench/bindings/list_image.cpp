#include "bindings/list_image.h"

#include "toolkit/colours.h"

namespace quillon {

QImage ToQImage(const CImageList& images, int image) {
    const tagSIZE size = images.GetImageSize();
    QImage picture(size.width, size.height, QImage::Format_ARGB32);
    const std::vector<COLORREF>& pixels = images.GetPixels(image);
    for (int y = 0; y < size.height; ++y) {
        for (int x = 0; x < size.width; ++x) {
            const COLORREF pixel = pixels[static_cast<std::size_t>(y * size.width + x)];
            picture.setPixelColor(x, y, pixel == images.GetMask() ? QColor(Qt::transparent) : QColorOf(pixel));
        }
    }
    return picture;
}

}  // namespace quillon
