// A depth model of ten million samples, 300 MB of text: both passes with the cache written, the cache read again, and
// the bare loop that the text could not be read faster by on one thread. The cells are compared with what the text was
// made from before the clock starts.

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "background/dtm_load.h"
#include "background/dtm_regular.h"
#include "platform/text.h"

namespace {

using namespace quillon;

constexpr int kColumns = 4000;
constexpr int kRows = 2500;
constexpr const char* kPath = "C:\\Job\\Soundings.xyz";

double DepthOf(int column, int row) {
    return -31.0 - std::round(800.0 * std::sin(column * 0.01) * std::cos(row * 0.013)) / 100.0;
}

/// A drives folder with the text in it.
struct Survey {
    Survey() : root(MakeRoot()), files(root, "Host") {
        const auto native = files.Native(kPath);
        std::filesystem::create_directories(native.parent_path());
        std::ofstream out(native, std::ios::binary);
        std::string block;
        for (int row = 0; row < kRows; ++row) {
            block.clear();
            for (int column = 0; column < kColumns; ++column) {
                AppendFixed(block, 480000.0 + column, 3);
                block += ',';
                AppendFixed(block, 6000000.0 + row, 3);
                block += ',';
                AppendFixed(block, DepthOf(column, row), 2);
                block += '\n';
            }
            out << block;
        }
        Check();
    }
    ~Survey() {
        std::error_code ignored;
        std::filesystem::remove_all(root, ignored);
    }
    static std::filesystem::path MakeRoot() {
        std::string name = (std::filesystem::temp_directory_path() / "quillon-bench-XXXXXX").string();
        return ::mkdtemp(name.data());
    }

    void Check() {
        CDtm dtm(files);
        dtm.fileName[0] = kPath;
        DtmProgress progress;
        bool same = LoadDtmFiles(dtm, progress) && dtm.depths.Size() == std::size_t{kColumns} * kRows;
        for (int row = 0; row < kRows && same; ++row) {
            for (int column = 0; column < kColumns; ++column) {
                const auto cell = static_cast<std::size_t>(row) * kColumns + static_cast<std::size_t>(column);
                const double depth = std::fabs(Atof(Format("%.2lf", DepthOf(column, row))));
                same = same && dtm.depths[cell] == static_cast<std::int32_t>(depth * 100.0);
            }
        }
        if (same) return;
        std::fputs("the cells differ from what the text was made from\n", stderr);
        std::exit(1);
    }

    std::filesystem::path root;
    FileSystem files;
};

Survey& TheSurvey() {
    static Survey survey;
    return survey;
}

void SetRates(benchmark::State& state) {
    const auto bytes = std::filesystem::file_size(TheSurvey().files.Native(kPath));
    state.SetItemsProcessed(state.iterations() * kColumns * kRows);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes));
}

/// Parts that a file is cut into, 0 for what the machine has threads for.
void TextToCache(benchmark::State& state) {
    for (auto _ : state) {
        CDtm dtm(TheSurvey().files);
        dtm.fileName[0] = kPath;
        dtm.limits.parts = static_cast<std::size_t>(state.range(0));
        DtmProgress progress;
        if (!ImportDtm(dtm, progress) || !MakeDtmDepths(dtm, progress) || !dtm.IsLoaded()) std::abort();
    }
    SetRates(state);
}

void CacheReload(benchmark::State& state) {
    CDtm dtm(TheSurvey().files);
    dtm.fileName[0] = kPath;
    for (auto _ : state) {
        DtmProgress progress;
        if (dtm.NeedsImport() || !ReadDtmDepths(dtm, progress)) std::abort();
        benchmark::DoNotOptimize(dtm.depths.Data());
        state.PauseTiming();
        dtm.Unload();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(state.iterations() * kColumns * kRows);
}

void Regular(benchmark::State& state) {
    CRandomFile text;
    for (auto _ : state) {
        if (!text.OpenForReading(TheSurvey().files, kPath)) std::abort();
        CStdioFile nowhere(TheSurvey().files);
        DtmProgress progress;
        benchmark::DoNotOptimize(MakeRegularDtm(text, {5.0, DTM_TAKE::MEAN}, {}, progress, nowhere));
    }
    SetRates(state);
}

/// One pass that knows the form of the lines beforehand and keeps nothing.
void BareLoop(benchmark::State& state) {
    std::string bytes;
    std::ifstream in(TheSurvey().files.Native(kPath), std::ios::binary);
    bytes.assign(std::istreambuf_iterator<char>(in), {});
    for (auto _ : state) {
        double sum = 0.0;
        const char* p = bytes.data();
        for (const char* const end = p + bytes.size(); p != end;) {
            double number = 0.0;
            p = std::from_chars(p, end, number).ptr + 1;
            sum += number;
        }
        benchmark::DoNotOptimize(sum);
    }
    SetRates(state);
}

BENCHMARK(TextToCache)->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(CacheReload)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(Regular)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(BareLoop)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

BENCHMARK_MAIN();
