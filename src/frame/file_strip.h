#pragma once

#include <string>
#include <vector>

#include "frame/colour_button.h"
#include "frame/my_dockable_pane.h"
#include "platform/control_window.h"

namespace quillon {

/// The top of a pane over files: a button that adds a file, one that removes it, and below them the combo that says
/// which file the pane shows.
class CFileStrip {
public:
    struct Ids {
        UINT combo;
        UINT add;
        UINT remove;
    };

    /// Adds its controls to the pane.
    CFileStrip(CControlWindow& pane, const Ids& ids);

    /// Places the strip in a width; its lower edge.
    int LayOut(int width);
    /// Fills the combo anew; nothing is selected then.
    void SetNames(const std::vector<std::string>& names);

    FileControls Controls() { return {&add, &remove, &combo}; }
    CComboBox& GetCombo() { return combo; }
    const CComboBox& GetCombo() const { return combo; }
    CColourButton& GetAddButton() { return add; }
    CColourButton& GetRemoveButton() { return remove; }

private:
    CControlWindow& pane;
    CColourButton add;
    CColourButton remove;
    CComboBox combo;
};

}  // namespace quillon
