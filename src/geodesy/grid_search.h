#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// A row of the catalogue as it is offered for choice. Texts are Windows-1252.
struct GridListing {
    std::int32_t type = 0;
    std::int32_t zone = 0;
    std::int32_t ellipsoid = 0;  ///< catalogue index; -1 for the one in use
    std::string name;            ///< with the second line of it
    std::string family;          ///< "UTM", "State Plane 1927"
    std::string area;            ///< where it is used
};

/// All 430 rows, in the order of the catalogue. Made once.
std::span<const GridListing> AllGrids();

/// The rows in which every word of the query stands, in name, family, area or number ("31", "5010", "1/14" for type and
/// zone), whatever the capitals; nothing but blanks finds all. Rows in which the words stand whole come first, in the
/// order of the catalogue else.
std::vector<const GridListing*> FindGrids(std::string_view query);

}  // namespace quillon
