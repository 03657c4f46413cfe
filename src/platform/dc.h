#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "platform/display_options.h"
#include "platform/geometry.h"
#include "platform/palette.h"

namespace quillon {

// Pen styles, by the number stored in settings.
inline constexpr int PS_SOLID = 0;
inline constexpr int PS_DASH = 1;
inline constexpr int PS_DOT = 2;
inline constexpr int PS_DASHDOT = 3;
inline constexpr int PS_DASHDOTDOT = 4;
inline constexpr int PS_NULL = 5;

inline constexpr int FW_NORMAL = 400;
inline constexpr int FW_BOLD = 700;

inline constexpr int TRANSPARENT = 1;
inline constexpr int OPAQUE = 2;

/// How a polygon that crosses itself is filled.
inline constexpr int ALTERNATE = 1;
inline constexpr int WINDING = 2;

// What DrawText does with the rectangle; may be added up. Left and top where nothing else is said.
inline constexpr unsigned DT_CENTER = 0x0001;
inline constexpr unsigned DT_RIGHT = 0x0002;
inline constexpr unsigned DT_VCENTER = 0x0004;
inline constexpr unsigned DT_CALCRECT = 0x0400;

struct CPen {
    int style = PS_SOLID;
    int width = 1;  ///< pixels
    COLORREF colour = 0;
    friend bool operator==(const CPen&, const CPen&) = default;
};

/// Hatches leave the ground between their lines as it is.
struct CBrush {
    FILL_STYLE fill = kFillSolid;
    COLORREF colour = 0xFFFFFF;
    static constexpr CBrush Null() { return {kFillNone, 0}; }
    friend bool operator==(const CBrush&, const CBrush&) = default;
};

struct CFont {
    std::string face = "Tahoma";
    int height = -11;  ///< pixels: above 0 the whole line, below 0 the letters without the space above them
    int weight = FW_NORMAL;
    int escapement = 0;  ///< tenths of a degree, anticlockwise, turned about the text's top left corner
    friend bool operator==(const CFont&, const CFont&) = default;

    /// A font by tenths of a point, on a device of so many pixels an inch.
    static CFont FromPoints(int tenths, std::string_view face, int pixelsPerInch);
};

/// Where drawing ends up: a test's record, a picture, a printer. Every call is complete in itself, so a device keeps no
/// state but the clip. Pixels are whole, y grows downwards; a line runs through the middle of its pixels.
class CDrawDevice {
public:
    virtual ~CDrawDevice();

    virtual int PixelsPerInch() const { return 96; }
    virtual void Polyline(const CPen& pen, std::span<const tagPOINT> points) = 0;
    virtual void Polygon(const CPen& pen, const CBrush& brush, int fillMode, std::span<const tagPOINT> points) = 0;
    virtual void Ellipse(const CPen& pen, const CBrush& brush, const tagRECT& box) = 0;
    virtual void Rectangle(const CPen& pen, const CBrush& brush, const tagRECT& box) = 0;
    virtual void FillRect(const CBrush& brush, const tagRECT& box) = 0;
    virtual void SetPixel(int x, int y, COLORREF colour) = 0;
    /// One line of Windows-1252 text by its top left corner; with `ground`, on a box of that colour.
    virtual void Text(const CFont& font, COLORREF colour, std::optional<COLORREF> ground, int x, int y,
                      std::string_view text) = 0;
    /// Of one line, as if it were not turned.
    virtual tagSIZE TextSize(const CFont& font, std::string_view text) const = 0;
    /// Null takes the clip away.
    virtual void SetClip(const tagRECT* box) = 0;
};

/// A device context: the tools in use and the position that lines go on from, over a device. Without a device every
/// drawing call does nothing and texts have no size.
///
///     CDC dc(&device);
///     const CPen old = dc.SelectObject(CPen{PS_SOLID, 2, RGB(255, 0, 0)});
///     dc.MoveTo(0, 0);
///     dc.LineTo(10, 5);
///     dc.SelectObject(old);
class CDC {
public:
    CDC() = default;
    explicit CDC(CDrawDevice* target) : device(target) {}
    virtual ~CDC();

    void Attach(CDrawDevice* target) { device = target; }
    CDrawDevice* Detach();
    int PixelsPerInch() const { return device ? device->PixelsPerInch() : 96; }

    // Each gives back what was in use before.
    CPen SelectObject(const CPen& tool);
    CBrush SelectObject(const CBrush& tool);
    CFont SelectObject(const CFont& tool);
    COLORREF SetTextColor(COLORREF colour);
    COLORREF SetBkColor(COLORREF colour);
    int SetBkMode(int mode);
    int SetPolyFillMode(int mode);

    tagPOINT MoveTo(int x, int y);
    void LineTo(int x, int y);
    void Polyline(std::span<const tagPOINT> points);
    void Polygon(std::span<const tagPOINT> points);
    void Ellipse(int left, int top, int right, int bottom);
    void Rectangle(int left, int top, int right, int bottom);
    void FillRect(const tagRECT& box, const CBrush& fill);
    void FillSolidRect(int left, int top, int right, int bottom, COLORREF colour);
    /// A border one pixel wide inside the box.
    void FrameRect(const tagRECT& box, const CBrush& fill);
    void SetPixel(int x, int y, COLORREF colour);

    void TextOut(int x, int y, std::string_view text);
    /// Text of one or more lines in a box; returns its height. DT_CALCRECT draws nothing and sets right and bottom of
    /// the box to what the text needs. "&" has no meaning of its own.
    int DrawText(std::string_view text, tagRECT& box, unsigned format);
    tagSIZE GetTextExtent(std::string_view text) const;

    void SetClip(const tagRECT& box);
    void ClearClip();

private:
    CDrawDevice* device = nullptr;
    CPen pen;
    CBrush brush;
    CFont font;
    COLORREF textColour = 0;
    COLORREF groundColour = 0xFFFFFF;
    int groundMode = OPAQUE;
    int fillMode = ALTERNATE;
    tagPOINT position;
};

}  // namespace quillon
