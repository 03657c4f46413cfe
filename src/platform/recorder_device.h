#pragma once

#include <string>
#include <vector>

#include "platform/dc.h"

namespace quillon {

/// Keeps what was drawn as text, one call a line, for tests to read back:
///
///     line 0,0 10,5 pen 2 #FF0000
///     polygon 0,0 4,0 4,4 pen 1 #000000 brush hatch 4 #0000FF
///     text 10,20 "Wreck" Tahoma -11 #000000
///
/// A pen's style is named where it isn't solid. Letters are all as wide as half the font's height, rounded up.
class RecorderDevice : public CDrawDevice {
public:
    const std::vector<std::string>& Calls() const { return calls; }
    /// All calls, each ended by a line feed; the record then is empty.
    std::string Take();

    void Polyline(const CPen& pen, std::span<const tagPOINT> points) override;
    void Polygon(const CPen& pen, const CBrush& brush, int fillMode, std::span<const tagPOINT> points) override;
    void Ellipse(const CPen& pen, const CBrush& brush, const tagRECT& box) override;
    void Rectangle(const CPen& pen, const CBrush& brush, const tagRECT& box) override;
    void FillRect(const CBrush& brush, const tagRECT& box) override;
    void SetPixel(int x, int y, COLORREF colour) override;
    void Text(const CFont& font, COLORREF colour, std::optional<COLORREF> ground, int x, int y,
              std::string_view text) override;
    tagSIZE TextSize(const CFont& font, std::string_view text) const override;
    void SetClip(const tagRECT* box) override;

private:
    std::vector<std::string> calls;
};

}  // namespace quillon
