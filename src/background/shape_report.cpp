#include "background/shape_report.h"

#include "platform/text.h"

namespace quillon {

ReadReport LinesOf(const ShapeReport& report) {
    ReadReport lines;
    lines.opened = report.opened;
    lines.lines = report.records;
    lines.taken = report.taken;
    lines.passedOver = report.records - report.taken;
    if (!report.opened && !report.lines.empty()) lines.fault = report.lines.back().reason;
    return lines;
}

std::vector<std::string> NotesOf(const ShapeReport& report) {
    std::vector<std::string> notes;
    for (const ShapeReport::Line& line : report.lines) {
        notes.push_back((line.record > 0 ? Format("record %zu: ", line.record) : std::string()) + line.reason);
    }
    if (report.unnamed > 0) notes.push_back(Format("and %zu more", report.unnamed));
    return notes;
}

}  // namespace quillon
