#include "host/scene_kinds.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "features/leg.h"
#include "foundation/angle_units.h"
#include "foundation/columns.h"
#include "host/area_label.h"
#include "host/corridor_outline.h"
#include "host/depth_scene.h"
#include "host/drawing_lines.h"
#include "host/drawing_scene.h"
#include "host/label_text.h"
#include "host/name_table.h"
#include "host/rpl_outline.h"
#include "host/scene_builder.h"
#include "host/shape_scene.h"
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

/// The labels of the points of a path, by their mode.
ChartTextOf PointLabels(SYMBOL_LABEL_MODE mode, LABEL_POSITION position, const std::string& description,
                        const PathPtr& path, ChartTextOf nameOf) {
    if (mode == LABEL_NONE || position == SIDE_NONE) return {};
    return [mode, description, path, nameOf = std::move(nameOf)](std::size_t index) {
        const bool isNamed = mode == LABEL_NAME || mode == LABEL_NAME_COORDINATES;
        return LabelText(mode, isNamed && nameOf ? nameOf(index) : std::string(), description, path->Points()[index]);
    };
}

/// The names of records, copied where labels show them: a scene outlives the features.
template <class Records>
ChartTextOf NamesOf(SceneBuilder& scene, const std::string& path, const Records& records, SYMBOL_LABEL_MODE mode) {
    if (mode != LABEL_NAME && mode != LABEL_NAME_COORDINATES) return {};
    const auto names = scene.Keep<NameTable>(path + "|names", records.GetStamp(), [&records] {
        auto table = std::make_shared<NameTable>();
        for (const auto& record : records) table->Add(record.name);
        return table;
    });
    return [names](std::size_t index) { return names->Of(index); };
}

/// The points of a feature, `Every` of each record, where `position(record, which)` says.
template <std::size_t Every = 1, class Records, class Position>
PathPtr KeepRecords(SceneBuilder& scene, const std::string& name, const Records& records, const PathParts& parts,
                    Position position) {
    return scene.KeepPath(name, records.GetStamp(), parts, [&] {
        std::vector<tagXY> points;
        points.reserve(Every * static_cast<std::size_t>(records.GetSize()));
        for (const auto& record : records) {
            for (std::size_t which = 0; which < Every; ++which) points.push_back(position(record, which));
        }
        return ChartPoints(std::move(points));
    });
}

/// The strip between the two sides of a corridor, as it is drawn. `pointOf` gives a record's position and corners.
template <class Records, class PointOf>
ChartPath CorridorPath(SceneBuilder& scene, const std::string& path, const Records& records, CorridorWidths widths,
                       PointOf pointOf) {
    const std::uint64_t stamp = MixedStamp(MixedStamp(records.GetStamp(), widths.port), widths.starboard);
    ChartPath corridor;
    corridor.path = scene.KeepPath(path + "|corridor", stamp, {.closed = true}, [&] {
        return ChartPoints(CorridorOutline(static_cast<std::size_t>(records.GetSize()), widths, [&](std::size_t i) {
            return pointOf(records[static_cast<std::ptrdiff_t>(i)]);
        }));
    });
    corridor.extends = false;
    return corridor;
}

// ---- Boundaries ----

/// The vertex that lies farthest to a side: the first of those that do. Only in chunks that reach so far it is looked
/// for.
tagXY OutermostPoint(const PathLod& path, LABEL_POSITION side) {
    const auto reach = [side](double minX, double minY, double maxX, double maxY) {
        return side == SIDE_TOP ? maxY : side == SIDE_BOTTOM ? -minY : side == SIDE_LEFT ? -minX : maxX;
    };
    const PathLod::Level& level = path.Full();
    double best = -std::numeric_limits<double>::infinity();
    tagXY outermost;
    for (const PathLod::Chunk& chunk : level.Chunks()) {
        if (!(reach(chunk.box.minX, chunk.box.minY, chunk.box.maxX, chunk.box.maxY) > best)) continue;
        for (std::uint32_t i = chunk.first; i < chunk.first + chunk.count; ++i) {
            const tagXY point = path.Points()[level.PointOf(i)];
            if (!(reach(point.x, point.y, point.x, point.y) > best)) continue;
            best = reach(point.x, point.y, point.x, point.y);
            outermost = point;
        }
    }
    return outermost;
}

/// The name of an area: inside, or beside its outermost point on the chosen side.
void AddAreaLabel(SceneBuilder& scene, const CBoundary& boundary, const PathPtr& path) {
    if (boundary.labelPosition == SIDE_NONE || path->Box().IsEmpty()) return;
    const auto inside = scene.Keep<std::optional<AreaLabel>>(boundary.GetPath() + "|label", boundary.GetStamp(), [&] {
        return std::make_shared<const std::optional<AreaLabel>>(PlaceAreaLabel(path->Points()));
    });
    tagXY at;
    ChartText text;
    if (boundary.labelPosition == SIDE_CENTRE && *inside) {
        at = (*inside)->at;
        text.along = (*inside)->along;
        text.room = (*inside)->room;
    } else {
        at = OutermostPoint(*path, boundary.labelPosition);
        text.position = boundary.labelPosition;
        text.gap = kOutsideGap + boundary.pen.thickness;
    }
    text.text = LabelText(boundary.labelMode, boundary.GetName(), boundary.text, at);
    if (text.text.empty()) return;
    scene.AddBackground(
        ChartTexts{.places = MakePath({at}), .textOf = [text](std::size_t) { return text; }, .colour = kAreaInk});
}

/// Areas and lines as they were drawn, without symbols: a ring of many points would vanish under them.
void AddBoundaries(SceneBuilder& scene) {
    const CBoundaryList& list = scene.Record().boundaries;
    for (int i = 0; i < list.GetCount(); ++i) {
        const CBoundary& boundary = list[i];
        if (!boundary.Status || boundary.IsStub() || boundary.IsEmpty()) continue;
        ChartPath path;
        path.path = scene.KeepPath(boundary.GetPath(), boundary.GetStamp(), {},
                                   [&boundary] { return ChartPoints(boundary.Share()); });
        path.line = {boundary.pen.colour, boundary.pen.thickness, boundary.pen.style};
        if (!boundary.GetPolygon().IsEmpty()) path.fill = {boundary.pen.fill, boundary.pen.colour};
        AddAreaLabel(scene, boundary, path.path);
        scene.Add(i, std::move(path));
    }
}

// ---- Pipelines ----

/// KPs stand across their line, on its starboard side, as far off as the listing says.
void AddKpTexts(SceneBuilder& scene, const CPipeline& pipeline) {
    if (pipeline.GetKpListing().IsEmpty()) return;
    const auto listing = pipeline.GetKpListing().Share();
    ChartTexts texts;
    texts.places = scene.KeepPath(pipeline.GetPath() + "|kps", pipeline.GetKpListing().GetStamp(), {.every = 1}, [&] {
        return ChartPoints(listing, &listing->front().position, listing->size(), sizeof(KPListingDef));
    });
    texts.textOf = [listing](std::size_t index) {
        const KPListingDef& kp = (*listing)[index];
        return ChartText{.text = kp.text,
                         .along = (90 - kp.rotation) * kRadiansPerDegree,
                         .position = SIDE_RIGHT,
                         .gap = static_cast<int>(std::lround(std::hypot(kp.offsetX, kp.offsetY)))};
    };
    texts.colour = pipeline.linePen.colour;
    scene.AddBackground(std::move(texts));
}

void AddPipeline(SceneBuilder& scene, const CPipeline& pipeline, int file) {
    if (!pipeline.use || pipeline.IsEmpty()) return;
    if (pipeline.displayCorridor && pipeline.GetSize() > 1) {
        ChartPath corridor =
            CorridorPath(scene, pipeline.GetPath(), pipeline, {pipeline.portCorridor, pipeline.starboardCorridor},
                         [](const PipelineDef& point) {
                             return CorridorPoint{point.Position(), point.portCorridor, point.starboardCorridor};
                         });
        const tagPen& pen = pipeline.corridorPen;
        corridor.line = {pen.colour, pen.thickness, pen.style};
        corridor.fill = {pen.fill, pen.colour};
        scene.AddBackground(std::move(corridor));
    }
    ChartPath path;
    path.path = KeepRecords(scene, pipeline.GetPath(), pipeline, {},
                            [](const PipelineDef& point, std::size_t) { return point.Position(); });
    path.line = {pipeline.linePen.colour, pipeline.linePen.thickness, pipeline.linePen.style};
    AddKpTexts(scene, pipeline);
    scene.Add(file, std::move(path));
}

void AddPipelines(SceneBuilder& scene) {
    const CPipelineList& list = scene.Record().pipelines;
    for (int i = 0; i < list.GetCount(); ++i) AddPipeline(scene, list[i], i);
}

/// Where it is one of the pipelines too, that one is what one points at.
void AddPipeRoute(SceneBuilder& scene) {
    const JobRecord& record = scene.Record();
    const int twin = record.pipelines.Find(record.pipeRoute.GetPath());
    AddPipeline(scene, record.pipeRoute, twin >= 0 && record.pipelines[twin].use ? -1 : 0);
}

// ---- Route position lists ----

void AddRplCorridor(SceneBuilder& scene, const CRPL& rpl, double tolerance) {
    if (!rpl.displayCorridor || !rpl.HasCorridor()) return;
    ChartPath corridor;
    corridor.path = scene.KeepPath(rpl.GetPath() + "|corridor", rpl.GetStamp(), {.closed = true},
                                   [&] { return ChartPoints(RplCorridorOutline(rpl.GetRecords(), tolerance)); });
    corridor.extends = false;
    corridor.line = {rpl.corridorPen.colour, rpl.corridorPen.thickness, rpl.corridorPen.style};
    corridor.fill = {rpl.corridorPen.fill, rpl.corridorPen.colour};
    scene.AddBackground(std::move(corridor));
}

/// A small ring at each tangent point, with its KP.
void AddRplMarks(SceneBuilder& scene, const CRPL& rpl, int file) {
    constexpr VECTOR_SYMBOL kRing = 8;
    const std::string name = rpl.GetPath() + "|marks";
    const auto marks = scene.Keep<RplLine>(name, rpl.GetStamp(),
                                           [&] { return std::make_shared<const RplLine>(RplMarks(rpl.GetRecords())); });
    const auto kps = scene.Keep<std::vector<double>>(name + "|kps", rpl.GetStamp(), [&] {
        return std::make_shared<const std::vector<double>>(RplMarkKps(rpl.GetRecords()));
    });
    ChartPath path;
    path.path = scene.KeepPath(name + "|path", rpl.GetStamp(), {.every = 1}, [&] {
        return ChartPoints(std::shared_ptr<const std::vector<tagXY>>(marks, &marks->points));
    });
    const auto kpText = [kps](std::size_t index) {
        return index < kps->size() ? Format("KP %.3lf", (*kps)[index]) : std::string();
    };
    path.marks = {kRing, 1, rpl.linePen.colour, kSymbolOutline, SIDE_RIGHT, kpText};
    scene.Add(file, std::move(path), RecordNumbers(marks, &marks->recordOf));
}

void AddRpls(SceneBuilder& scene) {
    const CRPLList& list = scene.Record().rpls;
    for (int i = 0; i < list.GetCount(); ++i) {
        const CRPL& rpl = list[i];
        if (!rpl.use || rpl.IsEmpty()) continue;
        const std::string& name = rpl.GetPath();
        const double tolerance = *scene.Keep<double>(name + "|tolerance", rpl.GetStamp(), [&] {
            return std::make_shared<const double>(RplChordTolerance(rpl.GetRecords()));
        });
        AddRplCorridor(scene, rpl, tolerance);
        const auto line = scene.Keep<RplLine>(name + "|line", rpl.GetStamp(), [&] {
            return std::make_shared<const RplLine>(RplRouteLine(rpl.GetRecords(), tolerance));
        });
        ChartPath path;
        path.path = scene.KeepPath(name, rpl.GetStamp(), {}, [&] {
            return ChartPoints(std::shared_ptr<const std::vector<tagXY>>(line, &line->points));
        });
        path.line = {rpl.linePen.colour, rpl.linePen.thickness, rpl.linePen.style};
        scene.Add(i, std::move(path), RecordNumbers(line, &line->recordOf));
        AddRplMarks(scene, rpl, i);
    }
}

// ---- Routes ----

void AddRouteCorridor(SceneBuilder& scene, const CRoute& route) {
    if (!route.displayCorridor || route.GetSize() < 2) return;
    ChartPath corridor =
        CorridorPath(scene, route.GetPath(), route, {route.portWidth, route.starboardWidth}, [](const RouteDef& point) {
            return CorridorPoint{point.position, point.portCorridorStart, point.starboardCorridorStart};
        });
    corridor.line = {route.corridorColour, 1, PS_SOLID};
    corridor.fill = {route.fill, route.corridorColour};
    scene.AddBackground(std::move(corridor));
}

/// Range and bearing of the legs.
ChartTextOf LegTexts(const PathPtr& path) {
    return [path](std::size_t leg) {
        if (leg + 1 >= path->Points().size()) return std::string();
        const LegDef there = MakeLeg(path->Points()[leg], path->Points()[leg + 1]);
        return CellText(CELL::RANGE, there.range) + "  " + CellText(CELL::BEARING, there.bearing) + " grid";
    };
}

void AddRoutes(SceneBuilder& scene) {
    const CRouteList& list = scene.Record().routes;
    for (int i = 0; i < list.GetCount(); ++i) {
        const CRoute& route = list[i];
        if (!route.Status || route.IsStub() || route.IsEmpty()) continue;
        AddRouteCorridor(scene, route);
        ChartPath path;
        path.path = KeepRecords(scene, route.GetPath(), route, {},
                                [](const RouteDef& point, std::size_t) { return point.position; });
        path.line = {route.pen.colour, route.pen.thickness, route.pen.style};
        path.marks = {route.symbol,
                      route.symbolSize,
                      route.pen.colour,
                      kSymbolOutline,
                      route.labelPosition,
                      PointLabels(route.labelMode, route.labelPosition, route.text, path.path,
                                  NamesOf(scene, route.GetPath(), route, route.labelMode))};
        if (route.showLegLabel) path.legText = LegTexts(path.path);
        scene.Add(i, std::move(path));
    }
}

// ---- Sail lines ----

/// Runs are known by their number in the file, which stands where they start.
std::string RunNumber(std::size_t point) {
    return point % 2 == 0 ? Format("%zu", point / 2 + 1) : std::string();
}

/// Each run is a part of its own, from its start to its end.
void AddSailLines(SceneBuilder& scene) {
    const CSailLineList& list = scene.Record().sailLines;
    for (int i = 0; i < list.GetCount(); ++i) {
        const CSailLine& lines = list[i];
        if (!lines.Status || lines.IsStub() || lines.IsEmpty()) continue;
        ChartPath path;
        path.path =
            KeepRecords<2>(scene, lines.GetPath(), lines, {.every = 2},
                           [](const SailLineDef& line, std::size_t which) { return which == 0 ? line.sol : line.eol; });
        path.line = {lines.pen.colour, lines.pen.thickness, lines.pen.style};
        path.arrows = true;
        path.marks = {
            lines.symbol,        lines.symbolSize,
            lines.pen.colour,    kSymbolOutline,
            lines.labelPosition, PointLabels(lines.labelMode, lines.labelPosition, lines.text, path.path, RunNumber)};
        scene.Add(i, std::move(path), 2);
    }
}

// ---- Waypoints ----

/// What the cable alarm keeps an eye on: the obstruction itself, or the tolerance where it has no radius, and dashed
/// round it the distance to stay clear of it.
ChartRings AlarmRings(SceneBuilder& scene, const CGridWaypoint& waypoints, const PathPtr& path) {
    ChartRings rings{.centres = path};
    rings.own = scene.Keep<ChartRadii>(waypoints.GetPath() + "|radii",
                                       MixedStamp(waypoints.GetStamp(), waypoints.tolerance), [&] {
                                           std::vector<double> radii;
                                           radii.reserve(static_cast<std::size_t>(waypoints.GetSize()));
                                           for (const GridWaypointDef& point : waypoints) {
                                               const bool hasRadius = point.radius > 0.0 && !IsMissing(point.radius);
                                               radii.push_back(hasRadius ? point.radius : waypoints.tolerance);
                                           }
                                           return std::make_shared<const ChartRadii>(path->Points(), std::move(radii));
                                       });
    rings.rings.push_back({0.0, {waypoints.colour, 1, PS_SOLID}, {}});
    if (waypoints.clearance > 0.0) rings.rings.push_back({waypoints.clearance, {waypoints.colour, 1, PS_DASH}, {}});
    return rings;
}

ChartRings RangeRings(const CGridWaypoint& waypoints, const PathPtr& path) {
    ChartRings rings{.centres = path};
    if (!(waypoints.ringSizeMetres > 0.0) || IsMissing(waypoints.ringSizeMetres)) return rings;
    for (int ring = 1; ring <= std::min<int>(waypoints.ringCount, kMostRings); ++ring) {
        rings.rings.push_back({ring * waypoints.ringSizeMetres, {waypoints.ringColour, 1, PS_SOLID}, {}});
    }
    return rings;
}

void AddRings(SceneBuilder& scene, const CGridWaypoint& waypoints, const PathPtr& path, int file) {
    if (!waypoints.drawRings) return;
    ChartRings rings = waypoints.catenaryMode ? AlarmRings(scene, waypoints, path) : RangeRings(waypoints, path);
    if (!rings.rings.empty()) scene.Add(file, std::move(rings));
}

void AddWaypoints(SceneBuilder& scene) {
    const CGridWaypointList& list = scene.Record().waypoints;
    for (int i = 0; i < list.GetCount(); ++i) {
        const CGridWaypoint& waypoints = list[i];
        if (!waypoints.display || waypoints.IsEmpty()) continue;
        ChartPath path;
        path.path = KeepRecords(scene, waypoints.GetPath(), waypoints, {.every = 1},
                                [](const GridWaypointDef& point, std::size_t) {
                                    return tagXY{point.easting, point.northing};
                                });
        path.marks = {waypoints.symbol,
                      waypoints.symbolSize,
                      waypoints.colour,
                      kSymbolOutline,
                      waypoints.labelPosition,
                      PointLabels(waypoints.labelMode, waypoints.labelPosition, {}, path.path,
                                  NamesOf(scene, waypoints.GetPath(), waypoints, waypoints.labelMode))};
        AddRings(scene, waypoints, path.path, i);
        scene.Add(i, std::move(path));
    }
}

// ---- Structures ----

/// The shapes of a file's structures, to scale and turned; one path a colour for each of them.
void AddShapes(SceneBuilder& scene, const CStructureList& list, int file) {
    const CStructure& structures = list[file];
    for (std::ptrdiff_t i = 0; i < structures.GetSize(); ++i) {
        const StructureDef& structure = structures[i];
        const CDxf* const shape = list.ShapeOf(structure);
        if (!structure.show || !shape) continue;
        const std::string name = structures.GetPath() + Format("|%td", i);
        using Lines = std::map<COLORREF, DrawnLines>;
        const auto lines = scene.Keep<Lines>(name, structures.GetStamp(), [&] {
            return std::make_shared<const Lines>(
                PlaceDrawing(*shape, {structure.position, list.ScaleFactor(structure), structure.heading}));
        });
        for (const auto& [colour, drawn] : *lines) {
            ChartPath path;
            path.path = scene.KeepPath(name + Format("|%u", colour), structures.GetStamp(), {.starts = drawn.starts},
                                       [&drawn = drawn] { return ChartPoints(drawn.points); });
            path.line = {colour, 1, PS_SOLID};
            scene.AddRecord(file, static_cast<int>(i), std::move(path));
        }
    }
}

/// Structures are found and labelled by their positions; a small cross marks one that has no shape to be seen.
void AddStructures(SceneBuilder& scene) {
    constexpr VECTOR_SYMBOL kCross = 1;
    constexpr COLORREF kInk = RGB(96, 96, 96);
    const CStructureList& list = scene.Record().structures;
    for (int i = 0; i < list.GetCount(); ++i) {
        const CStructure& structures = list[i];
        if (!structures.Status || structures.IsStub() || structures.IsEmpty()) continue;
        AddShapes(scene, list, i);
        ChartPath path;
        path.path = KeepRecords(scene, structures.GetPath(), structures, {.every = 1},
                                [](const StructureDef& structure, std::size_t) { return structure.position; });
        path.marks = {kCross,
                      1,
                      kInk,
                      kSymbolOutline,
                      SIDE_RIGHT,
                      PointLabels(LABEL_NAME, SIDE_RIGHT, {}, path.path,
                                  NamesOf(scene, structures.GetPath(), structures, LABEL_NAME))};
        scene.Add(i, std::move(path));
    }
}

constexpr std::array<SceneKind, kKindCount> kKinds = {{
    {KIND::DTM, AddDepthModel},
    {KIND::SHAPE, AddShapeFiles},
    {KIND::DIG, AddDigFiles},
    {KIND::DXF, AddDxfFiles},
    {KIND::BOUNDARY, AddBoundaries},
    {KIND::PIPELINE, AddPipelines},
    {KIND::PIPE_ROUTE, AddPipeRoute},
    {KIND::RPL, AddRpls},
    {KIND::SAIL_LINE, AddSailLines},
    {KIND::STRUCTURE, AddStructures},
    {KIND::ROUTE, AddRoutes},
    {KIND::WAYPOINT, AddWaypoints},
}};
static_assert(HasEveryKind(kKinds), "every kind is drawn");

}  // namespace

std::span<const SceneKind> SceneKinds() {
    return kKinds;
}

}  // namespace quillon
