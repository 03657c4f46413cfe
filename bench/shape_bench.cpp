// A shape file with the lengths of its lines, 1e5 to 1e7 vertices: LoadShape beside the usual way, the shape library's
// own files and PROJ's geod_inverse leg by leg. Lines of 10 or 1,000 vertices, drawn with a fixed seed, steps of about
// a kilometre. The totals must agree within 1e-8 before a contender is timed.
#include <benchmark/benchmark.h>
#include <geodesic.h>
#include <shapefil.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <string>
#include <utility>

#include "background/shape.h"
#include "support/shape_bytes.h"

namespace {

using quillon::CShape;

/// Files made once a program run, and removed with it.
class Folder {
public:
    ~Folder() { std::filesystem::remove_all(root); }

    const std::filesystem::path& Root() const { return root; }

    std::string File(std::int64_t vertices, std::int64_t each) {
        const std::string path = (root / (std::to_string(vertices) + "_" + std::to_string(each))).string();
        if (std::filesystem::exists(path + ".shp")) return path + ".shp";
        std::mt19937_64 random(44);
        std::uniform_real_distribution<double> lon(-179, 179), lat(-70, 70), step(-0.01, 0.01);
        quillon::ShapeBytes bytes(quillon::SHAPE_POLYLINE);
        bytes.SetBounds({-180, -90}, {180, 90});
        for (std::int64_t done = 0; done < vertices; done += each) {
            quillon::ShapeBytes::Path line{{lon(random), lat(random)}};
            while (static_cast<std::int64_t>(line.size()) < each) {
                line.push_back({line.back().x + step(random), line.back().y + step(random)});
            }
            bytes.AddPaths(quillon::SHAPE_POLYLINE, {line});
        }
        std::ofstream(path + ".shp", std::ios::binary) << bytes.Shp();
        std::ofstream(path + ".shx", std::ios::binary) << bytes.Shx();
        return path + ".shp";
    }

private:
    std::filesystem::path root = [] {
        std::string name = (std::filesystem::temp_directory_path() / "quillon-bench-XXXXXX").string();
        return std::filesystem::path(::mkdtemp(name.data()));
    }();
};

Folder& TheFolder() {
    static Folder folder;
    return folder;
}

double LoadOurs(const std::string& path) {
    static quillon::FileSystem files(TheFolder().Root() / "drives");
    CShape shape(files);
    shape.SetPath(path);
    quillon::LoadProgress progress;
    return quillon::LoadShape(shape, progress) ? shape.GetTotalLength() : -1;
}

double LoadPeer(const std::string& path) {
    geod_geodesic earth;
    geod_init(&earth, 6378137.0, 1 / 298.257223563);
    const SHPHandle file = SHPOpen(path.c_str(), "rb");
    int count = 0;
    SHPGetInfo(file, &count, nullptr, nullptr, nullptr);
    std::vector<SHPObject*> records;
    double total = 0;
    for (int i = 0; i < count; i++) {
        records.push_back(SHPReadObject(file, i));
        const SHPObject& record = *records.back();
        for (int k = 0; k + 1 < record.nVertices; k++) {
            double leg;
            geod_inverse(&earth, record.padfY[k], record.padfX[k], record.padfY[k + 1], record.padfX[k + 1], &leg,
                         nullptr, nullptr);
            total += leg;
        }
    }
    for (SHPObject* record : records) SHPDestroyObject(record);
    SHPClose(file);
    return total;
}

template <double (*kLoad)(const std::string&)>
void BM_Load(benchmark::State& state) {
    static std::map<std::string, double> totals;
    const std::string path = TheFolder().File(state.range(0), state.range(1));
    const double expected = totals.try_emplace(path, kLoad(path)).first->second;
    for (auto _ : state) {
        const double total = kLoad(path);
        if (!(std::fabs(total - expected) <= 1e-8 * expected)) return state.SkipWithError("the lengths differ");
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

void Sizes(benchmark::internal::Benchmark* bench) {
    for (const std::int64_t vertices : {100'000, 1'000'000, 10'000'000}) {
        for (const std::int64_t each : {10, 1000}) bench->Args({vertices, each});
    }
    bench->Unit(benchmark::kMillisecond);
}

BENCHMARK(BM_Load<LoadOurs>)->Apply(Sizes);
BENCHMARK(BM_Load<LoadPeer>)->Apply(Sizes);

}  // namespace

BENCHMARK_MAIN();
