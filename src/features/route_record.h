#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "foundation/delimited_line.h"
#include "foundation/read_report.h"
#include "foundation/values.h"

namespace quillon {

/// One point of a route. Metres, radians clockwise from grid north. The curve fields belong to design routes; a plain
/// route leaves them 0.
struct RouteDef {
    tagXY position;
    double range = 0.0;  ///< of the leg to the next point; 0 in the last point
    double bearing = 0.0;
    double sine = 0.0;
    double cosine = 0.0;
    double reverseBearing = 0.0;
    double kp = 0.0;       ///< metres along the route up to this point
    double kpScale = 0.0;  ///< kilometres per metre on this leg: 0.001, or 1 for a leg of no length
    double radius = 0.0;   ///< of the curve; 0 at a plain corner
    tagXY centre;
    tagXY curveStart;
    tagXY curveEnd;
    double curveStartKp = 0.0;
    double curveEndKp = 0.0;
    double startRadial = 0.0;
    double endRadial = 0.0;
    double interiorAngle = 0.0;
    double sweep = 0.0;
    double arcLength = 0.0;
    std::int32_t direction = 0;  ///< 1 clockwise, -1 anti-clockwise, 0 no curve
    tagXY portCorridorStart;
    tagXY portCorridorEnd;
    tagXY starboardCorridorStart;
    tagXY starboardCorridorEnd;
    std::string name;
};

class CRouteArray : public CArray<RouteDef> {};

inline constexpr std::array<std::string_view, 3> kRouteOrderTxt = {"Easting, Northing", "Name, Easting, Northing",
                                                                   "Easting, Northing, Name"};

/// Fills position and name from a line of a route file, by the data order.
PASSED_OVER DecodeRoutePoint(std::string_view line, int order, RouteDef& record);
/// The line of a route file that holds a record, with its line end. `line` lends its storage.
const std::string& EncodeRoutePoint(CDelimitedLine& line, const RouteDef& record, int order);

/// The name of a point in a file without names, by its place from 0.
std::string RoutePointName(std::ptrdiff_t index);

}  // namespace quillon
