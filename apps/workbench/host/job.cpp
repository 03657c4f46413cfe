#include "host/job.h"

#include "platform/platform.h"
#include "platform/user_actions.h"

namespace quillon {

Job::Job(Platform& owner) : CWnd(owner), features(owner.Files()) {
    owner.SetMainWindow(this);
}

Job::~Job() {
    GetPlatform().SetMainWindow(nullptr);
}

void Job::Open() {
    features.Load();
    features.ClearLeftovers();
    OpenPanes();
    countedFiles = CountFiles();
    KeepFlags();
}

void Job::OpenPanes() {
    for (const PaneEntry& entry : PaneRegistry()) {
        // Creating a pane sets its list's cursor to the first file.
        const FeatureKind* const kind = FindFeatureKindOfPane(entry.id);
        const FeatureEditState cursor = kind ? kind->list(features).editState : FeatureEditState();
        auto pane = entry.create(GetPlatform(), this, features);
        if (!pane) continue;
        if (auto* const files = dynamic_cast<CFeaturePane*>(pane.get());
            files && kind && kind->list(features).IsValidIndex(cursor.editFileIndex)) {
            user::Select(files->GetCombo(), cursor.editFileIndex);
            kind->list(features).SetEditCursor(cursor.editFileIndex, cursor.editPointIndex);
        }
        panes.push_back(std::move(pane));
    }
}

CFeaturePane* Job::PaneOf(FEATURE_TYPES type) const {
    const FeatureKind* const kind = FindFeatureKind(type);
    for (const auto& pane : panes) {
        if (kind && pane->GetDlgCtrlID() == kind->panes.front()) return dynamic_cast<CFeaturePane*>(pane.get());
    }
    return nullptr;
}

void Job::BringUpToDate(CMyDockablePane& pane) {
    const FeatureKind* const kind = FindFeatureKindOfPane(pane.GetDlgCtrlID());
    if (!kind || kind->panes.size() < 2) return;
    const FeatureEditState cursor = kind->list(features).editState;
    pane.Refresh();
    kind->list(features).editState = cursor;
}

void Job::OnFeatureUpdate(FEATURE_TYPES type) {
    KeepFlags();
    if (const FeatureKind* const kind = FindFeatureKind(type)) {
        for (const auto& pane : panes) {
            auto* const files = dynamic_cast<CFeaturePane*>(pane.get());
            const bool isOfKind = FindFeatureKindOfPane(pane->GetDlgCtrlID()) == kind;
            if (files && isOfKind && files->GetCombo().GetCount() != kind->list(features).GetCount()) {
                BringUpToDate(*pane);
            }
        }
    }
    if (observer) observer->OnFeatureUpdate(type);
}

void Job::SetNightMode(bool night) {
    for (const auto& pane : panes) pane->SetNightMode(night);
}

bool Job::SelectPoint(const JobPoint& chosen) {
    const FeatureKind* const kind = FindFeatureKind(chosen.type);
    if (!kind) return false;
    CFileListBase& list = kind->list(features);
    if (!list.IsValidIndex(chosen.file) || chosen.point < 0 || chosen.point >= list.GetPointCount(chosen.file)) {
        return false;
    }
    const FeatureEditState before = list.editState;
    list.SetEditCursor(chosen.file, chosen.point);
    if (list.editState != before) list.Save();
    for (const auto& pane : panes) {
        auto* const files = dynamic_cast<CFeaturePane*>(pane.get());
        if (!files || FindFeatureKindOfPane(pane->GetDlgCtrlID()) != kind) continue;
        if (files->GetCombo().GetCurSel() != chosen.file) user::Select(files->GetCombo(), chosen.file);
        files->GetTable().SetSelection(chosen.point);
    }
    shownPoint = kind->point(features, chosen.file, chosen.point);
    if (observer) observer->OnPointShown(*shownPoint);
    return true;
}

void Job::ClearShownPoint() {
    if (!shownPoint) return;
    shownPoint.reset();
    if (observer) observer->OnDrawingChanged();
}

LRESULT Job::OnMessage(const MSG& message) {
    if (message.message == UM_REDRAW_CHART || message.message == UM_REDRAW_VECTOR_DISPLAY) {
        OnRedraw(message.wParam);
    } else if (message.message == UM_RECOMPUTE_CATENARY_DATA) {
        KeepFlags();
        clearanceStale = true;
        if (observer) observer->OnClearanceStale();
    } else if (message.message == UM_FEATURE_UPDATE) {
        OnFeatureUpdate(static_cast<FEATURE_TYPES>(message.wParam));
    } else if (message.message == UM_SET_FOCUS_FEATURE) {
        if (observer) observer->OnFocusFeature(static_cast<FEATURE_TYPES>(message.wParam));
    } else if (message.message == UM_UPDATE_DTM) {
        if (observer) observer->OnDrawingChanged();
    } else {
        return CWnd::OnMessage(message);
    }
    return 0;
}

void Job::OnRedraw(WPARAM point) {
    if (point != 0) {
        // The pair carries the address of one point, which the next broadcast overwrites: it is taken at once.
        shownPoint = *reinterpret_cast<const tagXY*>(point);
        if (observer) observer->OnPointShown(*shownPoint);
        return;
    }
    KeepFlags();
    DropPointOfRemovedFile();
    for (const FeatureKind& kind : FeatureKinds()) kind.list(features).changed = false;
    if (observer) observer->OnDrawingChanged();
}

void Job::DropPointOfRemovedFile() {
    const int files = CountFiles();
    if (files < countedFiles) shownPoint.reset();
    countedFiles = files;
}

int Job::CountFiles() {
    int files = 0;
    for (const FeatureKind& kind : FeatureKinds()) files += kind.list(features).GetCount();
    return files;
}

void Job::KeepFlags() {
    FlagsByPath now;
    for (const FeatureKind& kind : FeatureKinds()) {
        for (int i = 0; i < kind.list(features).GetCount(); ++i) {
            const CFeatureCommon* const common = kind.common(features, i);
            if (!common) continue;
            const FlagsByPath::key_type key(kind.type, common->GetPath());
            const Flags read{common->Status, common->Highlight};
            const auto before = flags.find(key);
            if (before != flags.end() && before->second != read) common->SaveCommon();
            now.emplace(key, read);
        }
    }
    flags = std::move(now);
}

}  // namespace quillon
