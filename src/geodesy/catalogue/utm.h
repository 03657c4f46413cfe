#pragma once

namespace quillon::catalogue {

// Universal Transverse Mercator, by rule. Zones 1 to 60 are the usual ones; 0 and 61 repeat 60 and 1 at 183 degrees,
// for work across the 180th meridian.
//
// US Army, TM 8358.2 "The Universal Grids: UTM and UPS", Defense Mapping Agency, 1989.

inline constexpr int kUtmZones = 62;
inline constexpr int kUtmFirstEastZone = 31;
inline constexpr double kUtmScale = 0.9996;
inline constexpr double kUtmFalseEasting = 500000;
inline constexpr double kUtmSouthFalseNorthing = 10000000;

constexpr int UtmMeridian(int zone) {
    return 6 * zone - 183;
}

static_assert(UtmMeridian(0) == -183 && UtmMeridian(kUtmFirstEastZone) == 3 && UtmMeridian(kUtmZones - 1) == 183);

}  // namespace quillon::catalogue
