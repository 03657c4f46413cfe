#pragma once

#include <string_view>

#include "platform/controls.h"
#include "platform/dialog.h"
#include "platform/property_grid.h"

namespace quillon {

/// What the operator does to a control. For the bindings of a host and for tests; panes and dialogs don't call it.
namespace user {

/// Nothing happens on a button, a combo box or a property list that is disabled or hidden.
void Press(CButton& button);
/// Chooses an entry, also the one already chosen.
void Select(CComboBox& combo, int index);
/// A click on a row; -1 is a click below the rows. The row becomes the selected one.
void Click(CListCtrl& table, int row);

/// Sets a row's value as if edited, and tells the list's owner. False, and nothing told, if the row is locked,
/// disabled, hidden or doesn't take the value. An equal value is told all the same: what it means is the owner's
/// affair.
bool Edit(CMFCPropertyGridCtrl& list, CMFCPropertyGridProperty& row, RowValue value);
/// The same from typed text, or from the text of an offered choice.
bool Type(CMFCPropertyGridCtrl& list, CMFCPropertyGridProperty& row, std::string_view text);

/// Return in a dialog, where no control takes it: what the button IDOK does, if there is one that can be pressed.
void Accept(CDialog& dialog);
/// Esc, or the close box.
void Dismiss(CDialog& dialog);

}  // namespace user
}  // namespace quillon
