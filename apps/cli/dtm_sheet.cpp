#include "dtm_sheet.h"

#include "printable.h"
#include "report_sheet.h"

namespace quillon {
namespace {

/// A step as it is: rounding in the files shows in its last digits.
constexpr int kStepDecimals = 12;

using Names = std::array<std::string, CDtm::kSlots>;

void PutPlace(Sheet& sheet, std::string_view key, const DtmPlace& place) {
    sheet.Int(std::string(key) + "_line", static_cast<long long>(place.line));
    sheet.Pair(key, place.position);
}

void PutReport(Sheet& sheet, const DtmReport& report, const Names& names) {
    sheet.BeginGroup("report");
    sheet.Bool("imported", report.imported);
    sheet.Int("without_depth", static_cast<long long>(report.withoutDepth));
    sheet.Int("merged", static_cast<long long>(report.merged));
    sheet.Int("dropped", static_cast<long long>(report.dropped));
    sheet.Text("refused", RefusalText(report, names));
    if (report.stepSource) {
        PutPlace(sheet, "step_from", report.stepSource->before);
        PutPlace(sheet, "step_to", report.stepSource->behind);
    }
    quillon::PutReport(sheet, report.lines[0]);
    sheet.EndGroup();
}

}  // namespace

void FillSheet(Sheet& sheet, const CDtm& dtm, bool withReport) {
    // Of samples that were refused, the grid that they would have made.
    const DtmExtents& extents = dtm.IsLoaded() ? dtm.extents : dtm.report.extents;
    sheet.Text("path", dtm.fileName[0]);
    sheet.Int("columns", extents.easting.count);
    sheet.Int("rows", extents.northing.count);
    sheet.Real("step", extents.step, kStepDecimals, "m");
    sheet.Metres("min_easting", extents.easting.minimum);
    sheet.Metres("min_northing", extents.northing.minimum);
    sheet.Metres("max_easting", extents.easting.maximum);
    sheet.Metres("max_northing", extents.northing.maximum);
    sheet.Real("min_depth", extents.minDepth, 3, "m");
    sheet.Real("max_depth", extents.maxDepth, 3, "m");
    sheet.Int("cells_with_depth", static_cast<long long>(dtm.report.cellsWithDepth));
    if (withReport) PutReport(sheet, dtm.report, dtm.fileName);
    sheet.Finish();
}

std::string ReportText(const DtmReport& report, const Names& names) {
    std::string text;
    for (std::size_t slot = 0; slot < CDtm::kSlots; ++slot) {
        if (report.lines[slot].opened) text += ReportText(PrintableUtf8(names[slot]), report.lines[slot]);
    }
    for (const std::string& note : NotesOf(report, names)) text += "  " + note + "\n";
    return text;
}

}  // namespace quillon
