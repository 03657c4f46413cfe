#include "display/my_list_view.h"

#include <algorithm>

#include "foundation/config_file.h"
#include "foundation/delimited_line.h"
#include "foundation/paths.h"
#include "frame/colour_schemes.h"
#include "frame/size_columns.h"
#include "platform/control_window.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kFilter = "CSV Files (*.csv)|*.csv|Text Files (*.txt)|*.txt|All Files (*.*)|*.*||";

enum MENU { LOAD_CSV = 1, DELETE_ROWS = 100, SAVE_CSV = 200, SAVE_EXCEL = 201, PRINT_LIST = 202 };
constexpr ExportMenuIds kExports = {SAVE_CSV, SAVE_EXCEL, PRINT_LIST};

std::string FieldOf(const std::string& line, int column) {
    FieldScanner fields(line);
    for (; column > 0 && !fields.IsEmpty(); --column) fields.NextField();
    return fields.IsEmpty() ? std::string() : fields.NextString();
}

}  // namespace

CMyListView::CMyListView(CWnd& frame, UINT id) : CListCtrl(frame, id) {
    SetHeaderColours(kTableHeaderColours.background, kTableHeaderColours.text);
    SetMultipleSelection(true);
    SetNightMode(false);
}

void CMyListView::SetNightMode(bool night) {
    const TableColours colours = PointsTableColours(night);
    SetColours(colours.background, colours.text);
}

void CMyListView::SetFrameTitle(std::string_view title) {
    if (auto* const frame = dynamic_cast<CControlWindow*>(&GetOwner())) frame->SetWindowText(title);
}

void CMyListView::Resize(const tagRECT& place) {
    if (GetRect() == place) return;
    MoveWindow(place);
    SizeColumns(*this, stretchLastColumn);
}

// ---- Out ----

bool CMyListView::SaveToCsv() {
    return SaveTableToCsv(GetOwner().GetPlatform(), TableOf(*this), names);
}

void CMyListView::SaveToExcel() {
    SaveTableToExcel(GetOwner().GetPlatform(), TableOf(*this), names);
}

bool CMyListView::PrintList() {
    return PrintTableOf(GetOwner().GetPlatform(), *this, names.Title());
}

// ---- In ----

bool CMyListView::ChooseCsvFile() {
    Platform& platform = GetOwner().GetPlatform();
    std::vector<std::string> chosen;
    const FileQuestion question{"Data File", std::string(kFilter), false, importPath};
    if (!platform.ChooseFiles(question, chosen) || chosen.empty()) return false;
    importPath = chosen.front();
    names.folder = FolderOfPath(importPath);
    names.fileTitle = SplitPath(importPath).name;
    if (settingsName.empty()) return true;
    CConfigFile settings(platform.Files());
    if (settings.OpenSettingsForWrite(settingsName)) {
        settings.WriteBare(importPath);
        settings.Commit();
    }
    return true;
}

void CMyListView::LoadCsvFile(std::string_view path) {
    const std::string source(path.empty() ? std::string_view(importPath) : path);
    DeleteAllItems();
    DeleteAllColumns();
    for (auto* const texts : {&headerTitles, &lines, &titles, &longests}) texts->clear();
    SetFrameTitle(source);
    CStdioFile file(GetOwner().GetPlatform().Files());
    if (file.OpenForReading(source)) {
        CDelimitedLine line;
        std::string_view text;
        for (bool isFirst = true; file.ReadString(text); isFirst = false) {
            line.Fill(text);
            TakeLine(line.DetectSeparators(), isFirst && firstLineNamesColumns);
        }
    }
    for (const std::string& title : titles) InsertColumn(title, ALIGN::CENTRE);
    ShowLines();
    SizeColumns(*this, stretchLastColumn);
}

/// A line that names columns makes no row; a field without a column gets one without a title.
void CMyListView::TakeLine(std::string line, bool namesColumns) {
    const bool isFirst = lines.empty() && headerTitles.empty();
    FieldScanner fields(line);
    std::size_t column = 0;
    for (; !fields.IsEmpty(); ++column) {
        const std::string field = fields.NextString();
        if (isFirst) headerTitles.push_back(field);
        if (column == titles.size()) {
            titles.push_back(namesColumns ? field : std::string());
            longests.emplace_back();
        }
        if (!namesColumns && field.size() > longests[column].size()) longests[column] = field;
    }
    if (!namesColumns && column > 0) lines.push_back(std::move(line));
}

void CMyListView::ShowLines() {
    SetRows({.count = static_cast<int>(lines.size()),
             .cell =
                 [this](int row, int column) {
                     const auto place = static_cast<std::size_t>(row);
                     return place < lines.size() ? FieldOf(lines[place], column) : std::string();
                 },
             .widest = [this](int column) -> std::vector<std::string> {
                 const auto place = static_cast<std::size_t>(column);
                 if (place >= longests.size()) return {};
                 return {longests[place]};
             }});
}

void CMyListView::DeleteRows(const std::vector<int>& rows) {
    // From the bottom up, so that the numbers of the others stay what they are.
    std::vector<int> downwards = rows;
    std::sort(downwards.rbegin(), downwards.rend());
    for (const int row : downwards) {
        if (row >= 0 && static_cast<std::size_t>(row) < lines.size()) lines.erase(lines.begin() + row);
    }
    ShowLines();
}

void CMyListView::OnRightClick(int) {
    Platform& platform = GetOwner().GetPlatform();
    const bool hasRows = GetItemCount() > 0;
    PopupMenu menu;
    menu.AddHeading("Import Data");
    menu.AddItem(LOAD_CSV, "Load CSV File");
    if (hasRows && !GetSelectedRows().empty()) {
        menu.AddHeading("Remove Data");
        menu.AddItem(DELETE_ROWS, GetSelectedRows().size() > 1 ? "Delete Selected Rows" : "Delete Row");
    }
    if (hasRows) AddExportEntries(menu, kExports);
    const int chosen = platform.TrackPopupMenu(menu);
    if (chosen == LOAD_CSV) {
        if (ChooseCsvFile()) LoadCsvFile();
    } else if (chosen == DELETE_ROWS) {
        DeleteRows(GetSelectedRows());
    } else {
        RunExportEntry(platform, *this, names, kExports, chosen);
    }
}

}  // namespace quillon
