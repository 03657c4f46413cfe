#pragma once

#include <iosfwd>
#include <string>
#include <string_view>

#include "geodesy/grid.h"
#include "geodesy/gsb_file.h"

namespace quillon {

// What the geodesy commands print. Angles in degrees, lengths in metres (feet in the 1927 State Plane tables); UTF-8.

std::string EllipsoidList(bool json);

/// The rows of one family, or of all where `type` is negative.
std::string GridList(std::int32_t type, bool json);

/// The record of a grid in use, with the constants derived from it.
std::string GridInfo(const CGrid& grid);

/// The names of the two results of a grid, as "easting northing".
std::string_view AxisNames(const CGrid& grid);

/// Header records, then the nodes with their positions, those as decimal degrees, east positive. In blocks, as they
/// come.
void PrintGsb(std::ostream& out, const GsbFile& file, bool withNodes);

}  // namespace quillon
