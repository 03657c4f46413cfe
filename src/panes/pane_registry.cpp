#include "panes/pane_registry.h"

#include <array>

#include "panes/boundary_pane.h"

namespace quillon {
namespace {

template <class Pane, auto List>
std::unique_ptr<CPropertyPane> CreateOver(Platform& platform, CWnd* parent, JobFeatures& job) {
    auto pane = std::make_unique<Pane>(platform);
    if (!pane->Create(parent, Pane::kTitleId, job.*List)) return nullptr;
    return pane;
}

constexpr std::array<PaneEntry, 1> kPanes = {{
    {CBoundaryPane::kTitleId, CBoundaryPane::kTitle, CreateOver<CBoundaryPane, &JobFeatures::boundaries>},
}};

}  // namespace

std::span<const PaneEntry> PaneRegistry() {
    return kPanes;
}

}  // namespace quillon
