// Whatever the bytes are: every point lies on the earth, no leg value is missing or negative, totals never fall, and
// each segment begins at a point of its track.

#include "feature_fuzz.h"
#include "features/gpx.h"
#include "features/gpx_reader.h"

namespace {

constexpr double kPole = 1.5707963267949;

void RequireOnEarth(double latitude, double longitude) {
    fuzz::Require(std::fabs(latitude) <= kPole && std::fabs(longitude) <= 2.0 * kPole);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    quillon::CGPX gpx(fuzz::Files());
    quillon::GpxReport report;
    quillon::ReadGpx({reinterpret_cast<const char*>(data), size}, gpx, report);
    fuzz::Require(report.opened || (gpx.tracks.empty() && !report.fault.empty()));
    for (quillon::GpxTrack& track : gpx.tracks) {
        quillon::ComputeLegs(track);
        fuzz::Require(!track.name.empty() && track.name.find('\n') == std::string::npos);
        for (const std::uint32_t first : track.segments) fuzz::Require(first < track.points.size());
        double total = 0.0;
        for (const quillon::GpxPoint& point : track.points) {
            RequireOnEarth(point.latitude, point.longitude);
            fuzz::Require(std::isfinite(point.time) && std::isfinite(point.elevation));
            fuzz::Require(point.legDistance >= 0.0 && point.legBearing >= 0.0 && point.legBearing < 360.0001);
            fuzz::Require(point.legSpeed >= 0.0 && point.averageSpeed >= 0.0 && point.totalDistance >= total);
            total = point.totalDistance;
        }
    }
    for (const quillon::GpxWaypoint& waypoint : gpx.waypoints) RequireOnEarth(waypoint.latitude, waypoint.longitude);
    return 0;
}
