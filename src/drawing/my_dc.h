#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "platform/dc.h"
#include "platform/display_options.h"

namespace quillon {

/// How a point is drawn.
struct SymbolDef {
    std::int16_t symbol = 0;  ///< VECTOR_SYMBOL
    SYMBOL_SIZE size = 0;
    COLORREF colour = 0;
    friend bool operator==(const SymbolDef&, const SymbolDef&) = default;
};

/// Pixels across a symbol of a size.
constexpr int SymbolPixels(SYMBOL_SIZE size) {
    return size * 4 + 4;
}
/// How far from its point a label stands so as to clear a symbol of so many pixels.
constexpr int LabelGap(int symbolPixels) {
    return symbolPixels / 2 + 5;
}

/// The brush of one area.
struct CMyBrush : CBrush {};

/// The drawing context of charts and views, with the tools that they share ready made: the symbols of point features,
/// and the framed labels beside them. Made for one paint, without a device; whoever paints attaches one.
class CMyDC : public CDC {
public:
    CMyDC();
    explicit CMyDC(CDrawDevice* target);

    CFont largeFont{"Tahoma", 36, FW_BOLD, 0};
    CFont smallFont{"Verdana", 16, FW_BOLD, 0};
    /// Draws in black and leaves the ground of labels out: for paper.
    bool blackOnly = false;
    /// What is drawn on. A symbol of this colour is drawn in the complement.
    COLORREF background = 0;
    CBrush nullBrush = CBrush::Null();
    CBrush blackBrush{kFillSolid, 0x000000};
    CBrush whiteBrush{kFillSolid, 0xFFFFFF};
    CBrush redBrush{kFillSolid, 0x0000FF};
    CBrush yellowBrush{kFillSolid, 0x00FFFF};
    /// The ground of labels. With `labelInk`, the colour of their frame and letters, a host makes them fit for the
    /// night.
    CBrush labelBrush{kFillSolid, 0xE7FFFF};
    COLORREF labelInk = 0x000000;
    /// Pixels added either side of the text of a label that stands left or right of its point. With 0 the box is 2
    /// pixels narrower than the text.
    int labelAir = 0;
    CPen blackPen{PS_SOLID, 1, 0x000000};
    CPen whitePen{PS_SOLID, 1, 0xFFFFFF};
    CPen redPen{PS_SOLID, 1, 0x0000FF};
    CPen greyPen{PS_SOLID, 2, 0x555555};
    /// Of whole degrees, 0 to 360.
    std::array<double, 361> sinTable;
    std::array<double, 361> cosTable;

    /// A symbol, 1 to 25, of `size` pixels round a pixel. Any other number draws nothing. Symbols of two parts take
    /// `second` for the lesser one.
    void DrawVectorSymbol(int symbol, COLORREF first, COLORREF second, int size, int x, int y);

    /// A framed text `gap` pixels from a pixel, on the side that `position` names; 0 draws nothing.
    void DrawLabel(std::string_view text, int gap, LABEL_POSITION position, int x, int y);
    /// The pixels that DrawLabel would cover, frame included. Empty for position 0.
    tagRECT LabelBox(std::string_view text, int gap, LABEL_POSITION position, int x, int y);

private:
    CFont LabelFont() const;
    tagRECT InnerLabelBox(std::string_view labelText, int gap, LABEL_POSITION position, int x, int y);
};

}  // namespace quillon
