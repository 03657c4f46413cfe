#include "panes/feature_pane.h"

#include <algorithm>

#include "foundation/paths.h"
#include "frame/select_feature_files.h"
#include "platform/platform.h"
#include "platform/property_rows.h"

namespace quillon {

CFeaturePane::CFeaturePane(Platform& owner, const FeaturePaneTraits& paneTraits)
    : CPropertyPane(owner, paneTraits.tableId, paneTraits.listRows),
      traits(paneTraits),
      combo(*this, paneTraits.comboId),
      addButton(*this, paneTraits.addId, "Add File", false),
      removeButton(*this, paneTraits.removeId, "Remove File", false) {
    AddControl(addButton);
    AddControl(removeButton);
    AddControl(combo);
    AddControl(GetPropertyList());
    AddControl(GetTable());
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

void CFeaturePane::BuildPropertyRows() {
    const int index = Current();
    if (index >= 0) {
        BuildRows(index);
    } else {
        GetPropertyList().Add<CMFCPropertyGridTitleProperty>("No Files Selected");
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

LRESULT CFeaturePane::OnSelectPoint(WPARAM, LPARAM row) {
    const int index = Current();
    tagXY point;
    if (index >= 0 && row >= 0 && row < GetTable().GetItemCount() && PointOfRow(index, static_cast<int>(row), point)) {
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
        GetTable().DeleteAllItems();
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

// ---- The strip at the top ----

int CFeaturePane::LayOutTop(int width) {
    const int half = width / 2;
    addButton.MoveWindow({0, 0, half, kPaneButtonHeight});
    removeButton.MoveWindow({half, 0, width, kPaneButtonHeight});
    const int bottom = kPaneButtonHeight + GetPlatform().GetMetric(SYSTEM_METRIC::COMBO_HEIGHT);
    combo.MoveWindow({0, kPaneButtonHeight, width, bottom});
    return bottom;
}

void CFeaturePane::OnCommand(UINT control) {
    if (control == traits.addId) OnAdd();
    if (control == traits.removeId) OnRemove();
    if (control == traits.comboId) OnCombo();
}

}  // namespace quillon
