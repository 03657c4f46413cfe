#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "background/shape_file_list.h"
#include "frame/colour_button.h"
#include "frame/colour_dialog.h"
#include "platform/dialog_controls.h"

namespace quillon {

/// Lets the operator choose shape files by chart: the files of a chart begin alike, up to the first "_". The dialog
/// lists the charts of a folder and all below it; those chosen stand in one line, and "OK" gives every file whose name
/// begins with one of them.
///
///     CShapeFileSelectorDlg dialog(platform);
///     dialog.SetPath("C:\\Charts\\", true);
///     dialog.SetFiles(&paths);
///     if (dialog.DoModal() == IDOK) ...
class CShapeFileSelectorDlg : public CColourDialogEx {
public:
    // Ids of the controls.
    static constexpr UINT kList = 32135, kFolder = 12098, kSelection = 12100, kChooseFolder = 12097, kSelectAll = 12074,
                          kRemoveAll = 12075;

    explicit CShapeFileSelectorDlg(Platform& owner, CWnd* parent = nullptr);

    /// `newPath` ends in a separator. Only with `allowFolder` can the operator choose another one.
    void SetPath(std::string_view newPath, bool allowFolder);
    const std::string& GetPath() const { return path; }
    /// The chart of this file is chosen when the dialog opens, unless a file list is set.
    void SetFileName(std::string_view name) { fileName = name; }
    /// The files of this list are chosen when the dialog opens. Lent.
    void SetFileList(const CPathList* paths) { fileList = paths; }
    /// What receives the paths of the files chosen. Lent.
    void SetFiles(std::vector<std::string>* files) { result = files; }

    /// Searches the folder and lists its charts.
    void LoadFiles();
    const std::vector<std::string>& GetCharts() const { return charts; }
    /// The charts and files chosen, with commas between.
    const std::string& GetSelection() const { return selectionText.GetWindowText(); }

    void OnCommand(UINT control) override;
    void OnOK() override;

protected:
    void OnInitDialog() override;

private:
    class ChartList : public CListCtrl {
    public:
        using CListCtrl::CListCtrl;
        void OnItemClick(int row) override { clicked(row); }
        std::function<void(int row)> clicked;
    };

    void AddToSelection(int row);
    void SelectFields(const std::vector<std::string>& fields);
    void ChooseFolder();

    std::string path;
    std::string fileName;
    const CPathList* fileList = nullptr;
    std::vector<std::string>* result = nullptr;
    std::vector<std::string> found;  ///< paths of all shape files
    std::vector<std::string> charts;

    ChartList list{*this, kList};
    CStatic folderText{*this, kFolder, ""};
    CStatic selectionText{*this, kSelection, ""};
    CColourButton folderButton, selectAllButton, removeAllButton, okButton, cancelButton;
};

}  // namespace quillon
