#pragma once

#include "features/boundary.h"
#include "features/grid_waypoint.h"
#include "features/pipeline.h"
#include "features/route.h"
#include "features/rpl.h"
#include "features/sail_line.h"
#include "foundation/read_report.h"
#include "report_sheet.h"
#include "sheet.h"

namespace quillon {

// Everything that a feature holds, with what was worked out from its points.
void FillSheet(Sheet& sheet, const CBoundary& boundary);
void FillSheet(Sheet& sheet, const CGridWaypoint& waypoints);
void FillSheet(Sheet& sheet, const CPipeline& pipeline);
void FillSheet(Sheet& sheet, const CRoute& route);
void FillSheet(Sheet& sheet, const CSailLine& lines);
void FillSheet(Sheet& sheet, const CRPL& rpl);

}  // namespace quillon
