#pragma once

#include <initializer_list>

#include "platform/controls.h"

namespace quillon {

/// Height of a row of buttons at the top of a pane, pixels.
inline constexpr int kPaneButtonHeight = 30;

/// Places controls side by side in a row, in equal widths. Returns the lower edge.
int PlaceInRow(std::initializer_list<CControl*> controls, const tagRECT& row);

/// Places a property list of a height under `top`, over the whole width, and below it what fills the rest, which is
/// hidden when nothing is left. Without anything to fill the rest the list does.
void PlaceBelow(CControl& list, int listHeight, CControl* rest, int top, tagSIZE client);

}  // namespace quillon
