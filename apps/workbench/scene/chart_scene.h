#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "foundation/values.h"
#include "platform/dc.h"
#include "platform/display_options.h"

namespace quillon {

// What the chart draws, made by the host from its features. The chart knows no feature: everything is put together from
// paths, circles and texts. Colours are the operator's; the chart adapts them to day and night.

struct ChartLine {
    COLORREF colour = 0;
    int thickness = 0;  ///< pixels of a 96 dpi screen; 0 draws no line
    int style = PS_SOLID;
};

struct ChartFill {
    FILL_STYLE style = kFillNone;
    COLORREF colour = 0;
};

/// The text of a point or of a leg, asked for only where it will be drawn. Empty for none.
using ChartTextOf = std::function<std::string(std::size_t index)>;

/// The symbols at the points of a path, and their labels. Where points stand closer than their symbols are wide, only
/// some of them get one.
struct ChartMarks {
    VECTOR_SYMBOL symbol = 0;
    SYMBOL_SIZE size = 0;  ///< 0 draws no symbol, but labels
    COLORREF colour = 0;
    COLORREF second = 0;  ///< of the lesser parts of symbols
    LABEL_POSITION labelPosition = 0;
    ChartTextOf label;
};

/// Points in their order, drawn as an area, as a line, as symbols, or as all of these. Waypoints are a path without a
/// line; a corridor is a closed path along one side and back along the other.
///
/// The points are lent, and stay where they are for as long as the scene is shown. When they change, the scene is given
/// anew with another `generation`: what the chart has worked out for a path it keeps until then.
struct ChartPath {
    std::span<const tagXY> points;
    /// Keeps points alive that were made for the scene.
    std::shared_ptr<const void> owner;
    std::uint64_t generation = 0;
    /// Where further parts begin, ascending: the path doesn't join what lies before and behind.
    std::vector<std::uint32_t> starts;
    bool closed = false;  ///< each part is joined from its last point to its first
    ChartLine line;
    ChartFill fill;
    ChartMarks marks;
    /// Along the leg from a point to the next, where the leg is long enough for its text.
    ChartTextOf legText;
    /// A small head halfway along each leg that is long enough, in the direction of the points.
    bool arrows = false;
    bool canBeHit = true;
    bool extends = true;  ///< counts towards all that the scene shows
};

/// A ring, or a disc if filled.
struct ChartCircle {
    tagXY centre;
    double radius = 0.0;  ///< metres
    ChartLine line;
    ChartFill fill;
};

struct ChartText {
    tagXY at;
    std::string text;
    /// The bearing (radians, clockwise from north) of the line that the text stands along; it is drawn so that it can
    /// be read. None: level.
    ///
    /// A text along a line stands on the place itself, above (1) or below (2) it, or so that the line leads to it: the
    /// text begins behind the place (4) or ends before it (3), as seen in the direction of the bearing.
    std::optional<double> along;
    /// What the text must fit, in metres; 0 for anything.
    double room = 0.0;
    LABEL_POSITION position = 5;
    int gap = 0;  ///< pixels between the place and the text
    COLORREF colour = 0;
    bool framed = false;  ///< level texts only: in a box, as labels are
};

struct ChartLayer {
    std::uint64_t id = 0;  ///< the host's own; one layer a number
    std::vector<ChartPath> paths;
    std::vector<ChartCircle> circles;
    std::vector<ChartText> texts;
    /// Whose labels stay where there is no room for all: the higher.
    int priority = 0;
};

struct ChartScene {
    /// The first lies lowest.
    std::vector<ChartLayer> layers;
    /// The point last picked, marked above everything.
    std::optional<tagXY> shown;
};

/// The area between two lines that run side by side, such as the sides of a corridor, as a closed path that owns its
/// points. Points that only one of the lines has are left out.
ChartPath AreaBetween(std::span<const tagXY> port, std::span<const tagXY> starboard);

}  // namespace quillon
