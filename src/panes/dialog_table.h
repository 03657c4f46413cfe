#pragma once

#include <functional>

#include "frame/colour_schemes.h"
#include "platform/controls.h"

namespace quillon {

/// A table of a dialog, in the colours of the points tables. What a click means, the dialog says.
class CDialogTable : public CListCtrl {
public:
    CDialogTable(CWnd& dialog, UINT id, bool night) : CListCtrl(dialog, id) {
        const TableColours colours = PointsTableColours(night);
        SetColours(colours.background, colours.text);
        SetHeaderColours(kTableHeaderColours.background, kTableHeaderColours.text);
    }
    void OnItemClick(int row) override {
        if (clicked) clicked(row);
    }
    std::function<void(int row)> clicked;
};

}  // namespace quillon
