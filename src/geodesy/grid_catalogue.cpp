#include <optional>

#include "foundation/angle_units.h"
#include "geodesy/catalogue/grid_row.h"
#include "geodesy/grid.h"

namespace quillon {

namespace {

/// UTM leaves the ellipsoid alone, but needs one.
void SelectEllipsoid(CEllipsoid& ellipsoid, const GridRow& row) {
    if (row.ellipsoid != GridRow::kEllipsoidInUse) {
        ellipsoid.SetEllipsoid(row.ellipsoid);
    } else if (ellipsoid.a == 0) {
        ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
    }
}

/// The first zone of a family that is on an ellipsoid, by name.
std::optional<std::int32_t> ZoneOnEllipsoid(std::int32_t type, const CEllipsoid& ellipsoid) {
    CEllipsoid candidate;
    for (std::int32_t zone = 0;; ++zone) {
        const std::optional<GridRow> row = FindGridRow(zone, type, 0);
        if (!row) return std::nullopt;
        candidate.SetEllipsoid(row->ellipsoid);
        if (ellipsoid.IsSame(candidate)) return zone;
    }
}

}  // namespace

bool CGrid::SetGrid(std::int32_t gridZone, std::int32_t gridType, std::int32_t gridSubtype) {
    ellipsoidFixed = true;
    zone = gridZone;
    type = gridType;
    subtype = gridSubtype;
    const std::optional<GridRow> row = FindGridRow(gridZone, gridType, gridSubtype);
    if (!row) return false;

    ellipsoidFixed = row->ellipsoidFixed;
    SetNames(row->name.c_str(), row->comment.c_str());
    if (ellipsoid) SelectEllipsoid(*ellipsoid, *row);
    SetSubType(row->subtype);
    if (row->utmZone != 0 || type == UTM_GRID) utmZone = row->utmZone;
    axis = row->axis;
    // The parallels and the table stand before the origin is set, since that derives the constants from all of them.
    lat1 = row->lat1 * kRadiansPerDegree;
    lat2 = row->lat2 * kRadiansPerDegree;
    StoreParameters(row->table);
    SetOriginDegrees(row->lat0, row->lon0, row->falseEasting, row->falseNorthing, row->scale);
    return true;
}

void CGrid::MatchEllipsoid() {
    if (type == UTM_GRID || !ellipsoid) return;
    CEllipsoid own;
    own.SetEllipsoid(CEllipsoid::kWgs84);
    if (const std::optional<GridRow> row = FindGridRow(zone, type, subtype)) own.SetEllipsoid(row->ellipsoid);
    if (ellipsoid->IsSame(own)) return;
    if (const std::optional<std::int32_t> match = ZoneOnEllipsoid(type, *ellipsoid)) {
        SetGrid(*match, type, 0);
    } else {
        SetGrid(31, UTM_GRID, 0);
    }
}

}  // namespace quillon
