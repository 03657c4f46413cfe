// The first byte chooses the data order, also one that isn't there; the rest is a waypoint file. Every point taken is a
// named position.

#include "feature_fuzz.h"
#include "features/grid_waypoint.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    quillon::CGridWaypoint waypoints(fuzz::Files());
    waypoints.dataOrder = data[0] % 11;
    fuzz::ReadBytes(waypoints, {reinterpret_cast<const char*>(data) + 1, size - 1});
    for (const quillon::GridWaypointDef& point : waypoints) {
        fuzz::Require(fuzz::IsPosition({point.easting, point.northing}));
        fuzz::Require(!quillon::IsMissing(point.height));
        fuzz::Require(!point.name.empty() && point.name.find_first_of("\r\n") == std::string::npos);
    }
    return 0;
}
