#include "host/read_findings.h"

#include <algorithm>
#include <utility>

#include "platform/text.h"

namespace quillon {
namespace {

std::string SummaryOf(const ReadReport& report) {
    if (!report.opened) return "can't be read";
    std::string text;
    if (report.passedOver > 0) {
        text = Format("%zu of %zu line%s passed over", report.passedOver, report.lines, report.lines == 1 ? "" : "s");
    }
    if (report.remarks > 0) text += Format("%s%zu taken in part", text.empty() ? "" : ", ", report.remarks);
    return text;
}

std::vector<ReadFinding> ListOf(const ReadReport& report) {
    std::vector<ReadFinding> all;
    if (!report.opened) {
        // Without a fault the file is still to be read, behind the job.
        if (!report.fault.empty()) all.push_back({0, report.fault});
        return all;
    }
    for (const auto& [number, reason] : report.named) all.push_back({number, std::string(ReasonText(reason))});
    for (const auto& [number, remark] : report.remarked) all.push_back({number, std::string(RemarkText(remark))});
    std::stable_sort(all.begin(), all.end(), [](const auto& a, const auto& b) { return a.line < b.line; });
    if (report.passedOver > report.named.size()) {
        all.push_back({0, Format("and %zu more passed over", report.passedOver - report.named.size())});
    }
    if (report.remarks > report.remarked.size()) {
        all.push_back({0, Format("and %zu more taken in part", report.remarks - report.remarked.size())});
    }
    if (report.labelsCut) all.push_back({0, "the KP labels end early: the interval asks for too many"});
    return all;
}

}  // namespace

std::vector<FileFindings> FindingsOf(const JobRecord& job) {
    std::vector<FileFindings> all;
    for (const JobKind& kind : JobKinds()) {
        for (int i = 0; i < kind.fileCount(job) && kind.report; ++i) {
            const ReadReport& report = kind.report(job, i);
            std::vector<ReadFinding> found = ListOf(report);
            if (report.opened && kind.isStub && kind.isStub(job, i)) found.push_back({0, "nothing in it can be used"});
            if (found.empty()) continue;
            if (kind.notes) {
                for (std::string& note : kind.notes(job, i)) found.push_back({0, std::move(note)});
            }
            const std::string summary = SummaryOf(report);
            all.push_back(
                {{kind.id, kind.path(job, i)}, summary.empty() ? found.front().reason : summary, std::move(found)});
        }
    }
    return all;
}

std::string FindingText(const JobFile& file, const ReadFinding& finding) {
    const std::string line = finding.line > 0 ? Format(", line %zu", finding.line) : std::string();
    return file.path + line + ": " + finding.reason;
}

}  // namespace quillon
