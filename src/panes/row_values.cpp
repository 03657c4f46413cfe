#include "panes/row_values.h"

namespace quillon {

void ColourRow(const CMFCPropertyGridCtrl& list, UINT id, COLORREF colour) {
    if (auto* const picker = dynamic_cast<CPickerProperty*>(list.FindItemByData(id))) picker->SetColour(colour);
}

int ChosenOption(const CMFCPropertyGridProperty& row) {
    const std::string& chosen = row.Get<std::string>();
    for (int i = 0; i < row.GetOptionCount(); ++i) {
        if (row.GetOption(i) == chosen) return i;
    }
    return -1;
}

}  // namespace quillon
