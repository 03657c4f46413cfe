#include "background/dtm_report.h"

#include <climits>

#include "background/dtm_grid.h"
#include "platform/big_array.h"
#include "platform/text.h"

namespace quillon {
namespace {

DtmGrid GridOf(const DtmExtents& extents) {
    return {0.0, 0.0, extents.step, extents.easting.count, extents.northing.count};
}

std::string Digits(double value) {
    std::string text;
    AppendShortest(text, value);
    return text;
}

std::string PlaceText(const DtmPlace& place, const std::array<std::string, 3>& names) {
    return Format("line %zu of %s (", place.line, names[static_cast<std::size_t>(place.slot)].c_str()) +
           Digits(place.position.x) + ", " + Digits(place.position.y) + ")";
}

std::string GridText(const DtmReport& report, const std::array<std::string, 3>& names) {
    const DtmExtents& extents = report.extents;
    std::string text = "the step of " + Digits(extents.step) +
                       Format(" m makes %lld columns and %lld rows", static_cast<long long>(extents.easting.count),
                              static_cast<long long>(extents.northing.count));
    if (!report.stepSource) return text;
    return text + "; " + PlaceText(report.stepSource->before, names) + " and " +
           PlaceText(report.stepSource->behind, names) + " set it";
}

}  // namespace

std::vector<std::string> NotesOf(const DtmReport& report, const std::array<std::string, 3>& names) {
    if (!report.imported) {
        if (!report.lines[0].opened) return {};
        return {Format("%llu cells with a depth, from the depth cache",
                       static_cast<unsigned long long>(report.cellsWithDepth))};
    }
    std::vector<std::string> notes = {Format(
        "%llu samples without a depth; %llu fell into a cell that an earlier one held; %llu lie outside the array",
        static_cast<unsigned long long>(report.withoutDepth), static_cast<unsigned long long>(report.merged),
        static_cast<unsigned long long>(report.dropped))};
    if (report.stepSource) {
        const auto place = [&names](const DtmPlace& at) {
            std::string text = Format("line %zu", at.line);
            if (!names[1].empty()) text += " of " + names[static_cast<std::size_t>(at.slot)];
            return text;
        };
        notes.push_back("step " + Digits(report.extents.step) + " m, set by " + place(report.stepSource->before) +
                        " and " + place(report.stepSource->behind));
    }
    return notes;
}

std::uint64_t DtmLimits::DefaultBytes() {
    const std::uint64_t memory = PhysicalMemory();
    return memory == 0 ? UINT64_MAX : memory / 2;
}

DTM_REFUSAL JudgeExtents(const DtmExtents& extents, const DtmLimits& limits) {
    if (IsMissing(extents.easting.previous)) return DTM_REFUSAL::NO_SAMPLES;
    const DtmGrid grid = GridOf(extents);
    if (grid.columns < 1 || grid.rows < 1) return DTM_REFUSAL::NO_GRID;
    const bool counted = grid.columns <= INT_MAX && grid.rows <= INT_MAX;
    if (!counted || grid.CellCount() > limits.mostCells) return DTM_REFUSAL::TOO_MANY_CELLS;
    const bool fits = grid.CellCount() <= limits.mostBytes / sizeof(std::int32_t);
    return fits ? DTM_REFUSAL::NO : DTM_REFUSAL::TOO_MUCH_MEMORY;
}

std::string RefusalText(const DtmReport& report, const std::array<std::string, 3>& names) {
    const std::uint64_t cells = GridOf(report.extents).CellCount();
    switch (report.refusal) {
        case DTM_REFUSAL::NO:
            return {};
        case DTM_REFUSAL::NO_SAMPLES:
            return "no line holds easting, northing and depth";
        case DTM_REFUSAL::NO_GRID:
            return "the samples make no grid: " + GridText(report, names);
        case DTM_REFUSAL::TOO_MANY_CELLS:
            return "too many cells: " + GridText(report, names);
        case DTM_REFUSAL::TOO_MUCH_MEMORY:
            return Format("%llu cells are more than half of this machine's memory holds: ",
                          static_cast<unsigned long long>(cells)) +
                   GridText(report, names);
        case DTM_REFUSAL::NO_MEMORY:
            return Format("no memory for %llu cells: ", static_cast<unsigned long long>(cells)) +
                   GridText(report, names);
    }
    return {};
}

}  // namespace quillon
