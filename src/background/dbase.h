#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "background/shape_library.h"
#include "background/shape_report.h"

namespace quillon {

/// The attribute table beside a shape file: where it is, and the names of its columns. Of its values none is kept;
/// CAttributeReader gives them when they are asked for.
class CDbase {
public:
    std::string path;                  ///< without the extension
    std::string name;                  ///< of the file, without the extension
    std::vector<std::string> columns;  ///< in the order of the file, without trailing blanks

    /// Takes the path of any file of the group.
    void SetPath(std::string_view file);
    /// False, with no columns, if there is no table or its head can't be read; the latter is reported. So is a count of
    /// rows that isn't `records`.
    bool ReadColumns(const ShapeFileOpener& opener, int records, ShapeReport* report = nullptr);
    /// The column of this name, regardless of case; -1 for none.
    int FindColumn(std::string_view column) const;
};

/// Reads attribute values from the table of a shape file, one by one, for labels that are being shown. Holds the file
/// open and one block of it in memory; rows in their order cost one pass over the file.
///
///     CAttributeReader values(OpenerOf(files), shape.dbase.path);
///     label = values.GetText(record, shape.labelColumn);
class CAttributeReader {
public:
    /// A table that can't be opened gives empty texts.
    CAttributeReader(const ShapeFileOpener& opener, std::string_view path) : table(opener, TablePath(path)) {}

    bool IsOpen() const { return table.IsOpen(); }
    /// As it is written, without blanks around it; empty outside the table.
    std::string GetText(int row, int column) { return table.IsOpen() ? table.GetText(row, column) : std::string(); }

    /// A name of which the shape library cuts nothing but the table's own extension.
    static std::string TablePath(std::string_view path) { return std::string(path) + ".dbf"; }

private:
    DbfFile table;
};

}  // namespace quillon
