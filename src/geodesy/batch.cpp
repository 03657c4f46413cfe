#include "geodesy/batch.h"

#include <algorithm>
#include <array>

#include "geodesy/formulas.h"
#include "geodesy/norwegian_axes.h"
#include "geodesy/scalar_math.h"

namespace quillon {

extern const BatchKernels kBaselineKernels;
#ifdef QUILLON_X86_KERNELS
extern const BatchKernels kAvx2Kernels;
extern const BatchKernels kAvx512Kernels;
#endif

namespace {

struct tagKernelsHere {
    std::array<const BatchKernels*, 3> kernels{};
    std::size_t count = 0;

    tagKernelsHere() {
#ifdef QUILLON_X86_KERNELS
        if (__builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq")) kernels[count++] = &kAvx512Kernels;
        if (__builtin_cpu_supports("avx2")) kernels[count++] = &kAvx2Kernels;
#endif
        kernels[count++] = &kBaselineKernels;
    }
};

/// The lanes' series wants a flattening like the earth's.
bool FitsLanes(const CEllipsoid& ellipsoid) {
    return ellipsoid.e2 >= 0 && ellipsoid.e2 <= Formulas<ScalarMath>::kSeriesE2;
}
bool FitsLanes(const CGrid& grid) {
    return grid.ellipsoid != nullptr && grid.ellipsoid->a != 0 && grid.k0 != 0 && FitsLanes(*grid.ellipsoid);
}

/// UTM positions become positions on their axes; 0, 0 stays no position.
void UtmToNorwegian(const CGrid& grid, std::span<double> first, std::span<double> second) {
    for (std::size_t i = 0; i < first.size(); i++) {
        const bool none = first[i] == 0 && second[i] == 0;
        const tagNorwegian position =
            none ? tagNorwegian{} : NorwegianFromUtm(grid.utmZone, grid.subtype, first[i], second[i]);
        first[i] = position.X;
        second[i] = position.Y;
    }
}

}  // namespace

std::span<const BatchKernels* const> BatchKernelsHere() {
    static const tagKernelsHere here;
    return std::span(here.kernels).first(here.count);
}

void CGrid::ForwardAll(std::span<double> eastings, std::span<double> northings, std::span<const double> latitudes,
                       std::span<const double> longitudes) const {
    const std::size_t count = std::min({eastings.size(), northings.size(), latitudes.size(), longitudes.size()});
    if (FitsLanes(*this)) {
        BatchKernelsHere().front()->forward(*this, latitudes.data(), longitudes.data(), eastings.data(),
                                            northings.data(), count);
        if (type == NORWEGIAN_AXES) UtmToNorwegian(*this, eastings.first(count), northings.first(count));
        return;
    }
    for (std::size_t i = 0; i < count; i++) ForwardAlone(&eastings[i], &northings[i], latitudes[i], longitudes[i]);
}

bool CEllipsoid::DistanceAll(std::span<const double> firstLats, std::span<const double> firstLons,
                             std::span<const double> secondLats, std::span<const double> secondLons,
                             std::span<double> distances) const {
    if (method != 0 && method != 1) return false;
    const std::size_t count =
        std::min({firstLats.size(), firstLons.size(), secondLats.size(), secondLons.size(), distances.size()});
    if (FitsLanes(*this) && e2 != 0) {
        BatchKernelsHere().front()->distance(*this, firstLats.data(), firstLons.data(), secondLats.data(),
                                             secondLons.data(), distances.data(), count);
        return true;
    }
    for (std::size_t i = 0; i < count; i++) {
        Distance(firstLats[i], firstLons[i], secondLats[i], secondLons[i], &distances[i]);
    }
    return true;
}

bool CEllipsoid::DistancesAlong(std::span<const double> lats, std::span<const double> lons,
                                std::span<double> distances) const {
    if (method != 0 && method != 1) return false;
    const std::size_t vertices = std::min(lats.size(), lons.size());
    if (vertices < 2) return true;
    const std::size_t count = std::min(vertices - 1, distances.size());
    if (FitsLanes(*this) && e2 != 0) {
        BatchKernelsHere().front()->legs(*this, lats.data(), lons.data(), distances.data(), count);
        return true;
    }
    return DistanceAll(lats.first(count), lons.first(count), lats.subspan(1, count), lons.subspan(1, count), distances);
}

}  // namespace quillon
