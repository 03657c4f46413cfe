#include "platform/user_actions.h"

#include <utility>

namespace quillon::user {
namespace {

bool CanUse(const CControl& control) {
    return control.IsWindowEnabled() && control.IsWindowVisible();
}

}  // namespace

void Press(CButton& button) {
    if (CanUse(button)) button.GetOwner().OnCommand(button.GetDlgCtrlID());
}

void Select(CComboBox& combo, int index) {
    if (!CanUse(combo) || index < 0 || index >= combo.GetCount()) return;
    combo.SetCurSel(index);
    combo.GetOwner().OnCommand(combo.GetDlgCtrlID());
}

void Click(CListCtrl& table, int row) {
    if (row < 0 || row >= table.GetItemCount()) return;
    table.SetSelection(row);
    table.OnItemClick(row);
}

bool Edit(CMFCPropertyGridCtrl& list, CMFCPropertyGridProperty& row, RowValue value) {
    if (!CanUse(list)) return false;
    if (row.IsLocked() || !row.IsEnabled() || !row.IsVisible() || !row.Accept(value)) return false;
    row.OnEdited(std::move(value));
    list.GetOwner().SendMessage(AFX_WM_PROPERTY_CHANGED, list.GetDlgCtrlID(), reinterpret_cast<LPARAM>(&row));
    return true;
}

bool Type(CMFCPropertyGridCtrl& list, CMFCPropertyGridProperty& row, std::string_view text) {
    for (RowChoice& choice : row.GetChoices()) {
        if (choice.text == text) return Edit(list, row, std::move(choice.value));
    }
    RowValue parsed;
    return row.IsAllowEdit() && row.Parse(text, parsed) && Edit(list, row, std::move(parsed));
}

void Accept(CDialog& dialog) {
    const CControl* const button = dialog.GetDlgItem(IDOK);
    if (dialog.IsOpen() && (!button || CanUse(*button))) dialog.OnOK();
}

void Dismiss(CDialog& dialog) {
    if (dialog.IsOpen()) dialog.OnCancel();
}

}  // namespace quillon::user
