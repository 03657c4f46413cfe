#pragma once

#include <atomic>
#include <string>
#include <string_view>

#include "background/load_progress.h"
#include "display/list_ctrl_import.h"
#include "platform/file.h"

namespace quillon {

/// What a thinning that runs shows: how far it has read, and the rows written so far among those read by then. The
/// total is told at the first row and, but for a file whose last row alone was kept just before, at the end.
class ThinProgress : public LoadProgress {
public:
    struct Shown {
        int total = 0;   ///< rows
        int used = 0;    ///< rows written
        int usedOf = 0;  ///< rows read when `used` was told
        friend bool operator==(const Shown&, const Shown&) = default;
    };

    Shown Get() const { return {total.load(kRelaxed), used.load(kRelaxed), usedOf.load(kRelaxed)}; }
    void SetTotal(int rows) { total.store(rows, kRelaxed); }
    void SetUsed(int rows, int of) {
        used.store(rows, kRelaxed);
        usedOf.store(of, kRelaxed);
    }

private:
    static constexpr std::memory_order kRelaxed = std::memory_order_relaxed;
    std::atomic<int> total{0};
    std::atomic<int> used{0};
    std::atomic<int> usedOf{0};
};

/// "12 (3.4%)"
std::string UsedText(const ThinProgress::Shown& shown);

enum class THIN_END {
    DONE,
    NO_OUTPUT,  ///< the file of the result can't be written
    NO_INPUT,   ///< the source can't be read or ends within the lines to skip; an empty result is written
    STOPPED     ///< cancelled; what stood in the place of the result still stands
};

struct ThinResult {
    THIN_END end = THIN_END::DONE;
    std::string path;  ///< of the result
    int rows = 0;      ///< read
    int written = 0;   ///< of them
    bool hasEndLine = false;
    std::string fault;  ///< why the result can't be written, for people
};

/// Copies the rows of a pipeline survey that it takes for the line to stay within `tolerance` metres of all others, in
/// their order, and ends with a line of the last position. A row is written when the line from the one written before
/// it to the row behind it would pass further than the tolerance from a row in between.
///
/// Time grows with the number of rows: the bearings that still fit are kept in a cone, and the distances themselves are
/// worked out only for rows within rounding of its edge, so that the result is that of working out all of them. A
/// tolerance of 0 counts as 1 metre, a negative one by its absolute value.
ThinResult ThinFile(const CListCtrlImport& import, double tolerance, std::string_view outputPath,
                    ThinProgress& progress);

/// "Leg 7_thinned.csv" beside "Leg 7.csv".
std::string ThinnedPath(std::string_view path);

/// The same from a file that stands behind the lines to skip, into `output`; fills `rows`, `written` and `hasEndLine`.
/// False if it was cancelled.
bool ThinRows(CStdioFile& input, const CListCtrlImport& import, double tolerance, ThinProgress& progress,
              std::string& output, ThinResult& result);

}  // namespace quillon
