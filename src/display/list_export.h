#pragma once

#include <string>
#include <string_view>

#include "display/csv_export.h"
#include "platform/controls.h"
#include "platform/platform.h"

namespace quillon {

/// What an export is called. The names stand in the path and in what the operator is told.
struct ExportNames {
    std::string folder;      ///< with its last separator; empty for the current one
    std::string exportName;  ///< empty: "_" and the file title
    std::string fileTitle;   ///< of the file that the table came from

    /// "%s%s.%s", or "%s_%s.%s" without an export name.
    std::string Path(std::string_view extension) const;
    /// The export name, else the file title: of a sheet, and of a printed document.
    const std::string& Title() const { return exportName.empty() ? fileTitle : exportName; }
    /// What the operator is told when the file is written.
    std::string SavedText(std::string_view extension) const;
    /// From a path that the operator chose; its extension.
    std::string Take(std::string_view path);
};

// The exports of a table. Each tells the operator how it ended; none leaves half a file.

/// Writes the table under its names with this extension. False if the file can't be written.
bool SaveTableToCsv(Platform& platform, const ListTable& table, const ExportNames& names,
                    std::string_view extension = "CSV", CSV_FORM form = CSV_FORM::PLAIN);
/// Writes a workbook: by the data source of spreadsheets where there is one ("XLS"), else by itself ("XLSX").
bool SaveTableToExcel(Platform& platform, const ListTable& table, const ExportNames& names,
                      std::string_view extension = {});
/// Prints the table, with the job and its grid, the date and the page in the margins. Nothing happens without rows.
/// True unless a step of the printer failed.
bool PrintTableOf(Platform& platform, const CListCtrl& list, std::string_view document);

// The same, where the operator chooses the file first; `names` is what is proposed, and then what was chosen.

void AskAndSaveToCsv(Platform& platform, const ListTable& table, ExportNames& names);
void AskAndSaveToExcel(Platform& platform, const ListTable& table, ExportNames& names);

/// The entries of a menu that exports a table, with their heading.
struct ExportMenuIds {
    int csv = 1;
    int excel = 2;
    int print = 3;
};
void AddExportEntries(PopupMenu& menu, const ExportMenuIds& ids);
/// Does what was chosen of them; false if `chosen` is none of them.
bool RunExportEntry(Platform& platform, const CListCtrl& list, ExportNames& names, const ExportMenuIds& ids,
                    int chosen);

/// The menu of a table that has none of its own: its exports, named after the file that its window shows. For
/// `Platform::SetTableMenu`. Nothing opens for a table without rows.
void OpenExportMenu(CListCtrl& list);

}  // namespace quillon
