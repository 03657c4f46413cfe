#include "display/excel_sheet.h"

#include <algorithm>
#include <optional>

#include "platform/text.h"

namespace quillon {
namespace {

std::optional<DataSource> FindDataSource() {
    constexpr std::string_view kMark = "Excel";
    for (const DataSource& source : ListDataSources()) {
        const bool fits =
            source.name.find(kMark) != std::string::npos && source.description.find(kMark) != std::string::npos;
        if (fits) return source;
    }
    return std::nullopt;
}

std::string Join(const CExcelColumn& columns, auto text) {
    std::string joined;
    for (const ExcelColumnDef& column : columns) {
        if (!joined.empty()) joined += ", ";
        joined += text(column);
    }
    return joined;
}

}  // namespace

CExcelColumn ExcelColumnsOf(const ListTable& table) {
    CExcelColumn columns;
    for (int i = 0; i < table.ColumnCount(); ++i) {
        columns.push_back({ExportColumnName(table, i), IsNumberColumn(table, i) ? 1 : 0, {}});
    }
    return columns;
}

std::string CreateTableStatement(std::string_view table, const CExcelColumn& columns) {
    const auto column = [](const ExcelColumnDef& def) {
        const std::string name = Replace(Replace(def.name, "\r", ""), "\n", " ");
        return '"' + name + (def.isNumber ? "\" NUMBER" : "\" TEXT");
    };
    return "CREATE TABLE \"" + std::string(table) + "\" (" + Join(columns, column) + ");";
}

std::string InsertStatement(std::string_view table, const CExcelColumn& columns) {
    const auto value = [](const ExcelColumnDef& def) { return '\'' + Replace(def.value, "'", "''") + '\''; };
    return "INSERT INTO \"" + std::string(table) + "\" VALUES (" + Join(columns, value) + ");";
}

bool CExcelSheet::IsAvailable() {
    return FindDataSource().has_value();
}

bool CExcelSheet::Create(std::string_view path, std::string_view tableName, const CExcelColumn& columns) {
    const std::optional<DataSource> source = FindDataSource();
    if (!source) return false;
    const std::string file(path);
    const std::string connection =
        Format("DRIVER={%s};DSN=%s;FIRSTROWHASNAMES=1;READONLY=FALSE;CREATE_DB=\"%s\";DBQ=%s",
               source->description.c_str(), source->name.c_str(), file.c_str(), file.c_str());
    if (!database.OpenEx(connection)) return false;
    table = tableName;
    return database.ExecuteSQL(CreateTableStatement(table, columns));
}

bool CExcelSheet::InsertRow(const CExcelColumn& columns) {
    return database.ExecuteSQL(InsertStatement(table, columns));
}

}  // namespace quillon
