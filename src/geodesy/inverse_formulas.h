#pragma once

#include "geodesy/formulas.h"

namespace quillon {

/// Where the search for the geographic position of a grid one begins, for one position and for several at a time as in
/// `Formulas`. Each projection is turned round in closed form on the sphere that its conformal or rectifying latitudes
/// lie on: within a millimetre of the exact projection for the conformal ones, within kilometres for the others, and
/// with a meaning however far out.
///
/// Sources: J. P. Snyder, Map Projections, A Working Manual, USGS Professional Paper 1395, 1987, for the spherical
/// forms and the latitude series; L. Krueger, Konforme Abbildung des Erdellipsoids in der Ebene, 1912, in the form of
/// C. F. F. Karney, Transverse Mercator with an accuracy of a few nanometers, Journal of Geodesy 85, 2011.
template <class M>
struct InverseStart {
    using V = typename M::Value;

    struct Place {
        V lat;
        V lon;
    };

    static constexpr double kHalfPi = 1.5707963267948966;
    static constexpr double kRadiansPerSecond = 4.84813681109536e-6;
    static constexpr double kMetresPerFoot = Formulas<M>::kMetresPerFoot;

    static V FromConformal(const CEllipsoid& ellipsoid, V chi) {
        const double e2 = ellipsoid.e2, e4 = e2 * e2, e6 = e4 * e2, e8 = e4 * e4;
        V s, c;
        M::SinCos(2.0 * chi, s, c);
        const V c2 = 2.0 * c * c - 1.0;
        // sin 2x, 4x, 6x and 8x by those of 2x.
        return chi + s * (e2 / 2 + 5 * e4 / 24 + e6 / 12 + 13 * e8 / 360 +
                          2.0 * c * (7 * e4 / 48 + 29 * e6 / 240 + 811 * e8 / 11520) +
                          (2.0 * c2 + 1.0) * (7 * e6 / 120 + 81 * e8 / 1120) + 4.0 * c * c2 * (4279 * e8 / 161280));
    }
    static V FromIsometric(const CEllipsoid& ellipsoid, V psi) {
        return FromConformal(ellipsoid, 2.0 * M::Atan(M::Exp(psi)) - kHalfPi);
    }

    /// Latitude of a rectifying latitude, the length of the meridian as an angle.
    static V FromRectifying(const CEllipsoid& ellipsoid, V mu) {
        V s, c;
        M::SinCos(2.0 * mu, s, c);
        return mu + s * (ellipsoid.J1 + 2.0 * ellipsoid.J2 * c);
    }

    /// Krueger's series, turned round, to the fourth power of the third flattening: within a millimetre up to 60
    /// degrees from the meridian. `xi` and `eta` are the ways up the meridian and across it at true scale, over the
    /// radius of the rectifying sphere.
    static Place Transverse(const CEllipsoid& ellipsoid, V xi, V eta, double lon0) {
        const double n = ellipsoid.n, n2 = n * n, n3 = n2 * n, n4 = n2 * n2;
        const double beta[4] = {n / 2 - 2 * n2 / 3 + 37 * n3 / 96 - n4 / 360, n2 / 48 + n3 / 15 - 437 * n4 / 1440,
                                17 * n3 / 480 - 37 * n4 / 840, 4397 * n4 / 161280};
        // sin and cos of 2(xi + i eta), and of its multiples by turning on.
        V s, c;
        M::SinCos(2.0 * xi, s, c);
        const V growth = M::Exp(2.0 * eta), decay = 1.0 / growth;
        const V ch = 0.5 * (growth + decay), sh = 0.5 * (growth - decay);
        const V sinRe = s * ch, sinIm = c * sh, cosRe = c * ch, cosIm = -s * sh;
        V sRe = sinRe, sIm = sinIm, cRe = cosRe, cIm = cosIm, up = xi, across = eta;
        for (int j = 0; j < 4; j++) {
            up -= beta[j] * sRe;
            across -= beta[j] * sIm;
            const V nextRe = sRe * cosRe - sIm * cosIm + cRe * sinRe - cIm * sinIm;
            const V nextIm = sRe * cosIm + sIm * cosRe + cRe * sinIm + cIm * sinRe;
            const V nextCRe = cRe * cosRe - cIm * cosIm - sRe * sinRe + sIm * sinIm;
            cIm = cRe * cosIm + cIm * cosRe - sRe * sinIm - sIm * sinRe;
            cRe = nextCRe;
            sRe = nextRe;
            sIm = nextIm;
        }
        M::SinCos(up, s, c);
        const V g = M::Exp(across);
        const V sinh = 0.5 * (g - 1.0 / g);
        return {FromConformal(ellipsoid, M::Atan2(s, M::Sqrt(sinh * sinh + c * c))), M::Atan2(sinh, c) + lon0};
    }
    static Place TransverseMercator(const CGrid& grid, V east, V north) {
        const double radius = grid.ellipsoid->arcRadius;
        return Transverse(*grid.ellipsoid, ((north - grid.FN) / grid.k0 + grid.M0) / radius,
                          (east - grid.FE) / (grid.k0 * radius), grid.lon0);
    }
    static Place SouthAfricanLo(const CGrid& grid, V east, V north) { return TransverseMercator(grid, -east, -north); }
    /// By the first two coefficients of the polynomial.
    static Place DanishSystem34(const CGrid& grid, V first, V second) {
        const DanishSystemDef& system = kDanishSystems[grid.axis < 0 || grid.axis > 2 ? 0 : grid.axis];
        const double re = system.re[1], im = system.im[1], norm = re * re + im * im;
        const V x = second - system.re[0], y = first - system.im[0];
        return TransverseMercator(grid, (y * re - x * im) / norm + system.E0, (x * re + y * im) / norm + system.N0);
    }

    static Place Mercator(const CGrid& grid, V east, V north) {
        using enum slot::mercator::NAMES;
        return {FromIsometric(*grid.ellipsoid, (north - grid.FN) / grid.W[RADIUS]),
                (east - grid.FE) / grid.W[RADIUS] + grid.lon0};
    }

    /// A cone about its apex: radius `scale` exp(-n (psi - psi0)), `x` and `y` from the apex, `y` towards the equator.
    /// Both and the scale are negative about the south pole.
    static Place Conic(const CGrid& grid, V x, V y, double n, double scale, double psi0) {
        const double side = scale < 0 ? -1 : 1;
        const V radius = M::Sqrt(x * x + y * y);
        return {FromIsometric(*grid.ellipsoid, M::Log(side * scale / radius) / n + psi0),
                M::Atan2(side * x, side * y) / n + grid.lon0};
    }
    static Place LambertStatePlane83(const CGrid& grid, V east, V north) {
        using enum slot::lambert83::NAMES;
        return Conic(grid, east - grid.FE, grid.W[APEX_NORTH] - north, grid.W[CONE], grid.W[SCALE], 0);
    }
    static Place LambertTwoParallels(const CGrid& grid, V east, V north) {
        using enum slot::lambert_cone::NAMES;
        return Conic(grid, east - grid.FE, grid.W[APEX_NORTH] + grid.FN - north, grid.W[CONE], grid.W[SCALE], 0);
    }
    static Place LambertOneParallel(const CGrid& grid, V east, V north) {
        using enum slot::lambert_series::NAMES;
        return Conic(grid, east - grid.FE, grid.W[APEX] + grid.FN - north, grid.W[CONE], grid.W[APEX], grid.psi0);
    }
    /// Longitudes west of Greenwich.
    static Place LambertTable27(const CGrid& grid, V east, V north) {
        using enum slot::lambert27::NAMES;
        const V x = east / kMetresPerFoot - grid.W[FALSE_EASTING], y = grid.W[APEX_NORTH] - north / kMetresPerFoot;
        const Place place = Conic(grid, x, y, grid.W[CONE], grid.W[CENTRAL_RADIUS], grid.psi0);
        return {place.lat, place.lon - 2 * grid.lon0};
    }
    static Place TransverseMercatorTable27(const CGrid& grid, V east, V north) {
        using enum slot::transverse27::NAMES;
        const V seconds = north / (grid.W[FEET_PER_SECOND] * kMetresPerFoot) + grid.W[ORIGIN_SECONDS];
        const V x = (east - grid.W[FALSE_EASTING] * kMetresPerFoot) / (grid.k0 * grid.ellipsoid->arcRadius);
        return Transverse(*grid.ellipsoid, seconds * kRadiansPerSecond, x, -grid.W[MERIDIAN] * kRadiansPerSecond);
    }

    static Place Cassini(const CGrid& grid, V east, V north) {
        const CEllipsoid& ellipsoid = *grid.ellipsoid;
        V s, c, sinD, cosD;
        const V mu = ((north - grid.FN) / grid.k0 + grid.M0) / ellipsoid.arcRadius;
        M::SinCos(FromRectifying(ellipsoid, mu), s, c);
        const V nu = Formulas<M>::PrimeVerticalRadius(ellipsoid, 1.0 - ellipsoid.e2 * s * s);
        M::SinCos((east - grid.FE) / grid.k0 / nu, sinD, cosD);
        const V along = c * cosD;
        return {M::Atan2(s * cosD, M::Sqrt(along * along + sinD * sinD)), M::Atan2(sinD, along) + grid.lon0};
    }
    /// For grids of an island and for the polyconic: x along a parallel that bends up as a circle.
    static Place AlongParallel(const CGrid& grid, V x, V y) {
        const CEllipsoid& ellipsoid = *grid.ellipsoid;
        V lat = FromRectifying(ellipsoid, (y + grid.M0) / ellipsoid.arcRadius);
        V s, c, q, root;
        for (int round = 0; round < 4; round++) {
            M::SinCos(lat, s, c);
            q = x * s / (c * ellipsoid.a);
            root = M::Sqrt(1.0 - q * q);
            lat = FromRectifying(ellipsoid, (y - x * q / (1.0 + root) + grid.M0) / ellipsoid.arcRadius);
        }
        M::SinCos(lat, s, c);
        q = x * s / (c * ellipsoid.a);
        const V flat = x / (c * ellipsoid.a);
        const V one = V{} + 1.0;
        const V round = M::Atan2(q, M::Sqrt(1.0 - q * q)) / (s == 0.0 ? one : s);
        return {lat, (s == 0.0 ? flat : round) + grid.lon0};
    }
    static Place Guam(const CGrid& grid, V east, V north) {
        return AlongParallel(grid, east - grid.FE, north - grid.FN);
    }

    static Place ObliqueStereographic(const CGrid& grid, V east, V north) {
        using enum slot::stereographic::NAMES;
        const V x = (east - grid.FE) / grid.W[SCALE], y = (north - grid.FN) / grid.W[SCALE];
        const V t2 = x * x + y * y;
        const V sine = ((1.0 - t2) * grid.W[SIN_CHI] + 2.0 * y * grid.W[COS_CHI]) / (1.0 + t2);
        const V lon = M::Atan2(2.0 * x, (1.0 - t2) * grid.W[COS_CHI] - 2.0 * y * grid.W[SIN_CHI]);
        const V psi = (0.5 / grid.W[EXPONENT]) * M::Log((1.0 + sine) / ((1.0 - sine) * grid.W[FACTOR]));
        return {FromIsometric(*grid.ellipsoid, psi), lon / grid.W[EXPONENT] + grid.lon0};
    }
    static Place PolarStereographic(const CGrid& grid, V east, V north) {
        using enum slot::stereographic::NAMES;
        const double side = grid.W[NORTHERN] != 0.0 ? 1 : -1;
        const double scale = grid.lat2 == 0.0 ? grid.W[SCALE] : grid.W[TRUE_NORTH] / grid.W[TRUE_RATIO];
        const V x = east - grid.FE, y = side * (grid.FN - north) + grid.W[TRUE_NORTH];
        const V radius = M::Sqrt(x * x + y * y);
        return {side * FromIsometric(*grid.ellipsoid, -M::Log(radius / scale)), M::Atan2(x, y) + grid.lon0};
    }

    /// Undoes the rectification, then turns the sphere back by the azimuth of the initial line.
    static Place ObliqueMercator(const CGrid& grid, V east, V north) {
        using enum slot::oblique_mercator::NAMES;
        const bool swapped = grid.subtype != 0;
        const V x = swapped ? east - grid.W[FALSE_EASTING] : north;
        const V y = grid.subtype == 0 ? east : north - (grid.subtype == 1 ? 0.0 : grid.W[FALSE_NORTHING]);
        const V u = swapped ? 0.8 * y - 0.6 * x : 0.8 * y + 0.6 * x;
        const V v = swapped ? 0.8 * x + 0.6 * y : 0.6 * y - 0.8 * x;
        V sinU, cosU;
        M::SinCos(u * grid.W[PER_METRE], sinU, cosU);
        const V growth = M::Exp(v * grid.W[PER_METRE]);
        const V half = 2.0 / (growth + 1.0 / growth);
        const V across = 0.5 * (growth - 1.0 / growth) * half, along = sinU * half;
        const V t = grid.W[COS_AZIMUTH] * along - grid.W[SIN_AZIMUTH] * across;
        const V dl = M::Atan2(grid.W[COS_AZIMUTH] * across + grid.W[SIN_AZIMUTH] * along, cosU * half);
        const V q = 0.5 * M::Log((1.0 + t) / (1.0 - t));
        return {FromIsometric(*grid.ellipsoid, (q - grid.W[SHIFT]) / grid.W[EXPONENT]),
                dl / grid.W[EXPONENT] + grid.W[CROSSING]};
    }

    /// Of the grid's type and subtype, as `WithFormula` has the formulas.
    static Place Of(const CGrid& grid, V east, V north) {
        switch (grid.type) {
            case SOUTH_AFRICAN_LO:
                return SouthAfricanLo(grid, east, north);
            case MERCATOR:
                return Mercator(grid, east, north);
            case LAMBERT:
                if (grid.subtype == 0) return LambertOneParallel(grid, east, north);
                return grid.subtype == 1 ? LambertTwoParallels(grid, east, north)
                                         : LambertStatePlane83(grid, east, north);
            case CASSINI:
                return Cassini(grid, east, north);
            case GUAM:
            case POLYCONIC:
                return Guam(grid, east, north);
            case STEREOGRAPHIC:
                return grid.subtype == 2 ? PolarStereographic(grid, east, north)
                                         : ObliqueStereographic(grid, east, north);
            case OBLIQUE_MERCATOR:
                return ObliqueMercator(grid, east, north);
            case STATE_PLANE_27:
                if (grid.subtype == 1) return LambertTable27(grid, east, north);
                if (grid.subtype == 2) return TransverseMercatorTable27(grid, east, north);
                return grid.subtype == 3 ? ObliqueMercator(grid, east, north) : TransverseMercator(grid, east, north);
            case DANISH_SYSTEM_34:
                return DanishSystem34(grid, east, north);
            default:
                return TransverseMercator(grid, east, north);
        }
    }
};

/// The search itself: Newton's method on the forward formula, with slopes over 64 m. A round takes about five digits
/// off the distance left, so two or three serve.
template <class M>
struct InverseSearch {
    using V = typename M::Value;
    using Mask = typename M::Mask;

    static constexpr double kSettled = 1e-6;  // metres
    static constexpr double kStep = 1e-5;     // radians
    static constexpr int kMostRounds = 8;
    /// Radians on the ground from the start, 190 m: farther off, the grid's own series no longer is the projection that
    /// it stands for. Transverse Mercator grids get as far as 16 degrees from their meridian.
    static constexpr double kFarthest = 3e-5;
    /// Where the start itself is rough.
    static constexpr double kFarthestRough = 2e-3;
    static constexpr double kPi = 3.141592653589793;

    /// Sets latitude and longitude where the mask says so; elsewhere they mean nothing.
    template <class F>
    static Mask Settle(const CGrid& grid, F formula, V east, V north, V& lat, V& lon) {
        const auto start = InverseStart<M>::Of(grid, east, north);
        lat = start.lat;
        lon = start.lon;
        Mask settled{};
        for (int round = 0;; round++) {
            const auto at = formula(grid, lat, lon);
            const V dE = east - at.east, dN = north - at.north;
            settled = settled | ((M::Abs(dE) < kSettled) & (M::Abs(dN) < kSettled));
            if (M::All(settled) || round == kMostRounds) break;
            const auto north1 = formula(grid, lat + kStep, lon), east1 = formula(grid, lat, lon + kStep);
            const V eLat = north1.east - at.east, nLat = north1.north - at.north;
            const V eLon = east1.east - at.east, nLon = east1.north - at.north;
            const V perDet = kStep / (eLon * nLat - eLat * nLon);
            // What has settled stays, whatever the others beside it still need.
            lat = settled ? lat : lat + (eLon * dN - nLon * dE) * perDet;
            lon = settled ? lon : lon + (nLat * dE - eLat * dN) * perDet;
        }
        V s, c;
        M::SinCos(lat, s, c);
        const double own = grid.type == STATE_PLANE_27 && grid.subtype == 1 ? -grid.lon0 : grid.lon0;
        const bool rough = grid.type == CASSINI || grid.type == GUAM || grid.type == POLYCONIC;
        const double farthest = rough ? kFarthestRough : kFarthest;
        const Mask near = (M::Abs(lat - start.lat) < farthest) & (M::Abs((lon - start.lon) * c) < farthest);
        return settled & near & (M::Abs(lat) <= InverseStart<M>::kHalfPi) & (M::Abs(lon - own) <= kPi);
    }
};

}  // namespace quillon
