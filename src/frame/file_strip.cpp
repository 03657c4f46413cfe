#include "frame/file_strip.h"

#include "frame/pane_layout.h"
#include "platform/platform.h"

namespace quillon {

CFileStrip::CFileStrip(CControlWindow& owner, const Ids& ids)
    : pane(owner),
      add(owner, ids.add, "Add File", false),
      remove(owner, ids.remove, "Remove File", false),
      combo(owner, ids.combo) {
    pane.AddControl(add);
    pane.AddControl(remove);
    pane.AddControl(combo);
}

int CFileStrip::LayOut(int width) {
    const int top = PlaceInRow({&add, &remove}, {0, 0, width, kPaneButtonHeight});
    return PlaceInRow({&combo}, {0, top, width, top + pane.GetPlatform().GetMetric(SYSTEM_METRIC::COMBO_HEIGHT)});
}

void CFileStrip::SetNames(const std::vector<std::string>& names) {
    combo.ResetContent();
    for (const std::string& name : names) combo.AddString(name);
}

}  // namespace quillon
