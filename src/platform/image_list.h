#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "platform/errors.h"
#include "platform/geometry.h"
#include "platform/palette.h"

namespace quillon {

/// Small pictures of one size. A pixel of the mask colour is not painted.
class CImageList {
public:
    CImageList(tagSIZE pictureSize, COLORREF maskColour) : size(pictureSize), mask(maskColour) {}

    /// The pixels of one more picture, row by row from the top. Raises InvalidArgument if they don't fill it.
    void Add(std::vector<COLORREF> pixels) {
        if (pixels.size() != static_cast<std::size_t>(size.width * size.height)) throw InvalidArgument("image size");
        pictures.push_back(std::move(pixels));
    }
    int GetImageCount() const { return static_cast<int>(pictures.size()); }
    tagSIZE GetImageSize() const { return size; }
    COLORREF GetMask() const { return mask; }
    /// Raises InvalidArgument where there is no such picture.
    const std::vector<COLORREF>& GetPixels(int image) const {
        if (image < 0 || image >= GetImageCount()) throw InvalidArgument("image index out of range");
        return pictures[static_cast<std::size_t>(image)];
    }

private:
    tagSIZE size;
    COLORREF mask;
    std::vector<std::vector<COLORREF>> pictures;
};

}  // namespace quillon
