#include "report_sheet.h"

#include "platform/text.h"

namespace quillon {

std::string ReportText(std::string_view file, const ReadReport& report) {
    std::string text(file);
    text += Format(": %zu lines, %zu taken, %zu passed over\n", report.lines, report.taken, report.passedOver);
    for (const ReadReport::PassedLine& line : report.named) {
        text += Format("  line %zu: ", line.number);
        text += ReasonText(line.reason);
        text += '\n';
    }
    if (report.passedOver > report.named.size()) {
        text += Format("  and %zu more\n", report.passedOver - report.named.size());
    }
    for (const ReadReport::RemarkedLine& line : report.remarked) {
        text += Format("  line %zu: ", line.number);
        text += RemarkText(line.remark);
        text += '\n';
    }
    if (report.remarks > report.remarked.size()) {
        text += Format("  and %zu more that gave less than they asked for\n", report.remarks - report.remarked.size());
    }
    if (report.labelsCut) text += "  the KP labels end early: the interval asks for too many\n";
    return text;
}

namespace {

template <class Lines, class Reason>
void PutLines(Sheet& sheet, std::string_view key, const Lines& lines, Reason reason) {
    sheet.BeginTable(key, static_cast<std::ptrdiff_t>(lines.size()));
    for (const auto& line : lines) {
        sheet.BeginRow();
        sheet.Int("line", static_cast<long long>(line.number));
        sheet.Text("reason", reason(line));
        sheet.EndRow();
    }
    sheet.EndTable();
}

}  // namespace

void PutReport(Sheet& sheet, const ReadReport& report) {
    sheet.Int("lines", static_cast<long long>(report.lines));
    sheet.Int("taken", static_cast<long long>(report.taken));
    sheet.Int("passed_over_count", static_cast<long long>(report.passedOver));
    PutLines(sheet, "passed_over", report.named,
             [](const ReadReport::PassedLine& line) { return ReasonText(line.reason); });
}

void PutReportGroup(Sheet& sheet, const ReadReport& report) {
    if (!sheet.IsNested()) return;
    sheet.BeginGroup("report");
    PutReport(sheet, report);
    sheet.Int("taken_in_part_count", static_cast<long long>(report.remarks));
    PutLines(sheet, "taken_in_part", report.remarked,
             [](const ReadReport::RemarkedLine& line) { return RemarkText(line.remark); });
    sheet.Bool("labels_cut", report.labelsCut);
    sheet.EndGroup();
}

}  // namespace quillon
