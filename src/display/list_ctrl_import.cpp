#include "display/list_ctrl_import.h"

#include <algorithm>
#include <cstdlib>

#include "foundation/paths.h"
#include "foundation/settings_lines.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kNotInUse = "n/a";
constexpr std::string_view kNames[] = {"KP", "Easting", "Northing", "Depth"};

void SetDefaults(CListCtrlImport& import) {
    import.fullPath = DocumentsFolder(import.GetFiles());
    import.spreadsheetName = "Sheet1";
    import.mode = 0;
    import.skipLines = 0;
    std::int32_t column = 0;
    for (ListCtrlImportDef& def : import) def.column = column++;
}

}  // namespace

template <class Lines>
void EachLine(Lines& lines, RecordOf<CListCtrlImport> auto& import) {
    lines.Text("Full Path", import.fullPath);
    lines.Text("Spreadsheet Name", import.spreadsheetName);
    lines.Int("Mode", import.mode);
    lines.Int("Skip No Lines", import.skipLines);
    for (auto& def : import) lines.Int(def.name, def.column);
}

CListCtrlImport::CListCtrlImport(FileSystem& fileSystem) : files(fileSystem) {
    for (const std::string_view name : kNames) Add({std::string(name)});
    SetDefaults(*this);
}

bool CListCtrlImport::TakesAny() const {
    return std::any_of(begin(), end(), [](const ListCtrlImportDef& def) { return def.column >= 0; });
}

std::string_view CListCtrlImport::FieldOf(std::string_view line, Index column) const {
    const std::int32_t place = (*this)[column].column;
    return place < 0 ? kNotInUse : FieldAt(line, place);
}

bool CListCtrlImport::SkipLines(CStdioFile& file) const {
    std::string_view line;
    for (std::int32_t i = 0; i < skipLines; ++i) {
        if (!file.ReadString(line)) return false;
    }
    return true;
}

bool CListCtrlImport::ReadRow(CStdioFile& file, std::string& line) const {
    std::string_view view;
    if (!TakesAny() || !file.ReadString(view)) return false;
    if (view.find('\r') == std::string_view::npos) {
        line.assign(view);
    } else {
        line = Replace(view, "\r", "");
    }
    return true;
}

void CListCtrlImport::ReadSettings() {
    SetDefaults(*this);
    CConfigFile file(files);
    if (file.OpenForRead(settingsName)) ReadLines(file, *this);
}

void CListCtrlImport::WriteSettings() const {
    CConfigFile file(files);
    if (!file.OpenSettingsForWrite(settingsName)) return;
    WriteLines(file, *this);
    file.Commit();
}

std::string_view FieldAt(std::string_view line, std::int32_t column) {
    for (; column > 0; --column) {
        const std::size_t comma = line.find(',');
        if (comma == std::string_view::npos) return {};
        line.remove_prefix(comma + 1);
    }
    return line.substr(0, line.find(','));
}

std::string DocumentsFolder(const FileSystem& files) {
    const char* const own = std::getenv("XDG_DOCUMENTS_DIR");
    const char* const home = std::getenv("HOME");
    const std::filesystem::path folder =
        own && *own ? std::filesystem::path(own) : std::filesystem::path(home ? home : "/") / "Documents";
    std::string path = files.LibraryPath(folder);
    EndInSeparator(path);
    return path;
}

}  // namespace quillon
