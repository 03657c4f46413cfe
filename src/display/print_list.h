#pragma once

#include <string>
#include <string_view>

#include "display/list_table.h"
#include "platform/printer.h"

namespace quillon {

/// What stands in the margins of every page; empty texts leave their place free.
struct PrintMargins {
    std::string heading;  ///< top left: the job and its grid
    std::string date;     ///< top right
};

/// Prints a table: as many pages as its rows need, each with the headers on top and a frame, in the largest type of 12
/// to 3 points in which its widest row fits. True unless a step of the printer failed; nothing happens without rows.
bool PrintTable(CPrinter& printer, const PrintJob& job, std::string_view document, const ListTable& table,
                bool gridLines, const PrintMargins& margins = {});

}  // namespace quillon
