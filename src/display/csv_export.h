#pragma once

#include <string_view>

#include "display/list_table.h"
#include "platform/file.h"

namespace quillon {

enum class CSV_FORM {
    /// As other programs of the system expect it: headers of 40 and cells of 80 characters at most, joined by commas
    /// and not quoted, so that a comma in a cell makes two fields of it.
    PLAIN,
    /// Full texts, quoted where they need it, so that every reader gets them back whole (Y. Shafranovich, Common Format
    /// and MIME Type for Comma-Separated Values, RFC 4180, 2005).
    QUOTED
};

/// Writes the headers, then a line a row. False, with the file as it was, if it can't be written.
bool WriteCsv(FileSystem& files, std::string_view path, const ListTable& table, CSV_FORM form);

}  // namespace quillon
