// Geodesic distance: one pair at a time, arrays, PROJ's geod_inverse and GeographicLib's Geodesic::Inverse, over 1,000
// or 100,000 pairs up to 400 km apart, drawn with a fixed seed. A contender must agree within a micrometre and 1e-9 of
// the distance before it is timed.
#include <benchmark/benchmark.h>
#include <geodesic.h>

#include <GeographicLib/Geodesic.hpp>
#include <cmath>
#include <functional>
#include <random>
#include <vector>

#include "foundation/angle_units.h"
#include "geodesy/ellipsoid.h"

namespace {

using quillon::CEllipsoid;
using quillon::kRadiansPerDegree;

struct Pairs {
    CEllipsoid ellipsoid;
    std::vector<double> lat1, lon1, lat2, lon2, distances;

    explicit Pairs(std::size_t count) : lat1(count), lon1(count), lat2(count), lon2(count), distances(count) {
        ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
        std::mt19937_64 random(28);
        std::uniform_real_distribution<double> lat(-1.2, 1.2), lon(-3, 3), offset(-0.04, 0.04);
        for (std::size_t i = 0; i < count; i++) {
            lat1[i] = lat(random);
            lon1[i] = lon(random);
            lat2[i] = lat1[i] + offset(random);
            lon2[i] = lon1[i] + offset(random);
        }
    }
    std::size_t Count() const { return distances.size(); }
    void RunOne() {
        for (std::size_t i = 0; i < Count(); i++) {
            ellipsoid.Distance(lat1[i], lon1[i], lat2[i], lon2[i], &distances[i]);
        }
    }
    void RunArray() { ellipsoid.DistanceAll(lat1, lon1, lat2, lon2, distances); }
};

void Race(benchmark::State& state, Pairs& pairs, const std::function<void()>& run) {
    pairs.RunOne();
    const std::vector<double> expected = pairs.distances;
    run();
    double worst = 0;
    for (std::size_t i = 0; i < expected.size(); i++) {
        const double difference = std::fabs(pairs.distances[i] - expected[i]);
        worst = std::max(worst, difference);
        if (!(difference <= 1e-6 + 1e-9 * expected[i])) return state.SkipWithError("the distances differ");
    }
    for (auto _ : state) {
        run();
        benchmark::ClobberMemory();
    }
    state.counters["differs_m"] = worst;
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * pairs.Count()));
    state.counters["per_pair"] =
        benchmark::Counter(static_cast<double>(pairs.Count()),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

/// The peers take degrees, prepared outside the clock.
Pairs InDegrees(const Pairs& pairs) {
    Pairs turned = pairs;
    for (std::vector<double>* angles : {&turned.lat1, &turned.lon1, &turned.lat2, &turned.lon2}) {
        for (double& angle : *angles) angle *= 180 / 3.141592653589793;
    }
    return turned;
}

void BM_Distance(benchmark::State& state) {
    Pairs pairs(static_cast<std::size_t>(state.range(0)));
    Race(state, pairs, [&] { pairs.RunOne(); });
}

void BM_DistanceAll(benchmark::State& state) {
    Pairs pairs(static_cast<std::size_t>(state.range(0)));
    Race(state, pairs, [&] { pairs.RunArray(); });
}

/// The same points as one path: a vertex serves two legs.
void BM_DistancesAlong(benchmark::State& state) {
    Pairs pairs(static_cast<std::size_t>(state.range(0)) + 1);
    for (std::size_t i = 1; i < pairs.Count(); i++) {
        pairs.lat1[i] = pairs.lat1[0] + (pairs.lat2[i] - pairs.lat1[i]);
        pairs.lon1[i] = pairs.lon1[0] + (pairs.lon2[i] - pairs.lon1[i]);
        pairs.lat2[i - 1] = pairs.lat1[i];
        pairs.lon2[i - 1] = pairs.lon1[i];
    }
    pairs.lat2.back() = pairs.lat1.back();
    pairs.lon2.back() = pairs.lon1.back();
    Race(state, pairs, [&] { pairs.ellipsoid.DistancesAlong(pairs.lat1, pairs.lon1, pairs.distances); });
}

void BM_Proj(benchmark::State& state) {
    Pairs pairs(static_cast<std::size_t>(state.range(0)));
    const Pairs degrees = InDegrees(pairs);
    geod_geodesic earth;
    geod_init(&earth, pairs.ellipsoid.a, 1 / pairs.ellipsoid.rf);
    Race(state, pairs, [&] {
        for (std::size_t i = 0; i < pairs.Count(); i++) {
            geod_inverse(&earth, degrees.lat1[i], degrees.lon1[i], degrees.lat2[i], degrees.lon2[i],
                         &pairs.distances[i], nullptr, nullptr);
        }
    });
}

void BM_GeographicLib(benchmark::State& state) {
    Pairs pairs(static_cast<std::size_t>(state.range(0)));
    const Pairs degrees = InDegrees(pairs);
    const GeographicLib::Geodesic earth(pairs.ellipsoid.a, 1 / pairs.ellipsoid.rf);
    Race(state, pairs, [&] {
        for (std::size_t i = 0; i < pairs.Count(); i++) {
            earth.Inverse(degrees.lat1[i], degrees.lon1[i], degrees.lat2[i], degrees.lon2[i], pairs.distances[i]);
        }
    });
}

BENCHMARK(BM_Distance)->Arg(1000);
BENCHMARK(BM_DistanceAll)->Arg(1000)->Arg(100000);
BENCHMARK(BM_DistancesAlong)->Arg(1000)->Arg(100000);
BENCHMARK(BM_Proj)->Arg(1000);
BENCHMARK(BM_GeographicLib)->Arg(1000);

}  // namespace

BENCHMARK_MAIN();
