#pragma once

#include <string_view>

#include "platform/controls.h"
#include "platform/dialog.h"
#include "platform/dialog_controls.h"
#include "platform/property_grid.h"
#include "platform/tab_ctrl.h"
#include "platform/view.h"

namespace quillon {

/// What the operator does to a control. For the bindings of a host and for tests; panes and dialogs don't call it.
namespace user {

// Each is an act of its own (see UserAct), named after the window and the row or button. Nothing happens on a control
// that is disabled or hidden.

void Press(CButton& button);
/// Chooses an item, also the one already chosen.
void Select(CItemList& list, int index);
/// A double click on an item, which is chosen first.
void DoubleClick(CListBox& list, int index);
void Check(CCheckBox& box, bool checked);
/// Makes this the text of the edit; nothing where it may not be edited or has that text.
void Type(CEdit& edit, std::string_view text);
/// Brings a tab to the front.
void Select(CMFCTabCtrl& tabs, int tab);
/// A click on a row; -1 is a click below the rows. The row becomes the selected one.
void Click(CListCtrl& table, int row);
/// Selects rows of a table, `last` of them at the end, without clicking any.
void SelectRows(CListCtrl& table, std::vector<int> rows, int last);
/// A click with the right button; a row that isn't selected becomes the only selected one. -1 is beside the rows.
void RightClick(CListCtrl& table, int row);
/// A click with the left button on a pixel of a view.
void ClickAt(CView& view, tagPOINT pixel);

/// Sets a row's value as if edited, and tells the list's owner. False, and nothing told, if the row is locked,
/// disabled, hidden or doesn't take the value. An equal value is told all the same: what it means is the owner's
/// affair.
bool Edit(CMFCPropertyGridCtrl& list, CMFCPropertyGridProperty& row, RowValue value);
/// The same from typed text, or from the text of an offered choice. What the row doesn't take is told in the
/// description of the list, with the reason.
bool Type(CMFCPropertyGridCtrl& list, CMFCPropertyGridProperty& row, std::string_view text);

/// Return in a dialog, where no control takes it: what the button IDOK does, if there is one that can be pressed.
void Accept(CDialog& dialog);
/// Esc, or the close box.
void Dismiss(CDialog& dialog);

}  // namespace user
}  // namespace quillon
