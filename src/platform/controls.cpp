#include "platform/controls.h"

#include <algorithm>
#include <utility>

#include "platform/errors.h"
#include "platform/platform.h"

namespace quillon {

CControl::CControl(CWnd& controlOwner, UINT controlId) : owner(controlOwner), id(controlId) {}

CControl::~CControl() {
    if (observer) observer->OnControlGone(*this);
}

void CControl::MoveWindow(const tagRECT& place) {
    if (rect == place) return;
    rect = place;
    Changed(CONTROL_CHANGE::LAYOUT);
}

void CControl::ShowWindow(bool show) {
    if (visible == show) return;
    visible = show;
    Changed(CONTROL_CHANGE::LAYOUT);
}

void CControl::EnableWindow(bool enable) {
    if (enabled == enable) return;
    enabled = enable;
    Changed(CONTROL_CHANGE::LAYOUT);
}

void CControl::Changed(CONTROL_CHANGE change) {
    if (observer) observer->OnControlChanged(*this, change);
}

void CButton::SetWindowText(std::string_view text) {
    caption = text;
    Changed(CONTROL_CHANGE::CONTENT);
}

void CItemList::ResetContent() {
    items.clear();
    selection = -1;
    Changed(CONTROL_CHANGE::CONTENT);
}

int CItemList::AddString(std::string_view text) {
    items.emplace_back(text);
    Changed(CONTROL_CHANGE::CONTENT);
    return GetCount() - 1;
}

const std::string& CItemList::GetLBText(int index) const {
    if (index < 0 || index >= GetCount()) throw InvalidArgument("item index out of range");
    return items[static_cast<std::size_t>(index)];
}

int CItemList::FindStringExact(std::string_view text) const {
    const auto found = std::find(items.begin(), items.end(), text);
    return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

void CItemList::SetCurSel(int index) {
    selection = index >= 0 && index < GetCount() ? index : -1;
    Changed(CONTROL_CHANGE::SELECTION);
}

void CComboBoxEx::SetImageList(const CImageList* pictures) {
    images = pictures;
    Changed(CONTROL_CHANGE::CONTENT);
}

void CListCtrl::DeleteAllItems() {
    SetRows({});
}

void CListCtrl::DeleteAllColumns() {
    columns.clear();
    Changed(CONTROL_CHANGE::CONTENT);
}

void CListCtrl::InsertColumn(std::string_view header, ALIGN align) {
    columns.push_back({.header = std::string(header), .align = align});
    Changed(CONTROL_CHANGE::CONTENT);
}

const CListCtrl::Column& CListCtrl::GetColumn(int column) const {
    if (column < 0 || column >= GetColumnCount()) throw InvalidArgument("table column out of range");
    return columns[static_cast<std::size_t>(column)];
}

void CListCtrl::SetColumnWidth(int column, int width) {
    GetColumn(column);
    columns[static_cast<std::size_t>(column)].width = width;
    Changed(CONTROL_CHANGE::LAYOUT);
}

void CListCtrl::SetRows(TableRows newRows) {
    rows = std::move(newRows);
    ownTexts.clear();
    selection = -1;
    selected.clear();
    Changed(CONTROL_CHANGE::CONTENT);
}

std::string CListCtrl::GetItemText(int row, int column) const {
    GetColumn(column);
    if (row < 0 || row >= rows.count) throw InvalidArgument("table row out of range");
    const auto own = ownTexts.find({row, column});
    return own != ownTexts.end() ? own->second : rows.cell(row, column);
}

void CListCtrl::SetItemText(int row, int column, std::string_view text) {
    if (GetItemText(row, column) == text) return;
    ownTexts[{row, column}] = text;
    Changed(CONTROL_CHANGE::VALUE);
}

std::vector<std::string> CListCtrl::GetWidestTexts(int column) const {
    if (rows.count == 0 || !rows.widest) return {};
    std::vector<std::string> texts = rows.widest(column);
    for (const auto& [cell, text] : ownTexts) {
        if (cell.second == column) texts.push_back(text);
    }
    return texts;
}

void CListCtrl::SetSelection(int row) {
    selection = row >= 0 && row < rows.count ? row : -1;
    selected.clear();
    if (selection >= 0) selected.push_back(selection);
    Changed(CONTROL_CHANGE::SELECTION);
}

void CListCtrl::SetSelectedRows(std::vector<int> chosen, int last) {
    std::sort(chosen.begin(), chosen.end());
    std::erase_if(chosen, [this](int row) { return row < 0 || row >= rows.count; });
    if (!multiple || chosen.size() < 2) return SetSelection(chosen.empty() ? -1 : chosen.front());
    selected = std::move(chosen);
    selection = std::binary_search(selected.begin(), selected.end(), last) ? last : selected.front();
    Changed(CONTROL_CHANGE::SELECTION);
}

void CListCtrl::SetImageList(const CImageList* pictures) {
    images = pictures;
    Changed(CONTROL_CHANGE::CONTENT);
}

void CListCtrl::SetColours(COLORREF newBackground, COLORREF newText) {
    background = newBackground;
    text = newText;
    Changed(CONTROL_CHANGE::COLOURS);
}

void CListCtrl::SetHeaderColours(COLORREF newBackground, COLORREF newText) {
    headerBackground = newBackground;
    headerText = newText;
    Changed(CONTROL_CHANGE::COLOURS);
}

void CListCtrl::OnItemClick(int) {}

void CListCtrl::OnRightClick(int) {
    if (const Platform::TableMenu& open = GetOwner().GetPlatform().GetTableMenu()) open(*this);
}

}  // namespace quillon
