#include "background/dtm_extents.h"

#include <algorithm>
#include <cmath>

namespace quillon {
namespace {

constexpr double kMostCount = 4611686018427387904.0;  // 2^62

/// Nobody looks on.
struct NoWatch {
    void Lowest(const DtmExtents::Axis&) {}
    void Highest(const DtmExtents::Axis&) {}
    void Step(const DtmExtents::Axis&) {}
};

template <class Watch>
inline void AddToAxis(DtmExtents::Axis& axis, double value, double& step, Watch& watch) {
    if (IsMissing(axis.previous)) {
        axis.minimum = axis.maximum = value;
    } else {
        if (value == axis.previous) return;
        if (value < axis.minimum) {
            axis.minimum = value;
            if (step > 0.0) axis.count = DtmCount(axis.maximum - value, step);
            watch.Lowest(axis);
        } else if (value > axis.maximum) {
            axis.maximum = value;
            if (step > 0.0) axis.count = DtmCount(value - axis.minimum, step);
            watch.Highest(axis);
        }
        const double change = std::fabs(value - axis.previous);
        if (step == 0.0 || step > change) {
            step = change;
            watch.Step(axis);
        }
    }
    axis.previous = value;
}

inline bool WidenDepths(DtmExtents& extents, double depth) {
    if (IsMissing(depth)) return false;
    extents.maxDepth = IsMissing(extents.maxDepth) ? depth : std::max(extents.maxDepth, depth);
    extents.minDepth = std::min(extents.minDepth, depth);
    return true;
}

/// The smaller step, where 0 is none yet.
double SmallerStep(double a, double b) {
    return a == 0.0 || (b != 0.0 && b < a) ? b : a;
}

}  // namespace

std::int64_t DtmCount(double span, double step) {
    const double steps = span / step;
    return steps < kMostCount ? static_cast<std::int64_t>(steps) + 1 : static_cast<std::int64_t>(kMostCount);
}

bool DtmExtents::AddSample(double e, double n, double depth) {
    NoWatch nobody;
    if (IsMissing(e)) return false;
    AddToAxis(easting, e, step, nobody);
    if (IsMissing(n)) return false;
    AddToAxis(northing, n, step, nobody);
    return WidenDepths(*this, depth);
}

void DtmArea::Widen(double e, double n) {
    minEasting = std::min(minEasting, e);
    minNorthing = std::min(minNorthing, n);
    maxEasting = IsMissing(maxEasting) ? e : std::max(maxEasting, e);
    maxNorthing = IsMissing(maxNorthing) ? n : std::max(maxNorthing, n);
}

void DtmArea::Widen(const DtmArea& other) {
    if (IsMissing(other.minEasting)) return;
    Widen(other.minEasting, other.minNorthing);
    Widen(other.maxEasting, other.maxNorthing);
}

// ---- A run ----

struct DtmExtentsRun::Watch {
    DtmExtentsRun& run;
    Sides& sides;
    const DtmPlace& here;

    void Lowest(const DtmExtents::Axis& axis) { sides.lowest = {run.samples, axis.maximum, run.extents.step}; }
    void Highest(const DtmExtents::Axis& axis) { sides.highest = {run.samples, axis.minimum, run.extents.step}; }
    void Step(const DtmExtents::Axis&) { run.source = {run.last, here}; }
};

void DtmExtentsRun::Add(const tagXYZ& sample, std::size_t line) {
    const DtmPlace here{0, line, {sample.x, sample.y}};
    ++samples;
    Watch eastings{*this, eastingSides, here};
    AddToAxis(extents.easting, sample.x, extents.step, eastings);
    Watch northings{*this, northingSides, here};
    AddToAxis(extents.northing, sample.y, extents.step, northings);
    if (WidenDepths(extents, sample.z)) {
        area.Widen(sample.x, sample.y);
    } else {
        ++withoutDepth;
    }
    if (samples == 1) first = here;
    last = here;
}

void DtmExtentsRun::Append(const DtmExtentsRun& later, int slot, std::size_t linesBefore) {
    if (later.samples == 0) return;
    const auto placed = [&](DtmPlace place) { return DtmPlace{slot, place.line + linesBefore, place.position}; };

    // The seam: the first sample comes as any other would.
    const double stepBefore = extents.step;
    extents.AddSample(later.first.position.x, later.first.position.y, MISSING_VALUE);
    if (extents.step != stepBefore) source = {last, placed(later.first)};

    AppendAxis(extents.easting, later.extents.easting, later.eastingSides);
    AppendAxis(extents.northing, later.extents.northing, later.northingSides);
    if (SmallerStep(extents.step, later.extents.step) != extents.step) {
        extents.step = later.extents.step;
        source = {placed(later.source->before), placed(later.source->behind)};
    }
    WidenDepths(extents, later.extents.minDepth);
    WidenDepths(extents, later.extents.maxDepth);
    area.Widen(later.area);
    samples += later.samples;
    withoutDepth += later.withoutDepth;
    last = placed(later.last);
}

/// `axis` has had the first sample of the later run already.
void DtmExtentsRun::AppendAxis(DtmExtents::Axis& axis, const DtmExtents::Axis& later, const Sides& sides) {
    const bool lower = later.minimum < axis.minimum;
    const bool higher = later.maximum > axis.maximum;
    const Extreme& low = sides.lowest;
    const Extreme& high = sides.highest;
    if (lower && (!higher || low.ordinal > high.ordinal)) {
        const double step = SmallerStep(extents.step, low.step);
        if (step > 0.0) axis.count = DtmCount(std::max(axis.maximum, low.otherSide) - later.minimum, step);
    } else if (higher) {
        const double step = SmallerStep(extents.step, high.step);
        if (step > 0.0) axis.count = DtmCount(later.maximum - std::min(axis.minimum, high.otherSide), step);
    }
    axis.minimum = std::min(axis.minimum, later.minimum);
    axis.maximum = std::max(axis.maximum, later.maximum);
    axis.previous = later.previous;
}

}  // namespace quillon
