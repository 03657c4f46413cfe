#include "background/shape_file_selector_dlg.h"

#include <algorithm>

#include "foundation/delimited_line.h"
#include "foundation/paths.h"
#include "platform/folder_list.h"
#include "platform/platform.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr tagSIZE kSize{460, 420};
/// What the charts of no interest are moved to.
constexpr std::string_view kBackupFolder = "BackUp";

bool IsShapeFile(std::string_view name) {
    return name.size() >= 3 && EqualNoCase(name.substr(name.size() - 3), "SHP");
}

std::string ChartOf(const std::string& name) {
    return name.substr(0, name.find('_'));
}

bool LiesInBackup(std::string_view folder) {
    while (!folder.empty()) {
        const std::size_t end = std::min(folder.find_first_of("\\/"), folder.size());
        if (EqualNoCase(folder.substr(0, end), kBackupFolder)) return true;
        folder.remove_prefix(std::min(end + 1, folder.size()));
    }
    return false;
}

std::vector<std::string> FieldsOf(std::string_view text) {
    std::vector<std::string> fields;
    CDelimitedLine line;
    line.Fill(text);
    while (!line.IsEmpty()) fields.push_back(line.NextString());
    return fields;
}

std::string FileNameOf(const std::string& path) {
    return path.substr(FolderOfPath(path).size());
}

}  // namespace

CShapeFileSelectorDlg::CShapeFileSelectorDlg(Platform& owner, CWnd* parent)
    : CColourDialogEx(owner, "ShapeFileSelector", kSize, parent),
      folderButton(*this, kChooseFolder, "Folder", GetNightMode()),
      selectAllButton(*this, kSelectAll, "Select All", GetNightMode()),
      removeAllButton(*this, kRemoveAll, "Remove All", GetNightMode()),
      okButton(*this, IDOK, "OK", GetNightMode()),
      cancelButton(*this, IDCANCEL, "Cancel", GetNightMode()) {
    const struct {
        CControl& control;
        tagRECT place;
    } places[] = {
        {folderText, {10, 10, 340, 32}},
        {folderButton, {350, 8, 450, 36}},
        {list, {10, 44, 340, 330}},
        {selectAllButton, {350, 44, 450, 72}},
        {removeAllButton, {350, 80, 450, 108}},
        {selectionText, {10, 340, 450, 376}},
        {okButton, {240, 384, 340, 412}},
        {cancelButton, {350, 384, 450, 412}},
    };
    for (const auto& [control, place] : places) {
        AddControl(control);
        control.MoveWindow(place);
    }
    list.InsertColumn("File Name", ALIGN::CENTRE);
    list.SetColumnWidth(0, list.GetRect().right - list.GetRect().left);
    list.clicked = [this](int row) { AddToSelection(row); };
}

void CShapeFileSelectorDlg::SetPath(std::string_view newPath, bool allowFolder) {
    path = newPath;
    folderButton.ShowWindow(allowFolder);
}

void CShapeFileSelectorDlg::OnInitDialog() {
    folderText.SetWindowText(path);
    LoadFiles();
    std::vector<std::string> fields;
    if (fileList) {
        for (const std::string& file : fileList->paths) fields.push_back(FileNameOf(file));
    } else if (!fileName.empty()) {
        fields.push_back(ChartOf(SplitPath(fileName).name));
    }
    SelectFields(fields);
}

void CShapeFileSelectorDlg::LoadFiles() {
    charts.clear();
    found = FindFiles(GetPlatform().Files(), path, IsShapeFile);
    for (const std::string& file : found) {
        const tagPathParts parts = SplitPath(file);
        const std::string chart = ChartOf(parts.name);
        if (!LiesInBackup(parts.folder) && std::find(charts.begin(), charts.end(), chart) == charts.end()) {
            charts.push_back(chart);
        }
    }
    list.SetRows({.count = static_cast<int>(charts.size()),
                  .cell = [this](int row, int) { return charts.at(static_cast<std::size_t>(row)); },
                  .widest = [this](int) { return charts; }});
}

void CShapeFileSelectorDlg::AddToSelection(int row) {
    if (row < 0 || row >= static_cast<int>(charts.size())) return;
    const std::string& chart = charts[static_cast<std::size_t>(row)];
    std::vector<std::string> fields = FieldsOf(GetSelection());
    if (std::find(fields.begin(), fields.end(), chart) == fields.end()) fields.push_back(chart);
    SelectFields(fields);
}

void CShapeFileSelectorDlg::SelectFields(const std::vector<std::string>& fields) {
    CDelimitedLine line;
    for (const std::string& field : fields) line.AddString(field);
    selectionText.SetWindowText(line.GetText());
}

void CShapeFileSelectorDlg::ChooseFolder() {
    std::string folder = path;
    if (!GetPlatform().ChooseFolder("Folder", folder)) return;
    path = folder;
    EndInSeparator(path);
    folderText.SetWindowText(path);
    LoadFiles();
}

void CShapeFileSelectorDlg::OnCommand(UINT control) {
    if (control == kSelectAll) {
        std::vector<std::string> names;
        for (const std::string& file : found) names.push_back(SplitPath(file).name);
        SelectFields(names);
    } else if (control == kRemoveAll) {
        SelectFields({});
    } else if (control == kChooseFolder) {
        ChooseFolder();
    } else {
        CColourDialogEx::OnCommand(control);
    }
}

/// A file chosen by its whole name counts as well as a chart.
void CShapeFileSelectorDlg::OnOK() {
    const std::vector<std::string> fields = FieldsOf(GetSelection());
    if (result) result->clear();
    if (fields.empty()) return EndDialog(IDCANCEL);
    for (const std::string& file : found) {
        const std::string name = FileNameOf(file);
        const bool chosen = std::any_of(fields.begin(), fields.end(),
                                        [&](const std::string& field) { return name.starts_with(field); });
        if (chosen && result) result->push_back(file);
    }
    EndDialog(IDOK);
}

}  // namespace quillon
