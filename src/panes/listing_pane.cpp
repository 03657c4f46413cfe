#include "panes/listing_pane.h"

#include <algorithm>
#include <array>
#include <memory>

#include "features/design_route.h"
#include "frame/pane_layout.h"
#include "job/kinds.h"
#include "platform/platform.h"

namespace quillon {
namespace {

constexpr const char* kProfileKey = "FeatureType";

/// In the order of the choice.
constexpr std::array kTypes = {FEATURE_TYPES::WAYPOINT,    FEATURE_TYPES::SAIL_LINE, FEATURE_TYPES::ROUTE,
                               FEATURE_TYPES::PIPELINE,    FEATURE_TYPES::BOUNDARY,  FEATURE_TYPES::STRUCTURE,
                               FEATURE_TYPES::DESIGN_ROUTE};

/// Of the records of a member, so that a change of them is seen.
std::uint64_t StampOf(const JobRecord& job, FEATURE_TYPES type, int file) {
    switch (type) {
        case FEATURE_TYPES::WAYPOINT:
            return job.waypoints[file].GetStamp();
        case FEATURE_TYPES::SAIL_LINE:
            return job.sailLines[file].GetStamp();
        case FEATURE_TYPES::ROUTE:
            return job.routes[file].GetStamp();
        case FEATURE_TYPES::PIPELINE:
            return job.pipelines[file].GetStamp();
        case FEATURE_TYPES::BOUNDARY:
            return job.boundaries[file].GetStamp();
        case FEATURE_TYPES::STRUCTURE:
            return job.structures[file].GetStamp();
        case FEATURE_TYPES::DESIGN_ROUTE:
            return job.rpls[file].GetStamp();
        case FEATURE_TYPES::NONE:
            break;
    }
    return 0;
}

}  // namespace

CListingPane::CListingPane(Platform& platform)
    : CMyDockablePane(platform), types(*this, TYPES), designs(platform.Files()), view(*this, VIEW) {
    for (const FEATURE_TYPES type : kTypes) types.AddString(FeatureTypeText(type));
    view.onCursorMoved = [this] { OnCursorMoved(); };
}

bool CListingPane::Create(CWnd* parent, UINT id, JobRecord& record) {
    job = &record;
    view.SetWaypointFiles(&record.waypoints);
    view.SetSailLineFiles(&record.sailLines);
    view.SetRouteFiles(&record.routes);
    view.SetPipelineFiles(&record.pipelines);
    view.SetDesignRouteFiles(&designs);
    view.SetBoundaryFiles(&record.boundaries);
    view.SetStructureFiles(&record.structures);
    if (!CreatePane(parent, id, kTitle)) return false;
    AddControl(types);
    AddControl(view);
    const int kept = GetPlatform().GetProfile().GetInt(ProfileSection(id), kProfileKey, 0);
    types.SetCurSel(std::clamp(kept, 0, types.GetCount() - 1));
    ChooseType(types.GetCurSel());
    AdjustLayout();
    return true;
}

void CListingPane::AdjustLayout() {
    const tagSIZE client = GetClientSize();
    const int top = GetPlatform().GetMetric(SYSTEM_METRIC::COMBO_HEIGHT);
    types.MoveWindow({0, 0, client.width, top});
    view.Resize({0, top, client.width, std::max(top, client.height)});
}

void CListingPane::OnCommand(UINT control) {
    if (control != TYPES) return CMyDockablePane::OnCommand(control);
    GetPlatform().GetProfile().SetInt(ProfileSection(GetDlgCtrlID()), kProfileKey, types.GetCurSel());
    ChooseType(types.GetCurSel());
}

void CListingPane::ChooseType(int index) {
    MakeDesigns();
    view.SetFeatureType(kTypes[static_cast<std::size_t>(index)]);
    listed = What();
}

CListingPane::Listed CListingPane::What() const {
    const FEATURE_TYPES type = view.GetFeatureType();
    const CFileListBase* const list = view.List();
    const int file = list ? list->editState.editFileIndex : -1;
    if (!list || !list->IsValidIndex(file)) return {{type, -1}, {}};
    return {{type, file}, {list->GetPath(file), StampOf(*job, type, file)}};
}

void CListingPane::MakeDesigns() {
    std::vector<std::pair<std::string, std::uint64_t>> now;
    for (int i = 0; i < job->rpls.GetCount(); ++i) now.emplace_back(job->rpls.GetPath(i), job->rpls[i].GetStamp());
    if (now != made) {
        while (!designs.IsEmpty()) designs.RemoveAt(0);
        for (int i = 0; i < job->rpls.GetCount(); ++i) {
            auto route = std::make_unique<CRoute>(designs.GetFiles());
            route->MakeStub(job->rpls.GetPath(i));
            static_cast<CRouteArray&>(*route) = DesignRouteOf(job->rpls[i]);
            designs.Append(std::move(route));
        }
        made = std::move(now);
    }
    // Route position lists keep no cursor of their own; the first one shows until the operator has chosen another.
    const FeatureEditState& cursor = job->rpls.editState;
    designs.ResetEditCursor();
    designs.SetEditCursor(std::max<int>(0, cursor.editFileIndex), std::max(0, cursor.editPointIndex));
}

void CListingPane::RefreshRows() {
    MakeDesigns();
    const Listed now = What();
    if (now == listed) return;
    listed = now;
    view.Update();
}

void CListingPane::OnCursorMoved() {
    const bool isDesign = view.GetFeatureType() == FEATURE_TYPES::DESIGN_ROUTE;
    const JobKind* const kind = isDesign ? &KindOf(KIND::RPL) : FindKind(view.GetFeatureType());
    if (!view.List() || !kind) return;
    if (isDesign) job->rpls.SetEditCursor(designs.editState.editFileIndex, designs.editState.editPointIndex);
    CFileListBase* const list = isDesign ? &job->rpls : view.List();
    if (!isDesign) list->Save();
    const FeatureEditState& cursor = list->editState;
    if (!list->IsValidIndex(cursor.editFileIndex) || cursor.editPointIndex < 0) return;
    // The structure pane shows the structure under the cursor.
    if (kind->id == KIND::STRUCTURE) BroadcastAll({POST::REDRAW});
    BroadcastRedraw(kind->point(*job, cursor.editFileIndex, cursor.editPointIndex));
}

}  // namespace quillon
