#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/controls.h"

namespace quillon {

// The controls of dialogs beside buttons, lists and tables. What the operator does to them reaches the owner's
// `OnCommand` with the control's id.

/// A label, or a field that only shows. Takes no keyboard.
class CStatic : public CControl {
public:
    CStatic(CWnd& labelOwner, UINT labelId, std::string_view label) : CControl(labelOwner, labelId), text(label) {}
    const std::string& GetWindowText() const { return text; }
    void SetWindowText(std::string_view label);
    /// A ground of its own, with black text on it; the window's colours without.
    const std::optional<COLORREF>& GetBkColor() const { return background; }
    void SetBkColor(COLORREF colour);

private:
    std::string text;
    std::optional<COLORREF> background;
};

/// A bar that fills from the lower to the upper bound.
class CProgressCtrl : public CControl {
public:
    using CControl::CControl;
    void SetRange(int lower, int upper);
    int GetLower() const { return lower; }
    int GetUpper() const { return upper; }
    /// A position beyond a bound becomes the bound.
    void SetPos(int newPosition);
    int GetPos() const { return position; }

private:
    int lower = 0;
    int upper = 100;
    int position = 0;
};

/// A line of text that the operator edits.
class CEdit : public CControl {
public:
    using CControl::CControl;
    const std::string& GetWindowText() const { return text; }
    void SetWindowText(std::string_view newText);
    bool IsReadOnly() const { return readOnly; }
    void SetReadOnly(bool set);

private:
    std::string text;
    bool readOnly = false;
};

/// A box with a tick.
class CCheckBox : public CControl {
public:
    CCheckBox(CWnd& boxOwner, UINT boxId, std::string_view text) : CControl(boxOwner, boxId), caption(text) {}
    const std::string& GetWindowText() const { return caption; }
    bool IsChecked() const { return checked; }
    void SetCheck(bool set);

private:
    std::string caption;
    bool checked = false;
};

/// A list of texts, all in sight at once or to be scrolled. A double click reaches the owner's `OnDoubleClick`.
class CListBox : public CItemList {
public:
    using CItemList::CItemList;
};

/// Choices below each other, one of them taken.
class CRadioGroup : public CItemList {
public:
    using CItemList::CItemList;
};

}  // namespace quillon
