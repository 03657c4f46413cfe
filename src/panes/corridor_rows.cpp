#include "panes/corridor_rows.h"

#include "panes/row_values.h"

namespace quillon {

void BuildCorridorRows(CMFCPropertyGridCtrl& list, const CorridorRowIds& ids, const CorridorValues& values,
                       std::string_view widthDescription) {
    auto& corridor = list.AddGroup("Corridor");
    corridor.Add<CMFCPropertyGridProperty>("Display", values.display,
                                           "Determine whether to display Corridor either side of route", ids.display);
    corridor.Add<CMFCPropertyGridDouble>("Port Width", values.portWidth, "%7.1lfm", widthDescription, ids.portWidth)
        .SetRange(kMetresRange);
    corridor
        .Add<CMFCPropertyGridDouble>("Starboard Width", values.starboardWidth, "%7.1lfm", widthDescription,
                                     ids.starboardWidth)
        .SetRange(kMetresRange);
    corridor.Add<CMFCPropertyGridFillStyleProperty>(values.fill, values.colour, ids.fill);
    corridor.Add<CMFCPropertyGridPrimaryColourProperty>("Colour", values.colour, kPaletteCount,
                                                        "Specifies the pen colour of the Corridor", ids.colour);
}

bool StoreCorridorRow(const CMFCPropertyGridCtrl& list, const CorridorRowIds& ids, const CorridorValues& values,
                      const CMFCPropertyGridProperty& row) {
    const UINT id = row.GetData();
    if (id == ids.display) return Take(values.display, row);
    if (id == ids.portWidth) return Take(values.portWidth, row);
    if (id == ids.starboardWidth) return Take(values.starboardWidth, row);
    if (id == ids.fill) return Take(values.fill, row);
    const bool differed = Take(values.colour, row);
    ColourRow(list, ids.fill, values.colour);
    return differed;
}

}  // namespace quillon
