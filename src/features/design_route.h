#pragma once

#include "features/route_record.h"
#include "features/rpl.h"

namespace quillon {

/// The records of a design route that follows a route position list: its curves, with KPs in metres as routes have
/// them.
CRouteArray DesignRouteOf(const CRPL& rpl);

}  // namespace quillon
