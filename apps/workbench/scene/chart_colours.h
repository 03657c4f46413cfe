#pragma once

#include "drawing/contrast.h"
#include "platform/palette.h"

namespace quillon {

/// The chart's own colours, by day and by night.
struct ChartColours {
    COLORREF ground;
    COLORREF gridLine;
    COLORREF gridText;
    COLORREF graticule;  ///< lines of latitude and longitude
    COLORREF scaleBar;
    COLORREF labelGround;
    COLORREF labelFrame;
    COLORREF labelInk;
    COLORREF shown;        ///< the ring round the point shown
    COLORREF shownCasing;  ///< the line either side of it that sets it off from anything below
};

const ChartColours& ColoursOf(bool night);

/// 0 for black, 1 for white: the light that a colour gives (ITU-R BT.709 weights, without gamma).
double Lightness(COLORREF colour);

/// How much of what is below a filled area covers, 0 to 255.
int AreaAlpha(bool night);

/// A feature's colour as the chart shows it. By day the operator's own, unless it would vanish in the ground, when it
/// is darkened. At night dimmed, but never so dark that it would stand off from the ground, or from an area of whatever
/// colour, by less than 3 to 1.
COLORREF FeatureColour(COLORREF colour, bool night);

/// The same for thin letters, which need more of a contrast than lines do: at night 4.5 to 1.
COLORREF TextColour(COLORREF colour, bool night);

/// The colour of a wide area, such as a raster: by day the operator's own, at night far darker than lines.
COLORREF ImageColour(COLORREF colour, bool night);

}  // namespace quillon
