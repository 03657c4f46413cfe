#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/edit_text.h"
#include "platform/geometry.h"
#include "platform/image_list.h"
#include "platform/window.h"

namespace quillon {

class CMyListCtrl;

/// A posted wish that an editor's window goes.
inline constexpr UINT WM_CLOSE = 0x0010;

/// One of the controls that float over a cell of a grid list while it is edited. There is one object of each class for
/// the whole process, so only one cell of each kind is in edit at a time.
///
/// An editor has a window from its opening until the WM_CLOSE that it posts to itself has arrived. Opened again before
/// that, it takes the new cell but makes no second window.
class CInPlaceEditor : public CWnd {
public:
    using CWnd::CWnd;

    int GetRow() const { return row; }
    int GetColumn() const { return column; }
    bool IsCancelled() const { return cancelled; }
    const std::string& GetStartText() const { return startText; }
    bool HasWindow() const { return list != nullptr; }
    /// The list that the window floats over; null without a window.
    CMyListCtrl* GetList() const { return list; }
    /// In pixels of the list.
    const tagRECT& GetRect() const { return rect; }
    UINT GetDlgCtrlID() const { return id; }
    bool HasFocus() const { return focused; }

    /// The keyboard has gone elsewhere.
    void OnKillFocus();
    LRESULT OnMessage(const MSG& message) override;
    /// The list is going.
    void Abandon() { list = nullptr; }

protected:
    void TakeCell(int cellRow, int cellColumn, std::string_view text);
    /// Makes a window with the keyboard on it; false if there is one already.
    bool MakeWindow(CMyListCtrl& owner, const tagRECT& place, UINT controlId);
    void FocusList();
    /// With the number of a picture where the editor shows such.
    void EndEdit(std::string_view text, std::optional<int> image = {});
    void Changed();
    virtual void OnFocusLost() = 0;

    bool cancelled = false;
    std::string startText;

private:
    int row = -1;
    int column = -1;
    UINT id = 0;
    CMyListCtrl* list = nullptr;
    tagRECT rect;
    bool focused = false;
};

/// What the two editors for text share: a line of text that keys and the clipboard change.
class CInPlaceText : public CInPlaceEditor {
public:
    const tagEditText& GetEdit() const { return edit; }
    /// As the mouse or the arrow keys have set it.
    void SetSelection(std::size_t from, std::size_t to);

    // Keys.
    virtual void OnChar(char key) = 0;
    void OnDelete();
    void OnReturn() { FocusList(); }
    void OnEscape();
    void OnPaste();

    const std::string& GetValidCharacters() const { return validCharacters; }

protected:
    using CInPlaceEditor::CInPlaceEditor;
    void Open(CMyListCtrl& owner, int cellRow, int cellColumn, std::string_view text);
    /// What any edit control does with a key.
    void OwnChar(char key);
    void Replace(std::string_view text);
    void OnFocusLost() override { EndEdit(cancelled ? startText : edit.text); }

    tagEditText edit;
    std::string validCharacters;
};

/// Edits a text. With valid characters no other can be typed or pasted; without, everything can be typed and nothing
/// pasted.
class CInPlaceEdit : public CInPlaceText {
public:
    using CInPlaceText::CInPlaceText;
    void Show(CMyListCtrl& owner, int cellRow, int cellColumn, std::string_view text, std::string_view valid);
    void OnChar(char key) override;
};

/// Edits an angle by the overtyping rules of its type and format.
class CInPlaceAngleEdit : public CInPlaceText {
public:
    using CInPlaceText::CInPlaceText;
    void Show(CMyListCtrl& owner, int cellRow, int cellColumn, std::string_view text, int angleType, int angleFormat);
    void OnChar(char key) override;

private:
    int type = 0;
    int format = 0;
};

/// Offers choices.
class CInPlaceCombo : public CInPlaceEditor {
public:
    using CInPlaceEditor::CInPlaceEditor;
    void Show(CMyListCtrl& owner, int cellRow, int cellColumn, const std::vector<std::string>& texts,
              const CImageList* pictures, std::string_view text, int selected);

    const std::vector<std::string>& GetChoices() const { return choices; }
    /// Not owned; may be null.
    const CImageList* GetImageList() const { return images; }
    int GetCurSel() const { return selection; }
    void SetCurSel(int index);
    /// The first choice that begins with a text.
    void SelectString(std::string_view beginning);

    /// The operator takes a choice, which closes the list up.
    void OnSelect(int index);
    void OnCloseUp();
    void OnReturn() { OnCloseUp(); }
    void OnEscape();

private:
    /// The window closes; the cell is the affair of the list's closing up.
    void OnFocusLost() override {}

    std::vector<std::string> choices;
    const CImageList* images = nullptr;
    int selection = -1;
};

/// A button at the right end of a cell.
class CInPlaceButton : public CInPlaceEditor {
public:
    static constexpr UINT kId = 1000;
    static constexpr std::string_view kCaption = "...";

    using CInPlaceEditor::CInPlaceEditor;
    void Show(CMyListCtrl& owner, int cellRow, int cellColumn);
    void OnPress();

private:
    void OnFocusLost() override {}
};

/// The editors of the process, each made at its first use. The end of any grid list deletes them all.
struct InPlaceEditors {
    std::unique_ptr<CInPlaceEdit> edit;
    std::unique_ptr<CInPlaceAngleEdit> angleEdit;
    std::unique_ptr<CInPlaceCombo> combo;
    std::unique_ptr<CInPlaceButton> button;

    static InPlaceEditors& Get();
    /// Those that have been made.
    std::vector<CInPlaceEditor*> Made() const;
    void DeleteAll();
};

}  // namespace quillon
