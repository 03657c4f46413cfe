#pragma once

#include "scene/chart_geometry.h"

namespace quillon {

/// What part of the grid the chart shows: a centre, a scale that is the same on both axes, a size in pixels. North is
/// up. Always fit to draw with: the scale stays between a tenth of a millimetre and 100 km a pixel, the centre is a
/// place, and the size is at least one pixel.
class ChartView {
public:
    tagXY Centre() const { return centre; }
    double MetresPerPixel() const { return metresPerPixel; }
    int Width() const { return width; }
    int Height() const { return height; }

    void SetSize(int pixelsWide, int pixelsHigh);
    void SetCentre(tagXY point);
    void SetScale(double metresForPixel);

    PixelPoint ToPixel(tagXY point) const {
        return {(point.x - centre.x) / metresPerPixel + 0.5 * width,
                0.5 * height - (point.y - centre.y) / metresPerPixel};
    }
    tagXY ToWorld(PixelPoint pixel) const {
        return {centre.x + (pixel.x - 0.5 * width) * metresPerPixel,
                centre.y + (0.5 * height - pixel.y) * metresPerPixel};
    }
    /// The part of the grid in view, with so many pixels more on every side.
    ChartBox WorldBox(double margin = 0.0) const;
    ChartBox PixelBox(double margin = 0.0) const { return {-margin, -margin, width + margin, height + margin}; }

    /// Moves what is drawn by so many pixels.
    void Pan(double dx, double dy);
    /// Shows `factor` times as much detail; what lies at the pixel stays there.
    void Zoom(double factor, PixelPoint at);
    /// Brings a box of the grid into view with some room round it. A box without extent is shown at a scale that fits a
    /// single point; an empty one changes nothing.
    void ZoomTo(const ChartBox& box);
    /// Brings what lies in a box of pixels into view.
    void ZoomToPixels(PixelPoint a, PixelPoint b);

private:
    tagXY centre;
    double metresPerPixel = 10.0;
    int width = 1;
    int height = 1;
};

}  // namespace quillon
