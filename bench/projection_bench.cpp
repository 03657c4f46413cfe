// Geographic to grid, one projection a row: one position at a time, arrays, PROJ's proj_trans_generic on arrays, and
// GeographicLib where it has the projection. Every contender works on the same 1,000 or 100,000 positions within three
// degrees of the origin, drawn with a fixed seed, and must agree with our one-position form before it is timed.
#include <benchmark/benchmark.h>
#include <proj.h>

#include <GeographicLib/LambertConformalConic.hpp>
#include <GeographicLib/PolarStereographic.hpp>
#include <GeographicLib/TransverseMercator.hpp>
#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <vector>

#include "foundation/angle_units.h"
#include "geodesy/grid.h"

namespace {

using quillon::CEllipsoid;
using quillon::CGrid;
using quillon::kRadiansPerDegree;

/// A grid of the catalogue beside PROJ's names for it. `tolerance` is in metres: series and closed forms differ, most
/// of all the series of the 1927 tables, which end at the borders of their zone.
struct ContestDef {
    const char* name;
    int type;
    int zone;    // -1: the polar stereographic grid, which has no row
    double lat;  // middle of the positions, degrees
    double lon;
    double tolerance;
    std::vector<const char*> proj;
};

// clang-format off
const std::vector<ContestDef>& Contests() {
    static const std::vector<ContestDef> contests = {
        {"transverse_mercator", 0, 31, 54, 3, 0.002,
         {"+proj=tmerc +lon_0=3 +k=0.9996 +x_0=500000 +ellps=WGS84",
          "+proj=tmerc +approx +lon_0=3 +k=0.9996 +x_0=500000 +ellps=WGS84"}},
        {"mercator", 5, 1, 38, -20, 1e-5,
         {"+proj=merc +lat_ts=33 +lon_0=-20 +ellps=WGS84"}},
        {"lambert_one_parallel", 6, 3, 36, 37.35, 0.02,
         {"+proj=lcc +lat_1=36 +lat_0=36 +lon_0=37.35 +x_0=300000 +y_0=450000 +a=6378249.145 +rf=293.465"}},
        {"lambert_two_parallels", 6, 7, 43, 34, 1e-5,
         {"+proj=lcc +lat_0=43 +lat_1=30 +lat_2=50 +lon_0=34 +ellps=WGS84"}},
        {"lambert_state_plane_83", 6, 8, 53, -176, 1e-5,
         {"+proj=lcc +lat_0=51 +lat_1=51.8333333333 +lat_2=53.8333333333 +lon_0=-176 +x_0=1000000 +ellps=GRS80"}},
        {"cassini", 7, 1, 1.3, 103.85, 0.01,
         {"+proj=cass +lat_0=1.2876466667 +lon_0=103.8530022222 +x_0=30000 +y_0=30000 +a=6377304.063110002 +rf=300.8017"}},
        {"guam", 8, 0, 13.5, 144.7, 1e-4,
         {"+proj=aeqd +guam +lat_0=13.4724663528 +lon_0=144.7487507056 +x_0=50000 +y_0=50000 +ellps=clrk66"}},
        {"oblique_stereographic", 9, 2, 52.2, 5.4, 0.001,
         {"+proj=sterea +lat_0=52.1561605556 +lon_0=5.3876388889 +k=0.9999079 +x_0=155000 +y_0=463000 +ellps=bessel"}},
        {"polar_stereographic", 9, -1, 80, 0, 1e-5,
         {"+proj=stere +lat_0=90 +k=0.994 +ellps=WGS84"}},
        {"polyconic", 10, 0, -10, -54, 1e-5,
         {"+proj=poly +lon_0=-54 +x_0=5000000 +y_0=10000000 +a=6378160 +rf=298.25"}},
        {"oblique_mercator", 11, 0, 5, 115, 0.01,
         {"+proj=omerc +no_uoff +lat_0=4 +lonc=115 +alpha=53.31582047222222 +gamma=53.130102354155980 +k=0.99984 "
          "+a=6377298.555679764 +rf=300.8016995962373"}},
        {"state_plane_27_lambert", 12, 15, 35.5, -92, 0.5,
         {"+proj=lcc +lat_1=36.2333333333 +lat_2=34.9333333333 +lat_0=34.3333333333 +lon_0=-92 +x_0=609601.2192 "
          "+ellps=clrk66"}},
        {"state_plane_27_transverse", 12, 0, 32, -85.83, 2.0,
         {"+proj=tmerc +lat_0=30.5 +lon_0=-85.8333333333 +k=0.99996 +x_0=152400.3048 +ellps=clrk66"}},
        {"norwegian_axes", 13, 1, 60, 9, 0, {}},
        {"danish_system_34", 14, 0, 56, 9, 0, {}},
    };
    return contests;
}
// clang-format on

/// One contender's course: positions, results, and the grid with its ellipsoid.
struct Course {
    CEllipsoid ellipsoid;
    CGrid grid;
    std::vector<double> lats, lons, easts, norths;

    Course(const ContestDef& contest, std::size_t count) : lats(count), lons(count), easts(count), norths(count) {
        ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
        grid.ellipsoid = &ellipsoid;
        if (contest.zone < 0) {
            grid.type = contest.type;
            grid.subtype = 2;
            grid.SetOrigin(1.5707963267948966, 0, 0, 0, 0.994);
        } else {
            grid.SetGrid(contest.zone, contest.type, 0);
        }
        std::mt19937_64 random(27);
        std::uniform_real_distribution<double> offset(-3 * kRadiansPerDegree, 3 * kRadiansPerDegree);
        for (std::size_t i = 0; i < count; i++) {
            lats[i] = contest.lat * kRadiansPerDegree + offset(random);
            lons[i] = contest.lon * kRadiansPerDegree + offset(random);
        }
    }

    void RunOne() {
        for (std::size_t i = 0; i < lats.size(); i++) grid.Forward(&easts[i], &norths[i], lats[i], lons[i]);
    }
    void RunArray() { grid.ForwardAll(easts, norths, lats, lons); }
};

/// Times `run` over the course once its results are within `tolerance` of the one-position form's.
void Race(benchmark::State& state, Course& course, double tolerance, const std::function<void()>& run) {
    course.RunOne();
    const std::vector<double> easts = course.easts, norths = course.norths;
    run();
    double worst = 0;
    for (std::size_t i = 0; i < easts.size(); i++) {
        worst = std::max({worst, std::fabs(course.easts[i] - easts[i]), std::fabs(course.norths[i] - norths[i])});
    }
    state.counters["differs_m"] = worst;
    if (!(worst <= tolerance)) return state.SkipWithError(("differs by " + std::to_string(worst) + " m").c_str());
    for (auto _ : state) {
        run();
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * course.lats.size()));
    state.counters["per_point"] =
        benchmark::Counter(static_cast<double>(course.lats.size()),
                           benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void RaceProj(benchmark::State& state, const ContestDef& contest, const char* definition) {
    Course course(contest, static_cast<std::size_t>(state.range(0)));
    const std::unique_ptr<PJ, decltype(&proj_destroy)> proj(proj_create(nullptr, definition), proj_destroy);
    if (!proj) return state.SkipWithError("PROJ does not know the projection");
    const std::size_t count = course.lats.size(), stride = sizeof(double);
    Race(state, course, contest.tolerance, [&] {
        // It works in place, so the angles are copied as a caller would have to.
        std::copy(course.lons.begin(), course.lons.end(), course.easts.begin());
        std::copy(course.lats.begin(), course.lats.end(), course.norths.begin());
        proj_trans_generic(proj.get(), PJ_FWD, course.easts.data(), stride, count, course.norths.data(), stride, count,
                           nullptr, 0, 0, nullptr, 0, 0);
    });
}

/// GeographicLib takes and gives its own units; `forward` is (lat, lon in degrees, east, north).
using DegreesForward = std::function<void(double, double, double&, double&)>;

DegreesForward GeographicLibForward(const Course& course, const std::string& name) {
    const CGrid& grid = course.grid;
    const double a = course.ellipsoid.a, f = 1 / course.ellipsoid.rf;
    const double lon0 = grid.lon0 / kRadiansPerDegree, FE = grid.FE, FN = grid.FN;
    if (name == "transverse_mercator") {
        const GeographicLib::TransverseMercator tm(a, f, grid.k0);
        return [=](double lat, double lon, double& east, double& north) {
            tm.Forward(lon0, lat, lon, east, north);
            east += FE;
            north += FN;
        };
    }
    if (name == "lambert_two_parallels") {
        const GeographicLib::LambertConformalConic lambert(a, f, 30.0, 50.0, 1.0);
        double east0, north0;
        lambert.Forward(lon0, 43, lon0, east0, north0);
        return [=](double lat, double lon, double& east, double& north) {
            lambert.Forward(lon0, lat, lon, east, north);
            north -= north0;
        };
    }
    if (name == "polar_stereographic") {
        const GeographicLib::PolarStereographic polar(a, f, grid.k0);
        return [=](double lat, double lon, double& east, double& north) { polar.Forward(true, lat, lon, east, north); };
    }
    return {};
}

void RaceGeographicLib(benchmark::State& state, const ContestDef& contest) {
    Course course(contest, static_cast<std::size_t>(state.range(0)));
    const DegreesForward forward = GeographicLibForward(course, contest.name);
    std::vector<double> lats = course.lats, lons = course.lons;
    for (double& lat : lats) lat /= kRadiansPerDegree;
    for (double& lon : lons) lon /= kRadiansPerDegree;
    Race(state, course, contest.tolerance, [&] {
        for (std::size_t i = 0; i < lats.size(); i++) forward(lats[i], lons[i], course.easts[i], course.norths[i]);
    });
}

/// The way back, from the grid positions of the course; it must lead within a micrometre of where they came from. The
/// Norwegian axes have one axis only where the course is on it.
void RaceInverse(benchmark::State& state, const ContestDef& contest) {
    Course course(contest, static_cast<std::size_t>(state.range(0)));
    course.grid.subtype = contest.type == quillon::NORWEGIAN_AXES ? 2 : course.grid.subtype;
    course.RunArray();
    std::vector<double> lats(course.lats.size()), lons(course.lons.size());
    for (auto _ : state) {
        course.grid.InverseAll(lats, lons, course.easts, course.norths);
        benchmark::ClobberMemory();
    }
    double worst = 0;
    for (std::size_t i = 0; i < lats.size(); i++) {
        const double off = std::hypot(lats[i] - course.lats[i], lons[i] - course.lons[i]) * 6.4e6;
        if (contest.type != quillon::NORWEGIAN_AXES && std::isfinite(off)) worst = std::max(worst, off);
    }
    state.counters["differs_m"] = worst;
    if (!(worst <= 1e-5)) state.SkipWithError(("differs by " + std::to_string(worst) + " m").c_str());
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * lats.size()));
    state.counters["per_point"] = benchmark::Counter(
        static_cast<double>(lats.size()), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void RaceProjInverse(benchmark::State& state, const ContestDef& contest, const char* definition) {
    Course course(contest, static_cast<std::size_t>(state.range(0)));
    const std::unique_ptr<PJ, decltype(&proj_destroy)> proj(proj_create(nullptr, definition), proj_destroy);
    if (!proj) return state.SkipWithError("PROJ does not know the projection");
    course.RunArray();
    const std::size_t count = course.lats.size(), stride = sizeof(double);
    for (auto _ : state) {
        std::copy(course.easts.begin(), course.easts.end(), course.lons.begin());
        std::copy(course.norths.begin(), course.norths.end(), course.lats.begin());
        proj_trans_generic(proj.get(), PJ_INV, course.lons.data(), stride, count, course.lats.data(), stride, count,
                           nullptr, 0, 0, nullptr, 0, 0);
        benchmark::ClobberMemory();
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * count));
    state.counters["per_point"] = benchmark::Counter(
        static_cast<double>(count), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void Register(const ContestDef& contest) {
    const std::string name = contest.name;
    benchmark::RegisterBenchmark((name + "/one").c_str(), [&contest](benchmark::State& state) {
        Course course(contest, static_cast<std::size_t>(state.range(0)));
        Race(state, course, 0, [&] { course.RunOne(); });
    })->Arg(1000);
    benchmark::RegisterBenchmark((name + "/array").c_str(),
                                 [&contest](benchmark::State& state) {
                                     Course course(contest, static_cast<std::size_t>(state.range(0)));
                                     Race(state, course, 1e-6, [&] { course.RunArray(); });
                                 })
        ->Arg(1000)
        ->Arg(100000);
    benchmark::RegisterBenchmark((name + "/inverse_array").c_str(),
                                 [&contest](benchmark::State& state) { RaceInverse(state, contest); })
        ->Arg(1000)
        ->Arg(1000000);
    for (const char* definition : contest.proj) {
        const bool approximate = std::string(definition).find("+approx") != std::string::npos;
        benchmark::RegisterBenchmark(
            (name + (approximate ? "/proj_approx" : "/proj")).c_str(),
            [&contest, definition](benchmark::State& state) { RaceProj(state, contest, definition); })
            ->Arg(1000);
        benchmark::RegisterBenchmark(
            (name + (approximate ? "/inverse_proj_approx" : "/inverse_proj")).c_str(),
            [&contest, definition](benchmark::State& state) { RaceProjInverse(state, contest, definition); })
            ->Arg(1000);
    }
    if (GeographicLibForward(Course(contest, 0), name)) {
        benchmark::RegisterBenchmark((name + "/geographiclib").c_str(), [&contest](benchmark::State& state) {
            RaceGeographicLib(state, contest);
        })->Arg(1000);
    }
}

}  // namespace

int main(int argc, char** argv) {
    for (const ContestDef& contest : Contests()) Register(contest);
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
