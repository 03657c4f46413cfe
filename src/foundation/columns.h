#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "foundation/values.h"
#include "platform/align.h"

namespace quillon {

/// What a column holds. It settles unit, decimals and alignment, in a table, a sheet and an export alike.
enum class CELL : std::uint8_t {
    ROW_NUMBER,     ///< the place of the record, from 1
    TEXT,           ///< Windows-1252
    INTEGER,        ///< a plain number
    METRES,         ///< a coordinate, height or width; "1234.560"
    RANGE,          ///< the length of a leg in metres; "12.34m"
    BEARING,        ///< radians clockwise from north; "12.3" and a degree sign
    PLAIN_BEARING,  ///< the same without the sign
    FULL_BEARING,   ///< radians clockwise from north; "012.34"
    DEGREES,        ///< degrees of any angle, one decimal
    ANGLE,          ///< radians of any other angle; degrees with 4 decimals
    KP_KM,          ///< a KP in kilometres, 6 decimals
    KP_METRES,      ///< a KP in metres
    KM_PER_METRE,   ///< how fast a KP grows
    POSITION        ///< easting and northing
};

/// A column over records of one kind. One table of columns stands beside each record; the points tables of the panes,
/// the sheets of the command line tool, listings and exports take from it what they show.
template <class Record>
struct Column {
    /// Where the cell comes from; a row number comes from nowhere.
    using Value = std::variant<std::monostate, double (*)(const Record&), std::string_view (*)(const Record&),
                               long long (*)(const Record&), tagXY (*)(const Record&)>;

    std::string_view header;  ///< in tables; empty for a column that only sheets have
    std::string_view key;     ///< in sheets, lower case with "_" between words; empty for a column of tables alone
    CELL cell;
    Value value;

    double Number(const Record& record) const { return std::get<double (*)(const Record&)>(value)(record); }
    long long Integer(const Record& record) const { return std::get<long long (*)(const Record&)>(value)(record); }
    tagXY Position(const Record& record) const { return std::get<tagXY (*)(const Record&)>(value)(record); }
    std::string_view Text(const Record& record) const {
        return std::get<std::string_view (*)(const Record&)>(value)(record);
    }
};

/// The columns with these headers, in this order. A header that none has doesn't compile.
///
///     constexpr auto kShown = ColumnsWithHeaders(kRouteColumns, "Name", "Easting", "Northing");
template <class Record, std::size_t N, class... Headers>
consteval std::array<const Column<Record>*, sizeof...(Headers)> ColumnsWithHeaders(
    const std::array<Column<Record>, N>& columns, Headers... headers) {
    const auto find = [&](std::string_view header) {
        for (const Column<Record>& column : columns) {
            if (column.header == header) return &column;
        }
        throw "no column has this header";
    };
    return {find(headers)...};
}

constexpr ALIGN AlignOf(CELL cell) {
    return cell == CELL::TEXT ? ALIGN::LEFT : ALIGN::RIGHT;
}
/// The unit of the number as it is stored: "m", "km", "rad", "km/m"; empty where there is none.
std::string_view UnitOf(CELL cell);
/// Decimals of a number in a sheet.
int DecimalsOf(CELL cell);
/// A number as tables show it; a missing one is left blank.
std::string CellText(CELL cell, double number);

/// The cell of a record that stands at `row`, from 0.
template <class Record>
std::string CellText(const Column<Record>& column, const Record& record, std::ptrdiff_t row) {
    switch (column.cell) {
        case CELL::ROW_NUMBER:
            return CellText(CELL::INTEGER, static_cast<double>(row + 1));
        case CELL::TEXT:
            return std::string(column.Text(record));
        case CELL::INTEGER:
            return CellText(CELL::INTEGER, static_cast<double>(column.Integer(record)));
        case CELL::POSITION: {
            const tagXY position = column.Position(record);
            return CellText(CELL::METRES, position.x) + " " + CellText(CELL::METRES, position.y);
        }
        default:
            return CellText(column.cell, column.Number(record));
    }
}

}  // namespace quillon
