#include "panes/rpl_table.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <memory>

#include "platform/text.h"

namespace quillon {
namespace {

enum COLUMN { POINT, KP, EASTING, NORTHING, RADIUS, DIRECTION, COLUMN_COUNT };
constexpr std::array<std::string_view, COLUMN_COUNT> kHeaders = {"Point",        "KP (km)",    "Easting (m)",
                                                                 "Northing (m)", "Radius (m)", "Direction"};

/// The rows of a curve, in their order.
enum CURVE_ROW { TANGENT_IN, INTERSECTION, CENTRE, TANGENT_OUT, CURVE_ROW_COUNT };

constexpr bool IsEnd(std::size_t record, std::size_t count) {
    return record == 0 || record + 1 == count;
}

constexpr std::size_t RowsOf(const RPLDef& record, std::size_t place, std::size_t count) {
    return !IsEnd(place, count) && record.IsCurve() ? CURVE_ROW_COUNT : 1;
}

/// Where each record's rows begin, and behind the last one their count.
using FirstRows = std::vector<std::uint32_t>;

FirstRows LayOutRows(std::span<const RPLDef> records) {
    FirstRows first = {0};
    first.reserve(records.size() + 1);
    for (std::size_t i = 0; i < records.size(); ++i) {
        first.push_back(first.back() + static_cast<std::uint32_t>(RowsOf(records[i], i, records.size())));
    }
    return first;
}

/// What stands in a row; what it hasn't is missing.
struct RowValues {
    std::string point;
    double kp = MISSING_VALUE;
    tagXY at;
    double radius = MISSING_VALUE;
    std::string_view direction = {};
};

RowValues ValuesOf(const RPLDef& record, std::size_t place, std::size_t count, std::size_t row, std::size_t curves) {
    if (place == 0) return {.point = "Start", .kp = record.kp, .at = record.position};
    if (place + 1 == count) return {.point = "End", .kp = record.kp, .at = record.position};
    const std::string corner = Format("IP %zu", place);
    if (!record.IsCurve()) return {.point = corner, .kp = record.kp, .at = record.position};
    switch (row) {
        case TANGENT_IN:
            return {.point = Format("TP %zu", 2 * curves + 1), .kp = record.curveStartKp, .at = record.curveStart};
        case INTERSECTION:
            return {.point = corner, .at = record.position};
        case CENTRE:
            return {.point = Format("CP %zu", place),
                    .at = record.centre,
                    .radius = record.radius,
                    .direction = record.direction == 1 ? "Clockwise" : "Anti-Clockwise"};
        default:
            return {.point = Format("TP %zu", 2 * curves + 2), .kp = record.curveEndKp, .at = record.curveEnd};
    }
}

std::string NumberText(const char* format, double value) {
    return IsMissing(value) ? std::string() : Format(format, value);
}

std::string CellOf(const RowValues& row, int column) {
    switch (column) {
        case POINT:
            return row.point;
        case KP:
            return NumberText("%.3lf", row.kp);
        case EASTING:
            return NumberText("%.2lf", row.at.x);
        case NORTHING:
            return NumberText("%.2lf", row.at.y);
        case RADIUS:
            return NumberText("%.0lf", row.radius);
        default:
            return std::string(row.direction);
    }
}

std::string TableCell(std::span<const RPLDef> records, const FirstRows& first, int row, int column) {
    // The list may have been read anew since the rows were laid out.
    if (records.size() + 1 != first.size() || row < 0) return {};
    const auto after = std::upper_bound(first.begin(), first.end(), static_cast<std::uint32_t>(row));
    const auto place = static_cast<std::size_t>(after - first.begin()) - 1;
    if (place >= records.size()) return {};
    // A curve has three rows more than any other record.
    const std::size_t curves = (first[place] - place) / (CURVE_ROW_COUNT - 1);
    return CellOf(ValuesOf(records[place], place, records.size(), static_cast<std::size_t>(row) - first[place], curves),
                  column);
}

/// Texts among which the widest of a column is.
std::vector<std::string> WidestCells(std::span<const RPLDef> records, int column) {
    if (records.empty()) return {};
    if (column == POINT) return {"Start", Format("IP %zu", records.size()), Format("TP %zu", 2 * records.size())};
    if (column == DIRECTION) return {"Anti-Clockwise"};
    double least = std::numeric_limits<double>::infinity(), greatest = -least;
    const auto take = [&](double value) {
        least = std::min(least, value);
        greatest = std::max(greatest, value);
    };
    for (const RPLDef& record : records) {
        if (column == KP) take(std::max(record.kp, record.curveEndKp));
        if (column == RADIUS) take(record.radius);
        if (column != EASTING && column != NORTHING) continue;
        for (const tagXY at : {record.position, record.curveStart, record.curveEnd, record.centre}) {
            take(column == EASTING ? at.x : at.y);
        }
    }
    std::vector<std::string> texts;
    for (const double value : {least, greatest}) {
        texts.push_back(CellOf({.point = {}, .kp = value, .at = {value, value}, .radius = value}, column));
    }
    return texts;
}

}  // namespace

PointsTable MakeRplTable(RecordSource<RPLDef> source) {
    PointsTable table;
    for (std::size_t i = 0; i < kHeaders.size(); ++i) {
        const bool isText = i == POINT || i == DIRECTION;
        table.columns.push_back({.header = std::string(kHeaders[i]), .align = isText ? ALIGN::LEFT : ALIGN::RIGHT});
    }
    const auto first = std::make_shared<const FirstRows>(LayOutRows(source()));
    table.rows.count = static_cast<int>(first->back());
    table.rows.cell = [source, first](int row, int column) { return TableCell(source(), *first, row, column); };
    table.rows.widest = [source](int column) { return WidestCells(source(), column); };
    return table;
}

int RplTableRow(std::span<const RPLDef> records, int record) {
    std::size_t row = 0;
    for (std::size_t i = 0; i < static_cast<std::size_t>(record) && i < records.size(); ++i) {
        row += RowsOf(records[i], i, records.size());
    }
    return static_cast<int>(row);
}

}  // namespace quillon
