#include "platform/dockable_pane.h"

namespace quillon {

bool CDockablePane::Create(std::string_view title, tagSIZE size, UINT paneId) {
    if (created) return false;
    Prepare(title, size);
    id = paneId;
    created = true;
    return true;
}

}  // namespace quillon
