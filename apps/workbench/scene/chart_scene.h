#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "foundation/values.h"
#include "platform/dc.h"
#include "platform/display_options.h"
#include "scene/chart_graticule.h"
#include "scene/chart_raster.h"
#include "scene/path_lod.h"

namespace quillon {

// What the chart draws, made by the host from its features. The chart knows no feature: everything is put together from
// items of a few types, each with a painter of its own. Colours are the operator's; the chart adapts them to day and
// night.
//
// An item is data and style. The data (the points with their levels of detail, a raster) are made once, are never
// changed and are shared; so a scene is a handful of pointers, made anew for each change of style, and threads paint
// the same scene at the same time. What an item asks for while it is drawn, a text say, is asked for on the thread that
// paints, and must own all it needs.

using PathPtr = std::shared_ptr<const PathLod>;

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
    ChartTextOf label = {};
};

/// Points in their order, drawn as an area, as lines, as symbols, or as all of these. Waypoints are a path without a
/// line; a corridor is a closed path along one side and back along the other; a drawing of many colours is one path of
/// many parts a colour.
struct ChartPath {
    PathPtr path = {};
    ChartLine line = {};
    ChartFill fill = {};
    ChartMarks marks = {};
    /// Along the leg from a point to the next, where the leg is long enough for its text.
    ChartTextOf legText = {};
    /// A small head halfway along each leg that is long enough, in the direction of the points.
    bool arrows = false;
    bool canBeHit = true;
    /// Counts towards all that the scene shows. What is worked out from points, such as a corridor, can reach far
    /// beyond them and isn't what one zooms to, and neither is what lies below the job, such as the coast of a country.
    bool extends = true;
};

/// The radius of each of some points, metres; of no use, and passed over, unless above 0.
struct ChartRadii {
    ChartRadii(const ChartPoints& centres, std::vector<double> radii);
    std::vector<double> of;
    double greatest = 0.0;
    ChartBox box;  ///< of the circles
};

/// Rings, or discs if filled, round the points of a path.
struct ChartRings {
    struct Ring {
        double radius = 0.0;  ///< metres, on top of the point's own if there are such
        ChartLine line = {};
        ChartFill fill = {};
    };
    PathPtr centres = {};
    std::shared_ptr<const ChartRadii> own = {};
    std::vector<Ring> rings = {};

    /// Not above 0 where none is drawn.
    double RadiusOf(const Ring& ring, std::size_t point) const;
    ChartBox Box() const;
};

struct ChartText {
    std::string text;
    /// The bearing (radians, clockwise from north) of the line that the text stands along; it is drawn so that it can
    /// be read. None: level.
    ///
    /// A text along a line stands on the place itself, above (1) or below (2) it, or so that the line leads to it: the
    /// text begins behind the place (4) or ends before it (3), as seen in the direction of the bearing.
    std::optional<double> along = {};
    /// What the text must fit, in metres; 0 for anything.
    double room = 0.0;
    LABEL_POSITION position = 5;
    int gap = 0;  ///< pixels between the place and the text
};

/// Texts at the points of a path, each asked for only where it will be drawn.
struct ChartTexts {
    PathPtr places = {};
    std::function<ChartText(std::size_t index)> textOf = {};
    COLORREF colour = 0;
    bool framed = false;  ///< level texts only: in a box, as labels are
    bool extends = true;  ///< as for a path
};

/// Which edge of a text lies on its place.
enum class LETTER_EDGE : std::uint8_t { BASELINE, BOTTOM, MIDDLE, TOP };

/// A text of a drawing, which is part of what is drawn: it grows with the chart and leaves no other text out.
struct ChartLetter {
    std::string text;  ///< its lines are parted by line feeds
    COLORREF colour = 0;
    double height = 0.0;   ///< of its capitals, metres
    double bearing = 0.0;  ///< in which it is read, radians clockwise from north
    double across = 0.0;   ///< where along a line its place is: 0 at the left, 1 at the right
    LETTER_EDGE edge = LETTER_EDGE::BASELINE;
    double widthFactor = 1.0;
    double fit = 0.0;   ///< metres that a line fills, in place of the width factor; 0 for none
    double wrap = 0.0;  ///< metres beyond which a line is cut between words; 0 for none
};

/// The texts of a drawing, one at each point of a path.
struct ChartLetters {
    PathPtr places = {};
    std::shared_ptr<const std::vector<ChartLetter>> letters = {};
};

/// A raster, each of its values in its colour.
struct ChartImage {
    std::shared_ptr<const ChartRaster> raster = {};
    std::shared_ptr<const ChartColourScale> colours = {};
    int opacity = 255;  ///< 0 to 255
    /// Metres upwards for one more of a value, as the shading of its relief sees it; 0 for none.
    double heightPerValue = 0.0;
};

/// What the colours of a raster mean, shown beside the scale bar.
struct ChartLegend {
    std::string title;
    std::shared_ptr<const ChartColourScale> colours;
    double unit = 1.0;  ///< what is shown for a value of 1
};

using ChartItem = std::variant<ChartImage, ChartPath, ChartRings, ChartTexts, ChartLetters>;

struct ChartLayer {
    std::uint64_t id = 0;  ///< the host's own; one layer a number
    /// Whose labels stay where there is no room for all: the higher.
    int priority = 0;
    /// The first lies lowest among those of a type. Of all layers images lie lowest, then areas; within a layer rings
    /// lie below lines, lines below symbols.
    std::vector<ChartItem> items = {};
};

struct ChartScene {
    /// The first lies lowest.
    std::vector<ChartLayer> layers;
    std::optional<ChartLegend> legend;
    /// The point last picked, marked above everything.
    std::optional<tagXY> shown;
    /// Of the part of the grid in view; null for none.
    std::shared_ptr<const ChartGraticule> graticule = {};
};

/// A path that is drawn as it is given, for what has few points.
PathPtr MakePath(std::vector<tagXY> points, const PathParts& parts = {});

/// What an item shows; empty for one that is worked out from others.
ChartBox ExtentOf(const ChartItem& item);
/// What a scene shows whole: all that counts towards that, or, where nothing does, all that is there.
ChartBox ExtentOf(const ChartScene& scene);

}  // namespace quillon
