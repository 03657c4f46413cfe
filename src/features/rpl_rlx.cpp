#include <cmath>
#include <cstddef>
#include <utility>

#include "features/leg.h"
#include "features/rpl_curves.h"
#include "features/rpl_geometry.h"

namespace quillon {
namespace {

/// Where a curve turns so nearly half round that its tangents meet a million radii out, the top of the arc stands for
/// the point where they meet.
constexpr double kHalfRound = 1e-6;

bool IsCoordinate(double value) {
    return !IsMissing(value) && std::fabs(value) <= kFarthestPosition;
}
bool IsPosition(double easting, double northing) {
    return IsCoordinate(easting) && IsCoordinate(northing) && !(easting == 0.0 && northing == 0.0);
}

/// A row whose positions are known.
struct Row {
    tagXY start;
    tagXY end;
    double radius = 0.0;
    std::uint32_t line = 0;
    bool damaged = false;  ///< a number is missing in the file
};

/// A position that is missing is that of the row before or after, which meets this one there. A row without either of
/// its own is passed over.
std::vector<Row> CompleteRows(const std::vector<RLXDef>& given, ReadReport& report) {
    std::vector<Row> rows;
    rows.reserve(given.size());
    for (std::size_t i = 0; i < given.size(); ++i) {
        const RLXDef& row = given[i];
        const RLXDef* const next = i + 1 < given.size() ? &given[i + 1] : nullptr;
        const bool hasStart = IsPosition(row.startEasting, row.startNorthing);
        const bool hasEnd = IsPosition(row.endEasting, row.endNorthing);
        const bool nextStarts = next && IsPosition(next->startEasting, next->startNorthing);
        if ((!hasStart && !hasEnd) || (!hasStart && rows.empty()) || (!hasEnd && !nextStarts)) {
            report.TakeBack(row.line, PASSED_OVER::NO_EASTING);
            continue;
        }
        Row whole;
        whole.start = hasStart ? tagXY{row.startEasting, row.startNorthing} : rows.back().end;
        whole.end = hasEnd ? tagXY{row.endEasting, row.endNorthing} : tagXY{next->startEasting, next->startNorthing};
        whole.damaged = !hasStart || !hasEnd || !IsCoordinate(row.radius);
        whole.radius = whole.damaged ? 0.0 : row.radius;
        whole.line = row.line;
        if (whole.damaged) report.Remark(row.line, LINE_REMARK::NUMBER_MISSING);
        rows.push_back(whole);
    }
    return rows;
}

/// Walks the rows with a KP and a bearing that run on from one to the next. The bearing is that of the last curve's
/// end: a curve begins where the one before it ended, whatever the straight between them says.
class RlxWalk {
public:
    RlxWalk(std::vector<RPLDef>& target, ReadReport& readReport) : records(target), report(readReport) {}

    void Begin(const Row& row) {
        if (row.radius != 0.0) Remark(row, LINE_REMARK::RADIUS_AT_END);
        TakeStraight(row);
        bearing = leg.bearing;
        RPLDef& record = Append(row.start);
        record.curveStartKp = kp;
    }
    void Take(const Row& row) {
        if (row.damaged) return TakePlain(row);
        if (row.radius == 0.0) {
            TakeStraight(row);
            if (bearingLost) bearing = leg.bearing;
            bearingLost = false;
            return;
        }
        const double chord = Range(row.start, row.end);
        if (chord < kTouch || chord > 2 * std::fabs(row.radius) + kMissedEnd) {
            Remark(row, LINE_REMARK::NO_CURVE);
            return TakePlain(row);
        }
        TakeCurve(row);
    }
    void End(const Row& row) {
        if (row.radius != 0.0) Remark(row, LINE_REMARK::RADIUS_AT_END);
        TakeStraight(row);
        RPLDef& record = Append(row.end);
        record.kp = record.curveStartKp = record.curveEndKp = kp;
    }
    /// A single row is a start and an end.
    void EndOfOnly(const Row& row) {
        RPLDef& record = Append(row.end);
        record.kp = record.curveStartKp = record.curveEndKp = kp;
    }

private:
    void Remark(const Row& row, LINE_REMARK remark) { report.Remark(row.line, remark); }
    /// A plain record with the last straight as its leg.
    RPLDef& Append(tagXY at) {
        RPLDef& record = records.emplace_back();
        MakePlain(record, at);
        record.range = leg.range;
        record.bearing = leg.bearing;
        record.sine = leg.sine;
        record.cosine = leg.cosine;
        record.reverseBearing = leg.reverseBearing;
        return record;
    }
    void TakeStraight(const Row& row) {
        leg = MakeLeg(row.start, row.end);
        kp += leg.range / 1000.0;
    }

    /// A corner in the middle of the row. What a curve would have turned is guessed from its chord; the next straight
    /// knows better.
    void TakePlain(const Row& row) {
        const double chord = Range(row.start, row.end);
        RPLDef& record = Append(CornerBetween(row.start, row.end));
        record.kp = record.curveStartKp = record.curveEndKp = kp + chord / 2000.0;
        kp += chord / 1000.0;
        if (chord >= kTouch) bearing = WithinTurn(std::remainder(2 * Bearing(row.start, row.end) - bearing, kTwoPi));
        bearingLost = true;
    }

    void TakeCurve(const Row& row) {
        RPLDef& record = Append(row.start);
        const int direction = row.radius > 0.0 ? 1 : -1;
        const double r = std::fabs(row.radius);
        record.direction = direction;
        record.radius = r;
        record.curveStart = row.start;
        record.curveEnd = row.end;
        record.startRadial = WithinTurn(bearing - direction * kPi / 2);
        record.centre = Offset(row.start, record.startRadial + kPi, r);
        record.endRadial = Bearing(record.centre, row.end);
        record.sweep = direction * (record.endRadial - record.startRadial);
        if (record.sweep < 0.0) record.sweep += kTwoPi;
        record.interiorAngle = kPi - record.sweep;
        record.arcLength = r * record.sweep;
        const double cosine = std::cos(record.sweep / 2);
        record.position = Offset(record.centre, record.startRadial + direction * record.sweep / 2,
                                 std::fabs(cosine) < kHalfRound ? r : r / cosine);
        record.kp = record.curveStartKp = kp;
        kp += record.arcLength / 1000.0;
        record.curveEndKp = kp;
        bearing = record.endRadial + direction * kPi / 2;
        bearingLost = false;
        if (!MeetsItsEnd(record)) Remark(row, LINE_REMARK::ARC_MISSES_END);
    }

    std::vector<RPLDef>& records;
    ReadReport& report;
    LegDef leg;
    double kp = 0.0;
    double bearing = 0.0;
    bool bearingLost = false;
};

}  // namespace

std::vector<RPLDef> RecordsFromRlx(const std::vector<RLXDef>& given, ReadReport& report) {
    std::vector<RPLDef> records;
    const std::vector<Row> rows = CompleteRows(given, report);
    if (rows.empty()) return records;
    RlxWalk walk(records, report);
    walk.Begin(rows.front());
    for (std::size_t i = 1; i + 1 < rows.size(); ++i) walk.Take(rows[i]);
    if (rows.size() > 1) {
        walk.End(rows.back());
    } else {
        walk.EndOfOnly(rows.front());
    }
    return records;
}

}  // namespace quillon
