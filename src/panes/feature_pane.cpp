#include "panes/feature_pane.h"

#include <algorithm>

#include "foundation/paths.h"
#include "frame/feature_list_ctrl.h"
#include "frame/select_feature_files.h"
#include "frame/size_columns.h"
#include "platform/property_rows.h"

namespace quillon {

CFeaturePane::CFeaturePane(Platform& owner, const FeaturePaneTraits& paneTraits)
    : CFeaturePane(owner, paneTraits, [](CWnd& pane, UINT id) -> std::unique_ptr<CListCtrl> {
          return std::make_unique<CFeatureListCtrl>(pane, id);
      }) {}

CFeaturePane::CFeaturePane(Platform& owner, const FeaturePaneTraits& paneTraits, MakeTableControl makeTable)
    : CPropertyPane(owner, paneTraits.listRows, paneTraits.effects),
      traits(paneTraits),
      strip(*this, paneTraits.strip),
      table(makeTable(*this, paneTraits.tableId)) {
    AddControl(GetPropertyList());
    AddControl(*table);
}

bool CFeaturePane::Create(CWnd* parent, UINT id, std::string_view title, CFileListBase& features) {
    list = &features;
    if (!CreatePane(parent, id, title)) return false;
    Refresh();
    return true;
}

void CFeaturePane::Refresh() {
    SetupComboBox();
    OnCombo();
}

int CFeaturePane::Current() const {
    const int selected = strip.GetCombo().GetCurSel();
    return list && list->IsValidIndex(selected) ? selected : -1;
}

// ---- The combo ----

void CFeaturePane::SetupComboBox() {
    CComboBox& combo = strip.GetCombo();
    const int noted = combo.GetCurSel();
    std::vector<std::string> names;
    for (int i = 0; i < list->GetCount(); ++i) names.push_back(NameOfPath(list->GetPath(i)));
    strip.SetNames(names);
    if (list->IsEmpty()) {
        if (traits.cursor != COMBO_CURSOR::STAYS) list->ResetEditCursor();
        if (traits.cursor == COMBO_CURSOR::FOLLOWS_ZERO) list->editState.editFileIndex = 0;
        if (traits.cursor == COMBO_CURSOR::FOLLOWS_ZERO) list->editState.editPointIndex = 0;
        return;
    }
    combo.SetCurSel(list->IsValidIndex(noted) ? noted : 0);
    PointCursorAtCombo();
}

void CFeaturePane::PointCursorAtCombo() {
    if (traits.cursor == COMBO_CURSOR::STAYS) return;
    list->ResetEditCursor();
    list->SetEditCursor(strip.GetCombo().GetCurSel(), 0);
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

LRESULT CFeaturePane::OnPropertyChanged(WPARAM wParam, CMFCPropertyGridProperty& row) {
    return Current() < 0 ? 0 : CPropertyPane::OnPropertyChanged(wParam, row);
}

void CFeaturePane::SaveFile(std::uint8_t save) {
    const int index = Current();
    if (index >= 0) SaveMember(index, save);
}

bool CFeaturePane::IsHighlighted() const {
    const int index = Current();
    return index >= 0 && IsMemberHighlighted(index);
}

// ---- The points table ----

void CFeaturePane::CreateTable() {
    ShowPoints(*table, MakeTable(Current()));
}

void CFeaturePane::UpdateAllPositions() {
    RenewPoints(*table, MakeTable(Current()));
}

void CFeaturePane::OnSize(tagSIZE) {
    AdjustLayout();
    SizeColumns(*table, false);
}

LRESULT CFeaturePane::OnMessage(const MSG& message) {
    if (message.message == UM_SELECT_FEATURE) return OnSelectPoint(message.wParam, message.lParam);
    return CPropertyPane::OnMessage(message);
}

LRESULT CFeaturePane::OnSelectPoint(WPARAM, LPARAM row) {
    const int index = Current();
    tagXY point;
    if (index >= 0 && row >= 0 && row < table->GetItemCount() && PointOfRow(index, static_cast<int>(row), point)) {
        BroadcastRedraw(point);
    }
    return 0;
}

// ---- Files that come and go ----

void CFeaturePane::OnAdd() {
    std::vector<std::string> paths;
    if (!AskForFiles(paths)) return;
    AddPaths(paths);
    SetupComboBox();
    SelectLast();
    OnCombo();
    list->Save();
    BroadcastAll(traits.added);
}

bool CFeaturePane::AskForFiles(std::vector<std::string>& paths) {
    return SelectFeatureFiles(*this, traits.fileKind, paths);
}

int CFeaturePane::ShownAfterRemoval(int removed) const {
    return std::max(removed - 1, 0);
}

void CFeaturePane::AddPaths(const std::vector<std::string>& paths) {
    for (const std::string& path : paths) list->Add(path);
}

void CFeaturePane::SelectLast() {
    CComboBox& combo = strip.GetCombo();
    combo.SetCurSel(combo.GetCount() - 1);
    if (traits.cursor != COMBO_CURSOR::STAYS) list->SetEditCursor(combo.GetCurSel(), -1);
}

void CFeaturePane::OnRemove() {
    if (list->IsEmpty()) return;
    CComboBox& combo = strip.GetCombo();
    const int noted = combo.GetCurSel();
    const int index = Current();
    if (index >= 0) {
        // Nothing may go on showing the member while it goes.
        table->DeleteAllItems();
        list->RemoveAt(index);
        MoveCursorAfterRemoval(index);
        list->Save();
    }
    SetupComboBox();
    if (!list->IsEmpty()) {
        combo.SetCurSel(ShownAfterRemoval(noted));
        if (traits.cursor != COMBO_CURSOR::STAYS) list->SetEditCursor(combo.GetCurSel(), -1);
    }
    InitPropList();
    CreateTable();
    list->Save();
    BroadcastAll(traits.removed);
}

void CFeaturePane::MoveCursorAfterRemoval(int removed) {
    FeatureEditState& state = list->editState;
    if (!traits.removeMovesCursor || state.editFileIndex != removed) return;
    state.editFileIndex = static_cast<std::int16_t>(removed - 1);
    state.editPointIndex = state.editFileIndex < 0 ? -1 : 0;
}

void CFeaturePane::OnCommand(UINT control) {
    if (control == traits.strip.add) OnAdd();
    if (control == traits.strip.remove) OnRemove();
    if (control == traits.strip.combo) OnCombo();
}

}  // namespace quillon
