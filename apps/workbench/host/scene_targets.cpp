#include "host/scene_targets.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>
#include <utility>

#include "foundation/angle_units.h"
#include "host/drawing_lines.h"
#include "host/scene_builder.h"
#include "platform/text.h"

namespace quillon {
namespace {

enum TEXT_SIDE : LABEL_POSITION { SIDE_TOP = 1, SIDE_BOTTOM, SIDE_LEFT, SIDE_RIGHT };

constexpr VECTOR_SYMBOL kReferenceCross = 2;
constexpr VECTOR_SYMBOL kTrackedSymbol = 4;
constexpr SYMBOL_SIZE kReferenceSize = 1;
constexpr SYMBOL_SIZE kMostSymbolSize = 10;
constexpr int kNameGap = 12;  ///< from a symbol to its name, pixels
constexpr int kTextGap = 4;   ///< pixels
constexpr int kFollowedThickness = 3;
constexpr double kRingLabelBearing = 45.0 * kRadiansPerDegree;

struct Cardinal {
    const char* name;
    double east;
    double north;
    TEXT_SIDE side;
};
constexpr std::array<Cardinal, 4> kCardinals = {
    {{"N", 0, 1, SIDE_TOP}, {"E", 1, 0, SIDE_RIGHT}, {"S", 0, -1, SIDE_BOTTOM}, {"W", -1, 0, SIDE_LEFT}}};

tagXY WaypointOf(const COutline& outline) {
    return {outline.waypoint.easting, outline.waypoint.northing};
}

tagXY Beside(tagXY centre, double bearing, double metres) {
    return {centre.x + metres * std::sin(bearing), centre.y + metres * std::cos(bearing)};
}

ChartLine LineOf(const tagPen& pen) {
    return {pen.colour, pen.thickness, pen.style};
}

/// A text at a place of its own.
struct PlacedText {
    tagXY at;
    std::string text;
    TEXT_SIDE side;
    int gap = kTextGap;
};

void AddTexts(SceneBuilder& scene, std::vector<PlacedText> texts, COLORREF colour) {
    if (texts.empty()) return;
    std::vector<tagXY> places;
    for (const PlacedText& text : texts) places.push_back(text.at);
    scene.AddBackground(ChartTexts{.places = MakePath(std::move(places), {.every = 1}),
                                   .textOf =
                                       [texts = std::move(texts)](std::size_t i) {
                                           return ChartText{
                                               .text = texts[i].text, .position = texts[i].side, .gap = texts[i].gap};
                                       },
                                   .colour = colour});
}

void AddLine(SceneBuilder& scene, tagXY from, tagXY to, const ChartLine& line, bool arrows = false) {
    ChartPath path;
    path.path = MakePath({from, to});
    path.line = line;
    path.arrows = arrows;
    scene.AddBackground(std::move(path));
}

// ---- The object itself ----

/// The steps of an outline, with the object at a position of the grid. `text` is what the pointer finds there.
void AddOutline(SceneBuilder& scene, const COutline& outline, tagXY position, const tagPen& pen,
                const std::string& text) {
    std::vector<tagXY> points;
    PathParts parts;
    for (const OutlinePoint& step : outline.points) {
        if (!step.draws && !points.empty()) parts.starts.push_back(static_cast<std::uint32_t>(points.size()));
        points.push_back(PlaceOnGrid(outline, position, step.position));
    }
    if (points.empty()) return;
    ChartPath path;
    path.path = MakePath(std::move(points), parts);
    path.line = LineOf(pen);
    path.fill = {pen.fill, pen.colour};
    scene.AddBackground(std::move(path), [text](const ChartHit&) { return text; });
}

/// A drawing keeps its own colours.
void AddDrawing(SceneBuilder& scene, const COutline& outline, const std::string& name, tagXY position) {
    using Lines = std::map<COLORREF, DrawnLines>;
    std::uint64_t stamp = outline.outlineStamp.Get();
    for (const double setting : {position.x, position.y, outline.gridAlignment}) stamp = MixedStamp(stamp, setting);
    const auto lines = scene.Keep<Lines>(name, stamp, [&] {
        return std::make_shared<const Lines>(
            PlaceDrawing(outline.dxf, {position, outline.DrawingScale(), outline.gridAlignment}));
    });
    for (const auto& [colour, drawn] : *lines) {
        ChartPath path;
        path.path = scene.KeepPath(name + Format("|%u", colour), stamp, {.starts = drawn.starts},
                                   [&drawn = drawn] { return ChartPoints(drawn.points); });
        path.line = {colour, 1, PS_SOLID};
        scene.AddBackground(std::move(path));
    }
}

void AddObject(SceneBuilder& scene, const COutline& outline, const std::string& name, tagXY place) {
    const bool drawn = outline.dxf.use && outline.dxf.GetEntityCount() > 0;
    drawn ? AddDrawing(scene, outline, name, place)
          : AddOutline(scene, outline, place, outline.outlinePen, outline.name);
    tagXY beside = place;
    for (const OutlinePoint& step : outline.points) {
        beside.x = std::max(beside.x, PlaceOnGrid(outline, place, step.position).x);
    }
    AddTexts(scene, {{beside, outline.name, SIDE_RIGHT}}, outline.outlinePen.colour);
}

// ---- Its target ----

/// How far the tolerance reaches from the waypoint.
double ReachOf(const TargetDisplay& display, tagXY waypoint) {
    if (!display.boxShape) return RingRadiusMetres(display) * std::max<int>(display.ringCount, 1);
    double reach = 0.0;
    for (const tagXY& corner : display.box) {
        reach = std::max(reach, std::hypot(corner.x - waypoint.x, corner.y - waypoint.y));
    }
    return reach;
}

void AddRings(SceneBuilder& scene, const TargetDisplay& display, tagXY waypoint) {
    ChartRings rings{.centres = MakePath({waypoint}, {.every = 1})};
    std::vector<PlacedText> texts;
    const double radius = RingRadiusMetres(display);
    for (int ring = 1; radius > 0.0 && ring <= display.ringCount; ++ring) {
        rings.rings.push_back({ring * radius, {display.ringColour, 1, PS_SOLID}, {}});
        texts.push_back(
            {Beside(waypoint, kRingLabelBearing, ring * radius), Format("%.0lfm", ring * radius), SIDE_RIGHT});
    }
    if (rings.rings.empty()) return;
    scene.AddBackground(std::move(rings));
    if (display.labelRings) AddTexts(scene, std::move(texts), display.textColour);
}

void AddBox(SceneBuilder& scene, const TargetDisplay& display) {
    ChartPath box;
    box.path = MakePath({display.box.begin(), display.box.end()}, {.closed = true});
    box.line = {display.ringColour, 1, PS_SOLID};
    scene.AddBackground(std::move(box));
}

void AddTolerance(SceneBuilder& scene, const COutline& outline) {
    const TargetDisplay& display = outline.target;
    const tagXY waypoint = WaypointOf(outline);
    const double reach = ReachOf(display, waypoint);
    if (display.drawRings) display.boxShape ? AddBox(scene, display) : AddRings(scene, display, waypoint);
    for (const double zone : {display.startZone, display.stopZone}) {
        if (!display.drawZoneLines) break;
        AddLine(scene, waypoint, Beside(waypoint, zone * kRadiansPerDegree, reach), {display.zoneColour, 1, PS_SOLID});
    }
    if (!display.drawRings || !display.displayLabels) return;
    std::vector<PlacedText> texts;
    for (const Cardinal& cardinal : kCardinals) {
        const tagXY at = {waypoint.x + cardinal.east * reach, waypoint.y + cardinal.north * reach};
        texts.push_back({at, cardinal.name, cardinal.side});
    }
    AddTexts(scene, std::move(texts), display.cardinalColour);
}

void AddPoint(SceneBuilder& scene, tagXY at, VECTOR_SYMBOL symbol, SYMBOL_SIZE size, COLORREF colour) {
    ChartPath path;
    path.path = MakePath({at}, {.every = 1});
    path.marks = {symbol, size, colour, colour, SIDE_BOTTOM, {}};
    scene.AddBackground(std::move(path));
}

void AddTarget(SceneBuilder& scene, const COutline& outline) {
    const bool aligned = outline.sinAlign != 0.0 || outline.cosAlign != 0.0;
    if (outline.show && aligned) {
        AddOutline(scene, outline, outline.trackedPosition, outline.shadowPen, "Shadow of " + outline.name);
        AddPoint(scene, outline.trackedPosition, kReferenceCross, kReferenceSize, outline.shadowPen.colour);
    }
    // The name comes first, and so has room before all other texts.
    const auto size = static_cast<SYMBOL_SIZE>(std::clamp<int>(outline.trackSymbolSize, 0, kMostSymbolSize));
    const OffsetPoint* const point = outline.OffsetAt(outline.trackType, outline.trackIndex);
    AddPoint(scene, WaypointOf(outline), kTrackedSymbol, size, outline.waypointColour);
    const std::string name = point ? outline.name + ", " + point->name : outline.name;
    AddTexts(scene, {{WaypointOf(outline), name, SIDE_BOTTOM, kNameGap}}, outline.waypointColour);
    AddTolerance(scene, outline);
}

void AddMembers(SceneBuilder& scene, const COutlineList& list) {
    for (int i = 0; i < list.GetCount(); ++i) {
        const COutline& outline = list[i];
        if (outline.sailLineValid) {
            AddLine(scene, outline.sailLine.sol, outline.sailLine.eol,
                    {outline.sailLineColour, kFollowedThickness, PS_SOLID}, true);
        }
        if (outline.waypointValid) AddTarget(scene, outline);
        if (const auto& place = list.PlaceOf(i); place && outline.show) {
            AddObject(scene, outline, std::string(list.Extension()) + "|" + outline.name, *place);
        }
    }
}

}  // namespace

void AddTargets(SceneBuilder& scene) {
    AddMembers(scene, scene.Record().templates);
    AddMembers(scene, scene.Record().vessels);
}

}  // namespace quillon
