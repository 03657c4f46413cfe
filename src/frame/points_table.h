#pragma once

#include <algorithm>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "foundation/columns.h"
#include "platform/controls.h"

namespace quillon {

/// What fills a table: its columns, and the rows below them.
struct PointsTable {
    std::vector<CListCtrl::Column> columns;
    TableRows rows;
};

/// The records that a table shows, asked for at each look: none once their file has gone.
template <class Record>
using RecordSource = std::function<std::span<const Record>()>;

namespace points_table {

template <class Record>
double NumberOf(const Column<Record>& column, const Record& record) {
    return column.cell == CELL::INTEGER ? static_cast<double>(column.Integer(record)) : column.Number(record);
}

/// The texts of the least and the greatest number of a column: one of them is the widest.
template <class Record>
std::vector<std::string> ExtremeTexts(const Column<Record>& column, std::span<const Record> records) {
    const Record* least = nullptr;
    const Record* greatest = nullptr;
    for (const Record& record : records) {
        const double number = NumberOf(column, record);
        if (IsMissing(number)) continue;
        if (!least || number < NumberOf(column, *least)) least = &record;
        if (!greatest || number > NumberOf(column, *greatest)) greatest = &record;
    }
    if (!least) return {};
    return {CellText(column, *least, 0), CellText(column, *greatest, 0)};
}

/// Texts among which the widest of the column is sure to be.
template <class Record>
std::vector<std::string> WidestTexts(const Column<Record>& column, std::span<const Record> records) {
    if (records.empty()) return {};
    if (column.cell == CELL::ROW_NUMBER) {
        return {CellText(column, records.back(), static_cast<std::ptrdiff_t>(records.size()) - 1)};
    }
    if (column.cell != CELL::TEXT) return ExtremeTexts(column, records);
    const auto shorter = [&](const Record& a, const Record& b) {
        return column.Text(a).size() < column.Text(b).size();
    };
    return {std::string(column.Text(*std::max_element(records.begin(), records.end(), shorter)))};
}

}  // namespace points_table

/// The table of some columns over records. Cells are made when they are asked for; a record that has gone meanwhile has
/// empty ones. The columns outlive the table.
template <class Record, class Shown>
PointsTable MakePointsTable(const Shown& columns, RecordSource<Record> source) {
    const std::vector<const Column<Record>*> shown(std::begin(columns), std::end(columns));
    PointsTable table;
    for (const auto* column : shown) {
        table.columns.push_back({.header = std::string(column->header), .align = AlignOf(column->cell)});
    }
    table.rows.count = static_cast<int>(source().size());
    table.rows.cell = [shown, source](int row, int column) {
        const std::span<const Record> records = source();
        const auto place = static_cast<std::size_t>(row);
        if (place >= records.size()) return std::string();
        return CellText(*shown[static_cast<std::size_t>(column)], records[place], row);
    };
    table.rows.widest = [shown, source](int column) {
        return points_table::WidestTexts(*shown[static_cast<std::size_t>(column)], source());
    };
    return table;
}

/// Gives a table these columns and rows in place of its own.
void ShowPoints(CListCtrl& table, const PointsTable& points);
/// Gives a table new rows under the columns that it has.
void RenewPoints(CListCtrl& table, const PointsTable& points);

}  // namespace quillon
