// Route position lists of 1e3 to 1e6 records: the lines of a file read, curves, KPs and corridor worked out. Every
// third corner has a radius too large for its legs. Bytes in memory, so that the disk has no say.

#include "features/rpl.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <filesystem>
#include <string>

#include "platform/text.h"

namespace {

using namespace quillon;

void AppendLine(std::string& bytes, std::initializer_list<double> numbers) {
    const char* separator = "";
    for (const double number : numbers) {
        bytes += separator;
        AppendFixed(bytes, number, 3);
        separator = ",";
    }
    bytes += "\r\n";
}

/// A zigzag of legs of 1 km.
std::string Radii(int records) {
    std::string bytes;
    for (int i = 0; i < records; ++i) {
        AppendLine(bytes,
                   {400000.0 + i % 1000 * 800.0, 6000000.0 + i % 2 * 600.0 + i / 1000, i % 3 == 0 ? 1e5 : 150.0});
    }
    return bytes;
}

/// Quarter turns to either side between straights.
std::string Rlx(int rows) {
    std::string bytes = "heading\r\nheading\r\n";
    double east = 400000, north = 6000000;
    for (int i = 0; i < rows; ++i) {
        const bool curve = i % 2 == 1, toNorth = i % 4 == 0, toStarboard = i % 4 == 1;
        const double e = east + (curve ? 100 : toNorth ? 0 : 500), n = north + (curve ? 100 : toNorth ? 500 : 0);
        AppendLine(bytes, {east, north, e, n, 0, 0, curve ? (toStarboard ? 100.0 : -100.0) : 0.0});
        east = e;
        north = n;
    }
    return bytes;
}

void Read(benchmark::State& state, const std::string& bytes, bool isRlx, CRPL::Index least) {
    FileSystem files(std::filesystem::temp_directory_path() / "quillon-bench-rpl");
    CRPL rpl(files);
    for (auto _ : state) {
        CStdioFile file(files);
        file.OpenBytes(bytes);
        rpl.ReadFrom(file, isRlx);
        benchmark::DoNotOptimize(rpl.GetData());
    }
    if (rpl.GetSize() < least) state.SkipWithError("records are missing");
    state.SetItemsProcessed(state.iterations() * rpl.GetSize());
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

void BM_Radii(benchmark::State& state) {
    const int records = static_cast<int>(state.range(0));
    Read(state, Radii(records), false, records);
}
void BM_Rlx(benchmark::State& state) {
    const int records = static_cast<int>(state.range(0));
    Read(state, Rlx(2 * records), true, records);
}

BENCHMARK(BM_Radii)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Rlx)->RangeMultiplier(10)->Range(1000, 1000000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
