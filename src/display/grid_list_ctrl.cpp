#include "display/grid_list_ctrl.h"

#include <algorithm>
#include <array>

#include "foundation/angle_text.h"
#include "foundation/config_file.h"
#include "frame/messages.h"
#include "platform/platform.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kNumberCharacters = "0123456789.+-";
/// A column narrower than this has no room for a combo, pixels.
constexpr int kLeastComboWidth = 10;
/// Greys on which black can't be read.
constexpr std::array<std::uint32_t, 2> kDarkGreys = {0x555555, 0x808080};
constexpr COLORREF kWhite = 0xFFFFFF;

struct GridListScheme {
    struct Colours {
        COLORREF background, text, header, headerText;
    };
    Colours day;
    Colours night;
};

// clang-format off
constexpr std::array<GridListScheme, 7> kSchemes = {{
    // day: background, text, header, header text       night
    {{0xFFFFFF, 0, 0xEBEBEB, 0x555555},                 {0xFFFFFF, 0,        0xEBEBEB, 0x555555}},
    {{0xD6D6D6, 0, 0x555555, 0xEBEBEB},                 {0,        0xC0C0C0, 0x555555, 0xEBEBEB}},
    {{0xCCFFCC, 0, 0x008000, 0x80FF80},                 {0,        0x008000, 0x004000, 0x008000}},
    {{0xFFCC99, 0, 0x800000, 0xFF8080},                 {0,        0x800000, 0x400000, 0x800000}},
    {{0xFF99CC, 0, 0x800080, 0xFF80FF},                 {0,        0x800080, 0x400040, 0x800080}},
    {{0xF0F0FF, 0, 0x000080, 0x8080FF},                 {0,        0x000080, 0x000040, 0x000080}},
    {{0xE7FFFF, 0, 0x008080, 0x00FFFF},                 {0,        0x008080, 0x004040, 0x008080}},
}};
// clang-format on

bool Holds(const std::vector<int>& columns, int column) {
    return std::find(columns.begin(), columns.end(), column) != columns.end();
}

template <class Value>
Value ValueAt(const std::map<int, Value>& values, int place) {
    const auto found = values.find(place);
    return found == values.end() ? Value() : found->second;
}

int LinesOf(std::string_view title) {
    const auto feeds = static_cast<int>(std::count(title.begin(), title.end(), '\n'));
    return title.ends_with('\n') ? feeds : feeds + 1;
}

WPARAM CellWord(int row, int column) {
    return (static_cast<WPARAM>(row) & 0xFFFF) << 16 | (static_cast<WPARAM>(column) & 0xFFFF);
}

ALIGN AlignOfFormat(int alignment) {
    switch (alignment & 3) {
        case 1:
            return ALIGN::RIGHT;
        case 2:
            return ALIGN::CENTRE;
        default:
            return ALIGN::LEFT;
    }
}

template <class Editor>
Editor& Made(std::unique_ptr<Editor>& editor, Platform& platform) {
    if (!editor) editor = std::make_unique<Editor>(platform);
    return *editor;
}

}  // namespace

CMyListCtrl::CMyListCtrl(CWnd& listOwner, UINT listId) : CListCtrl(listOwner, listId) {
    SetColourScheme(scheme);
}

CMyListCtrl::~CMyListCtrl() {
    WriteColumnState();
    InPlaceEditors::Get().DeleteAll();
}

/// The widths that the operator has left the columns with.
void CMyListCtrl::WriteColumnState() const {
    CConfigFile file(GetOwner().GetPlatform().Files());
    if (!file.OpenSettingsForWrite(Format("List Control %u Column State", GetDlgCtrlID()))) return;
    for (int i = 0; i < GetColumnCount(); ++i) file.WriteInt(Format("%d", i + 1), GetColumn(i).width);
    file.Commit();
}

// ---- Columns ----

void CMyListCtrl::AddColumn(int, std::string_view title, int alignment, int, int) {
    const Platform& platform = GetOwner().GetPlatform();
    const bool sorts = !(style & LVS_NOSORTHEADER);
    InsertColumn(title, AlignOfFormat(alignment));
    const int air = sorts ? platform.TextWidth("        ") + 14 : platform.TextWidth("    ");
    SetColumnWidth(GetColumnCount() - 1, platform.TextWidth(title) + air);
}

int CMyListCtrl::GetHeaderLines() const {
    int lines = 1;
    for (int i = 0; i < GetColumnCount(); ++i) lines = std::max(lines, LinesOf(GetColumn(i).header));
    return lines;
}

// ---- Colours ----

void CMyListCtrl::SetColourScheme(int number) {
    if (number < 0 || number >= static_cast<int>(kSchemes.size())) return;
    scheme = number;
    const GridListScheme& named = kSchemes[static_cast<std::size_t>(number)];
    const GridListScheme::Colours& colours = night ? named.night : named.day;
    SetHeaderColours(colours.header, colours.headerText);
    SetColours(colours.background, colours.text);
}

void CMyListCtrl::SetNightMode(bool on) {
    night = on;
    SetColourScheme(scheme);
}

COLORREF CMyListCtrl::ColumnBackground(int column) const {
    const std::uint32_t data = ValueAt(headerData, column);
    return data != 0 && data != static_cast<std::uint32_t>(column) ? data : GetBkColor();
}

CellColours CMyListCtrl::ColoursOf(int row, int column) const {
    CellColours colours{GetBkColor(), GetTextColor()};
    if (columnColouring) {
        colours.background = ColumnBackground(column);
    } else if (row == highlightRow && highlightBackground != 0) {
        colours = {highlightBackground, highlightText};
    } else if (itemDataColouring) {
        const std::uint32_t data = ValueAt(itemData, row);
        if (data != 0) colours.background = data;
        if (std::find(kDarkGreys.begin(), kDarkGreys.end(), data) != kDarkGreys.end()) colours.text = kWhite;
    } else if (ValueAt(itemImage, row) == 1 && image1Colour != 0) {
        colours.background = image1Colour;
    } else if (row % 2 == 1 && alternateRowColour != 0) {
        colours.background = alternateRowColour;
    }
    return colours;
}

std::vector<CMyListCtrl::Band> CMyListCtrl::BackgroundBands() const {
    std::vector<Band> bands;
    const int top = GetHeaderHeight(), bottom = GetRect().Height(), right = GetRect().Width();
    if (columnColouring) {
        for (int i = 0; i + 1 < GetColumnCount(); ++i) {
            const int left = ColumnLeft(i) - scroll;
            bands.push_back({{left, top, left + GetColumn(i).width, bottom}, ColumnBackground(i)});
        }
    } else if (alternateRowColour != 0) {
        const int perPage = std::max(0, bottom - top) / GetRowHeight();
        for (int i = 0; i <= perPage; ++i) {
            const int y = top + i * GetRowHeight();
            const bool odd = (topRow + i) % 2 == 1;
            bands.push_back({{0, y, right, y + GetRowHeight()}, odd ? alternateRowColour : GetBkColor()});
        }
    }
    return bands;
}

// ---- Places ----

int CMyListCtrl::GetRowHeight() const {
    return std::max(1, GetOwner().GetPlatform().GetMetric(SYSTEM_METRIC::ROW_HEIGHT));
}

int CMyListCtrl::GetHeaderHeight() const {
    return GetHeaderLines() * GetRowHeight();
}

int CMyListCtrl::ColumnLeft(int column) const {
    int left = 0;
    for (int i = 0; i < column && i < GetColumnCount(); ++i) left += GetColumn(i).width;
    return left;
}

bool CMyListCtrl::HitTestCell(tagPOINT point, int& row, int& column) const {
    column = 0;
    const int below = point.y - GetHeaderHeight();
    row = below < 0 ? -1 : topRow + below / GetRowHeight();
    if (row >= GetItemCount()) row = -1;
    if (row < 0) return false;
    int left = -scroll;
    for (; column < GetColumnCount(); ++column) {
        const int width = GetColumn(column).width;
        if (point.x >= left && point.x < left + width) return true;
        left += width;
    }
    return false;
}

void CMyListCtrl::CellRect(int column, int row, tagRECT& rect) {
    const int client = GetRect().Width(), width = GetColumn(column).width;
    const int left = ColumnLeft(column) - scroll;
    int by = 0;
    if (left < 0 || left >= client) {
        by = left;
    } else if (left + width > client) {
        by = left + width - client;
    }
    if (by != 0) {
        scroll += by;
        Changed(CONTROL_CHANGE::LAYOUT);
    }
    const int top = GetHeaderHeight() + (row - topRow) * GetRowHeight();
    rect = {left - by, top, left - by + width, top + GetRowHeight()};
}

bool CMyListCtrl::EnsureVisible(int row) {
    if (row < 0 || row >= GetItemCount()) return false;
    const int perPage = std::max(1, (GetRect().Height() - GetHeaderHeight()) / GetRowHeight());
    const int top = row < topRow ? row : row >= topRow + perPage ? row - perPage + 1 : topRow;
    if (std::exchange(topRow, top) != top) Changed(CONTROL_CHANGE::LAYOUT);
    return true;
}

// ---- Messages ----

LRESULT CMyListCtrl::SendToBoth(UINT message, WPARAM wParam, LPARAM lParam) {
    OnListMessage({message, wParam, lParam});
    return GetOwner().SendMessage(message, wParam, lParam);
}

void CMyListCtrl::OnEndLabelEdit(const ListEndEdit& end) {
    if (end.row >= 0 && end.row < GetItemCount() && end.column >= 0 && end.column < GetColumnCount()) {
        SetItemText(end.row, end.column, end.text);
    }
    SendToBoth(UM_LIST_VALIDATE, GetDlgCtrlID(), reinterpret_cast<LPARAM>(&end));
}

void CMyListCtrl::OnCommand(UINT control) {
    if (control != CInPlaceButton::kId) return;
    GetOwner().SendMessage(UM_LIST_BUTTON_PRESS, static_cast<WPARAM>(buttonRow), buttonColumn);
}

// ---- A click ----

void CMyListCtrl::TakeFocus() {
    for (CInPlaceEditor* const editor : OpenEditors()) editor->OnKillFocus();
    Changed(CONTROL_CHANGE::FOCUS);
}

void CMyListCtrl::OnScroll(int newTopRow, int newScroll) {
    TakeFocus();
    topRow = std::max(0, newTopRow);
    scroll = newScroll;
}

void CMyListCtrl::OnLButtonDown(tagPOINT point, bool shift, bool control) {
    int row = -1, column = -1;
    if (!HitTestCell(point, row, column)) return;
    TakeFocus();
    SetSelection(row);
    OnItemClick(row);
    if (shift || control || GetSelection() != row || !(style & LVS_EDITLABELS)) return;
    if (EditSpecialColumn(row, column)) return;
    bool allowed = true;
    SendToBoth(UM_LIST_START_EDIT, CellWord(row, column), reinterpret_cast<LPARAM>(&allowed));
    if (allowed) EditText(row, column);
}

/// True if the column is of a kind that nobody is asked about.
bool CMyListCtrl::EditSpecialColumn(int row, int column) {
    if (Holds(columns.combo, column)) {
        EditCombo(row, column);
        return true;
    }
    if (Holds(columns.button, column)) {
        ShowInPlaceButton(row, column, GetItemText(row, column));
        return true;
    }
    return Holds(columns.readOnly, column);
}

void CMyListCtrl::EditCombo(int row, int column) {
    std::vector<std::string> choices;
    const CImageList* images = nullptr;
    const WPARAM cell = CellWord(row, column);
    SendToBoth(UM_LIST_SET_ITEMS, cell, reinterpret_cast<LPARAM>(&choices));
    const auto address = reinterpret_cast<LPARAM>(&images);
    OnListMessage({UM_LIST_IMAGE_LIST, cell, address});
    if (!images) GetOwner().SendMessage(UM_LIST_IMAGE_LIST, cell, address);
    if (choices.empty()) return;
    const std::string text = GetItemText(row, column);
    if (CInPlaceCombo* const combo = ShowInPlaceCombo(row, column, choices, images, text, -1)) {
        combo->SelectString(text);
    }
}

void CMyListCtrl::EditText(int row, int column) {
    const std::string text = GetItemText(row, column);
    if (Holds(columns.latitude, column)) {
        ShowInPlaceAngleEdit(row, column, text, ANGLE_LATITUDE, angleFormat);
    } else if (Holds(columns.longitude, column)) {
        ShowInPlaceAngleEdit(row, column, text, ANGLE_LONGITUDE, angleFormat);
    } else {
        ShowInPlaceEdit(row, column, text, Holds(columns.numeric, column) ? kNumberCharacters : std::string_view());
    }
}

// ---- Editors ----

std::vector<CInPlaceEditor*> CMyListCtrl::OpenEditors() const {
    std::vector<CInPlaceEditor*> open = InPlaceEditors::Get().Made();
    std::erase_if(open, [this](const CInPlaceEditor* editor) { return editor->GetList() != this; });
    return open;
}

CInPlaceCombo* CMyListCtrl::ShowInPlaceCombo(int row, int column, const std::vector<std::string>& choices,
                                             const CImageList* images, std::string_view text, int selection) {
    if (!EnsureVisible(row) || column < 0 || column >= GetColumnCount()) return nullptr;
    if (GetColumn(column).width < kLeastComboWidth) return nullptr;
    CInPlaceCombo& combo = Made(InPlaceEditors::Get().combo, GetOwner().GetPlatform());
    combo.Show(*this, row, column, choices, images, text, selection);
    return &combo;
}

CInPlaceButton* CMyListCtrl::ShowInPlaceButton(int row, int column, std::string_view) {
    CInPlaceButton& button = Made(InPlaceEditors::Get().button, GetOwner().GetPlatform());
    buttonRow = row;
    buttonColumn = column;
    button.Show(*this, row, column);
    return &button;
}

CInPlaceEdit* CMyListCtrl::ShowInPlaceEdit(int row, int column, std::string_view text,
                                           std::string_view validCharacters) {
    CInPlaceEdit& edit = Made(InPlaceEditors::Get().edit, GetOwner().GetPlatform());
    edit.Show(*this, row, column, text, validCharacters);
    return &edit;
}

CInPlaceAngleEdit* CMyListCtrl::ShowInPlaceAngleEdit(int row, int column, std::string_view text, int type, int format) {
    CInPlaceAngleEdit& edit = Made(InPlaceEditors::Get().angleEdit, GetOwner().GetPlatform());
    edit.Show(*this, row, column, text, type, format);
    return &edit;
}

}  // namespace quillon
