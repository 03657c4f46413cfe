#pragma once

#include <string>
#include <vector>

#include "background/dxf_entity.h"

namespace quillon {

struct CDxfLayer {
    std::string name;
    int flags = 0;
    int colour = 0;  ///< of the palette; below 0 the layer is off
    std::string linetypeName;

    bool IsOff() const { return colour < 0; }
};

struct CDxfLinetype {
    std::string name;
    int flags = 0;
    std::string description;
    int elementCount = 0;
    double totalLength = 0.0;  ///< cut to a whole number
    std::vector<double> dashes;
};

struct CDxfStyle {
    std::string name;
    int flags = 0;
    std::string font;
    int generation = 0;
    double height = 0.0;
    double widthFactor = 0.0;
    double lastHeight = 0.0;
    double obliqueAngle = 0.0;  ///< degrees
};

/// Members without a name of their own are called after their groups.
struct CDxfDimStyle {
    std::string name;
    int flags = 0;
    std::string text6, text7;
    double real41 = 0.0, real42 = 0.0, real44 = 0.0, real46 = 0.0, real140 = 0.0, real147 = 0.0;
    int whole77 = 0, whole176 = 0, whole177 = 0, whole178 = 0, whole340 = 0;
};

struct CDxfBlock {
    std::string name;
    std::string layerName;
    int flags = 0;
    tagXYZ base;
    const CDxfLayer* layer = nullptr;
    std::vector<const CDxfEntity*> entities;
};

}  // namespace quillon
