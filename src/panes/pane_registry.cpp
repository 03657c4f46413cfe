#include "panes/pane_registry.h"

#include <array>

#include "panes/boundary_pane.h"
#include "panes/pipe_route_pane.h"
#include "panes/pipeline_pane.h"
#include "panes/route_pane.h"
#include "panes/sail_line_pane.h"
#include "panes/waypoint_pane.h"

namespace quillon {
namespace {

template <class Pane, auto List>
std::unique_ptr<CMyDockablePane> CreateOver(Platform& platform, CWnd* parent, JobFeatures& job) {
    auto pane = std::make_unique<Pane>(platform);
    if (!pane->Create(parent, Pane::kTitleId, job.*List)) return nullptr;
    return pane;
}

template <bool Catenary>
std::unique_ptr<CMyDockablePane> CreateWaypointPane(Platform& platform, CWnd* parent, JobFeatures& job) {
    auto pane = std::make_unique<CGridWaypointPane>(platform);
    const UINT id = Catenary ? CGridWaypointPane::kCatenaryId : CGridWaypointPane::kPlainId;
    const std::string_view title = Catenary ? CGridWaypointPane::kCatenaryTitle : CGridWaypointPane::kPlainTitle;
    if (!pane->Create(parent, id, title, job.waypoints, Catenary)) return nullptr;
    return pane;
}

std::unique_ptr<CMyDockablePane> CreatePipelinePane(Platform& platform, CWnd* parent, JobFeatures& job) {
    auto pane = std::make_unique<CPipelinePane>(platform);
    if (!pane->Create(parent, CPipelinePane::kTitleId, job.pipelines, true)) return nullptr;
    return pane;
}

// clang-format off
constexpr std::array<PaneEntry, 7> kPanes = {{
    {CBoundaryPane::kTitleId,        CBoundaryPane::kTitle,             CreateOver<CBoundaryPane, &JobFeatures::boundaries>},
    {CGridWaypointPane::kPlainId,    CGridWaypointPane::kPlainTitle,    CreateWaypointPane<false>},
    {CGridWaypointPane::kCatenaryId, CGridWaypointPane::kCatenaryTitle, CreateWaypointPane<true>},
    {CRoutePane::kTitleId,           CRoutePane::kTitle,                CreateOver<CRoutePane, &JobFeatures::routes>},
    {CSailLinePane::kTitleId,        CSailLinePane::kTitle,             CreateOver<CSailLinePane, &JobFeatures::sailLines>},
    {CPipelinePane::kTitleId,        CPipelinePane::kTitle,             CreatePipelinePane},
    {CPipeRoutePane::kTitleId,       CPipeRoutePane::kTitle,            CreateOver<CPipeRoutePane, &JobFeatures::pipeRoute>},
}};
// clang-format on

}  // namespace

std::span<const PaneEntry> PaneRegistry() {
    return kPanes;
}

}  // namespace quillon
