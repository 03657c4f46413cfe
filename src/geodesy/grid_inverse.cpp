#include <algorithm>
#include <cmath>
#include <limits>

#include "geodesy/batch.h"
#include "geodesy/grid.h"
#include "geodesy/inverse_formulas.h"
#include "geodesy/norwegian_axes.h"
#include "geodesy/scalar_math.h"

namespace quillon {
namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kSlope = 1e-5;  // radians to either side: 64 m

bool IsReady(const CGrid& grid) {
    return grid.ellipsoid != nullptr && grid.ellipsoid->a != 0 && grid.k0 != 0;
}

bool FitsLanes(const CEllipsoid& ellipsoid) {
    return ellipsoid.e2 >= 0 && ellipsoid.e2 <= Formulas<ScalarMath>::kSeriesE2;
}

/// Easting and northing in the words' own sense, whatever the order and sign of the grid's results, and without the
/// step in which a Norwegian position ends.
tagXY EastNorth(const CGrid& grid, double lat, double lon) {
    double first = 0, second = 0;
    ForwardByFormula(grid, &first, &second, lat, lon);
    switch (grid.Axes()) {
        case GRID_AXES::WESTING_SOUTHING:
            return {-first, -second};
        case GRID_AXES::NORTHING_EASTING: {
            const tagNorwegian position =
                NorwegianFromUtm(grid.utmZone, grid.subtype, first, second, NORWEGIAN_END::SETTLED);
            return position.axis == 0 ? tagXY{kNaN, kNaN} : tagXY{position.Y, position.X};
        }
        case GRID_AXES::EASTING_NORTHING:
            break;
    }
    return {first, second};
}

}  // namespace

bool InverseByFormula(const CGrid& grid, double easting, double northing, double* lat, double* lon) {
    bool found = false;
    *lat = *lon = kNaN;
    if (!IsReady(grid)) return false;
    WithFormula<ScalarMath>(grid, [&](auto formula) {
        double foundLat = 0, foundLon = 0;
        found = InverseSearch<ScalarMath>::Settle(grid, formula, easting, northing, foundLat, foundLon);
        if (!found) return;
        *lat = foundLat;
        *lon = foundLon;
    });
    return found;
}

bool CGrid::Inverse(double easting, double northing, double* lat, double* lon) const {
    double foundLat = 0, foundLon = 0;
    if (type == NORWEGIAN_AXES) {
        const std::optional<tagXY> utm = UtmFromNorwegian(utmZone, subtype, easting, northing);
        if (!utm) return false;
        easting = utm->x;
        northing = utm->y;
    }
    if (!InverseByFormula(*this, easting, northing, &foundLat, &foundLon)) return false;
    *lat = foundLat;
    *lon = foundLon;
    return true;
}

std::size_t CGrid::InverseAll(std::span<double> latitudes, std::span<double> longitudes,
                              std::span<const double> eastings, std::span<const double> northings) const {
    const std::size_t count = std::min({eastings.size(), northings.size(), latitudes.size(), longitudes.size()});
    std::size_t inside = 0;
    const bool lanes = IsReady(*this) && FitsLanes(*ellipsoid);
    for (std::size_t i = 0; i < count; i++) {
        const double first = eastings[i], second = northings[i];
        const std::optional<tagXY> start =
            type == NORWEGIAN_AXES ? UtmFromNorwegian(utmZone, subtype, first, second) : tagXY{first, second};
        latitudes[i] = start ? start->x : kNaN;
        longitudes[i] = start ? start->y : kNaN;
        if (!lanes) InverseByFormula(*this, latitudes[i], longitudes[i], &latitudes[i], &longitudes[i]);
    }
    if (lanes) {
        BatchKernelsHere().front()->inverse(*this, latitudes.data(), longitudes.data(), latitudes.data(),
                                            longitudes.data(), count);
    }
    for (std::size_t i = 0; i < count; i++) inside += !std::isnan(latitudes[i]);
    return inside;
}

std::optional<tagGridScale> CGrid::ScaleAt(double lat, double lon) const {
    const double s = std::sin(lat), c = std::cos(lat);
    if (!IsReady(*this) || !(c > 0)) return std::nullopt;
    lon = NearMeridian(lon);
    const tagXY north = EastNorth(*this, lat + kSlope, lon), south = EastNorth(*this, lat - kSlope, lon);
    const tagXY east = EastNorth(*this, lat, lon + kSlope), west = EastNorth(*this, lat, lon - kSlope);
    const tagXY up{north.x - south.x, north.y - south.y}, across{east.x - west.x, east.y - west.y};
    const double w2 = 1 - ellipsoid->e2 * s * s;
    const double nu = ellipsoid->a / std::sqrt(w2), rho = nu * ellipsoid->oneMinusE2 / w2;
    const double area = (across.x * up.y - across.y * up.x) / (4 * kSlope * kSlope * rho * nu * c);
    if (!(area > 0) || !std::isfinite(area)) return std::nullopt;
    return tagGridScale{-std::atan2(up.x, up.y), std::sqrt(area)};
}

}  // namespace quillon
