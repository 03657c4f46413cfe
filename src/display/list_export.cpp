#include "display/list_export.h"

#include "display/excel_sheet.h"
#include "display/print_list.h"
#include "display/workbook_export.h"
#include "foundation/calendar_time.h"
#include "foundation/paths.h"
#include "platform/control_window.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kCsvForms =
    "CSV Files (*.csv)|*.csv|CSV Files with quoted fields, RFC 4180 (*.csv)|*.csv|All Files (*.*)|*.*||";
constexpr std::string_view kDataSourceExtension = "XLS";
constexpr std::string_view kWorkbookExtension = "XLSX";

std::string TodayText(const Platform& platform) {
    const LocalClock now = platform.GetLocalClock();
    return DateText(now.day, now.month, now.year);
}

/// Rows and table as the data source takes them; false at the first that it refuses.
bool FillDataSource(CExcelSheet& sheet, const ListTable& table, CExcelColumn& columns) {
    for (int row = 0; row < table.rows; ++row) {
        for (int i = 0; i < table.ColumnCount(); ++i) {
            columns[static_cast<std::size_t>(i)].value = ExportCell(table, row, i);
        }
        if (!sheet.InsertRow(columns)) return false;
    }
    return true;
}

bool WriteByDataSource(const FileSystem& files, const ListTable& table, const std::string& path,
                       const std::string& title) {
    CExcelSheet sheet;
    CExcelColumn columns = ExcelColumnsOf(table);
    const bool written =
        sheet.Create(files.Native(path).string(), title, columns) && FillDataSource(sheet, table, columns);
    sheet.Close();
    return written;
}

/// The file that a window's table comes from, where the window lets one choose among several; else the window's title.
std::string NameOfTable(const CListCtrl& list) {
    const auto* const window = dynamic_cast<const CControlWindow*>(&list.GetOwner());
    if (!window) return {};
    for (const CControl* const control : window->GetControls()) {
        const auto* const combo = dynamic_cast<const CComboBox*>(control);
        if (combo && combo->GetCurSel() >= 0) return combo->GetLBText(combo->GetCurSel());
    }
    return window->GetWindowText();
}

}  // namespace

std::string ExportNames::Path(std::string_view extension) const {
    return folder + (exportName.empty() ? "_" + fileTitle : exportName) + "." + std::string(extension);
}

std::string ExportNames::SavedText(std::string_view extension) const {
    const std::string name = exportName.empty() ? "_" + fileTitle : exportName;
    return name + "." + std::string(extension) + "\n saved in \n" + folder;
}

std::string ExportNames::Take(std::string_view path) {
    const tagPathParts parts = SplitPath(path);
    folder = parts.folder;
    exportName = parts.name;
    return parts.extension;
}

bool SaveTableToCsv(Platform& platform, const ListTable& table, const ExportNames& names, std::string_view extension,
                    CSV_FORM form) {
    if (!WriteCsv(platform.Files(), names.Path(extension), table, form)) {
        platform.InformationBox("Error Opening CSV File");
        return false;
    }
    platform.InformationBox(names.SavedText("csv"));
    return true;
}

bool SaveTableToExcel(Platform& platform, const ListTable& table, const ExportNames& names,
                      std::string_view extension) {
    const bool bySource = CExcelSheet::IsAvailable();
    if (extension.empty()) extension = bySource ? kDataSourceExtension : kWorkbookExtension;
    const std::string path = names.Path(extension);
    const bool written = bySource ? WriteByDataSource(platform.Files(), table, path, names.Title())
                                  : WriteWorkbook(platform.Files(), path, names.Title(), table);
    platform.InformationBox(written ? names.SavedText(bySource ? kDataSourceExtension : kWorkbookExtension)
                                    : "Error Opening EXCEL File");
    return written;
}

bool PrintTableOf(Platform& platform, const CListCtrl& list, std::string_view document) {
    if (list.GetItemCount() == 0) return true;
    const ListTable table = TableOf(list);
    const std::string job = platform.PrintHeading();
    std::string heading(document);
    if (!heading.empty() && !job.empty()) heading += "   ";
    const PrintMargins margins = {heading + job, TodayText(platform)};
    return platform.Print(document, [&](CPrinter& printer, const PrintJob& pages) {
        return PrintTable(printer, pages, document, table, true, margins);
    });
}

void AskAndSaveToCsv(Platform& platform, const ListTable& table, ExportNames& names) {
    SaveChoice choice;
    const SaveQuestion question = {"Save to CSV", std::string(kCsvForms), names.Path("CSV"), "CSV"};
    if (!platform.ChooseSaveFile(question, choice)) return;
    const std::string extension = names.Take(choice.path);
    SaveTableToCsv(platform, table, names, extension.empty() ? "CSV" : extension,
                   choice.form == 1 ? CSV_FORM::QUOTED : CSV_FORM::PLAIN);
}

void AskAndSaveToExcel(Platform& platform, const ListTable& table, ExportNames& names) {
    const std::string_view own = CExcelSheet::IsAvailable() ? kDataSourceExtension : kWorkbookExtension;
    const std::string small = own == kDataSourceExtension ? "xls" : "xlsx";
    SaveChoice choice;
    const SaveQuestion question = {"Save to Excel", "Workbooks (*." + small + ")|*." + small + "||", names.Path(own),
                                   std::string(own)};
    if (!platform.ChooseSaveFile(question, choice)) return;
    const std::string extension = names.Take(choice.path);
    SaveTableToExcel(platform, table, names, extension.empty() ? own : extension);
}

void AddExportEntries(PopupMenu& menu, const ExportMenuIds& ids) {
    menu.AddHeading("Export Data");
    menu.AddItem(ids.csv, "Save to CSV");
    menu.AddItem(ids.excel, "Save to Excel");
    menu.AddItem(ids.print, "Print");
}

bool RunExportEntry(Platform& platform, const CListCtrl& list, ExportNames& names, const ExportMenuIds& ids,
                    int chosen) {
    if (chosen == ids.csv) {
        AskAndSaveToCsv(platform, TableOf(list), names);
    } else if (chosen == ids.excel) {
        AskAndSaveToExcel(platform, TableOf(list), names);
    } else if (chosen == ids.print) {
        PrintTableOf(platform, list, names.Title());
    } else {
        return false;
    }
    return true;
}

void OpenExportMenu(CListCtrl& list) {
    if (list.GetItemCount() == 0) return;
    Platform& platform = list.GetOwner().GetPlatform();
    ExportNames names{.folder = {}, .exportName = NameOfTable(list), .fileTitle = {}};
    PopupMenu menu;
    AddExportEntries(menu, {});
    RunExportEntry(platform, list, names, {}, platform.TrackPopupMenu(menu));
}

}  // namespace quillon
