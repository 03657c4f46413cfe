// Thinning of a pipeline survey to 1 m from the bytes of its file, beside GEOS's Douglas-Peucker on the same positions,
// read the same way. The peer keeps by another rule, so what is compared first is only that both stay within the
// tolerance of a straight line: some rows, and no more than one in a hundred. Nearly straight surveys (noise of 0.3 m),
// and surveys that wind, 1e4 to 1e6 rows.
#include <benchmark/benchmark.h>
#include <geos_c.h>

#include <cmath>
#include <filesystem>
#include <random>
#include <string>

#include "display/pipeline_thinning.h"
#include "platform/text.h"

namespace {

std::string Survey(std::int64_t rows, bool winding) {
    std::mt19937_64 random(51);
    std::normal_distribution<double> noise(0, 0.1);
    std::string text;
    for (std::int64_t i = 0; i < rows; i++) {
        const double along = static_cast<double>(i) * 0.25;
        const double aside = winding ? 400 * std::sin(along / 900) : 0;
        text +=
            quillon::Format("%.4f,%.3f,%.3f,%.2f\r\n", along / 1000, 451000 + along * 0.8 - aside * 0.6 + noise(random),
                            6712000 + along * 0.6 + aside * 0.8 + noise(random), 112 + noise(random));
    }
    return text;
}

quillon::FileSystem& Files() {
    static quillon::FileSystem files(std::filesystem::temp_directory_path() / "quillon-bench", "Quillon",
                                     quillon::FILE_ACCESS::READ_ONLY);
    return files;
}

int ThinOurs(const std::string& text) {
    const quillon::CListCtrlImport import(Files());
    quillon::CStdioFile file(Files());
    quillon::ThinProgress progress;
    quillon::ThinResult result;
    std::string output;
    file.OpenBytes(text);
    ThinRows(file, import, 1.0, progress, output, result);
    return result.written;
}

int ThinPeer(const std::string& text) {
    const GEOSContextHandle_t geos = GEOS_init_r();
    std::vector<double> positions;
    quillon::CStdioFile file(Files());
    file.OpenBytes(text);
    for (std::string_view line; file.ReadString(line);) {
        positions.push_back(quillon::Atof(quillon::FieldAt(line, 1)));
        positions.push_back(quillon::Atof(quillon::FieldAt(line, 2)));
    }
    GEOSCoordSequence* sequence =
        GEOSCoordSeq_copyFromBuffer_r(geos, positions.data(), static_cast<unsigned>(positions.size() / 2), 0, 0);
    GEOSGeometry* line = GEOSGeom_createLineString_r(geos, sequence);
    GEOSGeometry* thinned = GEOSSimplify_r(geos, line, 1.0);
    const int kept = GEOSGeomGetNumPoints_r(geos, thinned);
    GEOSGeom_destroy_r(geos, thinned);
    GEOSGeom_destroy_r(geos, line);
    GEOS_finish_r(geos);
    return kept;
}

template <int (*kThin)(const std::string&)>
void BM_Thin(benchmark::State& state) {
    const std::string text = Survey(state.range(0), state.range(1) != 0);
    int kept = 0;
    for (auto _ : state) kept = kThin(text);
    if (kept < 1 || kept > state.range(0) / 100) state.SkipWithError("not thinned");
    state.counters["kept"] = kept;
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void Sizes(benchmark::internal::Benchmark* bench) {
    for (const std::int64_t rows : {10'000, 100'000, 1'000'000}) bench->Args({rows, 0})->Args({rows, 1});
    bench->ArgNames({"rows", "winding"})->Unit(benchmark::kMillisecond);
}

BENCHMARK(BM_Thin<ThinOurs>)->Apply(Sizes);
BENCHMARK(BM_Thin<ThinPeer>)->Apply(Sizes);

}  // namespace

BENCHMARK_MAIN();
