#include "features/rpl_curves.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "features/leg.h"
#include "features/rpl_geometry.h"

namespace quillon {
namespace {

/// Below this angle between its legs a route turns straight back: the tangent points of 1 m of radius lie 2000 km out.
constexpr double kStraightBack = 1e-6;

/// How a curve turns between the bearings from its position back along the leg in and on along the leg out.
struct Turn {
    std::int32_t direction;
    double interior;

    Turn(double back, double on) {
        double delta = on - back;
        direction = (delta > -kPi && delta < 0.0) || delta > kPi ? 1 : -1;
        if (delta < -kPi) {
            delta += kTwoPi;
        } else if (delta >= kPi) {
            delta -= kTwoPi;
        }
        interior = std::fabs(delta);
    }
};

/// The leg from the end of a record into it. A leg of a touching pair of curves has no bearing of its own and takes
/// that in which the curve ends.
void TakeLeg(RPLDef& record, tagXY from, tagXY to) {
    LegDef leg = MakeLeg(from, to);
    if (leg.range < kTouch && record.IsCurve()) {
        leg.bearing = WithinTurn(std::remainder(record.endRadial + record.direction * kPi / 2, kTwoPi));
        leg.sine = std::sin(leg.bearing);
        leg.cosine = std::cos(leg.bearing);
        leg.reverseBearing = ReverseBearing(leg.bearing);
    }
    record.range = leg.range;
    record.bearing = leg.bearing;
    record.sine = leg.sine;
    record.cosine = leg.cosine;
    record.reverseBearing = leg.reverseBearing;
}

/// Leg and KPs from one record to the next, whose curve is known.
void Follow(RPLDef& before, RPLDef& record) {
    const double exitKp = before.ExitKp();
    TakeLeg(before, before.Exit(), record.IsCurve() ? record.curveStart : record.position);
    const double reached = before.range / 1000.0 + exitKp;
    if (!record.IsCurve()) {
        record.kp = record.curveStartKp = record.curveEndKp = reached;
        return;
    }
    record.curveStartKp = reached;
    record.curveEndKp = record.arcLength / 1000.0 + reached;
}

/// Names the lines of records for whom it may concern.
class Remarks {
public:
    Remarks(std::span<const std::uint32_t> recordLines, ReadReport* readReport)
        : lines(recordLines), report(readReport) {}
    void Add(std::size_t record, LINE_REMARK remark) {
        if (report) report->Remark(record < lines.size() ? lines[record] : 0, remark);
    }

private:
    std::span<const std::uint32_t> lines;
    ReadReport* report;
};

/// The length of a curve's tangents from its position; beyond all bounds where the route turns straight back.
double TangentLength(tagXY before, tagXY at, tagXY after, double radius) {
    const double interior = Turn(Bearing(at, before), Bearing(at, after)).interior;
    return radius / std::tan(interior / 2);
}

/// Leaves a radius only where a curve fits: alone between its neighbours' positions first, then beside their curves.
class RadiusCheck {
public:
    RadiusCheck(std::span<RPLDef> routeRecords, Remarks& lineRemarks)
        : records(routeRecords), remarks(lineRemarks), tangents(routeRecords.size()) {}

    void Run() {
        const std::size_t last = records.size() - 1;
        for (const std::size_t end : {std::size_t{0}, last}) {
            if (records[end].radius != 0.0) Drop(end, LINE_REMARK::RADIUS_AT_END);
        }
        for (std::size_t i = 1; i < last; ++i) CheckAlone(i);
        for (std::size_t i = 1; i + 1 < last; ++i) CheckPair(i);
    }

private:
    double LegTo(std::size_t i) const { return Range(records[i - 1].position, records[i].position); }

    void CheckAlone(std::size_t i) {
        if (records[i].radius == 0.0) return;
        if (!(records[i].radius > 0.0)) return Drop(i, LINE_REMARK::NEGATIVE_RADIUS);
        const tagXY before = records[i - 1].position, at = records[i].position, after = records[i + 1].position;
        if (Turn(Bearing(at, before), Bearing(at, after)).interior < kStraightBack) {
            return Drop(i, LINE_REMARK::LEG_BACK);
        }
        tangents[i] = TangentLength(before, at, after, records[i].radius);
        const bool fits = tangents[i] <= std::min(LegTo(i), LegTo(i + 1)) + kTouch;
        if (!fits) Drop(i, LINE_REMARK::RADIUS_TOO_LARGE);
    }
    void CheckPair(std::size_t i) {
        if (tangents[i] == 0.0 || tangents[i + 1] == 0.0) return;
        if (tangents[i] + tangents[i + 1] <= LegTo(i + 1) + kTouch) return;
        Drop(tangents[i] > tangents[i + 1] ? i : i + 1, LINE_REMARK::RADIUS_TOO_LARGE);
    }
    void Drop(std::size_t i, LINE_REMARK remark) {
        records[i].radius = 0.0;
        tangents[i] = 0.0;
        remarks.Add(i, remark);
    }

    std::span<RPLDef> records;
    Remarks& remarks;
    std::vector<double> tangents;
};

/// The bearings in which a route runs into a pair of tangent points and out of it.
struct TangentBearings {
    double in;
    double out;
};

/// Where the leg to a neighbour has no length, since the curves touch, its bearing follows from the other one: a circle
/// turns as far from its chord on one side as on the other. None where both have no length.
std::optional<TangentBearings> BearingsOf(tagXY before, const RPLDef& previous, const RPLDef& record, tagXY after) {
    const double chord = Bearing(record.curveStart, record.curveEnd);
    const bool hasIn = Range(before, record.curveStart) > kTouch;
    const bool hasOut = Range(record.curveEnd, after) > kTouch;
    TangentBearings bearings{Bearing(before, record.curveStart), Bearing(record.curveEnd, after)};
    if (!hasIn && previous.IsCurve()) {
        bearings.in = previous.endRadial + previous.direction * kPi / 2;
    } else if (!hasIn) {
        bearings.in = 2 * chord - bearings.out;
    }
    if (!hasOut) bearings.out = 2 * chord - bearings.in;
    if (!hasIn && !hasOut && !previous.IsCurve()) return std::nullopt;
    return bearings;
}

/// Where the tangents meet: ahead of the curve's start and behind its end. None for parallels, and for tangents that
/// meet on the wrong side.
std::optional<tagXY> TangentsMeet(const RPLDef& record, TangentBearings bearings) {
    const tagXY u{std::sin(bearings.in), std::cos(bearings.in)}, v{std::sin(bearings.out), std::cos(bearings.out)};
    const tagXY way{record.curveEnd.x - record.curveStart.x, record.curveEnd.y - record.curveStart.y};
    const double cross = u.x * v.y - u.y * v.x;
    if (cross == 0.0) return std::nullopt;
    const double ahead = (way.x * v.y - way.y * v.x) / cross;
    const double behind = (u.x * way.y - u.y * way.x) / cross;
    if (!(ahead > 0.0) || !(behind > 0.0) || !(ahead <= kFarthestPosition)) return std::nullopt;
    return tagXY{record.curveStart.x + ahead * u.x, record.curveStart.y + ahead * u.y};
}

/// The curve that touches both tangents, with the mean of the two radii that its tangent points ask for.
bool CurveFromTangents(tagXY before, const RPLDef& previous, RPLDef& record, tagXY after) {
    const std::optional<TangentBearings> bearings = BearingsOf(before, previous, record, after);
    const std::optional<tagXY> meet = bearings ? TangentsMeet(record, *bearings) : std::nullopt;
    if (!meet) return false;
    const double back = Bearing(*meet, record.curveStart);
    const Turn turn(back, Bearing(*meet, record.curveEnd));
    const double sweep = kPi - turn.interior;
    const double sine = std::sin(sweep / 2);
    if (sine == 0.0) return false;
    const double t = std::sin(turn.interior / 2) / sine;
    const double radius = (Range(*meet, record.curveStart) * t + Range(*meet, record.curveEnd) * t) / 2;
    if (!(radius > 0.0) || !(radius <= kFarthestPosition)) return false;
    record.position = *meet;
    record.direction = turn.direction;
    record.startRadial = WithinTurn(back + turn.direction * kPi / 2);
    record.endRadial = record.startRadial + turn.direction * sweep;
    record.radius = radius;
    record.arcLength = radius * sweep;
    record.centre = Offset(record.curveStart, record.startRadial, -radius);
    return true;
}

}  // namespace

bool CurveFromRadius(tagXY before, RPLDef& record, tagXY after) {
    const double back = Bearing(record.position, before);
    const Turn turn(back, Bearing(record.position, after));
    const double s = std::sin(turn.interior / 2);
    if (s == 0.0) return false;
    const double r = record.radius;
    record.direction = turn.direction;
    record.interiorAngle = turn.interior;
    record.sweep = kPi - turn.interior;
    record.startRadial = WithinTurn(back + turn.direction * kPi / 2);
    record.endRadial = record.startRadial + turn.direction * record.sweep;
    record.centre = Offset(record.position, 0.5 * (record.startRadial + record.endRadial), -(r / s));
    record.arcLength = record.sweep * r;
    record.curveStart = Offset(record.centre, record.startRadial, r);
    record.curveEnd = Offset(record.centre, record.endRadial, r);
    return true;
}

void ComputeCurvesFromRadii(std::span<RPLDef> records, std::span<const std::uint32_t> lines, ReadReport* report) {
    if (records.size() < 2) {
        for (RPLDef& record : records) MakePlain(record, record.position);
        return;
    }
    Remarks remarks(lines, report);
    RadiusCheck(records, remarks).Run();
    MakePlain(records[0], records[0].position);
    records[0].kp = 0.0;
    for (std::size_t i = 1; i < records.size(); ++i) {
        RPLDef& record = records[i];
        // The check has left no radius at the ends, and none that turns straight back.
        const bool curve =
            record.radius > 0.0 && CurveFromRadius(records[i - 1].position, record, records[i + 1].position);
        if (!curve) MakePlain(record, record.position);
        Follow(records[i - 1], record);
    }
}

std::vector<RPLDef> RecordsFromTangents(std::span<const RplRow> rows) {
    std::vector<RPLDef> records;
    if (rows.empty()) return records;
    records.reserve(rows.size() / 2 + 2);
    MakePlain(records.emplace_back(), rows[0].position);
    for (std::size_t i = 1; i < rows.size(); i += 2) {
        RPLDef& record = records.emplace_back();
        const tagXY end = rows[std::min(i + 1, rows.size() - 1)].position;
        MakePlain(record, end);
        record.curveStart = rows[i].position;
    }
    // One point alone is start and end.
    if (rows.size() == 1) MakePlain(records.emplace_back(), rows[0].position);
    return records;
}

void ComputeCurvesFromTangents(std::span<RPLDef> records, std::span<const std::uint32_t> lines, ReadReport* report) {
    if (records.size() < 3) return;
    Remarks remarks(lines, report);
    tagXY exit = records[0].position;  // as the file has it, where a corner turned out plain too
    for (std::size_t i = 1; i + 1 < records.size(); ++i) {
        RPLDef& record = records[i];
        const tagXY before = exit;
        exit = record.curveEnd;
        if (!CurveFromTangents(before, records[i - 1], record, records[i + 1].curveStart)) {
            remarks.Add(i, LINE_REMARK::NO_CURVE);
            MakePlain(record, CornerBetween(record.curveStart, record.curveEnd));
        } else if (!MeetsItsEnd(record)) {
            remarks.Add(i, LINE_REMARK::ARC_MISSES_END);
        }
        Follow(records[i - 1], record);
    }
    RPLDef& end = records.back();
    RPLDef& before = records[records.size() - 2];
    const double exitKp = before.ExitKp();
    TakeLeg(before, before.Exit(), end.curveStart);
    end.kp = end.curveStartKp = end.curveEndKp = before.range / 1000.0 + exitKp;
}

void ComputeRplCorridor(std::span<RPLDef> records, CorridorWidths widths) {
    if (records.size() < 2) return;
    records.front().kp = 0.0;
    for (std::size_t i = 0; i < records.size(); ++i) {
        RPLDef& record = records[i];
        const bool end = i == 0 || i + 1 == records.size();
        if (!end && record.IsCurve()) {
            const double port = record.radius + record.direction * widths.port;
            const double starboard = record.radius - record.direction * widths.starboard;
            record.portCorridorStart = Offset(record.centre, record.startRadial, port);
            record.portCorridorEnd = Offset(record.centre, record.endRadial, port);
            record.starboardCorridorStart = Offset(record.centre, record.startRadial, starboard);
            record.starboardCorridorEnd = Offset(record.centre, record.endRadial, starboard);
            continue;
        }
        const RPLDef& leg = records[i == 0 ? 0 : i - 1];
        const CorridorCorner corner =
            end ? SquareCorner(record.position, leg.sine, leg.cosine, widths)
                : MitreCorner(records[i - 1].position, record.position, records[i + 1].position, widths);
        record.portCorridorStart = record.portCorridorEnd = corner.port;
        record.starboardCorridorStart = record.starboardCorridorEnd = corner.starboard;
    }
}

}  // namespace quillon
