#include "panes/target_display_rows.h"

namespace quillon {

void BuildLabelRows(CMFCPropertyGridProperty& group, std::string_view cardinalsName, std::string_view ringsName,
                    const TargetDisplay& display, const LabelRowIds& ids) {
    auto& cardinals = group.Add<CMFCPropertyGridProperty>(cardinalsName);
    cardinals.Add<CMFCPropertyGridBool>("Show", display.displayLabels, "Label Cardinal points around the range rings",
                                        ids.cardinals);
    AddColour(cardinals, "Colour", display.cardinalColour, "Specifies the pen color of the range rings",
              ids.cardinalColour);
    auto& rings = group.Add<CMFCPropertyGridProperty>(ringsName);
    rings.Add<CMFCPropertyGridBool>("Show", display.labelRings, "Label the range rings", ids.ringLabels);
    AddColour(rings, "Colour", display.textColour, "Specifies the pen color of the range rings Label", ids.textColour);
}

}  // namespace quillon
