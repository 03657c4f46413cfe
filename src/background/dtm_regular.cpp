#include "background/dtm_regular.h"

#include <algorithm>
#include <climits>
#include <cmath>
#include <limits>

#include "background/dtm_passes.h"
#include "background/dtm_text.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr int kMeanDecimals = 3;
/// Bytes of text gathered before they go out.
constexpr std::size_t kBlock = std::size_t{1} << 16;

struct Bin {
    double value;  ///< the depth taken so far, or their sum
    std::uint32_t count;
};

/// Counts depths by their sign.
struct SignSink {
    std::uint64_t negative = 0, positive = 0;
    void Take(const tagXYZ& sample, std::size_t) {
        negative += sample.z < 0.0;
        positive += sample.z > 0.0;
    }
    void EndBlock() {}
};

/// Square cells whose corners are whole steps, so that files made with the same step fit each other.
struct Bins {
    double firstColumn = 0.0;  ///< steps from 0 to the western edge
    double firstRow = 0.0;
    DtmGrid grid;

    Bins(const DtmArea& area, double step)
        : firstColumn(std::floor(area.minEasting / step)), firstRow(std::floor(area.minNorthing / step)) {
        grid = {firstColumn * step, firstRow * step, step, 0, 0};
        grid.columns = DtmCount(std::floor(area.maxEasting / step) - firstColumn, 1.0);
        grid.rows = DtmCount(std::floor(area.maxNorthing / step) - firstRow, 1.0);
    }
    /// SIZE_MAX for a position outside, which a file that has changed meanwhile may hold.
    std::size_t IndexOf(const tagXYZ& sample) const {
        const double column = std::floor(sample.x / grid.step) - firstColumn;
        const double row = std::floor(sample.y / grid.step) - firstRow;
        const bool inside = column >= 0.0 && column < static_cast<double>(grid.columns) && row >= 0.0 &&
                            row < static_cast<double>(grid.rows);
        return inside ? static_cast<std::size_t>(row) * static_cast<std::size_t>(grid.columns) +
                            static_cast<std::size_t>(column)
                      : SIZE_MAX;
    }
};

struct BinSink {
    const Bins& cells;
    BigArray<Bin>& bins;
    DTM_TAKE take;
    bool belowIsNegative;

    void Take(const tagXYZ& sample, std::size_t) {
        if (sample.z == 0.0) return;
        const std::size_t cell = cells.IndexOf(sample);
        if (cell >= bins.Size()) return;
        Bin& bin = bins[cell];
        if (take == DTM_TAKE::MEAN) {
            bin.value += sample.z;
        } else {
            const bool wantsLess = (take == DTM_TAKE::SHOALEST) != belowIsNegative;
            const bool better = wantsLess ? sample.z < bin.value : sample.z > bin.value;
            if (bin.count == 0 || better) bin.value = sample.z;
        }
        ++bin.count;
    }
    void EndBlock() {}
};

int DecimalsOf(double step) {
    std::string text;
    AppendFixed(text, step, DtmRegularOptions::kDecimals);
    text.erase(text.find_last_not_of('0') + 1);
    return static_cast<int>(text.size() - text.find('.') - 1);
}

/// What the step in the file is less than the true one: 0 where coordinates are exact in binary, else more than their
/// rounding, so that no cell's corner comes to lie below it.
double Shortening(const DtmGrid& grid) {
    constexpr double kBinaryUnits = 512.0;
    const double units = grid.step * kBinaryUnits;
    if (units == std::floor(units)) return 0.0;
    const double largest = std::max({std::fabs(grid.minEasting), std::fabs(grid.minNorthing),
                                     std::fabs(grid.minEasting + static_cast<double>(grid.columns) * grid.step),
                                     std::fabs(grid.minNorthing + static_cast<double>(grid.rows) * grid.step)});
    const double rounding = std::nextafter(largest, std::numeric_limits<double>::infinity()) - largest;
    return std::pow(10.0, std::ceil(std::log10(4.0 * rounding)));
}

DTM_REGULAR_FAULT Judge(const DtmGrid& grid, double shortening, const DtmLimits& limits) {
    const bool tellable = std::fabs(grid.minEasting) < 1e12 && std::fabs(grid.minNorthing) < 1e12;
    const auto longest = static_cast<double>(std::max(grid.columns, grid.rows));
    if (!tellable || longest * shortening * 2.0 > grid.step) return DTM_REGULAR_FAULT::STEP_TOO_FINE;
    const std::uint64_t most = std::min(limits.mostCells, limits.mostBytes / sizeof(Bin));
    const bool counted = grid.columns < INT_MAX && grid.rows < INT_MAX;
    return counted && grid.CellCount() <= most ? DTM_REGULAR_FAULT::NO : DTM_REGULAR_FAULT::TOO_MANY_CELLS;
}

/// Writes the samples of a grid.
class Output {
public:
    Output(CStdioFile& target, const Bins& written, double lessThanStep)
        : file(target),
          cells(written),
          grid(written.grid),
          shortening(lessThanStep),
          decimals(DecimalsOf(grid.step) + 1) {}
    ~Output() { file.WriteString(block); }

    /// Step and far corner. Counts are worked out only when a third easting and a second northing have come.
    void PutFrame() {
        Put(0, 0, "0");
        AppendFixed(block, Easting(1) - shortening, shortening > 0.0 ? kFineDecimals : decimals);
        block += ',';
        AppendFixed(block, Northing(0), decimals);
        block += ",0\n";
        Put(std::max<std::int64_t>(grid.columns, 3) - 1, std::max<std::int64_t>(grid.rows, 2) - 1, "0");
    }
    void Put(std::int64_t column, std::int64_t row, std::string_view depth) {
        AppendFixed(block, Easting(column), decimals);
        block += ',';
        AppendFixed(block, Northing(row), decimals);
        block += ',';
        block += depth;
        block += '\n';
        if (block.size() < kBlock) return;
        file.WriteString(block);
        block.clear();
    }

private:
    static constexpr int kFineDecimals = 12;
    double Easting(std::int64_t column) const {
        return (cells.firstColumn + 0.5 + static_cast<double>(column)) * grid.step;
    }
    double Northing(std::int64_t row) const { return (cells.firstRow + 0.5 + static_cast<double>(row)) * grid.step; }

    CStdioFile& file;
    const Bins& cells;
    const DtmGrid& grid;
    const double shortening;
    const int decimals;
    std::string block;
};

std::string DepthText(const Bin& bin, DTM_TAKE take) {
    std::string text;
    if (take == DTM_TAKE::MEAN) {
        AppendFixed(text, bin.value / bin.count, kMeanDecimals);
    } else {
        AppendShortest(text, bin.value);
    }
    return text;
}

std::uint64_t PutBins(const DtmGrid& grid, const BigArray<Bin>& bins, DTM_TAKE take, const LoadProgress& progress,
                      Output& out) {
    std::uint64_t filled = 0;
    for (std::int64_t row = 0; row < grid.rows && !progress.IsCancelled(); ++row) {
        for (std::int64_t column = 0; column < grid.columns; ++column) {
            const Bin& bin = bins[static_cast<std::size_t>(row * grid.columns + column)];
            if (bin.count == 0) continue;
            out.Put(column, row, DepthText(bin, take));
            ++filled;
        }
    }
    return filled;
}

}  // namespace

std::string FaultText(DTM_REGULAR_FAULT fault, const DtmGrid& grid) {
    switch (fault) {
        case DTM_REGULAR_FAULT::NO_DEPTHS:
            return "no sample with a depth";
        case DTM_REGULAR_FAULT::STEP_TOO_FINE:
            return "the step is too fine for coordinates of that size";
        case DTM_REGULAR_FAULT::TOO_MANY_CELLS:
            return Format("%lld columns and %lld rows are too many cells; take a larger step",
                          static_cast<long long>(grid.columns), static_cast<long long>(grid.rows));
        case DTM_REGULAR_FAULT::CANCELLED:
        case DTM_REGULAR_FAULT::NO:
            break;
    }
    return "stopped";
}

DtmRegularResult MakeRegularDtm(const CRandomFile& text, const DtmRegularOptions& options, const DtmLimits& limits,
                                DtmProgress& progress, CStdioFile& out) {
    DtmSurvey survey;
    survey.AddFile(text, 0, progress, limits.parts);
    DtmRegularResult result;
    result.lines = survey.lines[0];
    result.withoutDepth = survey.run.GetWithoutDepth();
    const DtmArea& area = survey.areas[0];
    result.fault = progress.IsCancelled()       ? DTM_REGULAR_FAULT::CANCELLED
                   : IsMissing(area.minEasting) ? DTM_REGULAR_FAULT::NO_DEPTHS
                                                : DTM_REGULAR_FAULT::NO;
    if (result.fault != DTM_REGULAR_FAULT::NO) return result;
    const Bins cells(area, options.step);
    result.grid = cells.grid;
    const double shortening = Shortening(result.grid);
    result.fault = Judge(result.grid, shortening, limits);
    if (result.fault != DTM_REGULAR_FAULT::NO) return result;

    const DtmTextPart whole{0, text.GetLength()};
    ReadReport counted;
    SignSink signs;
    progress.Begin(2 * text.GetLength());
    ReadDtmText(text, whole, progress, counted, signs);
    BigArray<Bin> bins(static_cast<std::size_t>(result.grid.CellCount()));
    if (!bins) {
        result.fault = DTM_REGULAR_FAULT::TOO_MANY_CELLS;
        return result;
    }
    BinSink sink{cells, bins, options.take, signs.negative >= signs.positive};
    ReadDtmText(text, whole, progress, counted, sink);
    {
        Output output(out, cells, shortening);
        output.PutFrame();
        result.cellsWithDepth = PutBins(result.grid, bins, options.take, progress, output);
    }
    if (progress.IsCancelled()) result.fault = DTM_REGULAR_FAULT::CANCELLED;
    return result;
}

}  // namespace quillon
