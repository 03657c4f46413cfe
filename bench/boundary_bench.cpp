// A million points in each kind of feature file: reading, opening a pane over it, and saving its settings after a row
// was changed. Reading a boundary stands beside a bare loop of from_chars over the same bytes, mapped; what both read
// is compared before the clock starts.

#include "features/boundary.h"

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "job/job_record.h"
#include "panes/boundary_pane.h"
#include "platform/headless.h"
#include "platform/text.h"
#include "platform/user_actions.h"

namespace {

using namespace quillon;

constexpr int kPoints = 1'000'000;
constexpr std::string_view kPath = "C:\\Job\\Million.csv";

/// A line that winds on without crossing itself, some 7 m from point to point; the third number serves as a height.
std::string Bytes() {
    std::string bytes;
    bytes.reserve(kPoints * 36);
    for (int i = 0; i < kPoints; ++i) {
        AppendFixed(bytes, 480000.0 + i * 5.0 + (i % 7) * 0.125, 3);
        bytes += ',';
        AppendFixed(bytes, 6000000.0 + (i % 1000) * 5.0, 3);
        bytes += ',';
        AppendFixed(bytes, -80.0 - (i % 97) * 0.25, 2);
        bytes += "\r\n";
    }
    return bytes;
}

/// A job on drives of its own, with the file in it.
struct Job {
    Job() : root(MakeRoot()), platform(root, "Host"), features(platform.Files()) {
        const auto native = platform.Files().Native(kPath);
        std::filesystem::create_directories(native.parent_path());
        std::filesystem::create_directories(platform.Files().Native("C:\\MyData"));
        std::ofstream(native, std::ios::binary) << Bytes();
    }
    ~Job() {
        std::error_code ignored;
        std::filesystem::remove_all(root, ignored);
    }
    static std::filesystem::path MakeRoot() {
        std::string name = (std::filesystem::temp_directory_path() / "quillon-bench-XXXXXX").string();
        return ::mkdtemp(name.data());
    }
    FileSystem& Files() { return platform.Files(); }

    std::filesystem::path root;
    HeadlessPlatform platform;
    JobRecord features;
};

Job& TheJob() {
    static Job job;
    return job;
}

/// The bytes of a file, mapped.
class Mapping {
public:
    explicit Mapping(const std::filesystem::path& path) {
        const int file = ::open(path.c_str(), O_RDONLY);
        struct stat status {};
        if (file < 0 || ::fstat(file, &status) != 0) std::abort();
        size = static_cast<std::size_t>(status.st_size);
        bytes = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE, file, 0);
        if (bytes == MAP_FAILED) std::abort();
        ::close(file);
    }
    ~Mapping() { ::munmap(bytes, size); }
    Mapping(const Mapping&) = delete;
    Mapping& operator=(const Mapping&) = delete;
    std::string_view Text() const { return {static_cast<const char*>(bytes), size}; }

private:
    void* bytes = nullptr;
    std::size_t size = 0;
};

/// What a loop costs that knows the file's form beforehand: no other separators, no missing fields.
std::vector<tagXY> BareLoop(std::string_view text) {
    std::vector<tagXY> points;
    const char* p = text.data();
    const char* const end = p + text.size();
    while (p < end) {
        tagXY point;
        p = std::from_chars(p, end, point.x).ptr + 1;
        p = std::from_chars(p, end, point.y).ptr;
        points.push_back(point);
        while (p < end && *p++ != '\n') {
        }
    }
    return points;
}

void CompareReaders() {
    const Mapping mapping(TheJob().Files().Native(kPath));
    const std::vector<tagXY> bare = BareLoop(mapping.Text());
    CBoundary boundary(TheJob().Files());
    boundary.Read(kPath);
    if (bare.size() != kPoints || !std::equal(bare.begin(), bare.end(), boundary.begin(), boundary.end())) {
        std::fputs("the readers differ\n", stderr);
        std::exit(1);
    }
}

void ReadBoundary(benchmark::State& state) {
    CompareReaders();
    for (auto _ : state) {
        CBoundary boundary(TheJob().Files());
        benchmark::DoNotOptimize(boundary.Read(kPath));
    }
    state.SetItemsProcessed(state.iterations() * kPoints);
}

void ReadBareLoop(benchmark::State& state) {
    for (auto _ : state) {
        const Mapping mapping(TheJob().Files().Native(kPath));
        benchmark::DoNotOptimize(BareLoop(mapping.Text()).size());
    }
    state.SetItemsProcessed(state.iterations() * kPoints);
}

void ReadWaypoints(benchmark::State& state) {
    for (auto _ : state) {
        CGridWaypoint waypoints(TheJob().Files());
        waypoints.dataOrder = 4;
        benchmark::DoNotOptimize(waypoints.ReadData(kPath));
    }
    state.SetItemsProcessed(state.iterations() * kPoints);
}

/// With the corridor, and a label every 100 m.
void LoadPipeline(benchmark::State& state) {
    std::ptrdiff_t labels = 0;
    for (auto _ : state) {
        CPipeline pipeline(TheJob().Files());
        pipeline.labelKps = true;
        pipeline.kpInterval = 0.1;
        benchmark::DoNotOptimize(pipeline.LoadData(kPath));
        labels = pipeline.GetKpListing().GetSize();
    }
    state.SetItemsProcessed(state.iterations() * kPoints);
    state.counters["labels"] = static_cast<double>(labels);
}

/// The list holds the file already.
void OpenPane(benchmark::State& state) {
    Job& job = TheJob();
    job.features.boundaries.Add(kPath);
    for (auto _ : state) {
        CBoundaryPane pane(job.platform);
        pane.Create(nullptr, CBoundaryPane::kTitleId, job.features.boundaries);
        benchmark::DoNotOptimize(pane.GetTable().GetItemCount());
    }
}

/// From the operator's choice to the new file on the disk, flushed.
void ChangeRow(benchmark::State& state) {
    Job& job = TheJob();
    job.features.boundaries.Add(kPath);
    CBoundaryPane pane(job.platform);
    pane.Create(nullptr, CBoundaryPane::kTitleId, job.features.boundaries);
    CMFCPropertyGridProperty& row = *pane.GetPropertyList().FindItemByData(BOUNDARY_THICKNESS);
    bool wide = false;
    for (auto _ : state) {
        wide = !wide;
        if (!user::Type(pane.GetPropertyList(), row, wide ? "5" : "3")) std::abort();
        job.platform.Messages().Pump();
    }
}

BENCHMARK(ReadBoundary)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadBareLoop)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadWaypoints)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadPipeline)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenPane)->Unit(benchmark::kMillisecond);
BENCHMARK(ChangeRow)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
