#pragma once

namespace quillon::catalogue {

// South African Lo, by rule: belts of two degrees on the odd meridians, without false origin or scale; westings and
// southings.
//
// International Association of Oil and Gas Producers, EPSG Geodetic Parameter Dataset: South African Survey Grid.

inline constexpr int kLoZones = 10;
inline constexpr int kLoEllipsoid = 12;

constexpr int LoMeridian(int zone) {
    return 2 * zone + 17;
}

static_assert(LoMeridian(0) == 17 && LoMeridian(kLoZones - 1) == 35);

}  // namespace quillon::catalogue
