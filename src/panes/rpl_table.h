#pragma once

#include "features/rpl_curves.h"
#include "frame/points_table.h"

namespace quillon {

/// The table of a route position list as its designer reads it: the start, of each curve the tangent point, the
/// intersection point, the centre and the other tangent point, of a corner without a curve the intersection point
/// alone, the end. Cells are made when they are asked for; records that have gone meanwhile have empty ones.
PointsTable MakeRplTable(RecordSource<RPLDef> source);

/// The row in which a record begins.
int RplTableRow(std::span<const RPLDef> records, int record);

}  // namespace quillon
