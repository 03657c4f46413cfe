#include "features/rpl_place.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "features/rpl_geometry.h"

namespace quillon {
namespace {

tagXY EntryOf(const RPLDef& record) {
    return record.IsCurve() ? record.curveStart : record.position;
}
double EntryKp(const RPLDef& record) {
    return record.IsCurve() ? record.curveStartKp : record.kp;
}

tagXY Between(tagXY from, tagXY to, double part) {
    return {from.x + part * (to.x - from.x), from.y + part * (to.y - from.y)};
}

/// A place by its part of the way along a leg or an arc, 0 to 1.
tagXY OnArc(const RPLDef& curve, double part) {
    const double sweep = curve.arcLength / curve.radius;
    return Offset(curve.centre, curve.startRadial + curve.direction * sweep * part, curve.radius);
}

class Nearest {
public:
    explicit Nearest(tagXY position) : at(position) {}

    void LookAtLeg(const RPLDef& before, const RPLDef& record) {
        const tagXY from = before.Exit(), to = EntryOf(record);
        const double dx = to.x - from.x, dy = to.y - from.y, squared = dx * dx + dy * dy;
        const double part = squared > 0 ? ((at.x - from.x) * dx + (at.y - from.y) * dy) / squared : 0.0;
        Take(from, to, std::clamp(part, 0.0, 1.0), before.ExitKp(), EntryKp(record));
    }
    void LookAtArc(const RPLDef& curve) {
        const double sweep = curve.arcLength / curve.radius;
        double turned = std::remainder(curve.direction * (Bearing(curve.centre, at) - curve.startRadial), kTwoPi);
        // Opposite the arc the nearer end counts.
        if (turned < (sweep - kTwoPi) / 2) turned += kTwoPi;
        const double part = std::clamp(turned / sweep, 0.0, 1.0);
        TakePlace(OnArc(curve, part), curve.curveStartKp + part * (curve.curveEndKp - curve.curveStartKp));
    }
    double kp = MISSING_VALUE;

private:
    void Take(tagXY from, tagXY to, double part, double fromKp, double toKp) {
        TakePlace(Between(from, to, part), fromKp + part * (toKp - fromKp));
    }
    void TakePlace(tagXY place, double placeKp) {
        const double off = Range(place, at);
        if (!(off < distance)) return;
        distance = off;
        kp = placeKp;
    }

    tagXY at;
    double distance = std::numeric_limits<double>::infinity();
};

/// The part of the way from one KP to another at which a third lies; none if it lies beside.
std::optional<double> PartOf(double from, double to, double kp) {
    if (kp < from || kp > to) return std::nullopt;
    return to > from ? (kp - from) / (to - from) : 0.0;
}

}  // namespace

double RplKpAt(std::span<const RPLDef> records, tagXY at) {
    Nearest nearest(at);
    for (std::size_t i = 0; i < records.size(); ++i) {
        nearest.LookAtLeg(records[i == 0 ? 0 : i - 1], records[i]);
        if (records[i].IsCurve()) nearest.LookAtArc(records[i]);
    }
    return nearest.kp;
}

std::optional<tagXY> RplPlaceAt(std::span<const RPLDef> records, double kp) {
    for (std::size_t i = 0; i < records.size(); ++i) {
        const RPLDef& record = records[i];
        const RPLDef& before = records[i == 0 ? 0 : i - 1];
        const double from = i == 0 ? EntryKp(record) : before.ExitKp();
        if (const auto part = PartOf(from, EntryKp(record), kp)) {
            return i == 0 ? EntryOf(record) : Between(before.Exit(), EntryOf(record), *part);
        }
        if (!record.IsCurve()) continue;
        if (const auto part = PartOf(record.curveStartKp, record.curveEndKp, kp)) return OnArc(record, *part);
    }
    return std::nullopt;
}

}  // namespace quillon
