#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <vector>

#include "background/dig_file.h"

namespace quillon {

/// The records of a DIG file that the lines of one colour run through.
struct DigLines {
    std::vector<std::uint32_t> records;  ///< ascending
    std::vector<std::uint32_t> starts;   ///< where lines begin, places in `records`
};

/// The line work by the place of its colour in the palette. A piece of line has the colour of the record that it leads
/// to, so where the colour changes on the way, the next line begins at the record before. A record without a position
/// (0, 0 stands for none) parts the line; a record that no line leads to or from is left out.
std::map<int, DigLines> SplitDig(std::span<const BinaryDigDef> records);

}  // namespace quillon
