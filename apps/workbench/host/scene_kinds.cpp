#include "host/scene_kinds.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "foundation/angle_units.h"
#include "foundation/columns.h"
#include "host/scene_builder.h"
#include "platform/text.h"

namespace quillon {
namespace {

/// From an area's edge to the name that stands outside of it, pixels.
constexpr int kOutsideGap = 3;
/// Names of areas. As a neutral grey they can be read on every fill, and the chart keeps them legible at night, where
/// the colours of areas are dimmed.
constexpr COLORREF kAreaInk = RGB(48, 48, 48);
constexpr COLORREF kSymbolOutline = RGB(0, 0, 0);
/// Range rings of one waypoint: as many as the pane offers.
constexpr int kMostRings = 25;
/// The layer of the one active pipe route: it is in no list, so no point of it can be chosen.
constexpr std::uint64_t kPipeRouteLayer = 100;

enum LABEL_MODE { LABEL_NONE, LABEL_NAME, LABEL_COORDINATES, LABEL_NAME_COORDINATES, LABEL_DESCRIPTION };
enum LABEL_SIDE { SIDE_NONE, SIDE_TOP, SIDE_BOTTOM, SIDE_LEFT, SIDE_RIGHT, SIDE_CENTRE };

std::string CoordinatesText(tagXY at) {
    return Format("%.1lf E  %.1lf N", at.x, at.y);
}

std::string LabelText(SYMBOL_LABEL_MODE mode, const std::string& name, const std::string& description, tagXY at) {
    switch (mode) {
        case LABEL_NAME:
            return name;
        case LABEL_COORDINATES:
            return CoordinatesText(at);
        case LABEL_NAME_COORDINATES:
            return name.empty() ? CoordinatesText(at) : name + "  " + CoordinatesText(at);
        case LABEL_DESCRIPTION:
            return description;
        default:
            return {};
    }
}

/// The labels of the points of a path, by their mode. The names are copied: a scene outlives the features.
ChartTextOf PointLabels(SYMBOL_LABEL_MODE mode, LABEL_POSITION position, const std::string& description,
                        const ScenePoints& kept, std::vector<std::string> names) {
    if (mode == LABEL_NONE || position == SIDE_NONE) return {};
    auto shared = std::make_shared<const std::vector<std::string>>(std::move(names));
    return [mode, description, points = kept.points, shared](std::size_t index) {
        return LabelText(mode, index < shared->size() ? (*shared)[index] : std::string(), description,
                         (*points)[index]);
    };
}

template <class Records, class Name>
std::vector<std::string> NamesOf(const Records& records, Name name) {
    std::vector<std::string> names;
    names.reserve(static_cast<std::size_t>(records.GetSize()));
    for (std::ptrdiff_t i = 0; i < records.GetSize(); ++i) names.push_back(name(records[i]));
    return names;
}

/// The points of a feature, each where `position` says.
template <class Records, class Position>
ScenePoints& KeepRecords(SceneBuilder& scene, const std::string& name, const Records& records, Position position) {
    return scene.Keep(name, static_cast<std::size_t>(records.GetSize()),
                      [&](std::size_t i) { return position(records[static_cast<std::ptrdiff_t>(i)]); });
}

/// A corner as it is drawn: no farther from its point than some widths. At a sharp bend the lines of a corridor cross
/// far off, and the area would lie across half the chart.
tagXY DrawnCorner(tagXY at, tagXY corner, double width) {
    constexpr double kFarthestWidths = 10.0;
    const double limit = kFarthestWidths * std::abs(width);
    const double distance = std::hypot(corner.x - at.x, corner.y - at.y);
    if (!(distance > limit)) return corner;
    return {at.x + (corner.x - at.x) * (limit / distance), at.y + (corner.y - at.y) * (limit / distance)};
}

/// How to find the sides of a corridor in its records.
template <class Record>
struct CorridorSides {
    tagXY (*position)(const Record&);
    tagXY Record::*port;
    tagXY Record::*starboard;
};

/// The strip between the two sides of a corridor, whose corners the records hold.
template <class Records, class Record>
ScenePoints& KeepCorridor(SceneBuilder& scene, const std::string& path, const Records& records,
                          const CorridorSides<Record>& sides, double portWidth, double starboardWidth) {
    const auto count = static_cast<std::size_t>(records.GetSize());
    return scene.Keep(path + "|corridor", 2 * count, [&](std::size_t i) {
        const Record& record = records[static_cast<std::ptrdiff_t>(i < count ? i : 2 * count - 1 - i)];
        const tagXY at = sides.position(record);
        return i < count ? DrawnCorner(at, record.*sides.port, portWidth)
                         : DrawnCorner(at, record.*sides.starboard, starboardWidth);
    });
}

// ---- Boundaries ----

/// The vertex that lies farthest to a side.
tagXY OutermostPoint(const std::vector<tagXY>& points, LABEL_POSITION side) {
    const auto reach = [side](const tagXY& point) {
        switch (side) {
            case SIDE_TOP:
                return point.y;
            case SIDE_BOTTOM:
                return -point.y;
            case SIDE_LEFT:
                return -point.x;
            default:
                return point.x;
        }
    };
    return *std::max_element(points.begin(), points.end(),
                             [&](const tagXY& a, const tagXY& b) { return reach(a) < reach(b); });
}

/// The name of an area: inside, or beside its outermost point on the chosen side.
void AddAreaLabel(ChartLayer& layer, const CBoundary& boundary, const ScenePoints& kept) {
    if (boundary.labelPosition == SIDE_NONE) return;
    ChartText text;
    text.colour = kAreaInk;
    if (boundary.labelPosition == SIDE_CENTRE && kept.areaLabel) {
        text.at = kept.areaLabel->at;
        text.along = kept.areaLabel->along;
        text.room = kept.areaLabel->room;
    } else {
        text.at = OutermostPoint(*kept.points, boundary.labelPosition);
        text.position = boundary.labelPosition;
        text.gap = kOutsideGap + boundary.pen.thickness;
    }
    text.text = LabelText(boundary.labelMode, boundary.GetName(), boundary.text, text.at);
    if (!text.text.empty()) layer.texts.push_back(std::move(text));
}

/// Areas and lines as they were drawn, without symbols: a ring of many points would vanish under them.
void AddBoundaries(SceneBuilder& scene) {
    const CBoundaryList& list = scene.Features().boundaries;
    for (int i = 0; i < list.GetCount(); ++i) {
        const CBoundary& boundary = list[i];
        if (!boundary.Status || boundary.IsEmpty() || boundary.IsStub()) continue;
        ScenePoints& kept = KeepRecords(scene, boundary.GetPath(), boundary, [](const tagXY& point) { return point; });
        if (!std::exchange(kept.areaLabelPlaced, true)) kept.areaLabel = PlaceAreaLabel(*kept.points);
        ChartPath path = SceneBuilder::PathOver(kept);
        path.line = {boundary.pen.colour, boundary.pen.thickness, boundary.pen.style};
        if (!boundary.GetPolygon().IsEmpty()) path.fill = {boundary.pen.fill, boundary.pen.colour};
        AddAreaLabel(scene.Layer(), boundary, kept);
        scene.AddPath(i, std::move(path));
    }
}

// ---- Pipelines ----

/// KPs stand across their line, on its starboard side, as far off as the listing says.
void AddKpTexts(ChartLayer& layer, const CPipeline& pipeline) {
    layer.texts.reserve(layer.texts.size() + static_cast<std::size_t>(pipeline.GetKpListing().GetSize()));
    for (const KPListingDef& kp : pipeline.GetKpListing()) {
        ChartText text;
        text.at = kp.position;
        text.text = kp.text;
        text.along = (90 - kp.rotation) * kRadiansPerDegree;
        text.position = SIDE_RIGHT;
        text.gap = static_cast<int>(std::lround(std::hypot(kp.offsetX, kp.offsetY)));
        text.colour = pipeline.linePen.colour;
        layer.texts.push_back(std::move(text));
    }
}

void AddPipeline(SceneBuilder& scene, const CPipeline& pipeline, int file) {
    if (!pipeline.use || pipeline.IsEmpty()) return;
    if (pipeline.displayCorridor && pipeline.GetSize() > 1) {
        constexpr CorridorSides<PipelineDef> kSides = {[](const PipelineDef& point) { return point.Position(); },
                                                       &PipelineDef::portCorridor, &PipelineDef::starboardCorridor};
        ChartPath corridor = SceneBuilder::PathOver(KeepCorridor(scene, pipeline.GetPath(), pipeline, kSides,
                                                                 pipeline.portCorridor, pipeline.starboardCorridor));
        corridor.closed = true;
        const tagPen& pen = pipeline.corridorPen;
        corridor.line = {pen.colour, pen.thickness, pen.style};
        corridor.fill = {pen.fill, pen.colour};
        scene.AddBackground(std::move(corridor));
    }
    ChartPath path = SceneBuilder::PathOver(
        KeepRecords(scene, pipeline.GetPath(), pipeline, [](const PipelineDef& point) { return point.Position(); }));
    path.line = {pipeline.linePen.colour, pipeline.linePen.thickness, pipeline.linePen.style};
    path.canBeHit = file >= 0;
    AddKpTexts(scene.Layer(), pipeline);
    scene.AddPath(file, std::move(path));
}

void AddPipelines(SceneBuilder& scene) {
    const CPipelineList& list = scene.Features().pipelines;
    for (int i = 0; i < list.GetCount(); ++i) AddPipeline(scene, list[i], i);
}

void AddPipeRoute(SceneBuilder& scene) {
    AddPipeline(scene, scene.Features().pipeRoute, -1);
}

// ---- Routes ----

void AddRouteCorridor(SceneBuilder& scene, const CRoute& route) {
    if (!route.displayCorridor || route.GetSize() < 2) return;
    constexpr CorridorSides<RouteDef> kSides = {[](const RouteDef& point) { return point.position; },
                                                &RouteDef::portCorridorStart, &RouteDef::starboardCorridorStart};
    ChartPath corridor = SceneBuilder::PathOver(
        KeepCorridor(scene, route.GetPath(), route, kSides, route.portWidth, route.starboardWidth));
    corridor.closed = true;
    corridor.line = {route.corridorColour, 1, PS_SOLID};
    corridor.fill = {route.fill, route.corridorColour};
    scene.AddBackground(std::move(corridor));
}

/// Range and bearing of the legs.
ChartTextOf LegTexts(const CRoute& route) {
    auto texts = std::make_shared<const std::vector<std::string>>(NamesOf(route, [](const RouteDef& leg) {
        return CellText(CELL::RANGE, leg.range) + "  " + CellText(CELL::BEARING, leg.bearing);
    }));
    return [texts](std::size_t leg) { return leg < texts->size() ? (*texts)[leg] : std::string(); };
}

void AddRoutes(SceneBuilder& scene) {
    const CRouteList& list = scene.Features().routes;
    for (int i = 0; i < list.GetCount(); ++i) {
        const CRoute& route = list[i];
        if (!route.Status || route.IsEmpty() || route.IsStub()) continue;
        AddRouteCorridor(scene, route);
        const ScenePoints& kept =
            KeepRecords(scene, route.GetPath(), route, [](const RouteDef& point) { return point.position; });
        ChartPath path = SceneBuilder::PathOver(kept);
        path.line = {route.pen.colour, route.pen.thickness, route.pen.style};
        path.marks = {route.symbol,
                      route.symbolSize,
                      route.pen.colour,
                      kSymbolOutline,
                      route.labelPosition,
                      PointLabels(route.labelMode, route.labelPosition, route.text, kept,
                                  NamesOf(route, [](const RouteDef& point) { return point.name; }))};
        if (route.showLegLabel) path.legText = LegTexts(route);
        scene.AddPath(i, std::move(path));
    }
}

// ---- Sail lines ----

/// Each run is a part of its own, from its start to its end; runs are known by their number in the file.
void AddSailLines(SceneBuilder& scene) {
    const CSailLineList& list = scene.Features().sailLines;
    for (int i = 0; i < list.GetCount(); ++i) {
        const CSailLine& lines = list[i];
        if (!lines.Status || lines.IsEmpty() || lines.IsStub()) continue;
        const auto count = static_cast<std::size_t>(lines.GetSize());
        const ScenePoints& kept = scene.Keep(lines.GetPath(), 2 * count, [&](std::size_t point) {
            const SailLineDef& line = lines[static_cast<std::ptrdiff_t>(point / 2)];
            return point % 2 == 0 ? line.sol : line.eol;
        });
        ChartPath path = SceneBuilder::PathOver(kept);
        for (std::size_t line = 1; line < count; ++line) path.starts.push_back(static_cast<std::uint32_t>(2 * line));
        path.line = {lines.pen.colour, lines.pen.thickness, lines.pen.style};
        path.arrows = true;
        std::vector<std::string> names;
        for (std::size_t line = 0; line < count; ++line) {
            names.push_back(Format("%zu", line + 1));
            names.emplace_back();
        }
        path.marks = {
            lines.symbol,        lines.symbolSize,
            lines.pen.colour,    kSymbolOutline,
            lines.labelPosition, PointLabels(lines.labelMode, lines.labelPosition, lines.text, kept, std::move(names))};
        scene.AddPath(i, std::move(path), 2);
    }
}

// ---- Waypoints ----

void AddRing(ChartLayer& layer, tagXY centre, double radius, COLORREF colour, int style = PS_SOLID) {
    if (radius > 0.0 && !IsMissing(radius)) layer.circles.push_back({centre, radius, {colour, 1, style}, {}});
}

/// What the cable alarm keeps an eye on: the obstruction itself, or the tolerance where it has no radius, and dashed
/// round it the distance to stay clear of it.
void AddAlarmCircles(ChartLayer& layer, const CGridWaypoint& waypoints, const GridWaypointDef& point) {
    const tagXY centre{point.easting, point.northing};
    const bool hasRadius = point.radius > 0.0 && !IsMissing(point.radius);
    const double tolerance = hasRadius ? point.radius : waypoints.tolerance;
    AddRing(layer, centre, tolerance, waypoints.colour);
    if (waypoints.clearance > 0.0) AddRing(layer, centre, tolerance + waypoints.clearance, waypoints.colour, PS_DASH);
}

void AddRings(ChartLayer& layer, const CGridWaypoint& waypoints) {
    if (!waypoints.drawRings) return;
    const int count = std::min<int>(waypoints.ringCount, kMostRings);
    for (const GridWaypointDef& point : waypoints) {
        if (waypoints.catenaryMode) {
            AddAlarmCircles(layer, waypoints, point);
            continue;
        }
        for (int ring = 1; ring <= count; ++ring) {
            AddRing(layer, {point.easting, point.northing}, ring * waypoints.ringSizeMetres, waypoints.ringColour);
        }
    }
}

void AddWaypoints(SceneBuilder& scene) {
    const CGridWaypointList& list = scene.Features().waypoints;
    for (int i = 0; i < list.GetCount(); ++i) {
        const CGridWaypoint& waypoints = list[i];
        if (!waypoints.display || waypoints.IsEmpty() || waypoints.IsStub()) continue;
        const ScenePoints& kept = KeepRecords(scene, waypoints.GetPath(), waypoints, [](const GridWaypointDef& point) {
            return tagXY{point.easting, point.northing};
        });
        ChartPath path = SceneBuilder::PathOver(kept);
        for (std::size_t point = 1; point < kept.points->size(); ++point) {
            path.starts.push_back(static_cast<std::uint32_t>(point));
        }
        path.marks = {waypoints.symbol,
                      waypoints.symbolSize,
                      waypoints.colour,
                      kSymbolOutline,
                      waypoints.labelPosition,
                      PointLabels(waypoints.labelMode, waypoints.labelPosition, {}, kept,
                                  NamesOf(waypoints, [](const GridWaypointDef& point) { return point.name; }))};
        AddRings(scene.Layer(), waypoints);
        scene.AddPath(i, std::move(path));
    }
}

constexpr std::uint64_t LayerOf(FEATURE_TYPES type) {
    return static_cast<std::uint64_t>(type);
}

constexpr std::array kKinds = {
    SceneKind{LayerOf(FEATURE_TYPES::BOUNDARY), 1, AddBoundaries},
    SceneKind{LayerOf(FEATURE_TYPES::PIPELINE), 2, AddPipelines},
    SceneKind{kPipeRouteLayer, 3, AddPipeRoute},
    SceneKind{LayerOf(FEATURE_TYPES::SAIL_LINE), 4, AddSailLines},
    SceneKind{LayerOf(FEATURE_TYPES::ROUTE), 5, AddRoutes},
    SceneKind{LayerOf(FEATURE_TYPES::WAYPOINT), 6, AddWaypoints},
};

}  // namespace

std::span<const SceneKind> SceneKinds() {
    return kKinds;
}

}  // namespace quillon
