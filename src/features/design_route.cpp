#include "features/design_route.h"

namespace quillon {
namespace {

constexpr double kMetresPerKm = 1000.0;

RouteDef RecordOfRpl(const RPLDef& from) {
    RouteDef to;
    to.position = from.position;
    to.range = from.range;
    to.bearing = from.bearing;
    to.sine = from.sine;
    to.cosine = from.cosine;
    to.reverseBearing = from.reverseBearing;
    to.kp = from.kp * kMetresPerKm;
    to.kpScale = from.range > 0.0 ? 1.0 / kMetresPerKm : 1.0;
    to.radius = from.radius;
    to.centre = from.centre;
    to.curveStart = from.curveStart;
    to.curveEnd = from.curveEnd;
    to.curveStartKp = from.curveStartKp * kMetresPerKm;
    to.curveEndKp = from.curveEndKp * kMetresPerKm;
    to.startRadial = from.startRadial;
    to.endRadial = from.endRadial;
    to.interiorAngle = from.interiorAngle;
    to.sweep = from.sweep;
    to.arcLength = from.arcLength;
    to.direction = from.direction;
    to.portCorridorStart = from.portCorridorStart;
    to.portCorridorEnd = from.portCorridorEnd;
    to.starboardCorridorStart = from.starboardCorridorStart;
    to.starboardCorridorEnd = from.starboardCorridorEnd;
    return to;
}

}  // namespace

CRouteArray DesignRouteOf(const CRPL& rpl) {
    CRouteArray route;
    for (const RPLDef& record : rpl) {
        route.Add(RecordOfRpl(record));
        route[route.GetUpperBound()].name = RoutePointName(route.GetUpperBound());
    }
    return route;
}

}  // namespace quillon
