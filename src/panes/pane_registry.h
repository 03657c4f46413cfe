#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "frame/my_dockable_pane.h"
#include "job/kinds.h"

namespace quillon {

/// One kind of pane, as a host creates it.
struct PaneEntry {
    KIND kind;  ///< what the pane edits; NONE for a pane over something else
    UINT id;
    std::string_view title;
    /// A created pane over the job's list. Null if it can't be created.
    std::unique_ptr<CMyDockablePane> (*create)(Platform& platform, CWnd* parent, JobRecord& job);
};

/// Every pane there is, in the order of the menu. Of several panes of one kind the first is where it is shown.
std::span<const PaneEntry> PaneRegistry();

/// What the pane with this id edits; NONE for an id that is no pane's.
KIND KindOfPane(UINT paneId);

}  // namespace quillon
