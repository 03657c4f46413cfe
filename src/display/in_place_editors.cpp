#include "display/in_place_editors.h"

#include <algorithm>

#include "display/grid_list_ctrl.h"
#include "foundation/angle_edit.h"
#include "platform/platform.h"

namespace quillon {
namespace {

constexpr std::string_view kAngleCharacters = "0123456789.";
/// A list of many choices opens so many cell heights, a short one as many more than it has choices as `kFewChoices`.
constexpr int kManyChoicesHeight = 11;
constexpr int kFewChoices = 10;

bool IsClipboardKey(char key) {
    return key == kCtrlC || key == kCtrlV || key == kCtrlX;
}

bool AllAmong(std::string_view text, std::string_view valid) {
    return text.find_first_not_of(valid) == std::string_view::npos;
}

}  // namespace

// ---- Every editor ----

void CInPlaceEditor::TakeCell(int cellRow, int cellColumn, std::string_view text) {
    row = cellRow;
    column = cellColumn;
    cancelled = false;
    startText = text;
}

bool CInPlaceEditor::MakeWindow(CMyListCtrl& owner, const tagRECT& place, UINT controlId) {
    if (list) return false;
    list = &owner;
    rect = place;
    id = controlId;
    focused = true;
    return true;
}

void CInPlaceEditor::Changed() {
    if (list) list->OnEditorChanged();
}

void CInPlaceEditor::FocusList() {
    if (list) list->TakeFocus();
}

void CInPlaceEditor::OnKillFocus() {
    if (!list || !focused) return;
    focused = false;
    OnFocusLost();
    PostMessage(WM_CLOSE);
}

void CInPlaceEditor::EndEdit(std::string_view text, std::optional<int> image) {
    ListEndEdit end{.list = list, .controlId = id, .row = row, .column = column, .text = std::string(text)};
    if (image) {
        end.mask |= LVIF_IMAGE;
        end.image = *image;
    }
    list->OnEndLabelEdit(end);
}

LRESULT CInPlaceEditor::OnMessage(const MSG& message) {
    if (message.message != WM_CLOSE) return CWnd::OnMessage(message);
    CMyListCtrl* const over = list;
    list = nullptr;
    focused = false;
    if (over) over->OnEditorChanged();
    return 0;
}

// ---- Text ----

void CInPlaceText::Open(CMyListCtrl& owner, int cellRow, int cellColumn, std::string_view text) {
    TakeCell(cellRow, cellColumn, text);
    tagRECT cell;
    owner.CellRect(cellColumn, cellRow, cell);
    if (!MakeWindow(owner, cell, 0)) return;
    edit.text = text;
    edit.SelectAll();
    Changed();
}

void CInPlaceText::SetSelection(std::size_t from, std::size_t to) {
    edit.from = from;
    edit.to = to;
    edit.Clamp();
}

void CInPlaceText::Replace(std::string_view text) {
    edit.text.replace(edit.from, edit.to - edit.from, text);
    edit.SetCaret(edit.from + text.size());
}

void CInPlaceText::OwnChar(char key) {
    Platform& platform = GetPlatform();
    if (key == kCtrlV) return OnPaste();
    if (key == kCtrlC || key == kCtrlX) {
        if (edit.HasSelection()) platform.SetClipboardText(edit.Selected());
        if (key == kCtrlX) Replace({});
    } else if (key == kBackspace) {
        if (!edit.HasSelection() && edit.from > 0) --edit.from;
        Replace({});
    } else if (static_cast<unsigned char>(key) >= ' ') {
        Replace(std::string_view(&key, 1));
    }
    Changed();
}

void CInPlaceText::OnDelete() {
    if (!edit.HasSelection() && edit.to < edit.text.size()) ++edit.to;
    Replace({});
    Changed();
}

void CInPlaceText::OnEscape() {
    cancelled = true;
    FocusList();
}

void CInPlaceText::OnPaste() {
    if (validCharacters.empty()) return;
    const std::string pasted = GetPlatform().ClipboardText();
    if (!AllAmong(pasted, validCharacters)) return;
    Replace(pasted);
    Changed();
}

void CInPlaceEdit::Show(CMyListCtrl& owner, int cellRow, int cellColumn, std::string_view text,
                        std::string_view valid) {
    validCharacters = valid;
    Open(owner, cellRow, cellColumn, text);
}

void CInPlaceEdit::OnChar(char key) {
    const bool isValid = validCharacters.empty() || validCharacters.find(key) != std::string::npos;
    if (isValid || key == kBackspace || IsClipboardKey(key)) return OwnChar(key);
    GetPlatform().Beep();
}

void CInPlaceAngleEdit::Show(CMyListCtrl& owner, int cellRow, int cellColumn, std::string_view text, int angleType,
                             int angleFormat) {
    validCharacters = kAngleCharacters;
    type = angleType;
    format = angleFormat;
    Open(owner, cellRow, cellColumn, text);
}

void CInPlaceAngleEdit::OnChar(char key) {
    if (IsClipboardKey(key)) return OwnChar(key);
    if (CAngleTyping(type, format).Type(edit, key)) Changed();
}

// ---- Choices ----

void CInPlaceCombo::Show(CMyListCtrl& owner, int cellRow, int cellColumn, const std::vector<std::string>& texts,
                         const CImageList* pictures, std::string_view text, int selected) {
    choices = texts;
    images = pictures;
    const int count = static_cast<int>(choices.size());
    std::string start(text);
    if (selected < 0) {
        const auto equal = std::find(choices.begin(), choices.end(), text);
        selected = text.empty() || equal == choices.end() ? -1 : static_cast<int>(equal - choices.begin());
    } else {
        selected = selected < count ? selected : -1;
        if (selected >= 0) start = choices[static_cast<std::size_t>(selected)];
    }
    TakeCell(cellRow, cellColumn, start);
    tagRECT place;
    owner.CellRect(cellColumn, cellRow, place);
    place.bottom += place.Height() * (count < kFewChoices ? count + kFewChoices : kManyChoicesHeight);
    if (!MakeWindow(owner, place, 0)) return;
    selection = selected;
    Changed();
}

void CInPlaceCombo::SetCurSel(int index) {
    selection = index >= 0 && index < static_cast<int>(choices.size()) ? index : -1;
    Changed();
}

void CInPlaceCombo::SelectString(std::string_view beginning) {
    const auto found = std::find_if(choices.begin(), choices.end(),
                                    [&](const std::string& choice) { return choice.starts_with(beginning); });
    if (found != choices.end()) SetCurSel(static_cast<int>(found - choices.begin()));
}

void CInPlaceCombo::OnSelect(int index) {
    SetCurSel(index);
    OnCloseUp();
}

void CInPlaceCombo::OnCloseUp() {
    if (!HasWindow() || !HasFocus()) return;
    FocusList();
    const bool isChosen = selection >= 0 && !cancelled;
    const bool hasImages = images && images->GetImageCount() > 0;
    EndEdit(isChosen ? choices[static_cast<std::size_t>(selection)] : startText,
            hasImages ? std::optional(selection) : std::nullopt);
}

void CInPlaceCombo::OnEscape() {
    cancelled = true;
    OnCloseUp();
}

// ---- The button ----

void CInPlaceButton::Show(CMyListCtrl& owner, int cellRow, int cellColumn) {
    TakeCell(cellRow, cellColumn, {});
    tagRECT place;
    owner.CellRect(cellColumn, cellRow, place);
    place.left = place.right - place.Height();
    if (MakeWindow(owner, place, kId)) Changed();
}

void CInPlaceButton::OnPress() {
    if (GetList()) GetList()->OnCommand(kId);
}

// ---- The process's own ----

InPlaceEditors& InPlaceEditors::Get() {
    static InPlaceEditors editors;
    return editors;
}

std::vector<CInPlaceEditor*> InPlaceEditors::Made() const {
    std::vector<CInPlaceEditor*> made = {edit.get(), angleEdit.get(), combo.get(), button.get()};
    std::erase(made, nullptr);
    return made;
}

void InPlaceEditors::DeleteAll() {
    for (CInPlaceEditor* const editor : Made()) {
        if (CMyListCtrl* const over = editor->GetList()) {
            editor->Abandon();
            over->OnEditorChanged();
        }
    }
    *this = InPlaceEditors();
}

}  // namespace quillon
