#pragma once

#include "geodesy/batch.h"
#include "geodesy/formulas.h"
#include "geodesy/inverse_formulas.h"
#include "geodesy/lane_math.h"

namespace quillon {

/// The loops of one instruction set. Included only by the source files compiled for a set, each with a width of its
/// own, and calls nothing inline of the standard library: a copy compiled here could be the one that the linker keeps.
template <int kLanes>
struct LaneLoops {
    using M = LaneMath<kLanes>;
    using V = typename M::Value;
    using Mask = typename M::Mask;

    static constexpr double kHighestLat = 1.5707;  // 600 m short of the pole
    static constexpr double kHighestLon = 7.0;     // a turn and a little to either side
    static constexpr double kNoPosition = 4.848136811095278e-9;

    static V Load(const double* from) {
        V values;
        __builtin_memcpy(&values, from, sizeof values);
        return values;
    }
    static void Store(double* to, V values) { __builtin_memcpy(to, &values, sizeof values); }

    static Mask Apart(V lat, V lon) { return (M::Abs(lat) < kHighestLat) & (M::Abs(lon) < kHighestLon); }

    /// Positions that the lanes may take: on the globe short of the poles, and not the one that stands for no position.
    static Mask Ordinary(V lat, V lon) {
        return Apart(lat, lon) & ((M::Abs(lat) >= kNoPosition) | (M::Abs(lon) >= kNoPosition));
    }

    template <class F>
    static void ForwardGroup(const CGrid& grid, F formula, const double* lat, const double* lon, double* east,
                             double* north) {
        const V lats = Load(lat), lons = Load(lon);
        const Mask ordinary = Ordinary(lats, lons);
        const auto position = formula(grid, lats, lons);
        Store(east, position.east);
        Store(north, position.north);
        if (M::All(ordinary)) return;
        for (int i = 0; i < kLanes; i++) {
            if (!ordinary[i]) ForwardByFormula(grid, &east[i], &north[i], lats[i], lons[i]);
        }
    }

    template <class F>
    static void InverseGroup(const CGrid& grid, F formula, const double* east, const double* north, double* lat,
                             double* lon) {
        const V easts = Load(east), norths = Load(north), none = M::Fill(__builtin_nan(""));
        V lats, lons;
        const Mask found = InverseSearch<M>::Settle(grid, formula, easts, norths, lats, lons);
        const Mask apart = M::Abs(lats) < kHighestLat;
        Store(lat, found ? lats : none);
        Store(lon, found ? lons : none);
        if (M::All(apart)) return;
        for (int i = 0; i < kLanes; i++) {
            if (!apart[i]) InverseByFormula(grid, easts[i], norths[i], &lat[i], &lon[i]);
        }
    }

    /// Runs `group(first, second, out1, out2)` over two arrays, kLanes at a time; the last group is filled up with its
    /// first element.
    template <class Group>
    static void ByGroups(const double* first, const double* second, double* out1, double* out2, std::size_t count,
                         Group group) {
        std::size_t i = 0;
        for (; i + kLanes <= count; i += kLanes) group(first + i, second + i, out1 + i, out2 + i);
        if (i == count) return;
        double in1[kLanes], in2[kLanes], last1[kLanes], last2[kLanes];
        for (std::size_t k = 0; k < kLanes; k++) {
            in1[k] = first[i + k < count ? i + k : i];
            in2[k] = second[i + k < count ? i + k : i];
        }
        group(in1, in2, last1, last2);
        for (std::size_t k = 0; i + k < count; k++) {
            out1[i + k] = last1[k];
            out2[i + k] = last2[k];
        }
    }

    static void Forward(const CGrid& grid, const double* lat, const double* lon, double* east, double* north,
                        std::size_t count) {
        WithFormula<M>(grid, [=, &grid](auto formula) {
            ByGroups(lat, lon, east, north, count,
                     [&grid, formula](const double* lats, const double* lons, double* easts, double* norths) {
                         ForwardGroup(grid, formula, lats, lons, easts, norths);
                     });
        });
    }

    static void Inverse(const CGrid& grid, const double* east, const double* north, double* lat, double* lon,
                        std::size_t count) {
        WithFormula<M>(grid, [=, &grid](auto formula) {
            ByGroups(east, north, lat, lon, count,
                     [&grid, formula](const double* easts, const double* norths, double* lats, double* lons) {
                         InverseGroup(grid, formula, easts, norths, lats, lons);
                     });
        });
    }

    /// Pairs that the lanes may take: neither point on the equator to start from, and not twice the same.
    static Mask OrdinaryPair(V lat1, V lon1, V lat2, V lon2) {
        const Mask different = (lat1 != lat2) | (lon1 != lon2);
        return Apart(lat1, lon1) & Apart(lat2, lon2) & (lat1 != 0.0) & different;
    }

    static void DistanceGroup(const CEllipsoid& ellipsoid, const double* lat1, const double* lon1, const double* lat2,
                              const double* lon2, double* distances) {
        const V lats1 = Load(lat1), lons1 = Load(lon1), lats2 = Load(lat2), lons2 = Load(lon2);
        const Mask ordinary = OrdinaryPair(lats1, lons1, lats2, lons2);
        Store(distances, RudoeDistance<M>::Between(ellipsoid, lats1, lons1, lats2, lons2));
        if (M::All(ordinary)) return;
        for (int i = 0; i < kLanes; i++) {
            if (!ordinary[i]) ellipsoid.Distance(lats1[i], lons1[i], lats2[i], lons2[i], &distances[i]);
        }
    }

    /// Some vertices of a path, and what the distance wants of each of them, so that both its legs share it.
    struct Path {
        static constexpr std::size_t kLegs = 256;
        static constexpr std::size_t kRoom = kLegs + 2 * kLanes;

        double lat[kRoom], lon[kRoom], s[kRoom], c[kRoom], nu[kRoom];

        /// Takes the vertices of `legs` legs, up to kLegs. The last one fills the rest of the last groups.
        Path(const CEllipsoid& ellipsoid, const double* lats, const double* lons, std::size_t legs) {
            const std::size_t groups = legs / kLanes + 2;
            for (std::size_t i = 0; i < groups * kLanes; i++) {
                lat[i] = lats[i < legs ? i : legs];
                lon[i] = lons[i < legs ? i : legs];
            }
            for (std::size_t i = 0; i < groups * kLanes; i += kLanes) {
                const auto point = RudoeDistance<M>::At(ellipsoid, Load(lat + i));
                Store(s + i, point.s);
                Store(c + i, point.c);
                Store(nu + i, point.nu);
            }
        }

        typename RudoeDistance<M>::Point At(std::size_t i) const { return {Load(s + i), Load(c + i), Load(nu + i)}; }

        /// A leg that the lanes can't take goes alone, and the others of its group stay in theirs: no figure hangs on
        /// its neighbours.
        V Legs(const CEllipsoid& ellipsoid, std::size_t i) const {
            const V lat1 = Load(lat + i), lon1 = Load(lon + i), lat2 = Load(lat + i + 1), lon2 = Load(lon + i + 1);
            const Mask same = (lat1 == lat2) & (lon1 == lon2);
            const Mask odd = ~(Apart(lat1, lon1) & Apart(lat2, lon2) & ((lat1 != 0.0) | same));
            V legs = RudoeDistance<M>::Between(ellipsoid, At(i), At(i + 1), lon2 - lon1);
            legs = same ? V{} : legs;
            if (!M::Any(odd)) return legs;
            for (int k = 0; k < kLanes; k++) {
                double leg = legs[k];
                if (odd[k]) ellipsoid.Distance(lat1[k], lon1[k], lat2[k], lon2[k], &leg);
                legs[k] = leg;
            }
            return legs;
        }
    };

    static void Legs(const CEllipsoid& ellipsoid, const double* lat, const double* lon, double* distances,
                     std::size_t count) {
        for (std::size_t from = 0; from < count; from += Path::kLegs) {
            const std::size_t legs = count - from < Path::kLegs ? count - from : Path::kLegs;
            const Path path(ellipsoid, lat + from, lon + from, legs);
            std::size_t i = 0;
            for (; i + kLanes <= legs; i += kLanes) Store(distances + from + i, path.Legs(ellipsoid, i));
            if (i == legs) continue;
            const V last = path.Legs(ellipsoid, i);
            for (int k = 0; i < legs; i++, k++) distances[from + i] = last[k];
        }
    }

    static void Distance(const CEllipsoid& ellipsoid, const double* lat1, const double* lon1, const double* lat2,
                         const double* lon2, double* distances, std::size_t count) {
        std::size_t i = 0;
        for (; i + kLanes <= count; i += kLanes) {
            DistanceGroup(ellipsoid, lat1 + i, lon1 + i, lat2 + i, lon2 + i, distances + i);
        }
        if (i == count) return;
        double lats1[kLanes], lons1[kLanes], lats2[kLanes], lons2[kLanes], last[kLanes];
        for (std::size_t k = 0; k < kLanes; k++) {
            const std::size_t from = i + k < count ? i + k : i;
            lats1[k] = lat1[from];
            lons1[k] = lon1[from];
            lats2[k] = lat2[from];
            lons2[k] = lon2[from];
        }
        DistanceGroup(ellipsoid, lats1, lons1, lats2, lons2, last);
        for (std::size_t k = 0; i + k < count; k++) distances[i + k] = last[k];
    }
};

}  // namespace quillon
