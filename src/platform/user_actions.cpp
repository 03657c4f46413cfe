#include "platform/user_actions.h"

#include <algorithm>
#include <utility>

namespace quillon::user {
namespace {

bool CanUse(const CControl& control) {
    return control.IsWindowEnabled() && control.IsWindowVisible();
}

void TellOwner(const CControl& control) {
    control.GetOwner().OnCommand(control.GetDlgCtrlID());
}

}  // namespace

void Press(CButton& button) {
    if (CanUse(button)) TellOwner(button);
}

void Select(CItemList& list, int index) {
    if (!CanUse(list) || index < 0 || index >= list.GetCount()) return;
    list.SetCurSel(index);
    TellOwner(list);
}

void DoubleClick(CListBox& list, int index) {
    if (!CanUse(list) || index < 0 || index >= list.GetCount()) return;
    Select(list, index);
    list.GetOwner().OnDoubleClick(list.GetDlgCtrlID());
}

void Check(CCheckBox& box, bool checked) {
    if (!CanUse(box)) return;
    box.SetCheck(checked);
    TellOwner(box);
}

void Type(CEdit& edit, std::string_view text) {
    if (!CanUse(edit) || edit.IsReadOnly() || edit.GetWindowText() == text) return;
    edit.SetWindowText(text);
    TellOwner(edit);
}

void Select(CMFCTabCtrl& tabs, int tab) {
    if (CanUse(tabs)) tabs.SetActiveTab(tab);
}

void Click(CListCtrl& table, int row) {
    if (row < 0 || row >= table.GetItemCount()) return;
    table.SetSelection(row);
    table.OnItemClick(row);
}

void SelectRows(CListCtrl& table, std::vector<int> rows, int last) {
    if (CanUse(table)) table.SetSelectedRows(std::move(rows), last);
}

void RightClick(CListCtrl& table, int row) {
    if (!CanUse(table)) return;
    const bool isRow = row >= 0 && row < table.GetItemCount();
    const std::vector<int>& selected = table.GetSelectedRows();
    if (isRow && !std::binary_search(selected.begin(), selected.end(), row)) table.SetSelection(row);
    table.OnRightClick(isRow ? row : -1);
}

void ClickAt(CView& view, tagPOINT pixel) {
    if (CanUse(view)) view.OnLButtonDown(pixel);
}

bool Edit(CMFCPropertyGridCtrl& list, CMFCPropertyGridProperty& row, RowValue value) {
    if (!CanUse(list)) return false;
    if (row.IsLocked() || !row.IsEnabled() || !row.IsVisible() || !row.Accept(value)) return false;
    list.ClearRefusal();
    row.OnEdited(std::move(value));
    list.GetOwner().SendMessage(AFX_WM_PROPERTY_CHANGED, list.GetDlgCtrlID(), reinterpret_cast<LPARAM>(&row));
    return true;
}

bool Type(CMFCPropertyGridCtrl& list, CMFCPropertyGridProperty& row, std::string_view text) {
    for (RowChoice& choice : row.GetChoices()) {
        if (choice.text == text) return Edit(list, row, std::move(choice.value));
    }
    RowValue parsed;
    if (row.IsAllowEdit() && row.Parse(text, parsed) && Edit(list, row, std::move(parsed))) return true;
    list.Refuse(row, row.WhyRefused(text));
    return false;
}

void Accept(CDialog& dialog) {
    const CControl* const button = dialog.GetDlgItem(IDOK);
    if (dialog.IsOpen() && (!button || CanUse(*button))) dialog.OnOK();
}

void Dismiss(CDialog& dialog) {
    if (dialog.IsOpen()) dialog.OnCancel();
}

}  // namespace quillon::user
