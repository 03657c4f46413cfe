#include "background/dtm_progress.h"

namespace quillon {
namespace {

constexpr auto kRelaxed = std::memory_order_relaxed;

/// Stores a value in place of one that it is better than.
template <class Better>
void Improve(std::atomic<double>& number, double value, Better better) {
    double now = number.load(kRelaxed);
    while (better(value, now) && !number.compare_exchange_weak(now, value, kRelaxed)) {
    }
}

void Lower(std::atomic<double>& number, double value) {
    Improve(number, value, [](double a, double b) { return a < b; });
}
void Raise(std::atomic<double>& number, double value) {
    if (IsMissing(value)) return;
    Improve(number, value, [](double a, double b) { return IsMissing(b) || a > b; });
}

}  // namespace

void DtmProgress::Publish(const DtmExtents& extents) {
    Lower(minEasting, extents.easting.minimum);
    Lower(minNorthing, extents.northing.minimum);
    Lower(minDepth, extents.minDepth);
    Raise(maxEasting, extents.easting.maximum);
    Raise(maxNorthing, extents.northing.maximum);
    Raise(maxDepth, extents.maxDepth);
    if (extents.step == 0.0) return;
    Improve(step, extents.step, [](double a, double b) { return b == 0.0 || a < b; });
}

void DtmProgress::PublishSample(const tagXYZ& sample) {
    sampleEasting.store(sample.x, kRelaxed);
    sampleNorthing.store(sample.y, kRelaxed);
    sampleDepth.store(sample.z, kRelaxed);
}

DtmExtents DtmProgress::GetExtents() const {
    DtmExtents extents;
    extents.easting.minimum = minEasting.load(kRelaxed);
    extents.easting.maximum = maxEasting.load(kRelaxed);
    extents.northing.minimum = minNorthing.load(kRelaxed);
    extents.northing.maximum = maxNorthing.load(kRelaxed);
    extents.step = step.load(kRelaxed);
    extents.minDepth = minDepth.load(kRelaxed);
    extents.maxDepth = maxDepth.load(kRelaxed);
    for (DtmExtents::Axis* const axis : {&extents.easting, &extents.northing}) {
        if (extents.step > 0.0) axis->count = DtmCount(axis->maximum - axis->minimum, extents.step);
    }
    return extents;
}

tagXYZ DtmProgress::GetSample() const {
    return {sampleEasting.load(kRelaxed), sampleNorthing.load(kRelaxed), sampleDepth.load(kRelaxed)};
}

}  // namespace quillon
