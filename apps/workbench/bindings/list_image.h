#pragma once

#include <QImage>

#include "platform/image_list.h"

namespace quillon {

/// A picture of a list of pictures, clear where it has the mask colour. Raises InvalidArgument where there is none.
QImage ToQImage(const CImageList& images, int image);

}  // namespace quillon
