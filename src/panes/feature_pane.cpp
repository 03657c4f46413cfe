#include "panes/feature_pane.h"

#include <algorithm>

#include "foundation/paths.h"
#include "frame/colour_schemes.h"
#include "frame/select_feature_files.h"
#include "frame/size_columns.h"
#include "platform/platform.h"

namespace quillon {
namespace {

constexpr int kButtonHeight = 30;
constexpr UINT kPropertyListId = 1;

}  // namespace

CFeaturePane::CFeaturePane(Platform& owner, const FeaturePaneTraits& paneTraits)
    : CMyDockablePane(owner),
      traits(paneTraits),
      propertyList(*this, kPropertyListId),
      table(*this, paneTraits.tableId),
      combo(*this, paneTraits.comboId),
      addButton(*this, paneTraits.addId, "Add File", false),
      removeButton(*this, paneTraits.removeId, "Remove File", false) {
    AddControl(addButton);
    AddControl(removeButton);
    AddControl(combo);
    AddControl(propertyList);
    AddControl(table);
}

bool CFeaturePane::Create(CWnd* parent, UINT id, std::string_view title, CFileListBase& features) {
    list = &features;
    if (!CreatePane(parent, id, title)) return false;
    SetupComboBox();
    InitPropList();
    CreateTable();
    AdjustLayout();
    return true;
}

int CFeaturePane::Current() const {
    const int selected = combo.GetCurSel();
    return list && list->IsValidIndex(selected) ? selected : -1;
}

// ---- The combo ----

void CFeaturePane::SetupComboBox() {
    const int noted = combo.GetCurSel();
    combo.ResetContent();
    if (list->IsEmpty()) {
        if (traits.cursor != COMBO_CURSOR::STAYS) list->ResetEditCursor();
        if (traits.cursor == COMBO_CURSOR::FOLLOWS_ZERO) list->editState.editFileIndex = 0;
        if (traits.cursor == COMBO_CURSOR::FOLLOWS_ZERO) list->editState.editPointIndex = 0;
        return;
    }
    for (int i = 0; i < list->GetCount(); ++i) combo.AddString(NameOfPath(list->GetPath(i)));
    combo.SetCurSel(list->IsValidIndex(noted) ? noted : 0);
    PointCursorAtCombo();
}

void CFeaturePane::PointCursorAtCombo() {
    if (traits.cursor == COMBO_CURSOR::STAYS) return;
    list->ResetEditCursor();
    list->SetEditCursor(combo.GetCurSel(), 0);
    if (traits.cursor == COMBO_CURSOR::FOLLOWS_ZERO) list->editState.editPointIndex = 0;
}

void CFeaturePane::OnCombo() {
    InitPropList();
    CreateTable();
    AdjustLayout();
}

// ---- The property list ----

void CFeaturePane::InitPropList() {
    propertyList.EnableHeaderCtrl(false, "Property", "Value");
    propertyList.SetVSDotNetLook(true);
    propertyList.EnableDescriptionArea(true);
    ApplyColourScheme(propertyList, kFeaturePaneScheme);
    propertyList.MarkModifiedProperties(true);
    propertyList.RemoveAll();
    const int index = Current();
    if (index >= 0) {
        BuildRows(index);
    } else {
        propertyList.AddGroup("No Files Selected");
    }
}

LRESULT CFeaturePane::OnPropertyChanged(WPARAM, CMFCPropertyGridProperty& row) {
    const int index = Current();
    const RowEffect* const effect = FindRowEffect(traits.effects, row.GetData());
    if (index < 0 || !effect) return 0;
    const bool differed = StoreRow(index, row);
    ApplyRowEffect(*effect, differed, *this);
    return 0;
}

void CFeaturePane::SaveFile(std::uint8_t save) {
    const int index = Current();
    if (index >= 0) SaveMember(index, save);
}

bool CFeaturePane::IsHighlighted() const {
    const int index = Current();
    return index >= 0 && IsMemberHighlighted(index);
}

bool CFeaturePane::IsMemberHighlighted(int) const {
    return false;
}

// ---- The points table ----

void CFeaturePane::CreateTable() {
    table.DeleteAllItems();
    table.DeleteAllColumns();
    for (const std::string& column : TableColumns(Current())) table.InsertColumn(column);
    UpdateAllPositions();
}

void CFeaturePane::UpdateAllPositions() {
    const int index = Current();
    if (index < 0) {
        table.DeleteAllItems();
        return;
    }
    table.SetRows(MakeTableRows(index));
    SizeColumns(table, false);
}

LRESULT CFeaturePane::OnSelectPoint(WPARAM, LPARAM row) {
    const int index = Current();
    tagXY point;
    if (index >= 0 && row >= 0 && row < table.GetItemCount() && PointOfRow(index, static_cast<int>(row), point)) {
        BroadcastRedraw(point);
    }
    return 0;
}

// ---- Files that come and go ----

void CFeaturePane::OnAdd() {
    std::vector<std::string> paths;
    if (!SelectFeatureFiles(*this, traits.fileKind, paths)) return;
    AddPaths(paths);
    SetupComboBox();
    SelectLast();
    InitPropList();
    CreateTable();
    AdjustLayout();
    list->Save();
    BroadcastList(traits.addMessages);
}

void CFeaturePane::AddPaths(const std::vector<std::string>& paths) {
    for (const std::string& path : paths) list->Add(path);
}

void CFeaturePane::SelectLast() {
    combo.SetCurSel(combo.GetCount() - 1);
    if (traits.cursor != COMBO_CURSOR::STAYS) list->SetEditCursor(combo.GetCurSel(), -1);
}

void CFeaturePane::OnRemove() {
    if (list->IsEmpty()) return;
    const int noted = combo.GetCurSel();
    const int index = Current();
    if (index >= 0) {
        // Nothing may go on showing the member while it goes.
        table.DeleteAllItems();
        list->RemoveAt(index);
        MoveCursorAfterRemoval(index);
        list->Save();
    }
    SetupComboBox();
    if (!list->IsEmpty()) {
        combo.SetCurSel(std::max(noted - 1, 0));
        if (traits.cursor != COMBO_CURSOR::STAYS) list->SetEditCursor(combo.GetCurSel(), -1);
    }
    InitPropList();
    CreateTable();
    list->Save();
    BroadcastList(traits.removeMessages);
}

void CFeaturePane::MoveCursorAfterRemoval(int removed) {
    FeatureEditState& state = list->editState;
    if (!traits.removeMovesCursor || state.editFileIndex != removed) return;
    state.editFileIndex = static_cast<std::int16_t>(removed - 1);
    state.editPointIndex = state.editFileIndex < 0 ? -1 : 0;
}

void CFeaturePane::BroadcastList(LIST_MESSAGES messages) {
    if (messages == LIST_MESSAGES::UPDATE_REDRAW) BroadcastFeatureUpdate(traits.type);
    BroadcastRedraw();
    if (messages != LIST_MESSAGES::UPDATE_REDRAW) BroadcastRecompute();
    if (messages == LIST_MESSAGES::REDRAW_RECOMPUTE_UPDATE) BroadcastFeatureUpdate(traits.type);
}

// ---- Looks ----

void CFeaturePane::AdjustLayout() {
    const tagSIZE client = GetClientSize();
    const int comboHeight = GetPlatform().GetMetric(SYSTEM_METRIC::COMBO_HEIGHT);
    const int listHeight = traits.listRows * GetPlatform().GetMetric(SYSTEM_METRIC::ROW_HEIGHT);
    const int half = client.width / 2;
    addButton.MoveWindow({0, 0, half, kButtonHeight});
    removeButton.MoveWindow({half, 0, client.width, kButtonHeight});
    int top = kButtonHeight;
    combo.MoveWindow({0, top, client.width, top + comboHeight});
    top += comboHeight;
    propertyList.MoveWindow({0, top, client.width, top + listHeight});
    top += listHeight;
    table.ShowWindow(top < client.height);
    table.MoveWindow({0, top, client.width, std::max(top, client.height)});
}

void CFeaturePane::OnSize(tagSIZE) {
    AdjustLayout();
    if (table.GetColumnCount() > 0) SizeColumns(table, false);
}

void CFeaturePane::OnSetFocus() {
    SetFocusTo(propertyList);
}

void CFeaturePane::OnSettingChange() {
    AdjustLayout();
}

void CFeaturePane::SetNightMode(bool night) {
    propertyList.night = night;
    ApplyColourScheme(propertyList, propertyList.colourScheme);
    table.SetNightMode(night);
}

void CFeaturePane::SetVSDotNetLook(int look) {
    propertyList.SetVSDotNetLook(look != 0);
    propertyList.SetGroupNameFullWidth(look != 0);
}

// ---- Dispatch ----

LRESULT CFeaturePane::OnMessage(const MSG& message) {
    if (message.message == UM_SELECT_FEATURE) return OnSelectPoint(message.wParam, message.lParam);
    if (message.message == AFX_WM_PROPERTY_CHANGED) {
        return OnPropertyChanged(message.wParam, *reinterpret_cast<CMFCPropertyGridProperty*>(message.lParam));
    }
    return CMyDockablePane::OnMessage(message);
}

void CFeaturePane::OnCommand(UINT control) {
    if (control == traits.addId) OnAdd();
    if (control == traits.removeId) OnRemove();
    if (control == traits.comboId) OnCombo();
}

}  // namespace quillon
