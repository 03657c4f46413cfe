#pragma once

#include <string>

#include "foundation/values.h"
#include "platform/display_options.h"

namespace quillon {

// What labels say and where they stand, by the numbers of the settings.

enum LABEL_MODE { LABEL_NONE, LABEL_NAME, LABEL_COORDINATES, LABEL_NAME_COORDINATES, LABEL_DESCRIPTION };
enum LABEL_SIDE { SIDE_NONE, SIDE_TOP, SIDE_BOTTOM, SIDE_LEFT, SIDE_RIGHT, SIDE_CENTRE };

/// The label of something at a place of the grid. Empty for none.
std::string LabelText(SYMBOL_LABEL_MODE mode, const std::string& name, const std::string& description, tagXY at);

}  // namespace quillon
