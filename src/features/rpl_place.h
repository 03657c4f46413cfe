#pragma once

#include <optional>
#include <span>

#include "features/rpl_curves.h"

namespace quillon {

/// The KP of the place of the route, on a leg or an arc, that lies nearest to a position; kilometres. MISSING_VALUE for
/// a route without a record.
double RplKpAt(std::span<const RPLDef> records, tagXY at);

/// Where a KP lies; none before the start and behind the end.
std::optional<tagXY> RplPlaceAt(std::span<const RPLDef> records, double kp);

}  // namespace quillon
