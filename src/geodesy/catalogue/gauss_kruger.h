#pragma once

namespace quillon::catalogue {

// Gauss-Kruger, by rule: four DHDN zones of three degrees, then 32 zones of six degrees counted eastwards round the
// earth from 3 E. The zone's number stands before the false easting.
//
// International Association of Oil and Gas Producers, EPSG Geodetic Parameter Dataset: 3-degree Gauss-Kruger zones 2 to
// 5 (DHDN), 6-degree Gauss-Kruger zones 1 to 32 (Pulkovo 1942).

inline constexpr int kDhdnZones = 4;
inline constexpr int kGaussKrugerZones = 36;
inline constexpr int kDhdnEllipsoid = 3;
inline constexpr int kGaussKrugerEllipsoid = 21;

struct GaussKrugerZone {
    int number;
    int meridian;
    double falseEasting;
    int ellipsoid;
};

constexpr GaussKrugerZone GaussKruger(int zone) {
    if (zone < kDhdnZones) return {zone + 2, 3 * zone + 6, 1000000.0 * zone + 2500000, kDhdnEllipsoid};
    const int i = zone - kDhdnZones;
    const int meridian = 6 * i + 3;
    return {zone - 3, meridian > 180 ? meridian - 360 : meridian, 1000000.0 * i + 1500000, kGaussKrugerEllipsoid};
}

static_assert(GaussKruger(3).meridian == 15 && GaussKruger(3).falseEasting == 5500000);
static_assert(GaussKruger(35).number == 32 && GaussKruger(35).meridian == -171);

}  // namespace quillon::catalogue
