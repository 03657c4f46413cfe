#include "panes/line_rows.h"

#include "panes/row_values.h"

namespace quillon {

void BuildLineRows(CMFCPropertyGridCtrl& list, const LineRowIds& ids, const tagPen& pen) {
    auto& line = list.AddGroup("Line");
    line.Add<CMFCPropertyGridPrimaryColourProperty>("Colour", pen.colour, kPaletteCount,
                                                    "Specifies the pen colour of the Line", ids.colour);
    line.Add<CMFCPropertyGridLineThicknessProperty>(pen.thickness, pen.colour, ids.thickness);
}

bool StoreLineRow(const CMFCPropertyGridCtrl& list, const LineRowIds& ids, tagPen& pen,
                  const CMFCPropertyGridProperty& row) {
    if (row.GetData() == ids.thickness) return Take(pen.thickness, row);
    const bool differed = Take(pen.colour, row);
    ColourRow(list, ids.thickness, pen.colour);
    return differed;
}

}  // namespace quillon
