#pragma once

#include "platform/controls.h"

namespace quillon {

/// The colours of the palette by name, each with a swatch: 16 pixels square, framed in black. Swatches are painted with
/// white as the mask, so that of pure white is the list's own ground inside its frame.
class CColourPickerComboBoxEx : public CComboBoxEx {
public:
    static constexpr int kSwatch = 16;

    CColourPickerComboBoxEx(CWnd& owner, UINT id);

    /// 0 where none is chosen.
    COLORREF GetColour() const;
    /// Chooses the colour of the palette, or the first where the palette lacks it.
    void SetColour(COLORREF colour);
};

}  // namespace quillon
