#pragma once

#include "foundation/edit_double.h"
#include "platform/controls.h"

namespace quillon {

/// An edit with typing rules of its own (`CBaseEdit`) as the control of a window. It posts UM_EDIT_UPDATE to its owner
/// at each new value, and UM_EDITBOX_FOCUS_DATA and UM_EDITBOX_KILL_FOCUS_DATA to the main window as the keyboard comes
/// and goes.
class CBaseEditCtrl : public CControl, private EditHost {
public:
    virtual const CBaseEdit& Edit() const = 0;
    /// Shows "n/a" and takes no key while off.
    void EnableEdit(bool on);
    void SetReadOnly(bool on);

    // The operator's acts: for bindings and tests.

    /// False if the key is anybody's who wants it.
    bool OnChar(char key);
    void OnDelete();
    void OnInsert();
    void OnFocus(bool in);
    void OnMenu(int command);
    void SetSelection(std::size_t from, std::size_t to);

protected:
    using CControl::CControl;
    virtual CBaseEdit& Rules() = 0;
    EditHost& Host() { return *this; }

private:
    template <class Act>
    auto Do(const Act& act);

    void PostEditUpdate() override;
    void PostFocus(bool in) override;
    void FocusParent() override { Changed(CONTROL_CHANGE::FOCUS); }
    std::string ClipboardText() override;
    void SetClipboardText(std::string_view text) override;
};

/// A number with its decimals and its unit.
class CEditDoubleCtrl : public CBaseEditCtrl {
public:
    CEditDoubleCtrl(CWnd& owner, UINT id) : CBaseEditCtrl(owner, id), edit(Host()) {}

    /// Decimals, width and sign of the number text; before the first SetDouble.
    tagNumberStyle& Style() { return edit.style; }
    void SetSuffix(std::string_view unit) { edit.suffix = unit; }
    void SetDouble(double value);
    double GetDouble() const { return edit.GetValue(); }
    /// Typed into since the value was set.
    bool IsDirty() const { return edit.dirty; }

    const CEditDouble& Edit() const override { return edit; }

private:
    CEditDouble& Rules() override { return edit; }

    CEditDouble edit;
};

}  // namespace quillon
