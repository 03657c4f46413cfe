#include "platform/user_actions.h"

#include <algorithm>
#include <utility>

#include "platform/platform.h"
#include "platform/property_rows.h"
#include "platform/text.h"

namespace quillon::user {
namespace {

bool CanUse(const CControl& control) {
    return control.IsWindowEnabled() && control.IsWindowVisible();
}

void TellOwner(const CControl& control) {
    control.GetOwner().OnCommand(control.GetDlgCtrlID());
}

// ---- The names of acts ----

/// "Boundary" for the window that is called "Boundary Properties".
std::string ShortTitle(const CControlWindow& window) {
    std::string_view title = window.GetWindowText();
    for (const std::string_view end : {" Properties", " Property", " Window"}) {
        if (title.ends_with(end)) title.remove_suffix(end.size());
    }
    return std::string(title);
}

std::string ActName(const CWnd& window, std::string_view what) {
    // A page reports to its tab control, which stands in a window in its turn.
    if (const auto* const tabs = dynamic_cast<const CMFCTabCtrl*>(&window)) return ActName(tabs->GetOwner(), what);
    const auto* const titled = dynamic_cast<const CControlWindow*>(&window);
    const std::string title = titled ? ShortTitle(*titled) : std::string();
    return title.empty() || what.empty() ? title + std::string(what) : title + ": " + std::string(what);
}

/// How many rows below this one, itself included, have that name; notes the group of the row sought.
int CountNamed(const CMFCPropertyGridProperty& at, const CMFCPropertyGridProperty& sought, std::string& group) {
    int count = at.GetName() == sought.GetName() && !at.IsGroup() ? 1 : 0;
    for (int i = 0; i < at.GetSubItemsCount(); ++i) {
        if (&at.GetSubItem(i) == &sought) group = at.GetName();
        count += CountNamed(at.GetSubItem(i), sought, group);
    }
    return count;
}

/// The name of the row, after that of its group where the list has several of the name; of two buttons the one pressed.
std::string RowTitle(const CMFCPropertyGridCtrl& list, const CMFCPropertyGridProperty& row, const RowValue& value) {
    if (const auto* const buttons = dynamic_cast<const CMFCPropertyGridDualButton*>(&row)) {
        return buttons->GetCaption(std::get<std::int32_t>(value));
    }
    std::string group;
    int count = 0;
    for (int i = 0; i < list.GetPropertyCount(); ++i) count += CountNamed(list.GetProperty(i), row, group);
    return std::string(Trim(count > 1 && !group.empty() ? group + ' ' + row.GetName() : row.GetName()));
}

/// An act of the operator on a control.
class ControlAct : public UserAct {
public:
    ControlAct(const CControl& control, std::string_view what)
        : UserAct(control.GetOwner().GetPlatform(), ActName(control.GetOwner(), what)) {}
};

}  // namespace

void Press(CButton& button) {
    if (!CanUse(button)) return;
    const ControlAct act(button, button.GetWindowText());
    TellOwner(button);
}

void Select(CItemList& list, int index) {
    if (!CanUse(list) || index < 0 || index >= list.GetCount()) return;
    const ControlAct act(list, list.GetLBText(index));
    list.SetCurSel(index);
    TellOwner(list);
}

void DoubleClick(CListBox& list, int index) {
    if (!CanUse(list) || index < 0 || index >= list.GetCount()) return;
    const ControlAct act(list, list.GetLBText(index));
    Select(list, index);
    list.GetOwner().OnDoubleClick(list.GetDlgCtrlID());
}

void Check(CCheckBox& box, bool checked) {
    if (!CanUse(box)) return;
    const ControlAct act(box, box.GetWindowText());
    box.SetCheck(checked);
    TellOwner(box);
}

void Type(CEdit& edit, std::string_view text) {
    if (!CanUse(edit) || edit.IsReadOnly() || edit.GetWindowText() == text) return;
    const ControlAct act(edit, "Edit");
    edit.SetWindowText(text);
    TellOwner(edit);
}

void Select(CMFCTabCtrl& tabs, int tab) {
    if (!CanUse(tabs)) return;
    const ControlAct act(tabs, {});
    tabs.SetActiveTab(tab);
}

void Click(CListCtrl& table, int row) {
    if (row < 0 || row >= table.GetItemCount()) return;
    const ControlAct act(table, "Table");
    table.SetSelection(row);
    table.OnItemClick(row);
}

void SelectRows(CListCtrl& table, std::vector<int> rows, int last) {
    if (!CanUse(table)) return;
    const ControlAct act(table, "Table");
    table.SetSelectedRows(std::move(rows), last);
}

void RightClick(CListCtrl& table, int row) {
    if (!CanUse(table)) return;
    const ControlAct act(table, "Table");
    const bool isRow = row >= 0 && row < table.GetItemCount();
    const std::vector<int>& selected = table.GetSelectedRows();
    if (isRow && !std::binary_search(selected.begin(), selected.end(), row)) table.SetSelection(row);
    table.OnRightClick(isRow ? row : -1);
}

void ClickAt(CView& view, tagPOINT pixel) {
    if (!CanUse(view)) return;
    const ControlAct act(view, "View");
    view.OnLButtonDown(pixel);
}

bool Edit(CMFCPropertyGridCtrl& list, CMFCPropertyGridProperty& row, RowValue value) {
    if (!CanUse(list)) return false;
    if (row.IsLocked() || !row.IsEnabled() || !row.IsVisible() || !row.Accept(value)) return false;
    const ControlAct act(list, RowTitle(list, row, value));
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
    if (!dialog.IsOpen() || (button && !CanUse(*button))) return;
    const UserAct act(dialog.GetPlatform(), ActName(dialog, {}));
    dialog.OnOK();
}

void Dismiss(CDialog& dialog) {
    if (!dialog.IsOpen()) return;
    const UserAct act(dialog.GetPlatform(), ActName(dialog, {}));
    dialog.OnCancel();
}

}  // namespace quillon::user
