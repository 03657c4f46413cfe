#pragma once

#include "foundation/config_file.h"
#include "platform/property_rows.h"

namespace quillon {

/// The ids that a pane gives to the rows of the group "Line".
struct LineRowIds {
    UINT colour;
    UINT thickness;
};

/// Adds the group with the colour and the thickness of a line.
void BuildLineRows(CMFCPropertyGridCtrl& list, const LineRowIds& ids, const tagPen& pen);

/// Stores a row of the group; the thickness is drawn in a new colour at once. False if the value was the one held.
bool StoreLineRow(const CMFCPropertyGridCtrl& list, const LineRowIds& ids, tagPen& pen,
                  const CMFCPropertyGridProperty& row);

}  // namespace quillon
