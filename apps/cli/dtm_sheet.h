#pragma once

#include <array>
#include <string>

#include "background/dtm.h"
#include "sheet.h"

namespace quillon {

/// What a loaded DTM holds; for programs also what was made of its files, which people read on the error stream.
void FillSheet(Sheet& sheet, const CDtm& dtm, bool withReport);

/// What an import made of its files: lines, samples, cells, step. `names` are the files as they are called on the
/// terminal.
std::string ReportText(const DtmReport& report, const std::array<std::string, CDtm::kSlots>& names);

}  // namespace quillon
