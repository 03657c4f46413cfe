#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/array.h"
#include "platform/file.h"

namespace quillon {

/// A column that is wanted from a text file.
struct ListCtrlImportDef {
    std::string name;
    std::int32_t column = 0;  ///< of the file, from 0; negative while it isn't in use
    friend bool operator==(const ListCtrlImportDef&, const ListCtrlImportDef&) = default;
};

/// What to take from a text file of rows, comma by comma: which columns, behind how many lines. Kept in the settings
/// file "Pipeline CSV".
class CListCtrlImport : public CArray<ListCtrlImportDef> {
public:
    /// KP, easting, northing and depth in the first four columns of a file that isn't chosen yet.
    explicit CListCtrlImport(FileSystem& fileSystem);

    std::string settingsName = "Pipeline CSV";
    std::string fullPath;  ///< of the file
    std::string spreadsheetName;
    std::int32_t mode = 0;
    std::int32_t skipLines = 0;

    /// The columns' places in the array.
    enum COLUMN : std::int32_t { KP, EASTING, NORTHING, DEPTH };

    std::int32_t ColumnOf(COLUMN column) const { return (*this)[column].column; }
    /// A row can be taken: one of the columns at least is in use.
    bool TakesAny() const;
    /// What a row shows under a column: "n/a" for one that isn't in use, empty behind the end of the line.
    std::string_view FieldOf(std::string_view line, Index column) const;

    /// Passes over the lines ahead of the rows; false if the file ends within them.
    bool SkipLines(CStdioFile& file) const;
    /// The next row, without carriage returns; false at the end, and if no column is in use.
    bool ReadRow(CStdioFile& file, std::string& line) const;

    void ReadSettings();
    /// Skipped if the file can't be written.
    void WriteSettings() const;
    FileSystem& GetFiles() const { return files; }

private:
    FileSystem& files;
};

/// The field of a line that stands behind `column` commas; empty if there are fewer. Quotes have no meaning.
std::string_view FieldAt(std::string_view line, std::int32_t column);

/// The documents folder of the user, with its separator.
std::string DocumentsFolder(const FileSystem& files);

}  // namespace quillon
