#include "host/rpl_outline.h"

#include <algorithm>
#include <cmath>

#include "features/rpl_geometry.h"
#include "host/corridor_outline.h"

namespace quillon {
namespace {

/// A third of the chart's finest pixel of a tenth of a millimetre.
constexpr double kFinestTolerance = 0.00003;
/// Of all arcs of a list together. Up to 1000 curves of 1 km of radius get as many as the finest scale needs.
constexpr double kMostChords = 2e6;

/// The tangent forms keep no sweep.
double SweepOf(const RPLDef& curve) {
    return curve.radius > 0.0 ? curve.arcLength / curve.radius : 0.0;
}

/// A chord over an angle of a circle lies off it by r(1 - cos(angle / 2)), which is near r * angle^2 / 8.
std::size_t ChordsOf(double sweep, double radius, double tolerance) {
    const double angle = std::sqrt(8.0 * tolerance / std::max(radius, tolerance));
    return static_cast<std::size_t>(std::clamp(std::ceil(sweep / angle), 1.0, kMostChords));
}

/// Calls `each(radial)` for the bearings from the centre to the points between the two ends of the arc.
template <class Each>
void EachRadialBetween(const RPLDef& curve, std::size_t chords, Each each) {
    const double step = curve.direction * SweepOf(curve) / static_cast<double>(chords);
    for (std::size_t i = 1; i < chords; ++i) each(curve.startRadial + step * static_cast<double>(i));
}

/// How far an edge lies from the centre; negative beyond it.
double EdgeRadius(const RPLDef& curve, tagXY edgeStart) {
    return (edgeStart.x - curve.centre.x) * std::sin(curve.startRadial) +
           (edgeStart.y - curve.centre.y) * std::cos(curve.startRadial);
}

/// The widths that the edges were laid out with.
CorridorWidths WidthsOf(const RPLDef& start) {
    return {Range(start.position, start.portCorridorStart), Range(start.position, start.starboardCorridorStart)};
}

/// Where the sides of the two legs meet on the inside of a curve that is too tight for them.
tagXY InnerCorner(const RPLDef& curve, double width) {
    const tagXY inwards = {curve.centre.x - curve.position.x, curve.centre.y - curve.position.y};
    const double sine = std::sin((kPi - SweepOf(curve)) / 2), length = std::hypot(inwards.x, inwards.y);
    if (!(length > 0.0) || !(sine > 0.0)) return curve.centre;
    const double off = std::min(width / sine, length + width) / length;
    return {curve.position.x + off * inwards.x, curve.position.y + off * inwards.y};
}

class CorridorPoints {
public:
    explicit CorridorPoints(double chordTolerance) : tolerance(chordTolerance) {}

    void AddPlain(const RPLDef& record) {
        points.push_back({record.position, record.portCorridorStart, record.starboardCorridorStart});
    }
    void AddCurve(const RPLDef& curve) {
        const double port = EdgeRadius(curve, curve.portCorridorStart);
        const double starboard = EdgeRadius(curve, curve.starboardCorridorStart);
        const tagXY portCorner = InnerCorner(curve, std::fabs(curve.radius - port));
        const tagXY starboardCorner = InnerCorner(curve, std::fabs(curve.radius - starboard));
        const auto at = [&](double radial) {
            points.push_back({Offset(curve.centre, radial, curve.radius),
                              port > 0.0 ? Offset(curve.centre, radial, port) : portCorner,
                              starboard > 0.0 ? Offset(curve.centre, radial, starboard) : starboardCorner});
        };
        const double widest = std::max({port, starboard, curve.radius});
        at(curve.startRadial);
        EachRadialBetween(curve, ChordsOf(SweepOf(curve), widest, tolerance), at);
        at(curve.startRadial + curve.direction * SweepOf(curve));
    }

    std::vector<CorridorPoint> points;

private:
    double tolerance;
};

}  // namespace

double RplChordTolerance(std::span<const RPLDef> records) {
    double chords = 0.0;  // at a tolerance of an eighth of a metre
    for (const RPLDef& record : records) {
        if (record.IsCurve()) chords += SweepOf(record) * std::sqrt(record.radius);
    }
    return std::max(kFinestTolerance, chords * chords / (8.0 * kMostChords * kMostChords));
}

RplLine RplRouteLine(std::span<const RPLDef> records, double tolerance) {
    RplLine line;
    for (std::size_t i = 0; i < records.size(); ++i) {
        const RPLDef& record = records[i];
        const auto add = [&](tagXY at) {
            line.points.push_back(at);
            line.recordOf.push_back(static_cast<std::uint32_t>(i));
        };
        if (!record.IsCurve()) {
            add(record.position);
            continue;
        }
        add(record.curveStart);
        EachRadialBetween(record, ChordsOf(SweepOf(record), record.radius, tolerance),
                          [&](double radial) { add(Offset(record.centre, radial, record.radius)); });
        add(record.curveEnd);
    }
    return line;
}

RplLine RplMarks(std::span<const RPLDef> records) {
    RplLine marks;
    for (std::size_t i = 0; i < records.size(); ++i) {
        const RPLDef& record = records[i];
        marks.points.push_back(record.IsCurve() ? record.curveStart : record.position);
        if (record.IsCurve()) marks.points.push_back(record.curveEnd);
        marks.recordOf.resize(marks.points.size(), static_cast<std::uint32_t>(i));
    }
    return marks;
}

std::vector<double> RplMarkKps(std::span<const RPLDef> records) {
    std::vector<double> kps;
    for (const RPLDef& record : records) {
        kps.push_back(record.IsCurve() ? record.curveStartKp : record.kp);
        if (record.IsCurve()) kps.push_back(record.curveEndKp);
    }
    return kps;
}

std::vector<tagXY> RplCorridorOutline(std::span<const RPLDef> records, double tolerance) {
    if (records.size() < 2) return {};
    CorridorPoints corridor(tolerance);
    for (const RPLDef& record : records) record.IsCurve() ? corridor.AddCurve(record) : corridor.AddPlain(record);
    return CorridorOutline(corridor.points.size(), WidthsOf(records.front()),
                           [&](std::size_t i) { return corridor.points[i]; });
}

}  // namespace quillon
