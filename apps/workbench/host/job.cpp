#include "host/job.h"

#include <algorithm>

#include "display/list_export.h"
#include "panes/pipe_route_pane.h"
#include "platform/platform.h"
#include "platform/user_actions.h"

namespace quillon {
namespace {

/// What a message with a FEATURE_TYPES is about; NONE for a type that no kind has.
KIND KindOfMessage(const MSG& message) {
    const JobKind* const kind = FindKind(static_cast<FEATURE_TYPES>(message.wParam));
    return kind ? kind->id : KIND::NONE;
}

}  // namespace

Job::Job(Platform& owner) : CWnd(owner), record(owner.Files()), targets(owner, record) {
    owner.SetMainWindow(this);
    owner.SetTableMenu(OpenExportMenu);
    targets.onChanged = [this] {
        RefreshRows();
        if (observer) observer->OnDrawingChanged();
    };
}

Job::~Job() {
    GetPlatform().SetTableMenu({});
    GetPlatform().SetMainWindow(nullptr);
}

void Job::Open() {
    record.Load();
    if (GetPlatform().Files().Access() == FILE_ACCESS::READ_WRITE) record.ClearLeftovers();
    OpenPanes();
    targets.SetPanes(panes);
    countedFiles = CountFiles();
    KeepFlags();
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
}

void Job::OnFeatureUpdate(KIND kind) {
    KeepFlags();
    if (const CFileListBase* const list = ListOf(kind)) {
        for (const auto& pane : panes) {
            auto* const files = dynamic_cast<CFeaturePane*>(pane.get());
            const bool isOfKind = KindOfPane(pane->GetDlgCtrlID()) == kind;
            if (files && isOfKind && files->GetCombo().GetCount() != list->GetCount()) BringUpToDate(*pane);
        }
    }
    if (observer) observer->OnFeatureUpdate(kind);
}

void Job::SetNightMode(bool night) {
    for (const auto& pane : panes) pane->SetNightMode(night);
}

/// The pane comes to the file, and its table to the row of the point; without a point the table stays.
void Job::ShowInPane(CMyDockablePane& pane, const JobPoint& chosen) {
    CFeatureListCtrl* table = nullptr;
    if (auto* const files = dynamic_cast<CFeaturePane*>(&pane)) {
        if (files->GetCombo().GetCurSel() != chosen.file) user::Select(files->GetCombo(), chosen.file);
        table = &files->GetTable();
    } else if (auto* const route = dynamic_cast<CPipeRoutePane*>(&pane)) {
        table = &route->GetTable();
    } else {
        // It shows what the cursor names.
        BringUpToDate(pane);
    }
    if (table && chosen.point >= 0) table->SetSelection(chosen.point);
}

bool Job::SelectPoint(const JobPoint& chosen) {
    if (chosen.kind == KIND::NONE) return false;
    const JobKind& kind = KindOf(chosen.kind);
    if (chosen.file < 0 || chosen.file >= kind.fileCount(record)) return false;
    if (chosen.point < 0 || chosen.point >= kind.pointCount(record, chosen.file)) return false;
    if (CFileListBase* const list = kind.list(record)) {
        const FeatureEditState before = list->editState;
        list->SetEditCursor(chosen.file, chosen.point);
        if (list->editState != before) list->Save();
    }
    for (const auto& pane : panes) {
        if (KindOfPane(pane->GetDlgCtrlID()) == chosen.kind) ShowInPane(*pane, chosen);
    }
    ShowPlace(kind.point(record, chosen.file, chosen.point));
    return true;
}

bool Job::SelectFile(KIND kind, int file) {
    if (kind == KIND::NONE || file < 0 || file >= KindOf(kind).fileCount(record)) return false;
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
    const GEODESY_FAULT fault = record.geodesy.Choose(choice);
    if (fault != GEODESY_FAULT::NONE) return fault;
    FollowGeodesy();
    return fault;
}

void Job::ClearGeodesy() {
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
    if (message.message == UM_REDRAW_CHART || message.message == UM_REDRAW_VECTOR_DISPLAY) {
        OnRedraw(message.wParam);
    } else if (message.message == UM_RECOMPUTE_CATENARY_DATA) {
        KeepFlags();
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
        return CWnd::OnMessage(message);
    }
    return 0;
}

void Job::OnRedraw(WPARAM point) {
    if (point != 0 && !targets.IsPlotCentre(*reinterpret_cast<const tagXY*>(point))) {
        // The pair carries the address of one point, which the next broadcast overwrites: it is taken at once.
        shownPoint = *reinterpret_cast<const tagXY*>(point);
        if (observer) observer->OnPointShown(*shownPoint);
        return;
    }
    KeepFlags();
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

void Job::KeepFlags() {
    FlagsByPath now;
    for (const JobKind& kind : JobKinds()) {
        for (int i = 0; i < kind.fileCount(record); ++i) {
            CFeatureCommon* const common = kind.common(record, i);
            if (!common) break;
            const FlagsByPath::key_type key(kind.id, common->GetPath());
            const Flags read{common->Status, common->Highlight};
            const auto before = flags.find(key);
            if (before != flags.end() && before->second != read) common->SaveCommon();
            now.emplace(key, read);
        }
    }
    flags = std::move(now);
}

}  // namespace quillon
