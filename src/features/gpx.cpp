#include "features/gpx.h"

#include <algorithm>
#include <cmath>

#include "features/gpx_reader.h"
#include "foundation/angle_units.h"
#include "foundation/config_file.h"
#include "foundation/paths.h"
#include "foundation/settings_lines.h"
#include "geodesy/ellipsoid.h"
#include "geodesy/geodesic_bearing.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kSettings = "GPX DATA";
constexpr std::size_t kMostBytes = std::size_t{1} << 30;

/// A name may hold a "=" of its own: the value stands behind the last one.
bool ReadShown(CConfigFile& file, bool missing) {
    std::string_view line;
    if (!file.ReadLine(line)) return missing;
    const std::size_t equals = line.rfind('=');
    return equals == std::string_view::npos ? missing : Atoi(line.substr(equals + 1)) != 0;
}

double SpeedOf(double metres, double seconds) {
    return seconds > 0.0 ? metres / seconds : 0.0;
}

}  // namespace

template <class Lines>
void EachLine(Lines& lines, RecordOf<CGPX> auto& gpx) {
    lines.Text("File Path", gpx.path);
    lines.Colour("Track Colour", gpx.trackColour);
    lines.Bool("Show Dots", gpx.showDots);
}

void ComputeLegs(GpxTrack& track) {
    CEllipsoid earth;
    earth.SetEllipsoid(CEllipsoid::kWgs84);
    const auto hasTime = [](const GpxPoint& point) { return point.time != 0.0; };
    const auto firstTimed = std::find_if(track.points.begin(), track.points.end(), hasTime);
    for (std::size_t i = 0; i < track.points.size(); ++i) {
        GpxPoint& point = track.points[i];
        if (i > 0) {
            const GpxPoint& before = track.points[i - 1];
            point.totalDistance = before.totalDistance + before.legDistance;
            // A point without a time is as old as the one before it.
            point.totalTime = hasTime(point) ? point.time - firstTimed->time : before.totalTime;
            point.averageSpeed = SpeedOf(point.totalDistance, point.totalTime);
        }
        if (i + 1 == track.points.size()) break;
        const GpxPoint& next = track.points[i + 1];
        double metres = 0.0;
        earth.Distance(point.latitude, point.longitude, next.latitude, next.longitude, &metres);
        point.legDistance = std::fabs(metres);
        point.legBearing =
            GeodesicBearing(earth, point.latitude, point.longitude, next.latitude, next.longitude) * kDegreesPerRadian;
        if (hasTime(point) && hasTime(next)) point.legSpeed = SpeedOf(point.legDistance, next.time - point.time);
    }
}

bool CGPX::Load(std::string_view newPath) {
    CStdioFile file(files);
    std::string bytes;
    Clear();
    path = newPath;
    if (!file.OpenForReading(path, FILE_MODE::BINARY) || !file.ReadAll(bytes, kMostBytes)) {
        report.fault = "can't be read";
        return false;
    }
    ReadGpx(bytes, *this, report);
    for (GpxTrack& track : tracks) ComputeLegs(track);
    stamp.Renew();
    ReadShowFile();
    return report.opened;
}

void CGPX::Clear() {
    path.clear();
    tracks.clear();
    waypoints.clear();
    showWaypoints = true;
    report = {};
    stamp.Renew();
}

void CGPX::ReadSettings() {
    CConfigFile settings(files);
    if (!settings.OpenForRead(kSettings)) return;
    ReadLines(settings, *this);
    if (!path.empty()) Load(std::string(path));
}

void CGPX::WriteSettings() const {
    CConfigFile settings(files);
    if (!settings.OpenSettingsForWrite(kSettings)) return;
    WriteLines(settings, *this);
    settings.Commit();
}

void CGPX::ReadShowFile() {
    CConfigFile file(files);
    if (!file.OpenForReadIn(FolderOfPath(path), SplitPath(path).name)) return;
    showWaypoints = file.ReadBool(showWaypoints);
    for (GpxWaypoint& waypoint : waypoints) waypoint.show = ReadShown(file, waypoint.show);
    for (GpxTrack& track : tracks) track.show = ReadShown(file, track.show);
}

void CGPX::WriteShowFile() const {
    CConfigFile file(files);
    if (path.empty() || !file.OpenForWrite(FolderOfPath(path), SplitPath(path).name)) return;
    file.WriteBool("Waypoints", showWaypoints);
    for (const GpxWaypoint& waypoint : waypoints) file.WriteBool(waypoint.name, waypoint.show);
    for (const GpxTrack& track : tracks) file.WriteBool(track.name, track.show);
    file.Commit();
}

bool CGPX::AreAllShown() const {
    return std::all_of(tracks.begin(), tracks.end(), [](const GpxTrack& track) { return track.show; });
}

}  // namespace quillon
