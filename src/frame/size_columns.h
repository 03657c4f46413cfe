#pragma once

#include <functional>
#include <string_view>

#include "platform/controls.h"

namespace quillon {

/// Sets every column to the wider of its contents and its header. With `stretchLast` the last one takes what is left of
/// the table's width. A header of several lines is measured by its longest one.
void SizeColumns(CListCtrl& table, bool stretchLast);

/// The width that a header needs, where its whole text in one line is `headerWidth` pixels wide with the padding of a
/// header cell.
int HeaderWidth(std::string_view header, int headerWidth);

}  // namespace quillon
