#include "host/label_text.h"

#include "platform/text.h"

namespace quillon {
namespace {

std::string CoordinatesText(tagXY at) {
    return Format("%.1lf E  %.1lf N", at.x, at.y);
}

}  // namespace

std::string LabelText(SYMBOL_LABEL_MODE mode, const std::string& name, const std::string& description, tagXY at) {
    switch (mode) {
        case LABEL_NAME:
            return name;
        case LABEL_COORDINATES:
            return CoordinatesText(at);
        case LABEL_NAME_COORDINATES:
            return name.empty() ? CoordinatesText(at) : name + "  " + CoordinatesText(at);
        case LABEL_DESCRIPTION:
            return description;
        default:
            return {};
    }
}

}  // namespace quillon
