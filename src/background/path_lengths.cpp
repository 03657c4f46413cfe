#include "background/path_lengths.h"

#include <algorithm>

#include "foundation/angle_units.h"

namespace quillon {

PathLengths::PathLengths(const LoadProgress& loadProgress) : progress(loadProgress), legs(kVertices) {
    ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
    lats.reserve(kVertices);
    lons.reserve(kVertices);
}

void PathLengths::Add(std::span<const double> x, std::span<const double> y, double& length) {
    length = 0;
    // A stretch that ends with the block is taken up again from its last vertex.
    for (std::size_t at = 0; at + 1 < x.size() && !progress.IsCancelled();) {
        if (kVertices - lats.size() < 2) WorkOut();
        const std::size_t count = std::min(kVertices - lats.size(), x.size() - at);
        stretches.push_back({&length, lats.size(), count - 1});
        for (std::size_t i = at; i < at + count; ++i) {
            lats.push_back(y[i] * kRadiansPerDegree);
            lons.push_back(x[i] * kRadiansPerDegree);
        }
        at += count - 1;
    }
}

void PathLengths::WorkOut() {
    // The legs between one path and the next are worked out too, and not used.
    ellipsoid.DistancesAlong(lats, lons, legs);
    for (const Stretch& stretch : stretches) {
        double sum = *stretch.length;
        for (std::size_t i = 0; i < stretch.legs; ++i) sum += legs[stretch.first + i];
        *stretch.length = sum;
    }
    stretches.clear();
    lats.clear();
    lons.clear();
}

}  // namespace quillon
