#include "panes/pane_registry.h"

#include <algorithm>
#include <array>

#include "panes/boundary_pane.h"
#include "panes/dig_pane.h"
#include "panes/dtm_pane.h"
#include "panes/dxf_pane.h"
#include "panes/listing_pane.h"
#include "panes/pipe_route_pane.h"
#include "panes/pipeline_pane.h"
#include "panes/route_pane.h"
#include "panes/rpl_pane.h"
#include "panes/sail_line_pane.h"
#include "panes/shape_pane.h"
#include "panes/structure_pane.h"
#include "panes/target_pane.h"
#include "panes/target_plot_pane.h"
#include "panes/target_plot_window.h"
#include "panes/waypoint_pane.h"

namespace quillon {
namespace {

template <class Pane, auto List>
std::unique_ptr<CMyDockablePane> CreateOver(Platform& platform, CWnd* parent, JobRecord& job) {
    auto pane = std::make_unique<Pane>(platform);
    if (!pane->Create(parent, Pane::kTitleId, job.*List)) return nullptr;
    return pane;
}

template <class Pane, auto List, auto Mutex>
std::unique_ptr<CMyDockablePane> CreateGuarded(Platform& platform, CWnd* parent, JobRecord& job) {
    auto pane = std::make_unique<Pane>(platform);
    if (!pane->Create(parent, Pane::kTitleId, job.*List, job.*Mutex)) return nullptr;
    return pane;
}

template <bool Catenary>
std::unique_ptr<CMyDockablePane> CreateWaypointPane(Platform& platform, CWnd* parent, JobRecord& job) {
    auto pane = std::make_unique<CGridWaypointPane>(platform);
    const UINT id = Catenary ? CGridWaypointPane::kCatenaryId : CGridWaypointPane::kPlainId;
    const std::string_view title = Catenary ? CGridWaypointPane::kCatenaryTitle : CGridWaypointPane::kPlainTitle;
    if (!pane->Create(parent, id, title, job.waypoints, Catenary)) return nullptr;
    return pane;
}

std::unique_ptr<CMyDockablePane> CreatePipelinePane(Platform& platform, CWnd* parent, JobRecord& job) {
    auto pane = std::make_unique<CPipelinePane>(platform);
    if (!pane->Create(parent, CPipelinePane::kTitleId, job.pipelines, true)) return nullptr;
    return pane;
}

std::unique_ptr<CMyDockablePane> CreateListingPane(Platform& platform, CWnd* parent, JobRecord& job) {
    auto pane = std::make_unique<CListingPane>(platform);
    if (!pane->Create(parent, CListingPane::kTitleId, job)) return nullptr;
    return pane;
}

template <UINT Id, auto List>
std::unique_ptr<CMyDockablePane> CreateTargetPane(Platform& platform, CWnd* parent, JobRecord& job) {
    auto pane = std::make_unique<CTargetPane>(platform);
    if (!pane->Create(parent, Id, (job.*List).GetCurrent())) return nullptr;
    return pane;
}

std::unique_ptr<CMyDockablePane> CreateTargetPlotPane(Platform& platform, CWnd* parent, JobRecord& job) {
    auto pane = std::make_unique<CTargetPlotPane>(platform);
    if (!pane->Create(parent, CTargetPlotPane::kTitleId, &job.targetPlot, &job.plotFollowsVessel)) return nullptr;
    return pane;
}

std::unique_ptr<CMyDockablePane> CreateTargetPlotWindow(Platform& platform, CWnd* parent, JobRecord& job) {
    auto window = std::make_unique<CTargetPlotWindow>(platform);
    if (!window->Create(parent, CTargetPlotWindow::kTitleId, job.targetPlot)) return nullptr;
    return window;
}

// clang-format off
constexpr std::array<PaneEntry, 18> kPanes = {{
    {KIND::BOUNDARY,   CBoundaryPane::kTitleId,        CBoundaryPane::kTitle,             CreateOver<CBoundaryPane, &JobRecord::boundaries>},
    {KIND::WAYPOINT,   CGridWaypointPane::kPlainId,    CGridWaypointPane::kPlainTitle,    CreateWaypointPane<false>},
    {KIND::WAYPOINT,   CGridWaypointPane::kCatenaryId, CGridWaypointPane::kCatenaryTitle, CreateWaypointPane<true>},
    {KIND::ROUTE,      CRoutePane::kTitleId,           CRoutePane::kTitle,                CreateOver<CRoutePane, &JobRecord::routes>},
    {KIND::SAIL_LINE,  CSailLinePane::kTitleId,        CSailLinePane::kTitle,             CreateOver<CSailLinePane, &JobRecord::sailLines>},
    {KIND::PIPELINE,   CPipelinePane::kTitleId,        CPipelinePane::kTitle,             CreatePipelinePane},
    {KIND::PIPE_ROUTE, CPipeRoutePane::kTitleId,       CPipeRoutePane::kTitle,            CreateOver<CPipeRoutePane, &JobRecord::pipeRoute>},
    {KIND::RPL,        CRPLPane::kTitleId,             CRPLPane::kTitle,                  CreateOver<CRPLPane, &JobRecord::rpls>},
    {KIND::STRUCTURE,  CStructurePane::kTitleId,       CStructurePane::kTitle,            CreateOver<CStructurePane, &JobRecord::structures>},
    {KIND::DTM,        CDtmPane::kTitleId,             CDtmPane::kTitle,                  CreateOver<CDtmPane, &JobRecord::dtm>},
    {KIND::SHAPE,      CShapePane::kTitleId,           CShapePane::kTitle,                CreateOver<CShapePane, &JobRecord::shapes>},
    {KIND::DIG,        CDigPane::kTitleId,             CDigPane::kTitle,                  CreateGuarded<CDigPane, &JobRecord::digs, &JobRecord::digMutex>},
    {KIND::DXF,        CDxfPane::kTitleId,             CDxfPane::kTitle,                  CreateGuarded<CDxfPane, &JobRecord::drawings, &JobRecord::dxfMutex>},
    {KIND::NONE,       CListingPane::kTitleId,         CListingPane::kTitle,              CreateListingPane},
    {KIND::NONE,       CTargetPane::kVesselId,         CTargetPane::kVesselTitle,         CreateTargetPane<CTargetPane::kVesselId, &JobRecord::vessels>},
    {KIND::NONE,       CTargetPane::kTemplateId,       CTargetPane::kTemplateTitle,       CreateTargetPane<CTargetPane::kTemplateId, &JobRecord::templates>},
    {KIND::NONE,       CTargetPlotPane::kTitleId,      CTargetPlotPane::kTitle,           CreateTargetPlotPane},
    {KIND::NONE,       CTargetPlotWindow::kTitleId,    CTargetPlotWindow::kTitle,         CreateTargetPlotWindow},
}};
// clang-format on
static_assert(HasEveryKind(kPanes), "every kind has a pane");

}  // namespace

std::span<const PaneEntry> PaneRegistry() {
    return kPanes;
}

KIND KindOfPane(UINT paneId) {
    const auto found =
        std::find_if(kPanes.begin(), kPanes.end(), [paneId](const PaneEntry& p) { return p.id == paneId; });
    return found == kPanes.end() ? KIND::NONE : found->kind;
}

}  // namespace quillon
