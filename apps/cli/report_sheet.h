#pragma once

#include <string>
#include <string_view>

#include "foundation/read_report.h"
#include "sheet.h"

namespace quillon {

/// How many lines were taken, and the first of those that were passed over, with their reasons. `file` as it is called
/// on the terminal.
std::string ReportText(std::string_view file, const ReadReport& report);

/// The same as fields of the group that is open: what was taken, and a table of the lines that were passed over.
void PutReport(Sheet& sheet, const ReadReport& report);
/// As a group "report", with the lines that were taken in part, for programs; people read the text.
void PutReportGroup(Sheet& sheet, const ReadReport& report);

}  // namespace quillon
