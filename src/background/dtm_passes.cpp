#include "background/dtm_passes.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <deque>
#include <numeric>

#include "background/dtm_text.h"
#include "platform/parallel.h"

namespace quillon {
namespace {

/// A part smaller than this isn't worth a thread.
constexpr std::size_t kLeastPart = std::size_t{1} << 20;
/// Cells between two looks at the cancel flag.
constexpr std::size_t kCellBlock = std::size_t{1} << 18;

class ExtentsSink {
public:
    explicit ExtentsSink(DtmProgress& shared) : progress(shared) {}
    void Take(tagXYZ sample, std::size_t line) {
        if (sample.z == 0.0) sample.z = MISSING_VALUE;
        run.Add(sample, line);
    }
    void EndBlock() { progress.Publish(run.Get()); }

    DtmExtentsRun run;
    ReadReport lines;

private:
    DtmProgress& progress;
};

/// A cell while the array is being filled: its depth with the sign bit turned over, so that 0, which fresh memory
/// holds, means that no sample fell into it.
std::int32_t Encode(std::int32_t depth) {
    return depth ^ INT32_MIN;
}
std::int32_t Decode(std::int32_t cell) {
    return cell == 0 ? kNoDepth : cell ^ INT32_MIN;
}

template <class Work>
void EachCellBlock(std::size_t cells, const LoadProgress& progress, Work work) {
    RunInBlocks(
        cells, kCellBlock, [&progress] { return progress.IsCancelled(); }, work);
}

}  // namespace

void DtmSurvey::AddFile(const CRandomFile& text, int slot, DtmProgress& progress, DtmParts parts) {
    progress.Begin(text.GetLength());
    if (parts == 0) parts = WorthwhilePieces(text.GetLength(), kLeastPart);
    const std::vector<DtmTextPart> split = SplitDtmText(text, parts);
    std::deque<ExtentsSink> sinks;
    for (std::size_t i = 0; i < split.size(); ++i) sinks.emplace_back(progress);
    RunTogether(split.size(), [&](std::size_t i) { ReadDtmText(text, split[i], progress, sinks[i].lines, sinks[i]); });
    if (progress.IsCancelled()) return;
    const auto index = static_cast<std::size_t>(slot);
    lines[index].opened = true;
    for (const ExtentsSink& sink : sinks) {
        run.Append(sink.run, slot, lines[index].lines);
        areas[index].Widen(sink.run.GetArea());
        lines[index].Append(sink.lines);
    }
}

// ---- Depths ----

class DtmDepthsMaker::Sink {
public:
    Sink(const DtmGrid& cells, std::int32_t* target, DtmProgress& shared)
        : grid(cells), layer(target), progress(shared) {}

    void Take(const tagXYZ& sample, std::size_t) {
        last = sample;
        const std::int64_t cell = grid.CellOf(sample.x, sample.y);
        if (cell < 0) {
            ++dropped;
            return;
        }
        const double depth = std::fabs(sample.z);
        std::int32_t& target = layer[cell];
        merged += target != 0;
        target = Encode(depth == 0.0 ? kNoDepth : static_cast<std::int32_t>(depth * 100.0));
    }
    void EndBlock() { progress.PublishSample({last.x, last.y, last.z == 0.0 ? MISSING_VALUE : std::fabs(last.z)}); }

    std::uint64_t merged = 0;
    std::uint64_t dropped = 0;

private:
    const DtmGrid grid;
    std::int32_t* const layer;
    DtmProgress& progress;
    tagXYZ last;
};

DtmDepthsMaker::DtmDepthsMaker(const DtmGrid& newGrid, std::uint64_t most, DtmParts newParts)
    : grid(newGrid), mostBytes(most), parts(newParts), depths(static_cast<std::size_t>(grid.CellCount())) {}

/// Every part but the first takes memory for the cells once more.
std::size_t DtmDepthsMaker::PartsFor(const CRandomFile& text) const {
    const std::size_t wanted = parts ? parts : WorthwhilePieces(text.GetLength(), kLeastPart);
    const std::uint64_t bytes = grid.CellCount() * sizeof(std::int32_t);
    return static_cast<std::size_t>(std::clamp<std::uint64_t>(mostBytes / bytes, 1, wanted));
}

void DtmDepthsMaker::AddFile(const CRandomFile& text, DtmProgress& progress) {
    progress.Begin(text.GetLength());
    while (layers.size() + 1 < PartsFor(text)) {
        layers.emplace_back(depths.Size());
        if (layers.back()) continue;
        layers.pop_back();
        break;
    }
    const std::vector<DtmTextPart> split = SplitDtmText(text, layers.size() + 1);
    std::deque<Sink> sinks;
    for (std::size_t i = 0; i < split.size(); ++i) {
        sinks.emplace_back(grid, i == 0 ? depths.Data() : layers[i - 1].Data(), progress);
    }
    RunTogether(split.size(), [&](std::size_t i) {
        ReadReport counted;
        ReadDtmText(text, split[i], progress, counted, sinks[i]);
    });
    for (const Sink& sink : sinks) {
        merged += sink.merged;
        dropped += sink.dropped;
    }
    if (split.size() > 1) MergeLayers(progress, split.size() - 1);
}

/// Later parts win. The layers are left as fresh memory.
void DtmDepthsMaker::MergeLayers(const LoadProgress& progress, std::size_t used) {
    std::atomic<std::uint64_t> met{0};
    EachCellBlock(depths.Size(), progress, [&](std::size_t begin, std::size_t end) {
        std::uint64_t metHere = 0;
        for (std::size_t i = 0; i < used; ++i) {
            for (std::size_t cell = begin; cell < end; ++cell) {
                const std::int32_t later = layers[i][cell];
                if (later == 0) continue;
                metHere += depths[cell] != 0;
                depths[cell] = later;
                layers[i][cell] = 0;
            }
        }
        met.fetch_add(metHere, std::memory_order_relaxed);
    });
    merged += met.load();
}

BigArray<std::int32_t> DtmDepthsMaker::Finish(const LoadProgress& progress) {
    std::atomic<std::uint64_t> withDepth{0};
    EachCellBlock(depths.Size(), progress, [&](std::size_t begin, std::size_t end) {
        std::uint64_t here = 0;
        for (std::size_t cell = begin; cell < end; ++cell) {
            depths[cell] = Decode(depths[cell]);
            here += depths[cell] != kNoDepth;
        }
        withDepth.fetch_add(here, std::memory_order_relaxed);
    });
    filled = withDepth.load();
    layers.clear();
    return std::move(depths);
}

}  // namespace quillon
