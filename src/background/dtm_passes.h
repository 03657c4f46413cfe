#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "background/dtm_extents.h"
#include "background/dtm_grid.h"
#include "background/dtm_progress.h"
#include "foundation/read_report.h"
#include "platform/big_array.h"
#include "platform/random_file.h"

namespace quillon {

// The two passes over the text files of a DTM. The first finds the grid that the samples lie on, the second puts their
// depths into its cells. Both read a file in parts at the same time, with results as if its lines had come one by one.

/// What a pass over one file is cut into; 0 leaves it to the size of the file and the machine.
using DtmParts = std::size_t;

/// First pass: adds the samples of one more file to the survey.
struct DtmSurvey {
    DtmExtentsRun run;
    std::array<DtmArea, 3> areas;
    std::array<ReadReport, 3> lines;  ///< of each file

    /// `slot` 0 to 2. Of a load that is cancelled no part counts.
    void AddFile(const CRandomFile& text, int slot, DtmProgress& progress, DtmParts parts = 0);
};

/// Second pass: the depth array, filled file by file.
class DtmDepthsMaker {
public:
    /// The grid must have been found fit: `mostBytes` of memory hold its cells at least once. IsReady tells if they
    /// could be had.
    DtmDepthsMaker(const DtmGrid& newGrid, std::uint64_t mostBytes, DtmParts newParts = 0);
    bool IsReady() const { return static_cast<bool>(depths); }

    void AddFile(const CRandomFile& text, DtmProgress& progress);
    /// The finished cells: whole centimetres, or kNoDepth. Once.
    BigArray<std::int32_t> Finish(const LoadProgress& progress);

    // What became of the samples.
    std::uint64_t GetMerged() const { return merged; }  ///< fell into a cell that an earlier one held, and replaced it
    std::uint64_t GetDropped() const { return dropped; }  ///< lie outside the grid
    std::uint64_t GetFilled() const { return filled; }    ///< cells with a depth; known after Finish

private:
    class Sink;
    std::size_t PartsFor(const CRandomFile& text) const;
    void MergeLayers(const LoadProgress& progress, std::size_t used);

    DtmGrid grid;
    std::uint64_t mostBytes;
    DtmParts parts;
    BigArray<std::int32_t> depths;
    // The cells of later parts of a file, until they are put over the earlier ones.
    std::vector<BigArray<std::int32_t>> layers;
    std::uint64_t merged = 0;
    std::uint64_t dropped = 0;
    std::uint64_t filled = 0;
};

}  // namespace quillon
