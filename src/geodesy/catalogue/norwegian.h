#pragma once

#include <iterator>

namespace quillon::catalogue {

// Norwegian axes, by rule: the UTM zones 31 to 35 on the International ellipsoid, from which the polynomials lead to
// the axes of the Norges geografiske oppmaling.

inline constexpr int kNorwegianZones = 5;
inline constexpr int kNorwegianFirstUtmZone = 31;
inline constexpr int kNorwegianEllipsoid = 20;
inline constexpr const char* kNorwegianAxes[] = {"I", "II", "III", "IV", "V"};

static_assert(std::size(kNorwegianAxes) == kNorwegianZones);

}  // namespace quillon::catalogue
