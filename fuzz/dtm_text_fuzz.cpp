// Any bytes as a DTM text: read whole and read in three parts, both passes give the same; every count adds up; and what
// the regular grid makes of them is a grid.

#include <algorithm>

#include "background/dtm_passes.h"
#include "background/dtm_regular.h"
#include "background/dtm_report.h"
#include "feature_fuzz.h"

namespace {

using namespace quillon;

constexpr std::uint64_t kMostCells = 4096;

DtmSurvey Survey(const CRandomFile& text, std::size_t parts) {
    DtmProgress progress;
    DtmSurvey survey;
    survey.AddFile(text, 0, progress, parts);
    const ReadReport& lines = survey.lines[0];
    fuzz::Require(lines.lines == lines.taken + lines.passedOver);
    fuzz::Require(survey.run.GetSampleCount() == lines.taken);
    return survey;
}

std::vector<std::int32_t> Cells(const CRandomFile& text, const DtmSurvey& survey, std::size_t parts) {
    const DtmExtents& extents = survey.run.Get();
    DtmProgress progress;
    DtmDepthsMaker maker({extents.easting.minimum, extents.northing.minimum, extents.step, extents.easting.count,
                          extents.northing.count},
                         UINT64_MAX, parts);
    maker.AddFile(text, progress);
    const BigArray<std::int32_t> cells = maker.Finish(progress);
    const std::uint64_t placed = survey.lines[0].taken - maker.GetDropped() - maker.GetMerged();
    fuzz::Require(placed <= cells.Size() && maker.GetFilled() <= placed);
    fuzz::Require(std::ranges::all_of(cells.Span(), [](std::int32_t depth) { return depth >= 0; }));
    return {cells.Span().begin(), cells.Span().end()};
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    CRandomFile text;
    text.OpenBytes({reinterpret_cast<const char*>(data), size});
    const DtmSurvey whole = Survey(text, 1);
    const DtmSurvey parts = Survey(text, 3);
    fuzz::Require(whole.run.Get() == parts.run.Get());
    fuzz::Require(whole.run.GetStepSource() == parts.run.GetStepSource());
    fuzz::Require(whole.areas == parts.areas);
    const DtmLimits limits{.mostCells = kMostCells, .mostBytes = kMostCells * 16, .parts = 1};
    if (JudgeExtents(whole.run.Get(), limits) == DTM_REFUSAL::NO) {
        fuzz::Require(Cells(text, whole, 1) == Cells(text, parts, 3));
    }
    CStdioFile nowhere(fuzz::Files());
    DtmProgress progress;
    const DtmRegularResult regular = MakeRegularDtm(text, {}, limits, progress, nowhere);
    fuzz::Require(regular.cellsWithDepth <= kMostCells && regular.cellsWithDepth <= regular.lines.taken);
    return 0;
}
