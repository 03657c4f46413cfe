#include "display/feature_listing.h"

#include <array>
#include <cstddef>
#include <memory>
#include <utility>

#include "platform/text.h"

namespace quillon {
namespace {

std::string_view Empty(const GridWaypointDef&) {
    return {};
}
double Missing(const StructureDef&) {
    return MISSING_VALUE;
}

// clang-format off
/// Beside its position and its label a waypoint has nothing of its own; what is drawn around it belongs to the file.
constexpr std::array<Column<GridWaypointDef>, 15> kWaypoints = {{
    // header        key cell               value
    {"Wpt",         "", CELL::ROW_NUMBER, {}},
    {"Name",        "", CELL::TEXT,       [](const GridWaypointDef& r) -> std::string_view { return r.name; }},
    {"Easting",     "", CELL::METRES,     [](const GridWaypointDef& r) { return r.easting; }},
    {"Northing",    "", CELL::METRES,     [](const GridWaypointDef& r) { return r.northing; }},
    {"Symbol Type", "", CELL::TEXT,       Empty},
    {"Colour",      "", CELL::TEXT,       Empty},
    {"Style",       "", CELL::TEXT,       Empty},
    {"Size",        "", CELL::TEXT,       Empty},
    {"Label Mode",  "", CELL::TEXT,       Empty},
    {"Position",    "", CELL::TEXT,       Empty},
    {"No Rings",    "", CELL::TEXT,       Empty},
    {"Ring Size",   "", CELL::TEXT,       Empty},
    {"Ring Colour", "", CELL::TEXT,       Empty},
    {"Description", "", CELL::TEXT,       Empty},
    {"Attachment",  "", CELL::TEXT,       Empty},
}};

constexpr std::array<Column<SailLineDef>, 7> kSailLines = {{
    {"Line",         "", CELL::ROW_NUMBER,   {}},
    {"SOL Easting",  "", CELL::METRES,       [](const SailLineDef& r) { return r.sol.x; }},
    {"SOL Northing", "", CELL::METRES,       [](const SailLineDef& r) { return r.sol.y; }},
    {"EOL Easting",  "", CELL::METRES,       [](const SailLineDef& r) { return r.eol.x; }},
    {"EOL Northing", "", CELL::METRES,       [](const SailLineDef& r) { return r.eol.y; }},
    {"Range",        "", CELL::RANGE,        [](const SailLineDef& r) { return r.leg.range; }},
    {"Bearing",      "", CELL::FULL_BEARING, [](const SailLineDef& r) { return r.leg.bearing; }},
}};

/// The first three belong to rows of points, the others to rows of legs.
constexpr std::array<Column<RouteDef>, 5> kRoute = {{
    {"Wpt",      "", CELL::ROW_NUMBER,   {}},
    {"Easting",  "", CELL::METRES,       [](const RouteDef& r) { return r.position.x; }},
    {"Northing", "", CELL::METRES,       [](const RouteDef& r) { return r.position.y; }},
    {"Range",    "", CELL::RANGE,        [](const RouteDef& r) { return r.range; }},
    {"Bearing",  "", CELL::FULL_BEARING, [](const RouteDef& r) { return r.bearing; }},
}};
constexpr int kRoutePointColumns = 3;

constexpr std::array<Column<PipelineDef>, 6> kPipeline = {{
    {"Pt",       "", CELL::ROW_NUMBER,   {}},
    {"K.P.",     "", CELL::KP_KM,        [](const PipelineDef& r) { return r.kp; }},
    {"Easting",  "", CELL::METRES,       [](const PipelineDef& r) { return r.easting; }},
    {"Northing", "", CELL::METRES,       [](const PipelineDef& r) { return r.northing; }},
    {"Range",    "", CELL::RANGE,        [](const PipelineDef& r) { return r.range; }},
    {"Bearing",  "", CELL::FULL_BEARING, [](const PipelineDef& r) { return r.bearing; }},
}};

constexpr std::array<Column<tagXY>, 3> kBoundary = {{
    {"Pt",       "", CELL::ROW_NUMBER, {}},
    {"Easting",  "", CELL::METRES,     [](const tagXY& r) { return r.x; }},
    {"Northing", "", CELL::METRES,     [](const tagXY& r) { return r.y; }},
}};

/// The heading stands in the pane; here its column is kept free.
constexpr std::array<Column<StructureDef>, 5> kStructures = {{
    {"No.",      "", CELL::ROW_NUMBER, {}},
    {"Name",     "", CELL::TEXT,       [](const StructureDef& r) -> std::string_view { return r.name; }},
    {"Easting",  "", CELL::METRES,     [](const StructureDef& r) { return r.position.x; }},
    {"Northing", "", CELL::METRES,     [](const StructureDef& r) { return r.position.y; }},
    {"Heading",  "", CELL::DEGREES,    Missing},
}};
// clang-format on

PointsTable Centred(PointsTable table) {
    for (CListCtrl::Column& column : table.columns) column.align = ALIGN::CENTRE;
    return table;
}

template <class Record, std::size_t N>
PointsTable RowPerRecord(const std::array<Column<Record>, N>& columns, RecordSource<Record> records) {
    std::vector<const Column<Record>*> shown;
    for (const Column<Record>& column : columns) shown.push_back(&column);
    return Centred(MakePointsTable<Record>(shown, std::move(records)));
}

// ---- Design routes ----

enum class ROUTE_ROW { PLAIN, CURVE_START, INTERSECTION, CURVE_END };

/// A row of a design route: which of the up to three rows of a point.
struct DesignRow {
    std::ptrdiff_t point;
    ROUTE_ROW which;
};

constexpr std::array<std::string_view, 5> kDesignHeaders = {"ID", "K.P.", "Easting", "Northing", "Radius"};

std::vector<DesignRow> DesignRows(std::span<const RouteDef> records) {
    std::vector<DesignRow> rows;
    for (std::ptrdiff_t i = 0; i < std::ssize(records); ++i) {
        if (i == 0 || records[static_cast<std::size_t>(i)].radius == 0.0) {
            rows.push_back({i, ROUTE_ROW::PLAIN});
            continue;
        }
        for (const ROUTE_ROW row : {ROUTE_ROW::CURVE_START, ROUTE_ROW::INTERSECTION, ROUTE_ROW::CURVE_END}) {
            rows.push_back({i, row});
        }
    }
    return rows;
}

std::string DesignName(const DesignRow& row, std::ptrdiff_t points) {
    switch (row.which) {
        case ROUTE_ROW::CURVE_START:
            return Format("TP %td", 2 * row.point - 1);
        case ROUTE_ROW::CURVE_END:
            return Format("TP %td", 2 * row.point);
        case ROUTE_ROW::PLAIN:
            if (row.point == 0) return "Start";
            if (row.point == points - 1) return "End";
            break;
        case ROUTE_ROW::INTERSECTION:
            break;
    }
    return Format("IP %td", row.point);
}

std::string DesignCell(std::span<const RouteDef> records, const DesignRow& row, int column) {
    if (row.point >= std::ssize(records)) return {};
    const RouteDef& record = records[static_cast<std::size_t>(row.point)];
    const bool isStart = row.which == ROUTE_ROW::CURVE_START, isEnd = row.which == ROUTE_ROW::CURVE_END;
    const tagXY at = isStart ? record.curveStart : isEnd ? record.curveEnd : record.position;
    const double kp = isStart ? record.curveStartKp : isEnd ? record.curveEndKp : record.kp;
    const bool isIntersection = row.which == ROUTE_ROW::INTERSECTION;
    switch (column) {
        case 0:
            return DesignName(row, std::ssize(records));
        case 1:
            return isIntersection ? std::string() : Format("%.3lf", kp);
        case 2:
            return Format("%.3lf", at.x);
        case 3:
            return Format("%.3lf", at.y);
        default:
            return isIntersection ? Format("%.0lf", record.radius) : std::string();
    }
}

}  // namespace

PointsTable ListWaypoints(RecordSource<GridWaypointDef> records) {
    return RowPerRecord(kWaypoints, std::move(records));
}

PointsTable ListSailLines(RecordSource<SailLineDef> records) {
    return RowPerRecord(kSailLines, std::move(records));
}

PointsTable ListPipeline(RecordSource<PipelineDef> records) {
    return RowPerRecord(kPipeline, std::move(records));
}

PointsTable ListBoundary(RecordSource<tagXY> records) {
    return RowPerRecord(kBoundary, std::move(records));
}

PointsTable ListStructures(RecordSource<StructureDef> records) {
    return RowPerRecord(kStructures, std::move(records));
}

PointsTable ListRoute(RecordSource<RouteDef> records) {
    PointsTable table = RowPerRecord(kRoute, std::move(records));
    table.rows.count = std::max(0, 2 * table.rows.count - 1);
    table.rows.cell = [cell = std::move(table.rows.cell)](int row, int column) {
        const bool isLeg = row % 2 != 0;
        return isLeg == (column >= kRoutePointColumns) ? cell(row / 2, column) : std::string();
    };
    return table;
}

PointsTable ListDesignRoute(RecordSource<RouteDef> records) {
    PointsTable table;
    for (const std::string_view header : kDesignHeaders) table.columns.push_back({.header = std::string(header)});
    const auto rows = std::make_shared<const std::vector<DesignRow>>(DesignRows(records()));
    table.rows.count = static_cast<int>(rows->size());
    table.rows.cell = [records, rows](int row, int column) {
        return DesignCell(records(), (*rows)[static_cast<std::size_t>(row)], column);
    };
    table.rows.widest = [records, rows](int column) {
        std::string widest;
        for (const DesignRow& row : *rows) {
            std::string text = DesignCell(records(), row, column);
            if (text.size() > widest.size()) widest = std::move(text);
        }
        return std::vector<std::string>{widest};
    };
    return Centred(std::move(table));
}

}  // namespace quillon
