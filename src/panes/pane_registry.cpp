#include "panes/pane_registry.h"

#include <array>

#include "panes/boundary_pane.h"
#include "panes/pipe_route_pane.h"
#include "panes/route_pane.h"
#include "panes/sail_line_pane.h"

namespace quillon {
namespace {

template <class Pane, auto List>
std::unique_ptr<CPropertyPane> CreateOver(Platform& platform, CWnd* parent, JobFeatures& job) {
    auto pane = std::make_unique<Pane>(platform);
    if (!pane->Create(parent, Pane::kTitleId, job.*List)) return nullptr;
    return pane;
}

// clang-format off
constexpr std::array<PaneEntry, 4> kPanes = {{
    {CBoundaryPane::kTitleId,        CBoundaryPane::kTitle,             CreateOver<CBoundaryPane, &JobFeatures::boundaries>},
    {CRoutePane::kTitleId,           CRoutePane::kTitle,                CreateOver<CRoutePane, &JobFeatures::routes>},
    {CSailLinePane::kTitleId,        CSailLinePane::kTitle,             CreateOver<CSailLinePane, &JobFeatures::sailLines>},
    {CPipeRoutePane::kTitleId,       CPipeRoutePane::kTitle,            CreateOver<CPipeRoutePane, &JobFeatures::pipeRoute>},
}};
// clang-format on

}  // namespace

std::span<const PaneEntry> PaneRegistry() {
    return kPanes;
}

}  // namespace quillon
