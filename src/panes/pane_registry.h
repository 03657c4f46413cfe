#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "features/job_features.h"
#include "frame/my_dockable_pane.h"

namespace quillon {

/// One kind of pane, as a host creates it.
struct PaneEntry {
    UINT id;
    std::string_view title;
    /// A created pane over the job's list. Null if it can't be created.
    std::unique_ptr<CMyDockablePane> (*create)(Platform& platform, CWnd* parent, JobFeatures& job);
};

/// Every pane there is, in the order of the menu.
std::span<const PaneEntry> PaneRegistry();

}  // namespace quillon
