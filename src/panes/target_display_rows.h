#pragma once

#include "panes/row_values.h"
#include "target/target_display.h"

namespace quillon {

/// The most rings that a spin control offers: one more than is stored (kMostStoredRings).
inline constexpr int kMostRingsOffered = kMostStoredRings + 1;

struct LabelRowIds {
    UINT cardinals;
    UINT cardinalColour;
    UINT ringLabels;
    UINT textColour;
};

/// The labels of the rings, in two groups below the one given.
void BuildLabelRows(CMFCPropertyGridProperty& group, std::string_view cardinalsName, std::string_view ringsName,
                    const TargetDisplay& display, const LabelRowIds& ids);

}  // namespace quillon
