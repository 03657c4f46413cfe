#pragma once

#include <cstdint>
#include <string>

#include "background/dtm_grid.h"
#include "background/dtm_progress.h"
#include "background/dtm_report.h"
#include "platform/file.h"
#include "platform/random_file.h"

namespace quillon {

/// Which depth stands for all that fall into one cell.
enum class DTM_TAKE { SHOALEST, DEEPEST, MEAN };

/// How soundings that lie anywhere are brought to a regular grid.
struct DtmRegularOptions {
    double step = 1.0;  ///< metres, at most kDecimals decimals
    DTM_TAKE take = DTM_TAKE::SHOALEST;

    static constexpr int kDecimals = 9;
};

enum class DTM_REGULAR_FAULT {
    NO,
    NO_DEPTHS,       ///< no sample has one
    STEP_TOO_FINE,   ///< it isn't large against what a coordinate can tell apart
    TOO_MANY_CELLS,  ///< so many that no array could be made of the result, or not with this machine's memory
    CANCELLED
};

struct DtmRegularResult {
    DTM_REGULAR_FAULT fault = DTM_REGULAR_FAULT::NO;
    ReadReport lines;
    DtmGrid grid;
    std::uint64_t withoutDepth = 0;  ///< samples left out since they have none
    std::uint64_t cellsWithDepth = 0;
};

/// For people: why there is no regular file. `grid` is the result's.
std::string FaultText(DTM_REGULAR_FAULT fault, const DtmGrid& grid);

/// Bins the samples of a text into square cells whose corners are whole steps, and writes a text that a DTM takes as
/// exactly that grid: a sample in the middle of each cell that holds one, row by row. Ahead of them stand
/// three points without a depth: two a step apart, so that the step is found however sparse the cells are, and the far
/// corner, so that columns and rows are counted with it.
///
/// The sign that most depths have is the sign of depths below the surface; a depth of the other sign is shoaler than
/// all of them. `out` is open for writing; committing it is left to the caller.
DtmRegularResult MakeRegularDtm(const CRandomFile& text, const DtmRegularOptions& options, const DtmLimits& limits,
                                DtmProgress& progress, CStdioFile& out);

}  // namespace quillon
