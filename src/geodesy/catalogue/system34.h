#pragma once

#include <iterator>

namespace quillon::catalogue {

// Danish System 34, by rule: UTM zone 32 on the International ellipsoid, from which the polynomials lead to the two
// systems.

inline constexpr const char* kSystem34[] = {"Jylland", "Seelland"};
inline constexpr int kSystem34Ellipsoid = 20;
inline constexpr int kSystem34Meridian = 9;
inline constexpr int kSystem34UtmZone = 32;

static_assert(std::size(kSystem34) == 2);

}  // namespace quillon::catalogue
