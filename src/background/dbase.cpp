#include "background/dbase.h"

#include <algorithm>

#include "foundation/paths.h"
#include "platform/text.h"

namespace quillon {
namespace {

bool StandsUnder(const ShapeFileOpener& opener, const std::string& path) {
    CRandomFile file;
    return opener(path + ".dbf", file) || opener(path + ".DBF", file);
}

}  // namespace

void CDbase::SetPath(std::string_view file) {
    const tagPathParts parts = SplitPath(file);
    path = parts.folder + parts.name;
    name = parts.name;
}

bool CDbase::ReadColumns(const ShapeFileOpener& opener, int records, ShapeReport* report) {
    columns.clear();
    const DbfFile table(opener, CAttributeReader::TablePath(path));
    if (!table.IsOpen()) {
        if (report && StandsUnder(opener, path)) report->NoteFile("the .dbf can't be read");
        return false;
    }
    for (int i = 0; i < table.GetColumns(); ++i) columns.push_back(table.GetColumnName(i));
    if (report && table.GetRows() != records) {
        report->NoteFile(Format("the .dbf has %d rows for %d records", table.GetRows(), records));
    }
    return true;
}

int CDbase::FindColumn(std::string_view column) const {
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [column](const std::string& known) { return EqualNoCase(known, column); });
    return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

}  // namespace quillon
