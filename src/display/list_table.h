#pragma once

#include <functional>
#include <string>
#include <vector>

#include "platform/align.h"

namespace quillon {

class CListCtrl;

/// What a table shows, for its way out: the headers of its columns and the texts of its cells. Cells are asked for, so
/// that a table of a million rows needs no copy; they must stay as they are meanwhile.
struct ListTable {
    struct Column {
        std::string header;
        ALIGN align = ALIGN::LEFT;
    };
    std::vector<Column> columns;
    int rows = 0;
    std::function<std::string(int row, int column)> cell;

    int ColumnCount() const { return static_cast<int>(columns.size()); }
};

/// The table of a control, which outlives it.
ListTable TableOf(const CListCtrl& list);

/// Whether a text counts as a number in an export: nothing but digits, points and signs, and at least one character.
bool PassesNumberTest(std::string_view text);
/// Whether every cell of a column does. Only columns whose place is below the count of rows can be columns of numbers.
bool IsNumberColumn(const ListTable& table, int column);
/// The name of a column in a workbook or a data source; one without a header is called "A1" to "Z1", "A2" and so on.
std::string ExportColumnName(const ListTable& table, int column);
/// A cell as an export has it: 80 characters at most, on one line.
std::string ExportCell(const ListTable& table, int row, int column);

}  // namespace quillon
