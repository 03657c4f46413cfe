#include "panes/background_pane.h"

#include <algorithm>

#include "foundation/paths.h"
#include "platform/platform.h"
#include "platform/property_rows.h"
#include "platform/text.h"

namespace quillon {
namespace {

/// Without anything below the property list, it takes all the room.
constexpr int kListRows = 0;
constexpr Posts kListChanged = {POST::REDRAW_VECTOR};

}  // namespace

CBackgroundPane::CBackgroundPane(Platform& owner, const BackgroundPaneTraits& paneTraits)
    : CPropertyPane(owner, kListRows, paneTraits.effects), traits(paneTraits), strip(*this, paneTraits.strip) {
    AddControl(GetPropertyList());
}

bool CBackgroundPane::CreateOver(CWnd* parent, UINT id, std::string_view title, CMutex& listMutex) {
    mutex = &listMutex;
    if (!CreatePane(parent, id, title)) return false;
    Refresh();
    return true;
}

void CBackgroundPane::Refresh() {
    SetupComboBox();
    AdjustLayout();
}

// ---- The combo ----

void CBackgroundPane::SetupComboBox() {
    std::vector<std::string> names;
    for (int i = 0; i < Count(); ++i) names.push_back(NameOfPath(PathOf(i)));
    strip.SetNames(names);
    currentIndex = std::min(currentIndex, Count() - 1);
    if (currentIndex < 0 && Count() > 0) currentIndex = 0;
    if (currentIndex >= 0) GetCombo().SetCurSel(currentIndex);
    InitPropList();
}

void CBackgroundPane::SetUseFile(const char* name) {
    currentIndex = 0;
    for (int i = 0; i < Count(); ++i) {
        if (!EqualNoCase(NameOfPath(PathOf(i)), name)) continue;
        currentIndex = i;
        break;
    }
    if (currentIndex < GetCombo().GetCount()) GetCombo().SetCurSel(currentIndex);
}

void CBackgroundPane::OnCombo() {
    if (GetCombo().GetCurSel() == currentIndex) return;
    currentIndex = GetCombo().GetCurSel();
    InitPropList();
}

// ---- The property list ----

void CBackgroundPane::BuildPropertyRows() {
    if (Current() >= 0) {
        BuildFileRows(Current());
    } else {
        GetPropertyList().Add<CMFCPropertyGridTitleProperty>("No Files Selected");
    }
}

void CBackgroundPane::AddStampRows(CMFCPropertyGridProperty& group, const std::string& size, const std::string& date) {
    group.Add<CMFCPropertyGridProperty>("File Size", size, "", 0u).AllowEdit(false);
    group.Add<CMFCPropertyGridProperty>("File Date", date, "", 0u).AllowEdit(false);
}

void CBackgroundPane::AddExtentRows(tagXY least, tagXY most, std::string_view lastFormat) {
    auto& group = GetPropertyList().AddGroup("Extents");
    const auto add = [&group](std::string_view name, double value, std::string_view format) {
        group.Add<CMFCPropertyGridDouble>(name, value, format, "", 0u).AllowEdit(false);
    };
    add("Minimum Easting", least.x, "%10.2lfE");
    add("Minimum Northing", least.y, "%10.2lfN");
    add("Maximum Easting", most.x, "%10.2lfE");
    add("Maximum Northing", most.y, lastFormat);
}

LRESULT CBackgroundPane::OnPropertyChanged(WPARAM wParam, CMFCPropertyGridProperty& row) {
    return Current() < 0 ? 0 : CPropertyPane::OnPropertyChanged(wParam, row);
}

void CBackgroundPane::SaveFile(std::uint8_t save) {
    if (Current() >= 0) SaveFileRow(Current(), save);
}

// ---- Files that come and go ----

void CBackgroundPane::OnCommand(UINT control) {
    if (control == traits.strip.add) OnAdd();
    if (control == traits.strip.remove) OnRemove();
    if (control == traits.strip.combo) OnCombo();
}

void CBackgroundPane::OnAdd() {
    std::vector<std::string> chosen;
    if (!GetPlatform().ChooseFiles({.title = {}, .filter = std::string(traits.filter)}, chosen)) return;
    const std::string path(chosen.empty() ? std::string_view() : Trim(chosen.front()));
    if (path.empty()) {
        GetPlatform().WarningMessage("Requires a file name");
        return;
    }
    const auto lock = Lock();
    if (!AddFile(path)) return;
    SetupComboBox();
    SaveList();
    BroadcastAll(kListChanged);
}

void CBackgroundPane::OnRemove() {
    if (Count() == 0) return;
    const int selected = GetCombo().GetCurSel();
    if (selected >= 0 && selected < Count()) RemoveFile(selected);
    SetupComboBox();
    SaveList();
    BroadcastAll(kListChanged);
}

}  // namespace quillon
