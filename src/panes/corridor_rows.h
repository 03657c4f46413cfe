#pragma once

#include <string_view>

#include "platform/property_rows.h"

namespace quillon {

/// The ids that a pane gives to the rows of the group "Corridor".
struct CorridorRowIds {
    UINT display;
    UINT portWidth;
    UINT starboardWidth;
    UINT fill;
    UINT colour;
};

/// The members that the rows show; widths in metres.
struct CorridorValues {
    bool& display;
    double& portWidth;
    double& starboardWidth;
    FILL_STYLE& fill;
    COLORREF& colour;
};

/// Adds the group "Corridor" with its rows.
void BuildCorridorRows(CMFCPropertyGridCtrl& list, const CorridorRowIds& ids, const CorridorValues& values,
                       std::string_view widthDescription);

/// Stores a row of the group; the fill is drawn in a new colour at once. False if the value was the one held. Corridor
/// points that hang on a width are the caller's.
bool StoreCorridorRow(const CMFCPropertyGridCtrl& list, const CorridorRowIds& ids, const CorridorValues& values,
                      const CMFCPropertyGridProperty& row);

}  // namespace quillon
