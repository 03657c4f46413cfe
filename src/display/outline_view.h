#pragma once

#include <array>
#include <span>
#include <string_view>

#include "background/dxf.h"
#include "drawing/my_dc.h"
#include "foundation/config_file.h"
#include "foundation/values.h"
#include "platform/view.h"
#include "target/outline.h"

namespace quillon {

/// The sense in which an arc is walked: from its first angle to its second with rising bearing, or the other way round.
enum class CLOCK_DIRECTION { CLOCKWISE = 1, ANTICLOCKWISE = -1 };

/// A view that draws to scale on the grid: a drawing, a ruled grid, outlines, arcs, polygons and symbols. It holds the
/// one step between metres and pixels, and tells its parent of clicks in metres. It draws nothing by itself: a derived
/// view decides what, and calls ComputeScaling before anything else of a paint.
///
/// Angles are bearings: radians clockwise from north.
class COutlineView : public CView {
public:
    /// The pens of a drawing: 8 primary ones, then those of the whole palette.
    using DxfPens = std::array<CPen, 264>;

    COutlineView(CWnd& parent, UINT id);

    void SetNightMode(bool night);
    bool GetNightMode() const { return nightMode; }

    /// Fits the extents, rounded out to whole steps of the grid, into the rectangle. Extents without a size, or a
    /// rectangle without one, leave the view without a scale: then nothing is drawn.
    void ComputeScaling(const tagRECT& rect, double minEasting, double minNorthing, double maxEasting,
                        double maxNorthing);
    bool HasScale() const { return metresPerPixel > 0.0; }
    tagPOINT CoordToPixel(double easting, double northing) const;
    tagXY PixelToCoord(long x, long y) const;
    double GetMetresPerPixel() const { return metresPerPixel; }
    double GetGridStep() const { return gridStep; }

    void DrawGrid(CDC& dc) const;
    /// The outline's steps from its reference point at 0, 0; `selected` draws them in the colour of selections.
    void DrawOutline(CDC& dc, const COutline& outline, bool selected) const;
    void DrawDxf(CMyDC& dc, const CDxf* dxf) const;
    void DrawEntity(CDC& dc, const CDxf& dxf, const CDxfEntity& entity, const DxfPens& pens) const;
    void DrawLine(CDC& dc, double easting1, double northing1, double easting2, double northing2) const;
    /// A chord is never more than a pixel away from the arc.
    void DrawArc(CDC& dc, double centreEasting, double centreNorthing, double radius, double angle1, double angle2,
                 CLOCK_DIRECTION direction) const;
    void DrawPolygon(CDC& dc, std::span<const tagXY> points, const tagPen& pen) const;
    void DrawVectorSymbol(CMyDC& dc, const tagXYZ& position, std::string_view text, const SymbolDef& symbol,
                          LABEL_POSITION labelPosition) const;

    /// Posts UM_CLICK_ON_VESSEL_OUTLINE to the parent with the address of the position clicked, which holds until the
    /// next click.
    void OnLButtonDown(tagPOINT pixel) override;

protected:
    COLORREF GetBackground() const { return background; }

private:
    /// The colour, or its complement where it would not be seen.
    COLORREF OnGround(COLORREF colour) const;
    DxfPens MakePens() const;
    tagPOINT PixelAt(const tagXY& centre, double radius, double bearing) const;
    void DrawPlacedPolyline(CDC& dc, const CDxf& dxf, const CDxfPolyline& line) const;

    bool nightMode = false;
    COLORREF background = 0;
    CPen gridPen;
    COLORREF gridColour = 0;
    tagRECT clientRect;
    int centrePixelX = 0;
    int centrePixelY = 0;
    double gridStep = 0.0;  ///< metres
    double centreEasting = 0.0;
    double centreNorthing = 0.0;
    double metresPerPixel = 0.0;
    tagXY clickPosition;
};

/// A point of a drawing where the drawing is placed: scaled, turned and moved.
tagXY PlacePoint(const CDxf& dxf, double x, double y);

}  // namespace quillon
