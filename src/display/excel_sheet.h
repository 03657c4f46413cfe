#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "display/list_table.h"
#include "platform/database.h"

namespace quillon {

/// One column of an export, with the cell of the row that is being written.
struct ExcelColumnDef {
    std::string name;
    std::int32_t isNumber = 0;
    std::string value;
};

class CExcelColumn : public std::vector<ExcelColumnDef> {};

/// The columns of a table, by the rules of exports.
CExcelColumn ExcelColumnsOf(const ListTable& table);

// The statements, for the data source to execute.
std::string CreateTableStatement(std::string_view table, const CExcelColumn& columns);
std::string InsertStatement(std::string_view table, const CExcelColumn& columns);

/// A workbook behind the first data source that names itself and its driver after the spreadsheet.
class CExcelSheet {
public:
    /// Whether this machine has such a data source.
    static bool IsAvailable();

    /// Makes the workbook at a native path and the table in it. False if there is no data source or it refuses.
    bool Create(std::string_view path, std::string_view tableName, const CExcelColumn& columns);
    bool InsertRow(const CExcelColumn& columns);
    void Close() { database.Close(); }

private:
    std::string table;
    CDatabase database;
};

}  // namespace quillon
