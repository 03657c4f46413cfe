// Reading a boundary file of eastings and northings: the field scanner beside what else reads numbers. The bytes lie in
// memory; each contender finds the lines by itself. Results are compared before the clock starts.

#include "foundation/field_scanner.h"

#include <benchmark/benchmark.h>

#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <sstream>
#include <string>
#include <vector>

#include "foundation/delimited_line.h"
#include "platform/file.h"
#include "platform/text.h"

namespace {

using quillon::tagXY;
using Points = std::vector<tagXY>;

std::string BoundaryFile(int lines) {
    std::mt19937 random(1);
    std::uniform_real_distribution<double> spread(0.0, 50000.0);
    std::string bytes;
    for (int i = 0; i < lines; ++i) {
        quillon::AppendFixed(bytes, 480000.0 + spread(random), 3);
        bytes += ',';
        quillon::AppendFixed(bytes, 6000000.0 + spread(random), 3);
        bytes += "\r\n";
    }
    return bytes;
}

template <class TakeLine>
void EachLine(const std::string& bytes, Points& points, TakeLine takeLine) {
    std::string_view rest = bytes;
    while (!rest.empty()) {
        const std::size_t feed = rest.find('\n');
        points.push_back(takeLine(rest.substr(0, feed)));
        rest.remove_prefix(feed + 1);
    }
}

void ByScanner(const std::string& bytes, Points& points) {
    EachLine(bytes, points, [](std::string_view line) {
        quillon::FieldScanner fields(line);
        const double x = fields.NextNumber();
        return tagXY{x, fields.NextNumber()};
    });
}

void ByDelimitedLine(const std::string& bytes, Points& points) {
    quillon::CDelimitedLine fields;
    EachLine(bytes, points, [&](std::string_view line) {
        fields.Fill(line);
        const double x = fields.NextNumber();
        return tagXY{x, fields.NextNumber()};
    });
}

/// The least that can be done: the form of the lines is taken for granted.
void ByFromChars(const std::string& bytes, Points& points) {
    const char* p = bytes.data();
    const char* const end = p + bytes.size();
    while (p != end) {
        tagXY point;
        p = std::from_chars(p, end, point.x).ptr + 1;
        p = std::from_chars(p, end, point.y).ptr + 2;
        points.push_back(point);
    }
}

void ByStrtod(const std::string& bytes, Points& points) {
    const char* p = bytes.c_str();
    const char* const end = p + bytes.size();
    while (p != end) {
        tagXY point;
        char* behind = nullptr;
        point.x = std::strtod(p, &behind);
        point.y = std::strtod(behind + 1, &behind);
        p = behind + 2;
        points.push_back(point);
    }
}

void ByStream(const std::string& bytes, Points& points) {
    std::istringstream in(bytes);
    std::string line;
    while (std::getline(in, line)) {
        std::istringstream fields(line);
        tagXY point;
        char comma = 0;
        fields >> point.x >> comma >> point.y;
        points.push_back(point);
    }
}

template <void (*Read)(const std::string&, Points&)>
void BM_Read(benchmark::State& state) {
    const std::string bytes = BoundaryFile(static_cast<int>(state.range(0)));
    Points points, expected;
    Read(bytes, points);
    ByStrtod(bytes, expected);
    if (points != expected) {
        state.SkipWithError("differs from strtod");
        return;
    }
    for (auto _ : state) {
        points.clear();
        Read(bytes, points);
        benchmark::DoNotOptimize(points.data());
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

#define QUILLON_SIZES RangeMultiplier(10)->Range(10000, 1000000)->Unit(benchmark::kMillisecond)
BENCHMARK(BM_Read<ByScanner>)->QUILLON_SIZES;
BENCHMARK(BM_Read<ByDelimitedLine>)->QUILLON_SIZES;
BENCHMARK(BM_Read<ByFromChars>)->QUILLON_SIZES;
BENCHMARK(BM_Read<ByStrtod>)->QUILLON_SIZES;
BENCHMARK(BM_Read<ByStream>)->QUILLON_SIZES;

/// From the disk (as a rule, its cache), the lines as the file gives them.
void BM_ReadFile(benchmark::State& state) {
    char folder[] = "/tmp/quillon-bench-XXXXXX";
    if (!::mkdtemp(folder)) {
        state.SkipWithError("no scratch folder");
        return;
    }
    const std::string bytes = BoundaryFile(static_cast<int>(state.range(0)));
    quillon::FileSystem files(folder);
    quillon::CStdioFile out(files);
    out.OpenForWriting("C:\\a.csv", quillon::FILE_MODE::BINARY);
    out.WriteString(bytes);
    out.Commit();
    Points points;
    for (auto _ : state) {
        quillon::CStdioFile in(files);
        in.OpenForReading("C:\\a.csv");
        points.clear();
        for (std::string_view line; in.ReadString(line);) {
            quillon::FieldScanner fields(line);
            const double x = fields.NextNumber();
            points.push_back({x, fields.NextNumber()});
        }
        if (points.size() != static_cast<std::size_t>(state.range(0))) state.SkipWithError("lines lost");
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
    state.SetItemsProcessed(state.iterations() * state.range(0));
    std::filesystem::remove_all(folder);
}
BENCHMARK(BM_ReadFile)->QUILLON_SIZES;

}  // namespace

BENCHMARK_MAIN();
