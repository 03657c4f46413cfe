#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "foundation/edit_text.h"
#include "foundation/number_typing.h"
#include "foundation/values.h"

namespace quillon {

/// What an edit control asks of the window that it stands in. Outlives the control.
class EditHost {
public:
    virtual ~EditHost() = default;
    /// The value has changed: UM_EDIT_UPDATE to the parent.
    virtual void PostEditUpdate() = 0;
    /// The focus came or went: UM_EDITBOX_FOCUS_DATA or UM_EDITBOX_KILL_FOCUS_DATA to the main window.
    virtual void PostFocus(bool in) = 0;
    /// Gives the focus back to the parent; OnKillFocus follows from it.
    virtual void FocusParent() = 0;
    /// Empty if the clipboard holds no text.
    virtual std::string ClipboardText() = 0;
    virtual void SetClipboardText(std::string_view text) = 0;
};

/// How an edit over a list cell came to its end.
enum class EDIT_END { NONE, ENTERED, CANCELLED, TABBED };

/// Commands of the context menu.
enum EDIT_COMMAND : int { EDIT_CUT = 100, EDIT_COPY = 101, EDIT_PASTE = 102 };

struct tagEditMenuItem {
    int id;
    std::string_view text;
    bool enabled;
};

/// Pixels that a control floating over a cell takes for a text of a width, in a parent of a width.
int InPlaceWidth(int textPixels, int parentPixels);

/// A one-line edit control without its window: text, selection, clipboard, focus and keys. What may be typed, and what
/// the text stands for, is the affair of the class derived from it.
///
/// While it is disabled it shows "n/a" and takes no key. Read-only, it can be copied from and nothing else.
class CBaseEdit {
public:
    explicit CBaseEdit(EditHost& editHost) : host(editHost) {}
    virtual ~CBaseEdit() = default;
    CBaseEdit(const CBaseEdit&) = delete;
    CBaseEdit& operator=(const CBaseEdit&) = delete;

    bool inPlace = false;  ///< floats over a list cell: Enter, Escape and Tab end it
    bool readOnly = false;
    bool dirty = false;       ///< typed into since the value was last shown
    bool enterAsTab = false;  ///< Enter moves on to the next control
    std::string toolTip;

    const std::string& GetText() const { return edit.text; }
    const tagEditText& GetEdit() const { return edit; }
    void SetSelection(std::size_t from, std::size_t to);
    bool IsEnabled() const { return enabled; }
    void Enable(bool on);
    EDIT_END GetEnd() const { return end; }
    /// The last number set or read from the text.
    double GetValue() const { return value; }

    /// The key that a key stands for here.
    char TranslateKey(char key) const { return key == kEnter && enterAsTab ? kTab : key; }

    /// False if the key changed nothing and is anybody's who wants it, as Tab and Enter are outside a list cell.
    bool OnChar(char key);
    void OnDelete();
    void OnInsert() { Paste(); }
    void OnSetFocus();
    void OnKillFocus();

    void Copy();
    void Cut();
    void Paste();

    /// Empty while disabled.
    std::vector<tagEditMenuItem> ContextMenu() const;
    void OnCommand(int id);

protected:
    /// Each changes text and selection, or returns false and leaves them alone.
    virtual bool Type(char key) = 0;
    virtual bool RemoveSelection() = 0;
    virtual bool PasteText(std::string_view pasted) = 0;
    /// The number in the text, MISSING_VALUE for "n/a".
    virtual double TextValue() const = 0;
    /// Shows the value in its normal form.
    virtual void ShowValue() = 0;
    /// Before everything is selected on the focus coming in.
    virtual void MendText() {}

    tagEditText edit;
    double value = MISSING_VALUE;
    EditHost& host;

private:
    bool EndInPlace(char key);
    template <class Operation>
    bool Change(const Operation& operation);

    bool enabled = true;
    EDIT_END end = EDIT_END::NONE;
};

/// An edit control for a number, with or without a unit behind it. MISSING_VALUE shows as "n/a", until the first
/// SetDouble and whenever it is set; passing through such a field doesn't turn it into a number.
///
///     CEditDouble easting(host);
///     easting.SetDouble(431200.5);    // "431200.500"
///     easting.OnSetFocus();           // all selected
///     for (char key : {'1', '2', '.', '5'}) easting.OnChar(key);  // "12.5", four updates posted to the parent
///     easting.OnKillFocus();          // "12.500"
class CEditDouble : public CBaseEdit {
public:
    explicit CEditDouble(EditHost& editHost);

    tagNumberStyle style;
    double step = 1.0;  ///< of a spin control beside it
    bool checkMax = false, checkMin = false;
    double minimum = 0.0, maximum = 0.0;
    std::string suffix;  ///< unit text behind the number, as " m"

    void SetDouble(double newValue);
    /// Characters that the window's control may let through, kept equal to the style's maxLength by SetDouble.
    int GetEditLimit() const { return editLimit; }

protected:
    bool Type(char key) override;
    bool RemoveSelection() override;
    bool PasteText(std::string_view pasted) override;
    double TextValue() const override;
    void ShowValue() override { SetDouble(value); }
    void MendText() override;

private:
    std::string NumberText(double number) const;
    std::size_t NumberLength() const;
    tagEditText NumberPart() const;
    void SetNumberPart(const tagEditText& number);
    bool IsWithinBounds(double number) const;
    bool IsNone() const;

    int editLimit = 0;
};

}  // namespace quillon
