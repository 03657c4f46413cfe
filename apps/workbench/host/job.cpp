#include "host/job.h"

#include <algorithm>
#include <utility>

#include "display/list_export.h"
#include "features/wind_farm_store.h"
#include "panes/pipe_route_pane.h"
#include "panes/structure_pane.h"
#include "platform/platform.h"
#include "platform/text.h"
#include "platform/user_actions.h"

namespace quillon {
namespace {

/// What a message with a FEATURE_TYPES is about; NONE for a type that no kind has.
KIND KindOfMessage(const MSG& message) {
    const JobKind* const kind = FindKind(static_cast<FEATURE_TYPES>(message.wParam));
    return kind ? kind->id : KIND::NONE;
}

}  // namespace

Job::Job(Platform& owner) : CWnd(owner), record(owner.Files()), targets(owner, record), loads(owner, record) {
    owner.SetMainWindow(this);
    owner.SetTableMenu(OpenExportMenu);
    targets.onChanged = [this] {
        RefreshRows();
        if (observer) observer->OnDrawingChanged();
    };
    owner.SetPrintHeading([this] { return PrintHeading(); });
}

Job::~Job() {
    GetPlatform().SetTableMenu({});
    GetPlatform().SetPrintHeading({});
    GetPlatform().SetMainWindow(nullptr);
}

void Job::Open() {
    const bool mayWrite = GetPlatform().Files().Access() == FILE_ACCESS::READ_WRITE;
    if (mayWrite) FinishSwap(GetPlatform().Files());
    record.Load();
    ReadWindFarmDatabase();
    if (mayWrite) record.ClearLeftovers();
    OpenPanes();
    targets.SetPanes(panes);
    countedFiles = CountFiles();
    loads.onTaken = [this](KIND kind) { OnLoaded(kind); };
    loads.Start();
    acts.emplace(GetPlatform(), record);
    acts->onAct = [this] {
        if (observer) observer->OnActsChanged();
    };
}

std::string Job::PrintHeading() const {
    // A job is called after its drives folder, where that has a name of its own.
    const std::string folder = GetPlatform().Files().Drives().filename().string();
    std::string heading = folder == "drives" ? std::string() : TextFromUtf8(folder);
    if (!record.geodesy.IsChosen()) return heading;
    if (!heading.empty()) heading += ", ";
    return heading + record.geodesy.GridText() + ", " + record.geodesy.DatumText();
}

void Job::ReadWindFarmDatabase() {
    std::string fault;
    if (!ReadWindFarms(record.windFarms, fault)) {
        GetPlatform().WarningMessage(WindFarmDatabasePath(GetPlatform().Files()) + "\ncan't be read: " + fault);
    }
}

void Job::OpenPanes() {
    for (const PaneEntry& entry : PaneRegistry()) {
        // Creating a pane sets its list's cursor to the first file.
        CFileListBase* const list = ListOf(entry.kind);
        const FeatureEditState cursor = list ? list->editState : FeatureEditState();
        auto pane = entry.create(GetPlatform(), this, record);
        if (!pane) continue;
        if (auto* const files = dynamic_cast<CFeaturePane*>(pane.get());
            files && list && list->IsValidIndex(cursor.editFileIndex)) {
            user::Select(files->GetCombo(), cursor.editFileIndex);
            list->SetEditCursor(cursor.editFileIndex, cursor.editPointIndex);
        }
        panes.push_back(std::move(pane));
    }
}

CFileListBase* Job::ListOf(KIND kind) {
    return kind == KIND::NONE ? nullptr : KindOf(kind).list(record);
}

CMyDockablePane* Job::PaneOf(KIND kind) const {
    if (kind == KIND::NONE) return nullptr;
    const auto found = std::find_if(panes.begin(), panes.end(),
                                    [kind](const auto& pane) { return KindOfPane(pane->GetDlgCtrlID()) == kind; });
    return found == panes.end() ? nullptr : found->get();
}

void Job::BringUpToDate(CMyDockablePane& pane) {
    CFileListBase* const list = ListOf(KindOfPane(pane.GetDlgCtrlID()));
    if (!list) return;
    const FeatureEditState cursor = list->editState;
    pane.Refresh();
    list->editState = cursor;
    ShowStructureEdit();
}

void Job::OnFeatureUpdate(KIND kind) {
    record.KeepUnsaved();
    if (const CFileListBase* const list = ListOf(kind)) {
        for (const auto& pane : panes) {
            auto* const files = dynamic_cast<CFeaturePane*>(pane.get());
            const bool isOfKind = KindOfPane(pane->GetDlgCtrlID()) == kind;
            if (files && isOfKind && files->GetCombo().GetCount() != list->GetCount()) BringUpToDate(*pane);
        }
    }
    if (observer) observer->OnFeatureUpdate(kind);
}

void Job::OnLoaded(KIND kind) {
    for (const auto& pane : panes) {
        if (KindOfPane(pane->GetDlgCtrlID()) == kind) pane->Refresh();
    }
    if (observer) observer->OnDrawingChanged();
}

void Job::SetNightMode(bool night) {
    for (const auto& pane : panes) pane->SetNightMode(night);
}

/// The pane comes to the file, and its table to the row of the point; without a point the table stays.
void Job::ShowInPane(CMyDockablePane& pane, const JobPoint& chosen) {
    if (auto* const files = dynamic_cast<CFeaturePane*>(&pane)) {
        if (files->GetCombo().GetCurSel() != chosen.file) user::Select(files->GetCombo(), chosen.file);
        if (chosen.point >= 0) files->SelectPoint(chosen.point);
    } else if (auto* const route = dynamic_cast<CPipeRoutePane*>(&pane)) {
        if (chosen.point >= 0) route->GetTable().SetSelection(chosen.point);
    } else {
        // It shows what the cursor names.
        BringUpToDate(pane);
    }
}

bool Job::SelectPoint(const JobPoint& chosen) {
    if (!HasPoint(chosen)) return false;
    const UserAct act(GetPlatform(), "Chart");
    MoveCursorTo(chosen);
    for (const auto& pane : panes) {
        if (KindOfPane(pane->GetDlgCtrlID()) == chosen.kind) ShowInPane(*pane, chosen);
    }
    ShowPlace(KindOf(chosen.kind).point(record, chosen.file, chosen.point));
    return true;
}

bool Job::HasPoint(const JobPoint& point) const {
    if (point.kind == KIND::NONE) return false;
    const JobKind& kind = KindOf(point.kind);
    if (point.file < 0 || point.file >= kind.fileCount(record)) return false;
    return point.point >= 0 && point.point < kind.pointCount(record, point.file);
}

void Job::MoveCursorTo(const JobPoint& point) {
    CFileListBase* const list = ListOf(point.kind);
    if (!list) return;
    const FeatureEditState before = list->editState;
    list->SetEditCursor(point.file, point.point);
    if (list->editState != before) list->Save();
}

bool Job::PlaceStructure(const JobPoint& which, tagXY position, double headingDegrees) {
    auto* const pane = dynamic_cast<CStructurePane*>(PaneOf(KIND::STRUCTURE));
    if (!pane || which.kind != KIND::STRUCTURE || !HasPoint(which)) return false;
    const StructureDef& before = std::as_const(record.structures)[which.file][which.point];
    const bool turns = headingDegrees != before.heading;
    const UserAct act(GetPlatform(), turns ? "Structure: Turn" : "Structure: Move");
    MoveCursorTo(which);
    BringUpToDate(*pane);
    pane->PlaceStructure(position, headingDegrees);
    return true;
}

void Job::SetStructureEdit(bool on) {
    structureEdit = on;
    if (auto* const pane = dynamic_cast<CStructurePane*>(PaneOf(KIND::STRUCTURE))) pane->SetEdit(on);
}

/// Rows that were built anew are in their everyday colours.
void Job::ShowStructureEdit() {
    if (structureEdit) SetStructureEdit(true);
}

bool Job::SelectFile(KIND kind, int file) {
    if (kind == KIND::NONE || file < 0 || file >= KindOf(kind).fileCount(record)) return false;
    const UserAct act(GetPlatform(), "Chart");
    CFileListBase* const list = ListOf(kind);
    if (list && list->editState.editFileIndex != file) {
        list->SetEditCursor(file, 0);
        list->Save();
    }
    if (CMyDockablePane* const pane = PaneOf(kind)) ShowInPane(*pane, {kind, file, -1});
    return true;
}

void Job::ShowPlace(tagXY place) {
    shownPoint = place;
    if (observer) observer->OnPointShown(place);
}

void Job::ClearShownPoint() {
    if (!shownPoint) return;
    shownPoint.reset();
    if (observer) observer->OnDrawingChanged();
}

GEODESY_FAULT Job::ChooseGeodesy(const GeodesyChoice& choice) {
    const UserAct act(GetPlatform(), "Grid of the Job");
    const GEODESY_FAULT fault = record.geodesy.Choose(choice);
    if (fault != GEODESY_FAULT::NONE) return fault;
    FollowGeodesy();
    return fault;
}

void Job::ClearGeodesy() {
    const UserAct act(GetPlatform(), "Grid of the Job");
    record.geodesy.Clear();
    FollowGeodesy();
}

/// Targets are turned by the convergence, and the plot lies where the grid puts the vessel.
void Job::FollowGeodesy() {
    record.geodesy.Save();
    targets.Follow();
    RefreshRows();
    if (observer) observer->OnGeodesyChanged();
}

LRESULT Job::OnMessage(const MSG& message) {
    if (!Answer(message)) return CWnd::OnMessage(message);
    if (acts) acts->NoteTold(message);
    return 0;
}

bool Job::Answer(const MSG& message) {
    if (message.message == UM_REDRAW_CHART || message.message == UM_REDRAW_VECTOR_DISPLAY) {
        OnRedraw(message.wParam);
    } else if (message.message == UM_RECOMPUTE_CATENARY_DATA) {
        record.KeepUnsaved();
        RefreshRows();
        clearanceStale = true;
        if (observer) observer->OnClearanceStale();
    } else if (message.message == UM_FEATURE_UPDATE) {
        OnFeatureUpdate(KindOfMessage(message));
    } else if (message.message == UM_SET_FOCUS_FEATURE) {
        if (observer) observer->OnFocusFeature(KindOfMessage(message));
    } else if (message.message == UM_UPDATE_DTM) {
        if (observer) observer->OnDrawingChanged();
    } else {
        return false;
    }
    return true;
}

void Job::OnRedraw(WPARAM point) {
    if (point != 0 && !targets.IsPlotCentre(*reinterpret_cast<const tagXY*>(point))) {
        // The pair carries the address of one point, which the next broadcast overwrites: it is taken at once.
        shownPoint = *reinterpret_cast<const tagXY*>(point);
        if (observer) observer->OnPointShown(*shownPoint);
        return;
    }
    record.KeepUnsaved();
    targets.Follow();
    RefreshRows();
    DropPointOfRemovedFile();
    for (const JobKind& kind : JobKinds()) {
        if (CFileListBase* const list = kind.list(record)) list->changed = false;
    }
    if (observer) observer->OnDrawingChanged();
}

/// What one pane has stored may stand in the rows of another: of the same list, or of a feature that shares its
/// settings.
void Job::RefreshRows() {
    for (const auto& pane : panes) pane->RefreshRows();
    ShowStructureEdit();
}

void Job::DropPointOfRemovedFile() {
    const int files = CountFiles();
    if (files < countedFiles) shownPoint.reset();
    countedFiles = files;
}

int Job::CountFiles() {
    int files = 0;
    for (const JobKind& kind : JobKinds()) files += kind.fileCount(record);
    return files;
}

// ---- Undo and redo ----

bool Job::Undo() {
    const std::vector<std::string> shown = ShownPaths();
    return acts && Follow(acts->Undo(), shown);
}

bool Job::Redo() {
    const std::vector<std::string> shown = ShownPaths();
    return acts && Follow(acts->Redo(), shown);
}

void Job::GoToAct(std::size_t done) {
    while (acts && acts->Done().size() > done && Undo()) continue;
    while (acts && acts->Done().size() < done && Redo()) continue;
}

/// The path that each pane's combo is at, in the order of the panes; empty for a pane without one.
std::vector<std::string> Job::ShownPaths() {
    std::vector<std::string> paths;
    for (const auto& pane : panes) {
        auto* const files = dynamic_cast<CFeaturePane*>(pane.get());
        const CFileListBase* const list = ListOf(KindOfPane(pane->GetDlgCtrlID()));
        const int shown = files ? files->GetCombo().GetCurSel() : -1;
        paths.push_back(list && list->IsValidIndex(shown) ? list->GetPath(shown) : std::string());
    }
    return paths;
}

/// Shows what an undo or redo has put back: the panes first, then the messages of the act itself.
bool Job::Follow(const ActOutcome& outcome, const std::vector<std::string>& shownBefore) {
    if (!outcome.refusal.empty()) GetPlatform().WarningMessage(outcome.refusal);
    if (!outcome.done) return false;
    for (std::size_t i = 0; i < panes.size(); ++i) {
        CMyDockablePane& pane = *panes[i];
        const KIND kind = KindOfPane(pane.GetDlgCtrlID());
        if (auto* const files = dynamic_cast<CFeaturePane*>(&pane)) {
            ShowRenewed(outcome, *files, shownBefore[i]);
        } else if (ListOf(kind)) {
            BringUpToDate(pane);
        } else if (kind != KIND::NONE) {
            pane.Refresh();
        }
    }
    if (outcome.renewed.geodesy && observer) observer->OnGeodesyChanged();
    if (outcome.renewed.targets || outcome.renewed.geodesy) {
        targets.ShowRestored();
        for (const auto& pane : panes) pane->RefreshRows();
    }
    loads.Start();
    for (const MSG& message : outcome.told) PostMessage(message.message, message.wParam, message.lParam);
    if (observer && outcome.told.empty()) observer->OnDrawingChanged();
    if (observer) observer->OnActsChanged();
    return true;
}

/// The pane goes to what came or changed, so that the operator sees what was undone; else it stays on its file as long
/// as that is there.
void Job::ShowRenewed(const ActOutcome& outcome, CFeaturePane& pane, const std::string& shownBefore) {
    const KIND kind = KindOfPane(pane.GetDlgCtrlID());
    CFileListBase& list = *ListOf(kind);
    const FeatureEditState cursor = list.editState;
    int wanted = list.Find(shownBefore);
    if (wanted < 0) wanted = cursor.editFileIndex;
    for (const RenewedFile& renewed : outcome.renewed.files) {
        if (renewed.kind == kind) wanted = renewed.file;
    }
    CComboBox& combo = pane.GetCombo();
    const bool staysOnFile = list.IsValidIndex(wanted) && list.GetPath(wanted) == shownBefore;
    if (staysOnFile && combo.GetCount() == list.GetCount() && combo.GetCurSel() == wanted) {
        const int row = pane.GetTable().GetSelection();
        pane.RefreshRows();
        pane.CreateTable();
        pane.GetTable().SetSelection(row);
    } else {
        pane.SetupComboBox();
        if (list.IsValidIndex(wanted)) combo.SetCurSel(wanted);
        pane.OnCombo();
    }
    list.editState = cursor;
}

}  // namespace quillon
