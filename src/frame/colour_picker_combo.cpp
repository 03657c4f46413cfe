#include "frame/colour_picker_combo.h"

#include <algorithm>

namespace quillon {
namespace {

constexpr COLORREF kWhite = RGB(255, 255, 255);

std::vector<COLORREF> Swatch(COLORREF colour) {
    constexpr int kLast = CColourPickerComboBoxEx::kSwatch - 1;
    std::vector<COLORREF> pixels;
    for (int y = 0; y <= kLast; ++y) {
        for (int x = 0; x <= kLast; ++x) {
            const bool frame = x == 0 || y == 0 || x == kLast || y == kLast;
            pixels.push_back(frame ? RGB(0, 0, 0) : colour);
        }
    }
    return pixels;
}

const CImageList& Swatches() {
    static const CImageList swatches = [] {
        CImageList made({CColourPickerComboBoxEx::kSwatch, CColourPickerComboBoxEx::kSwatch}, kWhite);
        for (const PaletteColour& entry : kPalette) made.Add(Swatch(entry.colour));
        return made;
    }();
    return swatches;
}

}  // namespace

CColourPickerComboBoxEx::CColourPickerComboBoxEx(CWnd& comboOwner, UINT comboId) : CComboBoxEx(comboOwner, comboId) {
    for (const PaletteColour& entry : kPalette) AddString(entry.name);
    SetImageList(&Swatches());
}

COLORREF CColourPickerComboBoxEx::GetColour() const {
    const int index = GetCurSel();
    return index < 0 || index >= kPaletteCount ? 0 : kPalette[static_cast<std::size_t>(index)].colour;
}

void CColourPickerComboBoxEx::SetColour(COLORREF colour) {
    SetCurSel(std::max(0, PaletteIndex(colour)));
}

}  // namespace quillon
