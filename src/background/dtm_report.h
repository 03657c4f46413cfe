#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "background/dtm_extents.h"
#include "foundation/read_report.h"

namespace quillon {

/// Why samples gave no depth array.
enum class DTM_REFUSAL {
    NO,               ///< they gave one
    NO_SAMPLES,       ///< no file holds one
    NO_GRID,          ///< columns or rows could never be counted
    TOO_MANY_CELLS,   ///< the step is too small for the extents
    TOO_MUCH_MEMORY,  ///< the cells would take more than the stated share of it
    NO_MEMORY         ///< the system didn't grant it
};

/// What a depth array may take.
struct DtmLimits {
    std::uint64_t mostCells = std::uint64_t{1} << 31;
    /// Half of the machine's memory.
    std::uint64_t mostBytes = DefaultBytes();
    /// Parts that a file is cut into to be read at the same time; 0 leaves it to its size and the machine.
    std::size_t parts = 0;

    static std::uint64_t DefaultBytes();
};

/// What the last import of a DTM made of its files. A DTM that was read from its cache has none.
struct DtmReport {
    bool imported = false;
    std::array<ReadReport, 3> lines;          ///< of DTM One, Two, Three
    DtmExtents extents;                       ///< as the samples gave them, also if they were refused
    std::optional<DtmStepSource> stepSource;  ///< the two samples that set the step
    std::uint64_t withoutDepth = 0;           ///< samples whose depth is 0
    std::uint64_t merged = 0;                 ///< fell into a cell that an earlier sample held, and replaced it
    std::uint64_t dropped = 0;                ///< lie outside the array
    std::uint64_t cellsWithDepth = 0;
    DTM_REFUSAL refusal = DTM_REFUSAL::NO;
    std::string cacheFault;  ///< why the cache wasn't written; empty if it was

    std::uint64_t CountTaken() const { return lines[0].taken + lines[1].taken + lines[2].taken; }
};

/// Whether the extents give an array that may be made.
DTM_REFUSAL JudgeExtents(const DtmExtents& extents, const DtmLimits& limits);

/// For people: what became of the samples, and what set the step.
std::vector<std::string> NotesOf(const DtmReport& report, const std::array<std::string, 3>& names);

/// For people, one sentence: why there is no depth array, with the step, the counts and the two samples that set it.
/// `names` are what the files are called. Empty if nothing was refused.
std::string RefusalText(const DtmReport& report, const std::array<std::string, 3>& names);

}  // namespace quillon
