#include "frame/pane_layout.h"

#include <algorithm>

namespace quillon {

int PlaceInRow(std::initializer_list<CControl*> controls, const tagRECT& row) {
    const int count = static_cast<int>(controls.size());
    int place = 0;
    for (CControl* const control : controls) {
        const int left = row.left + row.Width() * place / count;
        const int right = row.left + row.Width() * ++place / count;
        control->MoveWindow({left, row.top, right, row.bottom});
    }
    return row.bottom;
}

void PlaceBelow(CControl& list, int listHeight, CControl* rest, int top, tagSIZE client) {
    const int listBottom = rest ? top + listHeight : std::max(top, client.height);
    list.MoveWindow({0, top, client.width, listBottom});
    if (!rest) return;
    rest->ShowWindow(listBottom < client.height);
    rest->MoveWindow({0, listBottom, client.width, std::max(listBottom, client.height)});
}

}  // namespace quillon
