#pragma once

#include <string>
#include <vector>

#include "display/list_export.h"
#include "frame/night_control.h"
#include "platform/controls.h"

namespace quillon {

/// A table that the operator takes out of the system: as CSV, as a workbook, on paper; and that can be filled from a
/// CSV file. It works on its cells and headers alone: a derived view fills it and has the exports. Its window stands
/// for the frame whose title it sets.
class CMyListView : public CListCtrl, public NightControl {
public:
    CMyListView(CWnd& frame, UINT id);

    // To the files that the names below stand for, with a message how it ended.
    bool SaveToCsv();
    void SaveToExcel();
    /// True unless a step of the printer failed; nothing happens without rows.
    bool PrintList();

    /// Asks for a CSV file; true if one was chosen, which is then the one to import.
    bool ChooseCsvFile();
    /// Fills the table from the file, or from the one to import for an empty path. A file that can't be opened leaves
    /// an empty table.
    void LoadCsvFile(std::string_view path = {});
    /// Takes rows out of a table that came from a file.
    void DeleteRows(const std::vector<int>& rows);

    void OnRightClick(int row) override;
    void SetNightMode(bool night) override;

    ExportNames names;
    std::string settingsName;  ///< of the settings file that remembers the last path; empty for none
    std::string importPath;
    std::vector<std::string> headerTitles;  ///< the fields of the first line of the last loaded file
    bool firstLineNamesColumns = false;
    bool stretchLastColumn = false;

    /// The table's own size has changed.
    void Resize(const tagRECT& place);

protected:
    void SetFrameTitle(std::string_view title);

private:
    void TakeLine(std::string line, bool namesColumns);
    void ShowLines();

    std::vector<std::string> lines;     // of the loaded file, a row each, with commas between
    std::vector<std::string> titles;    // of its columns
    std::vector<std::string> longests;  // text of each column
};

}  // namespace quillon
