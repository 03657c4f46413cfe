#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "features/boundary.h"
#include "features/grid_waypoint.h"
#include "features/pipeline.h"
#include "features/route.h"
#include "features/sail_line.h"
#include "features/structure.h"
#include "frame/points_table.h"

namespace quillon {

// What the listing of each kind of feature shows: its columns, and the rows over the records of one file. The records
// are asked for at each look, and may go meanwhile.

PointsTable ListWaypoints(RecordSource<GridWaypointDef> records);
PointsTable ListSailLines(RecordSource<SailLineDef> records);
/// A row a point, and between two of them one with the leg: 2n - 1 rows.
PointsTable ListRoute(RecordSource<RouteDef> records);
/// The tangent points of a curve stand in rows of their own around its intersection point.
PointsTable ListDesignRoute(RecordSource<RouteDef> records);
PointsTable ListPipeline(RecordSource<PipelineDef> records);
PointsTable ListBoundary(RecordSource<tagXY> records);
PointsTable ListStructures(RecordSource<StructureDef> records);

/// No records: the columns alone.
template <class Record>
RecordSource<Record> NoRecords() {
    return [] { return std::span<const Record>(); };
}

/// The records of a member of a list, for as long as it is there.
template <class Record, class List>
RecordSource<Record> RecordsOfMember(const List& list, int index) {
    return [&list, index]() -> std::span<const Record> {
        if (!list.IsValidIndex(index)) return {};
        return {list[index].GetData(), static_cast<std::size_t>(list[index].GetSize())};
    };
}

}  // namespace quillon
