#pragma once

#include <span>
#include <vector>

#include "features/corridor_mitre.h"
#include "features/rpl_rows.h"
#include "foundation/values.h"

namespace quillon {

/// One record of a route position list: its start, its end, or a curve or plain corner between them. Metres of the
/// job's grid, kilometres for KPs, radians clockwise from grid north.
///
/// All points of a plain corner, and of the two ends, lie at its position: nothing of a record can be drawn at 0, 0.
struct RPLDef {
    tagXY position;        ///< of a curve: where the legs to either side of it meet
    double range = 0.0;    ///< of the leg that belongs to the record
    double bearing = 0.0;  ///< of that leg, 0 to 2 pi
    double sine = 0.0;     ///< of the bearing
    double cosine = 0.0;
    double reverseBearing = 0.0;
    double kp = 0.0;      ///< of the position of a start, end or plain corner
    double radius = 0.0;  ///< 0 for a plain corner
    tagXY centre;
    tagXY curveStart;  ///< the tangent points
    tagXY curveEnd;
    double curveStartKp = 0.0;
    double curveEndKp = 0.0;
    double startRadial = 0.0;    ///< bearing from the centre to the start of the curve
    double endRadial = 0.0;      ///< to its end; not brought back into a turn
    double interiorAngle = 0.0;  ///< between the two legs
    double sweep = 0.0;          ///< turned through along the curve
    double arcLength = 0.0;
    std::int32_t direction = 0;  ///< 1 clockwise, -1 anti-clockwise, 0 no curve
    tagXY portCorridorStart;     ///< edges at the beginning and the end of the record
    tagXY portCorridorEnd;
    tagXY starboardCorridorStart;
    tagXY starboardCorridorEnd;

    constexpr bool IsCurve() const { return direction != 0; }
    /// Where the route leaves the record, and the KP there.
    tagXY Exit() const { return IsCurve() ? curveEnd : position; }
    double ExitKp() const { return IsCurve() ? curveEndKp : kp; }
};

// Input that asks for no curve, or for one that can't be (a negative radius, a radius on the first or last record, a
// leg straight back, curves that overlap), becomes a plain corner, and the report names the line. Curves that touch
// within kTouch stay. Where two curves overlap, the one with the longer tangents goes.

/// Metres. Files are rounded to millimetres.
inline constexpr double kTouch = 1e-3;

/// The curve of a radius at `record`'s position, between legs from `before` and to `after`. False, and nothing has
/// changed, where the route turns straight back.
bool CurveFromRadius(tagXY before, RPLDef& record, tagXY after);

/// Records of intersection points with a radius each: curves, legs and KPs. `lines` are the lines of the records in
/// their file; empty, with no report, if nobody asks.
void ComputeCurvesFromRadii(std::span<RPLDef> records, std::span<const std::uint32_t> lines, ReadReport* report);

/// Records of tangent points (curveStart and curveEnd; the start has an end, the last one a start): curves, legs and
/// KPs. Nothing happens to fewer than 3. Interior angle and sweep aren't kept.
void ComputeCurvesFromTangents(std::span<RPLDef> records, std::span<const std::uint32_t> lines, ReadReport* report);

/// The records of tangent points in their file order.
std::vector<RPLDef> RecordsFromTangents(std::span<const RplRow> rows);

/// The records of rows of straights and arcs, complete but for the corridor. The first and the last row are straight,
/// whatever their radius. A straight between two others leaves no record, only its length in the KPs.
std::vector<RPLDef> RecordsFromRlx(const std::vector<RLXDef>& rows, ReadReport& report);

/// The edges of the corridor: concentric arcs along curves, mitres at plain corners. Nothing happens to fewer than 2
/// records. An edge on the inside of a curve tighter than the corridor is wide lies beyond the centre.
void ComputeRplCorridor(std::span<RPLDef> records, CorridorWidths widths);

}  // namespace quillon
