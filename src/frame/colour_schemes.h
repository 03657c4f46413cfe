#pragma once

#include "platform/property_grid.h"

namespace quillon {

inline constexpr int kColourSchemeCount = 8;
/// The scheme of the feature panes.
inline constexpr int kFeaturePaneScheme = 1;

/// The colours of a scheme, 0 to 7; InvalidArgument beyond.
const PropertyColours& SchemeColours(int scheme, bool night);

/// Sets a list to a scheme, in the night colours while the list's night flag is set, and notes the number in it.
void ApplyColourScheme(CMyMFCPropertyGridCtrl& list, int scheme);

/// Makes a list ready for its rows: none yet, no captions, a description area, changed rows marked, the colours of the
/// scheme.
void BeginPropertyList(CMyMFCPropertyGridCtrl& list, int scheme = kFeaturePaneScheme);

/// The colours of the points tables.
struct TableColours {
    COLORREF background;
    COLORREF text;
};
constexpr TableColours PointsTableColours(bool night) {
    return night ? TableColours{0x000000, 0xC0C0C0} : TableColours{0xD6D6D6, 0x000000};
}
inline constexpr TableColours kTableHeaderColours = {0x555555, 0xEBEBEB};

}  // namespace quillon
