#include "platform/dockable_pane.h"

namespace quillon {

CDockablePane::~CDockablePane() {
    if (observer) observer->OnPaneGone(*this);
}

bool CDockablePane::Create(std::string_view paneTitle, tagSIZE size, UINT paneId) {
    if (created) return false;
    title = paneTitle;
    client = size;
    id = paneId;
    created = true;
    return true;
}

void CDockablePane::ShowPane(bool show) {
    if (visible == show) return;
    visible = show;
    if (observer) observer->OnPaneChanged(*this);
}

void CDockablePane::Resize(tagSIZE size) {
    client = size;
    OnSize(size);
}

void CDockablePane::OnSize(tagSIZE) {}

void CDockablePane::SetFocusTo(CControl& control) {
    if (observer) observer->OnPaneFocus(*this, control);
}

}  // namespace quillon
