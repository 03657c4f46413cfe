#pragma once

#include <string>
#include <string_view>

#include "background/dig.h"
#include "background/dxf.h"
#include "background/kind_report.h"
#include "sheet.h"

namespace quillon {

/// What a drawing holds: its settings, extents and tables, and its entities counted by kind or, if asked for, one by
/// one.
void FillSheet(Sheet& sheet, const CDxf& dxf, const KindReport& report, bool listEntities);

/// What a DIG file holds, with its records one by one if asked for.
void FillSheet(Sheet& sheet, const CDig& dig, bool listRecords);

/// What was taken and what was passed over, by kind and count; for programs only.
void PutReport(Sheet& sheet, const KindReport& report);
/// The same for people. `file` as it is called on the terminal.
std::string ReportText(std::string_view file, const KindReport& report, std::string_view taken);

}  // namespace quillon
