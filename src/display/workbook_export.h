#pragma once

#include <string_view>

#include "display/list_table.h"
#include "platform/file.h"

namespace quillon {

/// Writes the table as a workbook of one sheet (.xlsx): the header row frozen, cells of number columns as numbers, each
/// column as wide as its widest text. Rows past what a sheet can hold go to further sheets. False, with the file as it
/// was, if it can't be written.
bool WriteWorkbook(FileSystem& files, std::string_view path, std::string_view sheet, const ListTable& table);

}  // namespace quillon
