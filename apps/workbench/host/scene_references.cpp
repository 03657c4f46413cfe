#include "host/scene_references.h"

#include <cmath>
#include <functional>
#include <utility>

#include "foundation/angle_units.h"
#include "host/scene_builder.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr VECTOR_SYMBOL kDot = 8;
constexpr VECTOR_SYMBOL kWaypointSymbol = 10;
constexpr VECTOR_SYMBOL kTurbineSymbol = 15;
constexpr SYMBOL_SIZE kSmall = 1;
constexpr LABEL_POSITION kRight = 4;
constexpr LABEL_POSITION kCentre = 5;
constexpr int kTrackWidth = 2;
constexpr int kSiteWidth = 2;

/// Another number for each other grid.
std::uint64_t GridStamp(std::uint64_t stamp, const CJobGeodesy& geodesy) {
    const GeodesyChoice& grid = geodesy.Choice();
    for (const double part :
         {static_cast<double>(grid.ellipsoid), grid.semiMajor, grid.inverseFlattening, static_cast<double>(grid.type),
          static_cast<double>(grid.zone), static_cast<double>(grid.subtype), grid.originLatitude, grid.originLongitude,
          grid.falseEasting, grid.falseNorthing, grid.scale, grid.firstParallel, grid.secondParallel}) {
        stamp = MixedStamp(stamp, part);
    }
    return stamp;
}

/// Points of the grid, with the places where parts begin; what lies outside the grid is left out.
struct GridPoints {
    std::vector<tagXY> points;
    std::vector<std::uint32_t> starts;

    void Add(const CJobGeodesy& geodesy, double longitude, double latitude, bool begins = false) {
        const std::optional<tagXY> at =
            geodesy.FromGeographic({latitude * kDegreesPerRadian, longitude * kDegreesPerRadian});
        broken = broken || begins || !at;
        if (!at) return;
        if (std::exchange(broken, false)) starts.push_back(static_cast<std::uint32_t>(points.size()));
        points.push_back(*at);
    }

private:
    bool broken = true;  // the next point begins a part
};

/// A path over what `fill` puts on the grid.
PathPtr KeepGridPath(SceneBuilder& scene, const std::string& name, std::uint64_t stamp,
                     const std::function<void(GridPoints&)>& fill, bool closed = false) {
    // The parts are known only with the points, so both are kept.
    const auto kept = scene.Keep<GridPoints>(name + "|grid", stamp, [&] {
        auto made = std::make_shared<GridPoints>();
        fill(*made);
        return made;
    });
    return scene.KeepPath(name, stamp, {.starts = kept->starts, .closed = closed},
                          [&] { return ChartPoints(kept->points); });
}

// ---- GPX ----

void AddTracks(SceneBuilder& scene, const CGPX& gpx, const CJobGeodesy& geodesy, std::uint64_t stamp) {
    for (std::size_t i = 0; i < gpx.tracks.size(); ++i) {
        const GpxTrack& track = gpx.tracks[i];
        if (!track.show || track.points.empty()) continue;
        ChartPath path;
        path.path = KeepGridPath(scene, Format("gpx|%zu", i), stamp, [&](GridPoints& points) {
            std::size_t segment = 0;
            for (std::size_t at = 0; at < track.points.size(); ++at) {
                const bool begins = segment < track.segments.size() && track.segments[segment] == at;
                if (begins) ++segment;
                points.Add(geodesy, track.points[at].longitude, track.points[at].latitude, begins);
            }
        });
        path.line = {gpx.trackColour, kTrackWidth, PS_SOLID};
        if (gpx.showDots) path.marks = {kDot, kSmall, gpx.trackColour, gpx.trackColour, 0, {}};
        scene.AddBackground(std::move(path), [name = track.name](const ChartHit&) { return name; });
    }
}

/// Symbols with names: the points of those that `take` lets through.
template <class Records, class Take>
void AddNamed(SceneBuilder& scene, const std::string& name, std::uint64_t stamp, const CJobGeodesy& geodesy,
              const Records& records, Take take, ChartMarks marks, bool labelled, bool extends) {
    using Names = std::vector<std::string>;
    auto names = std::make_shared<Names>();
    std::vector<tagXY> points;
    for (const auto& record : records) {
        std::string text;
        if (!take(record, text)) continue;
        const std::optional<tagXY> at =
            geodesy.FromGeographic({record.latitude * kDegreesPerRadian, record.longitude * kDegreesPerRadian});
        if (!at) continue;
        points.push_back(*at);
        names->push_back(std::move(text));
    }
    if (points.empty()) return;
    ChartPath path;
    path.path = scene.KeepPath(name, stamp, {.every = 1}, [&] { return ChartPoints(std::move(points)); });
    const auto nameOf = [names = std::shared_ptr<const Names>(std::move(names))](std::size_t index) {
        return index < names->size() ? (*names)[index] : std::string();
    };
    if (labelled) marks.label = nameOf;
    path.marks = std::move(marks);
    path.extends = extends;
    scene.AddBackground(std::move(path), [nameOf](const ChartHit& hit) { return nameOf(hit.hit.point); });
}

void AddGpx(SceneBuilder& scene, const CGPX& gpx, const CJobGeodesy& geodesy) {
    std::uint64_t stamp = GridStamp(gpx.GetStamp(), geodesy);
    AddTracks(scene, gpx, geodesy, stamp);
    if (!gpx.showWaypoints) return;
    for (const GpxWaypoint& waypoint : gpx.waypoints) stamp = MixedStamp(stamp, waypoint.show ? 1.0 : 0.0);
    const auto take = [](const GpxWaypoint& waypoint, std::string& name) {
        name = waypoint.name;
        return waypoint.show;
    };
    const ChartMarks marks = {kWaypointSymbol, kSmall, gpx.trackColour, 0, kRight, {}};
    AddNamed(scene, "gpx|waypoints", stamp, geodesy, gpx.waypoints, take, marks, true, true);
}

// ---- Wind farms ----
//
// A database holds farms of a whole sea: they are no part of what one zooms to.

void AddSites(SceneBuilder& scene, const CWindFarmList& list, const CJobGeodesy& geodesy, std::uint64_t stamp) {
    for (std::size_t i = 0; i < list.farms.size(); ++i) {
        const WindFarmDef& farm = list.farms[i];
        if (farm.boundary.empty()) continue;
        ChartPath path;
        path.path = KeepGridPath(
            scene, Format("farm|%zu", i), stamp,
            [&](GridPoints& points) {
                for (const std::vector<tagXY>& ring : farm.boundary) {
                    for (std::size_t at = 0; at < ring.size(); ++at)
                        points.Add(geodesy, ring[at].x, ring[at].y, at == 0);
                }
            },
            true);
        path.line = {list.boundaryColour, kSiteWidth, PS_SOLID};
        path.extends = false;
        scene.AddBackground(std::move(path));
    }
}

struct FarmLabel {
    std::string name;
    double longitude;
    double latitude;
};

void AddFarmNames(SceneBuilder& scene, const CWindFarmList& list, const CJobGeodesy& geodesy, std::uint64_t stamp) {
    std::vector<FarmLabel> labels;
    for (const WindFarmDef& farm : list.farms) labels.push_back({farm.name, farm.position.x, farm.position.y});
    const auto take = [](const FarmLabel& label, std::string& name) {
        name = label.name;
        return true;
    };
    AddNamed(scene, "farm|names", stamp, geodesy, labels, take, {0, 0, list.boundaryColour, 0, kCentre, {}}, true,
             false);
}

void AddWindFarms(SceneBuilder& scene, const CWindFarmList& list, const CJobGeodesy& geodesy) {
    const std::uint64_t stamp = GridStamp(list.GetStamp(), geodesy);
    if (list.displayBoundary) AddSites(scene, list, geodesy, stamp);
    if (list.displayTurbines) {
        const auto take = [](const TurbineDef& turbine, std::string& name) {
            name = turbine.id;
            return true;
        };
        const ChartMarks marks = {kTurbineSymbol, kSmall, list.turbineColour, 0, kRight, {}};
        AddNamed(scene, "turbines", stamp, geodesy, list.turbines, take, marks, list.labelTurbines, false);
    }
    if (list.labelWindFarm) AddFarmNames(scene, list, geodesy, stamp);
}

}  // namespace

void AddReferences(SceneBuilder& scene) {
    const JobRecord& job = scene.Record();
    if (!job.geodesy.IsChosen()) return;
    AddWindFarms(scene, job.windFarms, job.geodesy);
    AddGpx(scene, job.gpx, job.geodesy);
}

}  // namespace quillon
