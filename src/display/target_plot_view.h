#pragma once

#include <string>
#include <vector>

#include "drawing/my_dc.h"
#include "foundation/values.h"
#include "frame/night_control.h"
#include "platform/view.h"
#include "target/target_plot.h"

namespace quillon {

/// Something that the target plot shows round its centre.
struct PlotMark {
    tagXY position;  ///< longitude and latitude, radians
    std::string name;
    COLORREF colour = 0;
    friend bool operator==(const PlotMark&, const PlotMark&) = default;
};

/// The target plot: range rings about its centre with their radii, the cardinal points, the zone lines, and what lies
/// within the rings. The outermost ring fills the view; north is up, or the bearing of the plot's orientation is.
///
/// The ground is black; by night everything on it is dimmed, as far as it can still be read.
class CTargetPlotView : public CView, public NightControl {
public:
    using CView::CView;

    /// Lent; null for nothing to draw.
    void SetPlot(const CTargetPlot* targetPlot);
    void SetMarks(std::vector<PlotMark> newMarks);
    void SetNightMode(bool on) override;

    void Paint(CDrawDevice& device) override;

private:
    struct Scale {
        tagPOINT centre;
        int radius = 0;       ///< of the outermost ring, pixels
        double metres = 0.0;  ///< the same on the ground
        double turn = 0.0;    ///< the bearing that is up, radians
    };
    Scale MakeScale(CDC& dc) const;
    /// Where a bearing (radians) leaves a circle of so many pixels about the centre.
    static tagPOINT PixelAt(const Scale& scale, double bearing, double pixels);
    COLORREF LineColour(COLORREF colour) const;
    COLORREF TextColour(COLORREF colour) const;

    void DrawRings(CDC& dc, const Scale& scale) const;
    void DrawRingLabels(CDC& dc, const Scale& scale) const;
    void DrawCardinals(CDC& dc, const Scale& scale) const;
    void DrawZones(CDC& dc, const Scale& scale) const;
    void DrawMarks(CDC& dc, const Scale& scale) const;

    const CTargetPlot* plot = nullptr;
    std::vector<PlotMark> marks;
    bool night = false;
};

}  // namespace quillon
