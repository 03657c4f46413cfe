#pragma once

#include <cstdint>
#include <iosfwd>
#include <iterator>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "foundation/columns.h"
#include "foundation/values.h"
#include "platform/palette.h"

namespace quillon {

/// What a file holds, written as it is named: fields first, then tables. One description serves both forms, text for
/// people and JSON for programs.
///
///     sheet.Text("name", boundary.GetName());
///     PutTable(sheet, "points", boundary, kBoundaryColumns);
///     sheet.Finish();
///
/// Keys are lower case with "_" between words. Inside a row, a text comes last. Texts are the library's; UTF-8 goes
/// out, in large blocks. A number that is missing or not finite is null, "-" for people. A key has the same unit
/// wherever it stands in one sheet; programs find the units together at the end.
class Sheet {
public:
    virtual ~Sheet() = default;

    virtual void Text(std::string_view key, std::string_view value) = 0;
    virtual void Int(std::string_view key, long long value) = 0;
    virtual void Bool(std::string_view key, bool value) = 0;
    /// `decimals` for people; programs get all there is. The unit outlives the sheet; empty for a plain number.
    virtual void Real(std::string_view key, double value, int decimals, std::string_view unit = {}) = 0;
    /// Radians; degrees for people.
    virtual void Angle(std::string_view key, double radians) = 0;
    virtual void Pair(std::string_view key, tagXY position) = 0;
    /// Some values under one key.
    virtual void Reals(std::string_view key, std::span<const double> values, int decimals,
                       std::string_view unit = {}) = 0;
    virtual void Texts(std::string_view key, std::span<const std::string> values) = 0;
    /// A stored number with what it is called, if it has a name.
    virtual void Choice(std::string_view key, long long value, std::string_view name) = 0;
    virtual void Colour(std::string_view key, COLORREF colour) = 0;

    /// Whether lists in rows, groups in groups and rows with fields of their own can be told: not to people, whose
    /// tables have one heading.
    virtual bool IsNested() const = 0;
    /// A group may hold a small table.
    virtual void BeginGroup(std::string_view key) = 0;
    virtual void EndGroup() = 0;

    virtual void BeginTable(std::string_view key, std::ptrdiff_t rows) = 0;
    virtual void BeginRow() = 0;
    virtual void EndRow() = 0;
    /// A row that is a list of numbers, with nothing else between BeginTable and EndTable.
    virtual void ListRow(std::span<const double> values, int decimals) = 0;
    virtual void EndTable() = 0;
    virtual void Finish() = 0;

    void Metres(std::string_view key, double value) { Real(key, value, 3, "m"); }
    void Kilometres(std::string_view key, double value) { Real(key, value, 3, "km"); }
    void Choice(std::string_view key, long long value, std::span<const std::string_view> names) {
        const bool named = value >= 0 && value < static_cast<long long>(names.size());
        Choice(key, value, named ? names[static_cast<std::size_t>(value)] : std::string_view());
    }
};

/// The cell of a record under its column's key; nothing for a column without one.
template <class Record>
void PutCell(Sheet& sheet, const Column<Record>& column, const Record& record) {
    if (column.key.empty()) return;
    switch (column.cell) {
        case CELL::TEXT:
            return sheet.Text(column.key, column.Text(record));
        case CELL::INTEGER:
            return sheet.Int(column.key, column.Integer(record));
        case CELL::POSITION:
            return sheet.Pair(column.key, column.Position(record));
        case CELL::BEARING:
        case CELL::PLAIN_BEARING:
        case CELL::ANGLE:
            return sheet.Angle(column.key, column.Number(record));
        default:
            return sheet.Real(column.key, column.Number(record), DecimalsOf(column.cell), UnitOf(column.cell));
    }
}

/// The rows of an array, by the columns that have a key.
template <class Records, class Columns>
void PutTable(Sheet& sheet, std::string_view key, const Records& records, const Columns& columns) {
    sheet.BeginTable(key, std::distance(records.begin(), records.end()));
    for (const auto& record : records) {
        sheet.BeginRow();
        for (const auto& column : columns) PutCell(sheet, column, record);
        sheet.EndRow();
    }
    sheet.EndTable();
}

std::unique_ptr<Sheet> MakeTextSheet(std::ostream& out);
std::unique_ptr<Sheet> MakeJsonSheet(std::ostream& out);

}  // namespace quillon
