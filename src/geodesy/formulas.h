#pragma once

#include "geodesy/danish_system34.h"
#include "geodesy/grid.h"
#include "geodesy/work_slots.h"

namespace quillon {

/// The projection formulas, written once for one position and for several at a time: `M` is `ScalarMath` or a
/// `LaneMath`. All take latitude and longitude in radians and give metres with the false origin added. They read the
/// constants of a grid with an ellipsoid whose `Init` has run, allocate nothing and never branch on a position.
///
/// Two rules of algebra save most of the time. Latitude enters by one sine and cosine: the multiple angles of the
/// meridian arc follow from them, and tangents are multiplied out against the cosines beside them, so that nothing is
/// divided by the cosine of a latitude. The isometric latitude is taken as ln((1 + |sin|) / |cos|) with the sign of the
/// sine, which keeps all digits up to the pole.
///
/// Sources: J. C. B. Redfearn, Transverse Mercator Formulae, Empire Survey Review 69, 1948; M. Hotine, The
/// Orthomorphic Projection of the Spheroid, Empire Survey Review 62 to 66, 1946-47; J. P. Snyder, Map Projections, A
/// Working Manual, USGS Professional Paper 1395, 1987; C. N. Claire, State Plane Coordinates by Automatic Data
/// Processing, USC&GS Publication 62-4, 1968.
template <class M>
struct Formulas {
    using V = typename M::Value;

    struct Position {
        V east;
        V north;
    };

    /// a / sqrt(1 - e2 sin^2), 0 where the root is none.
    static V PrimeVerticalRadius(const CEllipsoid& ellipsoid, V w2) {
        const V root = M::Sqrt(w2);
        const V radius = ellipsoid.a / root;
        return root > 0.0 ? radius : V{};
    }

    /// Of the latitude whose sine and cosine are given beside it.
    static V MeridianArc(const CEllipsoid& ellipsoid, V lat, V s, V c) {
        const V sin2 = 2.0 * s * c;
        const V cos2 = 1.0 - 2.0 * s * s;
        const V waves = ellipsoid.A2 - 2.0 * ellipsoid.A4 * cos2 + ellipsoid.A6 * (4.0 * cos2 * cos2 - 1.0);
        return ellipsoid.a * (ellipsoid.A0 * lat - sin2 * waves);
    }

    /// e atanh(e sin lat), the part of the ellipsoid in the isometric latitude. As a series it is good to 1e-15 up to
    /// a flattening of 1/200; flatter shapes take the logarithm, one position at a time.
    static V EllipsoidTerm(const CEllipsoid& ellipsoid, V s) {
        const double e2 = ellipsoid.e2;
        if constexpr (sizeof(V) == sizeof(double)) {
            const double es = ellipsoid.e * s;
            if (e2 > kSeriesE2) return ellipsoid.halfE * M::Log((1.0 + es) / (1.0 - es));
        }
        const V x = e2 * (s * s);
        const V series =
            1.0 + x * (1.0 / 3 + x * (1.0 / 5 + x * (1.0 / 7 + x * (1.0 / 9 + x * (1.0 / 11 + x * (1.0 / 13))))));
        return e2 * s * series;
    }
    static constexpr double kSeriesE2 = 0.01;

    /// Infinite where the sine is 1, at the pole.
    static V IsometricLatitude(const CEllipsoid& ellipsoid, V s, V c) {
        const V sphere = M::Log((1.0 + M::Abs(s)) / M::Abs(c));
        const V psi = (s < 0.0 ? -sphere : sphere) - EllipsoidTerm(ellipsoid, s);
        if constexpr (sizeof(V) == sizeof(double)) {
            if (s * s >= 1.0) return s * __builtin_inf();
        }
        return psi;
    }

    /// exp of minus the isometric latitude: 0 at the north pole, beyond all bounds at the south pole.
    static V ConformalRatio(const CEllipsoid& ellipsoid, V s, V c) {
        const V sphere = (s < 0.0 ? 1.0 - s : c) / (s < 0.0 ? c : 1.0 + s);
        return sphere * M::Exp(EllipsoidTerm(ellipsoid, s));
    }

    /// Redfearn's series to the fifth power of the longitude difference: within 2 mm of the exact projection up to 2.9
    /// degrees from the meridian, 2.5 mm at 3 degrees and 15 mm at 4; half of that from 55 degrees of latitude on.
    static Position TransverseMercator(const CGrid& grid, V lat, V lon) {
        const CEllipsoid& ellipsoid = *grid.ellipsoid;
        constexpr double kPi = 3.141592653589793;
        V dl = lon - grid.lon0;
        dl = dl > kPi ? dl - 2 * kPi : (dl < -kPi ? dl + 2 * kPi : dl);
        V s, c;
        M::SinCos(lat, s, c);
        const V s2 = s * s, c2 = c * c, dl2 = dl * dl;
        const V w2 = 1.0 - ellipsoid.e2 * s2;
        const V psi = w2 * ellipsoid.onePlusEp2;  // nu / rho
        const V base = dl * PrimeVerticalRadius(ellipsoid, w2) * c;

        const V arc = MeridianArc(ellipsoid, lat, s, c) - grid.M0;
        const V h = 0.5 + dl2 * (1.0 / 24) * (c2 * ((4.0 * psi + 1.0) * psi) - s2);
        const V fifth = c2 * psi * (c2 * psi * (4.0 * psi + 1.0) + s2 * ((8.0 - 24.0 * psi) * psi - 2.0)) + s2 * s2;
        const V third = c2 * psi - s2;
        const V growth = 1.0 + dl2 * ((1.0 / 6) * third + dl2 * (1.0 / 120) * fifth);
        return {base * growth * grid.k0 + grid.FE, (arc + h * base * dl * s) * grid.k0 + grid.FN};
    }

    /// Westings and southings.
    static Position SouthAfricanLo(const CGrid& grid, V lat, V lon) {
        const Position position = TransverseMercator(grid, lat, lon);
        return {-position.east, -position.north};
    }

    static Position Mercator(const CGrid& grid, V lat, V lon) {
        using enum slot::mercator::NAMES;
        V s, c;
        M::SinCos(lat, s, c);
        return {(lon - grid.lon0) * grid.W[RADIUS] + grid.FE,
                IsometricLatitude(*grid.ellipsoid, s, c) * grid.W[RADIUS] + grid.FN};
    }

    /// A conic of radius `scale` exp(-n psi) about the apex that lies `apexNorth` up the central meridian.
    static Position Conic(const CGrid& grid, V lat, V lon, double n, double scale, double apexNorth) {
        V s, c, sinTh, cosTh;
        M::SinCos(lat, s, c);
        const V radius = scale * M::Exp(IsometricLatitude(*grid.ellipsoid, s, c) * -n);
        M::SinCos((lon - grid.lon0) * n, sinTh, cosTh);
        return {radius * sinTh + grid.FE, apexNorth - radius * cosTh};
    }
    static Position LambertStatePlane83(const CGrid& grid, V lat, V lon) {
        using enum slot::lambert83::NAMES;
        return Conic(grid, lat, lon, grid.W[CONE], grid.W[SCALE], grid.W[APEX_NORTH]);
    }
    static Position LambertTwoParallels(const CGrid& grid, V lat, V lon) {
        using enum slot::lambert_cone::NAMES;
        return Conic(grid, lat, lon, grid.W[CONE], grid.W[SCALE], grid.W[APEX_NORTH] + grid.FN);
    }

    static Position LambertOneParallel(const CGrid& grid, V lat, V lon) {
        using enum slot::lambert_series::NAMES;
        V s, c, sinTh, cosTh;
        M::SinCos(lat, s, c);
        const V m = MeridianArc(*grid.ellipsoid, lat, s, c) - grid.M0;
        M::SinCos((lon - grid.lon0) * grid.W[CONE], sinTh, cosTh);
        const V powers = grid.W[CUBE] + m * (grid.W[FOURTH] + m * (grid.W[FIFTH] + m * grid.W[SIXTH]));
        const V arc = m * (1.0 + m * m * powers) * grid.k0;
        const V east = sinTh * (grid.W[APEX] - arc);
        const V tanHalf = sinTh / (1.0 + cosTh);
        return {east + grid.FE, tanHalf * east + arc + grid.FN};
    }

    static Position Cassini(const CGrid& grid, V lat, V lon) {
        const CEllipsoid& ellipsoid = *grid.ellipsoid;
        V s, c;
        M::SinCos(lat, s, c);
        const V dl = lon - grid.lon0;
        const V s2 = s * s, c2 = c * c, dl2 = dl * dl;
        const V nu = PrimeVerticalRadius(ellipsoid, 1.0 - ellipsoid.e2 * s2);
        const V C = ellipsoid.ep2 * c2;
        const V fifth = c2 * (8.0 + 8.0 * C) - s2;
        const V x = dl * c * (1.0 - dl2 * s2 * (1.0 / 6 + dl2 * (1.0 / 120) * fifth));
        const V rise = dl2 * s * c * (0.5 + dl2 * (1.0 / 24) * (c2 * (5.0 + 6.0 * C) - s2));
        const V arc = MeridianArc(ellipsoid, lat, s, c) - grid.M0;
        return {x * nu * grid.k0 + grid.FE, (arc + nu * rise) * grid.k0 + grid.FN};
    }

    static Position Guam(const CGrid& grid, V lat, V lon) {
        const CEllipsoid& ellipsoid = *grid.ellipsoid;
        V s, c;
        M::SinCos(lat, s, c);
        const V dl = lon - grid.lon0;
        const V x = dl * c * PrimeVerticalRadius(ellipsoid, 1.0 - ellipsoid.e2 * s * s);
        return {x + grid.FE, MeridianArc(ellipsoid, lat, s, c) + grid.FN - grid.M0 + 0.5 * x * dl * s};
    }

    static Position Polyconic(const CGrid& grid, V lat, V lon) {
        const CEllipsoid& ellipsoid = *grid.ellipsoid;
        V s, c, sinHalf, cosHalf;
        M::SinCos(lat, s, c);
        const V dl = lon - grid.lon0;
        M::SinCos(0.5 * dl * s, sinHalf, cosHalf);
        const V one = V{} + 1.0;
        const V radius = PrimeVerticalRadius(ellipsoid, 1.0 - ellipsoid.e2 * s * s) * c / (s == 0.0 ? one : s);
        const V x = 2.0 * sinHalf * cosHalf * radius;
        const V y = MeridianArc(ellipsoid, lat, s, c) - grid.M0 + 2.0 * sinHalf * sinHalf * radius;
        return {(s == 0.0 ? ellipsoid.a * dl : x) + grid.FE, y + grid.FN};
    }

    static Position ObliqueStereographic(const CGrid& grid, V lat, V lon) {
        using enum slot::stereographic::NAMES;
        V s, c, sinL, cosL;
        M::SinCos(lat, s, c);
        M::SinCos((lon - grid.lon0) * grid.W[EXPONENT], sinL, cosL);
        const V w = grid.W[FACTOR] * M::Exp(IsometricLatitude(*grid.ellipsoid, s, c) * (2.0 * grid.W[EXPONENT]));
        // Sine and cosine of the conformal latitude, both times 1 + w.
        const V sx = w - 1.0;
        const V cx = 2.0 * M::Sqrt(w);
        const V spread = grid.W[SCALE] / (w + 1.0 + sx * grid.W[SIN_CHI] + cx * grid.W[COS_CHI] * cosL);
        return {sinL * cx * spread + grid.FE, (sx * grid.W[COS_CHI] - cx * grid.W[SIN_CHI] * cosL) * spread + grid.FN};
    }

    static Position PolarStereographic(const CGrid& grid, V lat, V lon) {
        using enum slot::stereographic::NAMES;
        V s, c, sinL, cosL;
        const bool north = grid.W[NORTHERN] != 0.0;
        M::SinCos(lat, s, c);
        M::SinCos(lon - grid.lon0, sinL, cosL);
        const double scale = grid.lat2 == 0.0 ? grid.W[SCALE] : grid.W[TRUE_NORTH] / grid.W[TRUE_RATIO];
        const V radius =
            scale * (north ? ConformalRatio(*grid.ellipsoid, s, c) : ConformalRatio(*grid.ellipsoid, -s, c));
        const V y = cosL * radius;
        return {sinL * radius + grid.FE, north ? grid.FN + grid.W[TRUE_NORTH] - y : y + grid.FN - grid.W[TRUE_NORTH]};
    }

    /// Rectified positions along and across the initial line. The rectification is the 3-4-5 triangle in every row,
    /// whatever the azimuth.
    static Position ObliqueMercator(const CGrid& grid, V lat, V lon) {
        using enum slot::oblique_mercator::NAMES;
        V s, c, sinDl, cosDl;
        M::SinCos(lat, s, c);
        M::SinCos((lon - grid.W[CROSSING]) * grid.W[EXPONENT], sinDl, cosDl);
        const V growth = M::Exp(IsometricLatitude(*grid.ellipsoid, s, c) * grid.W[EXPONENT] + grid.W[SHIFT]);
        const V decay = 1.0 / growth;
        const V sh = 0.5 * (growth - decay);
        const V ch = 0.5 * (growth + decay);
        const V across = grid.W[COS_AZIMUTH] * sinDl - grid.W[SIN_AZIMUTH] * sh;
        const V u = M::Atan((grid.W[COS_AZIMUTH] * sh + grid.W[SIN_AZIMUTH] * sinDl) / cosDl) / grid.W[PER_METRE];
        const V v = 0.5 * M::Log((ch + across) / (ch - across)) / grid.W[PER_METRE];
        if (grid.subtype == 0) return {0.8 * u + 0.6 * v, 0.6 * u - 0.8 * v};
        const double risenBy = grid.subtype == 1 ? 0.0 : grid.W[FALSE_NORTHING];
        return {0.8 * v - 0.6 * u + grid.W[FALSE_EASTING], 0.8 * u + 0.6 * v + risenBy};
    }

    static constexpr double kMetresPerFoot = 0.30480060960121924;  // 1200/3937, US survey foot

    /// Seconds of the rectifying latitude less those of the latitude, on Clarke 1866.
    static V RectifyingSeconds(V s, V c) {
        const V c2 = c * c;
        return (1052.893882 - (4.483344 - 0.02352 * c2) * c2) * (s * c);
    }

    /// State Plane 1927, Lambert zones; the tables count longitudes positive west.
    static Position LambertTable27(const CGrid& grid, V lat, V lon) {
        using enum slot::lambert27::NAMES;
        V s, c, sinHalf, cosHalf;
        M::SinCos(lat, s, c);
        const V feet =
            (RectifyingSeconds(s, c) + grid.W[CENTRAL_SECONDS] - lat / grid.W[RADIANS_PER_SECOND]) * 101.2794065;
        // The published series subtracts the term of FOURTH_SCALED. It is not 0 in two zones only, Alaska 10 and
        // Louisiana Offshore, and moves them by 57 and 27 mm two degrees of latitude from the central parallel.
        const V t = (feet * grid.W[FOURTH_SCALED] + grid.W[CUBE]) * feet * 1e-8;
        const V u = (grid.W[SQUARE] - t) * (feet * feet) * 1e-16;
        const V radius = (u + 1.0) * feet * grid.W[SCALE] + grid.W[CENTRAL_RADIUS];
        M::SinCos(0.5 * (grid.W[MERIDIAN_TURN] - M::Abs(lon) * grid.W[CONE]), sinHalf, cosHalf);
        return {(2.0 * sinHalf * cosHalf * radius + grid.W[FALSE_EASTING]) * kMetresPerFoot,
                (2.0 * radius * sinHalf * sinHalf + grid.W[APEX_NORTH] - radius) * kMetresPerFoot};
    }

    /// State Plane 1927, Transverse Mercator zones.
    static Position TransverseMercatorTable27(const CGrid& grid, V lat, V lon) {
        using enum slot::transverse27::NAMES;
        constexpr double kE2 = 0.006768658;
        constexpr double kSecondsPerRadian = 57.2957795131 * 3600;
        V s, c;
        M::SinCos(lat, s, c);
        const V d = lon * kSecondsPerRadian + grid.W[MERIDIAN];
        const V q = 1.0 - kE2 * s * s;
        const V p = 30.92241724 * c / M::Sqrt(q) * (d - grid.W[LONGITUDE_CUBE] * d * d * d);
        const V p2 = p + grid.W[WAY_CUBE] * p * p * p;
        const V east = (grid.W[CUBE] * p2 * p2 * p2 + grid.W[FEET] * p2 + grid.W[FALSE_EASTING]) * kMetresPerFoot;

        const V z = grid.W[LATITUDE_TERM] * p2 * p2;
        M::SinCos(lat + z * q * q * s / c, s, c);
        const V q1 = 1.0 - kE2 * s * s;
        const V lat2 = lat + z * q1 * q1 * s / c;
        M::SinCos(lat2, s, c);
        const V seconds = lat2 * kSecondsPerRadian - grid.W[ORIGIN_SECONDS];
        return {east, (seconds - RectifyingSeconds(s, c)) * grid.W[FEET_PER_SECOND] * kMetresPerFoot};
    }

    /// UTM, then a complex polynomial whose imaginary part is the first result. Not finite for a system out of range.
    static Position DanishSystem34(const CGrid& grid, V lat, V lon) {
        const Position utm = TransverseMercator(grid, lat, lon);
        if (grid.axis < 0 || grid.axis > 2) return {utm.east * __builtin_nan(""), utm.north * __builtin_nan("")};
        const DanishSystemDef& system = kDanishSystems[grid.axis];
        const V v = utm.east - system.E0, u = utm.north - system.N0;
        V re{}, im{};
        for (int j = system.degree; j >= 0; j--) {
            const V turned = re * u - im * v + system.re[j];
            im = re * v + im * u + system.im[j];
            re = turned;
        }
        return {im, re};
    }
};

/// A formula as a type, so that the loop that runs it is compiled around it.
template <auto kFunction>
struct Formula {
    template <class V>
    auto operator()(const CGrid& grid, V lat, V lon) const {
        return kFunction(grid, lat, lon);
    }
};

/// Calls `use` with the formula of the grid's type and subtype, and not at all where they have none. That of the
/// Norwegian axes is the UTM position from which the one on an axis is sought.
template <class M, class Use>
void WithFormula(const CGrid& grid, Use use) {
    using F = Formulas<M>;
    switch (grid.type) {
        case UTM_GRID:
        case TRANSVERSE_MERCATOR:
        case GAUSS_KRUGER:
        case STATE_PLANE_83_TM:
        case NORWEGIAN_AXES:
            return use(Formula<&F::TransverseMercator>{});
        case SOUTH_AFRICAN_LO:
            return use(Formula<&F::SouthAfricanLo>{});
        case MERCATOR:
            return use(Formula<&F::Mercator>{});
        case LAMBERT:
            if (grid.subtype == 0) use(Formula<&F::LambertOneParallel>{});
            if (grid.subtype == 1) use(Formula<&F::LambertTwoParallels>{});
            if (grid.subtype == 2) use(Formula<&F::LambertStatePlane83>{});
            return;
        case CASSINI:
            return use(Formula<&F::Cassini>{});
        case GUAM:
            return use(Formula<&F::Guam>{});
        case STEREOGRAPHIC:
            if (grid.subtype == 0 || grid.subtype == 1) use(Formula<&F::ObliqueStereographic>{});
            if (grid.subtype == 2) use(Formula<&F::PolarStereographic>{});
            return;
        case POLYCONIC:
            return use(Formula<&F::Polyconic>{});
        case OBLIQUE_MERCATOR:
            if (grid.subtype >= 0 && grid.subtype <= 3) use(Formula<&F::ObliqueMercator>{});
            return;
        case STATE_PLANE_27:
            if (grid.subtype == 0) use(Formula<&F::TransverseMercator>{});
            if (grid.subtype == 1) use(Formula<&F::LambertTable27>{});
            if (grid.subtype == 2) use(Formula<&F::TransverseMercatorTable27>{});
            if (grid.subtype == 3) use(Formula<&F::ObliqueMercator>{});
            return;
        case DANISH_SYSTEM_34:
            return use(Formula<&F::DanishSystem34>{});
        default:
            return;
    }
}

/// Rudoe's geodesic (G. Bomford, Geodesy, 3rd edition, 1971, 2.15) between two points that are not both on the equator
/// and not the same. Angles in radians. Azimuth and arcs are kept as the two sides of right-angled triangles, so that
/// one arc tangent is left, and equal longitudes or a start on the equator are no special cases.
template <class M>
struct RudoeDistance {
    using V = typename M::Value;

    /// What the formula wants of a point's latitude. A point of a path serves two legs.
    struct Point {
        V s;   ///< sine
        V c;   ///< cosine
        V nu;  ///< prime-vertical radius
    };

    static Point At(const CEllipsoid& ellipsoid, V lat) {
        Point point;
        M::SinCos(lat, point.s, point.c);
        point.nu = Formulas<M>::PrimeVerticalRadius(ellipsoid, 1.0 - ellipsoid.e2 * point.s * point.s);
        return point;
    }

    static V Between(const CEllipsoid& ellipsoid, V lat1, V lon1, V lat2, V lon2) {
        return Between(ellipsoid, At(ellipsoid, lat1), At(ellipsoid, lat2), lon2 - lon1);
    }

    static V Between(const CEllipsoid& ellipsoid, const Point& from, const Point& to, V lonDifference) {
        const double e2 = ellipsoid.e2, ep2 = ellipsoid.ep2, q = ellipsoid.oneMinusE2;
        const V s1 = from.s, c1 = from.c, nu1 = from.nu, s2 = to.s, c2 = to.c, nu2 = to.nu;
        V sinD, cosD;
        M::SinCos(lonDifference, sinD, cosD);

        // Azimuth at the first point.
        const V adjacent = s1 * (e2 * c1 * nu1 / nu2 - c2 * cosD) + q * c1 * s2;
        const V opposite = c2 * sinD;
        const V scale = 1.0 / M::Sqrt(adjacent * adjacent + opposite * opposite);
        const V cosA = adjacent * scale, sinA = opposite * scale;

        // The plane section's own ellipse, and both points on its auxiliary circle.
        const V g = c1 * c1 * cosA * cosA;
        const V u2 = ep2 * (g + s1 * s1);
        const V w = M::Sqrt(1.0 + u2);
        const V x1 = w * cosA * c1, y1 = s1;
        const V y2 = q * (nu2 * s2 - nu1 * s1) * (1.0 + u2) + s1 * nu1;
        const V x2 = nu2 * c2 * (cosD * cosA - sinA * sinD * s1) * w;

        const V cross = x1 * y2 - y1 * x2;
        const V dot = x1 * x2 + y1 * y2;
        V arc = M::Atan2(cross, dot);
        // Arcs run one way round. Points closer than some nanometres may seem to lie behind by rounding alone.
        arc = arc < -1e-9 ? arc + 6.283185307179586 : M::Abs(arc);

        const V perSquares = 1.0 / ((x1 * x1 + y1 * y1) * (x2 * x2 + y2 * y2));
        const V mean = x1 * x2 - y1 * y2;
        const V sine2 = 2.0 * mean * cross * perSquares;                                          // sin 2T2 - sin 2T1
        const V sine4 = 4.0 * (2.0 * mean * mean * perSquares - 1.0) * cross * dot * perSquares;  // sin 4T2 - sin 4T1
        const V b = u2 * u2 * (1.0 / 64);
        const V f = b * u2 * (1.0 / 16);
        const V series = arc * (1.0 + 0.25 * u2 - 3.0 * b + 20.0 * f) + sine2 * (2.0 * b - 0.125 * u2 - 15.0 * f) +
                         sine4 * (3.0 * f - 0.25 * b);
        return nu1 / (1.0 + u2) * M::Sqrt(1.0 + ep2 * g) * series;
    }
};

}  // namespace quillon
