#include "geodesy/grid.h"

#include <algorithm>
#include <cmath>

#include "foundation/angle_units.h"
#include "geodesy/batch.h"
#include "geodesy/formulas.h"
#include "geodesy/norwegian_axes.h"
#include "geodesy/portable_math.h"
#include "geodesy/scalar_math.h"

namespace quillon {
namespace {

using Math = PortableMath;
using Constants = Formulas<Math>;
using OnePosition = Formulas<ScalarMath>;

constexpr double kHalfPi = 1.5707963267948966;
constexpr double kQuarterPi = 0.7853981633974483;
constexpr double kRadiansPerSecond = 4.84813681109536e-6;
constexpr double kFeetPerMetre = 3.28083333;          // as the plane-coordinate tables have it
constexpr double kNoPosition = 4.848136811095278e-9;  // 0.001"
constexpr double kAtThePole = 1e-12;                  // radians: what turning 90 degrees into radians leaves
constexpr double kTurn = 6.283185307179586;
constexpr double kFarLongitude = 1e6;  // radians: beyond it no turn can be told

double Power4(double x) {
    return x * x * x * x;
}

double RootOrZero(double x) {
    return x > 0 ? std::sqrt(x) : 0;
}

/// sqrt(1 - e2 sin^2), 0 where there is none.
double RootW(const CEllipsoid& ellipsoid, double sine) {
    return RootOrZero(1 - ellipsoid.e2 * sine * sine);
}

double IsometricLatitude(const CEllipsoid& ellipsoid, double lat) {
    return Constants::IsometricLatitude(ellipsoid, Math::Sin(lat), Math::Cos(lat));
}

double ConformalRatio(const CEllipsoid& ellipsoid, double lat) {
    return Constants::ConformalRatio(ellipsoid, Math::Sin(lat), Math::Cos(lat));
}

/// Radius of a parallel over a.
double ParallelRadius(const CEllipsoid& ellipsoid, double lat) {
    return Math::Cos(lat) / RootW(ellipsoid, Math::Sin(lat));
}

void TakeOrigin(CGrid& grid) {
    const CEllipsoid& ellipsoid = *grid.ellipsoid;
    grid.sin0 = Math::Sin(grid.lat0);
    grid.cos0 = Math::Cos(grid.lat0);
    grid.tan0 = grid.cos0 == 0 ? 0 : grid.sin0 / grid.cos0;
    const double w = RootW(ellipsoid, grid.sin0);
    grid.nu0 = w > 0 ? ellipsoid.a / w : 0;
    grid.rho0 = w > 0 ? ellipsoid.oneMinusE2 * ellipsoid.a / (w * w * w) : 0;
    grid.M0 = ellipsoid.MeridianArc(grid.lat0);
    grid.psi0 = IsometricLatitude(ellipsoid, grid.lat0);
}

void TakeScaleRatio(CGrid& grid) {
    grid.scaleRatio = grid.k0 == 1 ? 1.0 : 1 / std::fabs(1 - grid.k0);
}

void InitMercator(CGrid& grid) {
    using enum slot::mercator::NAMES;
    const CEllipsoid& ellipsoid = *grid.ellipsoid;
    grid.W[RADIUS] = ellipsoid.a;
    grid.W[EQUATOR_NORTH] = 0;
    if (grid.lat0 == 0) return;
    grid.k0 = ParallelRadius(ellipsoid, grid.lat0);
    grid.W[RADIUS] = grid.k0 * ellipsoid.a;
    // Only an inverse would read it: the false northing of subtype 1 applies at the equator.
    grid.W[EQUATOR_NORTH] = grid.subtype == 1 ? grid.psi0 * grid.W[RADIUS] : 0;
}

/// The one-parallel series about lat0. Needs a latitude of origin off the equator.
void InitLambertSeries(CGrid& grid) {
    using enum slot::lambert_series::NAMES;
    if (grid.nu0 == 0 || grid.tan0 == 0) return;
    const double ep2 = grid.ellipsoid->ep2;
    const double cos2 = grid.cos0 * grid.cos0, tan2 = grid.tan0 * grid.tan0;
    auto& W = grid.W;
    W[CUBE] = 1 / (6 * grid.rho0 * grid.nu0);
    W[FOURTH] = (1 - 4 * ep2 * cos2) * grid.tan0 * W[CUBE] / (4 * grid.nu0);
    const double Q = W[CUBE] / (20 * grid.rho0 * grid.nu0);
    W[FIFTH] = (5 + 3 * tan2 - 3 * ep2 * (1 + cos2)) * Q;
    W[SIXTH] = (7 + 4 * tan2) * grid.tan0 * Q / (2 * grid.nu0);
    W[APEX] = grid.k0 * grid.nu0 / grid.tan0;
    W[CONE] = grid.sin0;
    // The last three serve an inverse only.
    W[INVERSE3] = W[CUBE] / 3;
    W[INVERSE4] = W[CUBE] * grid.tan0 / grid.nu0;
    W[INVERSE5] = W[CUBE] * W[INVERSE4] / 4;
}

/// Sine of the parallel at which a cone through the two standard parallels touches; of the parallel itself if they are
/// the same one.
double ConeConstant(const CGrid& grid) {
    const CEllipsoid& ellipsoid = *grid.ellipsoid;
    if (grid.lat1 == grid.lat2) return Math::Sin(grid.lat1);
    return Math::Log(ParallelRadius(ellipsoid, grid.lat1) / ParallelRadius(ellipsoid, grid.lat2)) /
           (IsometricLatitude(ellipsoid, grid.lat2) - IsometricLatitude(ellipsoid, grid.lat1));
}

void InitLambertTwoParallels(CGrid& grid) {
    using enum slot::lambert_cone::NAMES;
    const CEllipsoid& ellipsoid = *grid.ellipsoid;
    const double n = ConeConstant(grid);
    const double m1 = ParallelRadius(ellipsoid, grid.lat1);
    const double t0 = ConformalRatio(ellipsoid, grid.lat0), t1 = ConformalRatio(ellipsoid, grid.lat1);
    grid.W[CONE] = n;
    grid.W[SCALE] = ellipsoid.a * m1 / (n * Math::Power(t1, n));
    grid.W[APEX_NORTH] = grid.W[SCALE] * Math::Power(t0, n);
    // The sine of the latitude of origin stands in divisor and factor alike. It is left out of both, so that a grid
    // counted from the equator has a scale there too.
    grid.k0 = grid.cos0 == 0 || grid.nu0 == 0
                  ? 1
                  : Math::Power(t0 / t1, grid.sin0) * m1 * ellipsoid.a / (grid.nu0 * grid.cos0);
    InitLambertSeries(grid);
}

void InitLambertStatePlane83(CGrid& grid) {
    using enum slot::lambert83::NAMES;
    const CEllipsoid& ellipsoid = *grid.ellipsoid;
    const double n = ConeConstant(grid);
    auto& W = grid.W;
    W[CONE] = n;
    W[SCALE] =
        ellipsoid.a * ParallelRadius(ellipsoid, grid.lat1) * Math::Exp(n * IsometricLatitude(ellipsoid, grid.lat1)) / n;
    W[ORIGIN_RADIUS] = W[SCALE] / Math::Exp(n * grid.psi0);
    W[APEX_NORTH] = W[ORIGIN_RADIUS] + grid.FN;
    const double central = Math::ArcSine(n);
    W[CENTRAL_RADIUS] = W[SCALE] / Math::Exp(n * IsometricLatitude(ellipsoid, central));
    W[CENTRAL_TANGENT] = n / Math::Sqrt((1 - n) * (1 + n));
    W[CENTRAL_NORTH] = W[APEX_NORTH] - W[CENTRAL_RADIUS];
    grid.k0 = W[CENTRAL_TANGENT] * RootW(ellipsoid, n) * W[CENTRAL_RADIUS] / ellipsoid.a;
}

void InitObliqueStereographic(CGrid& grid) {
    using enum slot::stereographic::NAMES;
    const CEllipsoid& ellipsoid = *grid.ellipsoid;
    auto& W = grid.W;
    W[NORTHERN] = grid.lat0 >= 0 ? 1 : 0;
    W[SCALE] = 2 * std::sqrt(grid.nu0 * grid.rho0) * grid.k0;
    const double n = std::sqrt(1 + ellipsoid.ep2 * Power4(grid.cos0));
    W[EXPONENT] = n;
    const double w1 = Math::Exp(2 * n * grid.psi0);
    const double sine = (w1 - 1) / (w1 + 1);
    const double c = (n + grid.sin0) * (1 - sine) / ((n - grid.sin0) * (1 + sine));
    W[FACTOR] = c;
    W[ORIGIN_CHI] = Math::ArcSine((c * w1 - 1) / (c * w1 + 1));
    W[SIN_CHI] = Math::Sin(W[ORIGIN_CHI]);
    W[COS_CHI] = Math::Cos(W[ORIGIN_CHI]);
}

/// Takes the scale from a parallel at which the projection is true.
void TrueAtParallel(CGrid& grid, double parallel) {
    using enum slot::stereographic::NAMES;
    const double s = Math::Sin(parallel), c = Math::Cos(parallel);
    const bool north = parallel >= 0;
    grid.W[NORTHERN] = north ? 1 : 0;
    grid.W[TRUE_RATIO] = Constants::ConformalRatio(*grid.ellipsoid, north ? s : -s, c);
    grid.W[TRUE_RADIUS] = ParallelRadius(*grid.ellipsoid, parallel);
    grid.k0 = grid.W[TRUE_RADIUS] * grid.ellipsoid->polarK / (2 * grid.W[TRUE_RATIO]);
}

void InitPolarStereographic(CGrid& grid) {
    using enum slot::stereographic::NAMES;
    const CEllipsoid& ellipsoid = *grid.ellipsoid;
    auto& W = grid.W;
    W[TRUE_RATIO] = W[TRUE_RADIUS] = W[TRUE_NORTH] = 0;
    if (std::fabs(std::fabs(grid.lat0) - kHalfPi) < kAtThePole) {
        W[NORTHERN] = grid.lat0 >= 0 ? 1 : 0;
    } else if (grid.lat0 != 0) {
        TrueAtParallel(grid, grid.lat0);
    } else if (grid.lat1 != 0) {
        TrueAtParallel(grid, grid.lat1);
    } else if (grid.lat2 != 0) {
        TrueAtParallel(grid, grid.lat2);
        W[TRUE_NORTH] = W[TRUE_RADIUS] * ellipsoid.a;
    } else {
        grid.lat0 = kHalfPi;
        TakeOrigin(grid);
        grid.sin0 = 1;
        grid.cos0 = grid.tan0 = 0;
        W[NORTHERN] = 1;
    }
    const double e2 = ellipsoid.e2, e4 = e2 * e2, e6 = e4 * e2, e8 = e4 * e4;
    // The conformal latitude's series serves an inverse only.
    W[SERIES2] = e2 / 2 + 5 * e4 / 24 + e6 / 12 + 13 * e8 / 360;
    W[SERIES4] = 7 * e4 / 48 + 29 * e6 / 240 + 811 * e8 / 11520;
    W[SERIES6] = 7 * e6 / 120 + 81 * e8 / 1120;
    W[SERIES8] = 4279 * e8 / 161280;
    W[SCALE] = 2 * ellipsoid.a * grid.k0 / ellipsoid.polarK;
}

void InitStereographic(CGrid& grid) {
    if (grid.subtype == 0 || grid.subtype == 1) InitObliqueStereographic(grid);
    if (grid.subtype == 2) InitPolarStereographic(grid);
}

void InitObliqueMercator(CGrid& grid) {
    using enum slot::oblique_mercator::NAMES;
    auto& W = grid.W;
    const double P = W[SIN_AZIMUTH], Qc = W[COS_AZIMUTH];
    W[TAN_AZIMUTH] = P / Qc;
    W[AZIMUTH] = Math::ArcSine(P);
    const double B = std::sqrt(1 + grid.ellipsoid->ep2 * Power4(grid.cos0));
    const double A = std::sqrt(grid.rho0 * grid.nu0) * B;
    const double D = A / (grid.nu0 * grid.cos0);
    const double C = Math::Log(std::sqrt(D * D - 1) + D) - B * grid.psi0;
    W[EXPONENT] = B;
    W[APOSPHERE_RADIUS] = A;
    W[SHIFT] = C;
    W[CROSSING] = grid.lon0 - Math::ArcSine(Math::Sinh(B * grid.psi0 + C) * P / Qc) / B;
    W[PER_METRE] = B / (A * grid.k0);
    // The formula counts from the point where the initial line crosses the aposphere's equator and adds no false
    // origin, so the two fields are free to tell where the origin lies.
    grid.Forward(&grid.FE, &grid.FN, grid.lat0, grid.lon0);
}

/// State Plane 1927, Lambert zones: the parameters follow from the plane-coordinate constants.
void InitLambertTable27(CGrid& grid) {
    using enum slot::lambert27::NAMES;
    auto& W = grid.W;
    grid.lat0 = Math::ArcSine(W[CONE]);
    TakeOrigin(grid);
    grid.sin0 = W[CONE];
    grid.lon0 = W[MERIDIAN] / 3600 * kRadiansPerDegree;
    grid.FE = W[FALSE_EASTING];
    grid.FN = W[APEX_NORTH] - W[CENTRAL_RADIUS];
    grid.k0 = W[SCALE];
    W[RADIANS_PER_SECOND] = kRadiansPerSecond;
    W[MERIDIAN_TURN] = W[MERIDIAN] * W[CONE] * W[RADIANS_PER_SECOND];
    W[CENTRAL_SECONDS] = 60 * W[CENTRAL_MINUTES] + W[CENTRAL_REST];
    // These two serve an inverse only.
    W[INVERSE_MINUTES] = (W[CENTRAL_MINUTES] - 600) * (4 * kQuarterPi) / 10800;
    W[INVERSE_SECONDS] = (W[CENTRAL_REST] + 36000) * W[RADIANS_PER_SECOND];
    W[FOURTH_SCALED] = W[FOURTH] * 1e-8;
}

void InitTransverseMercatorTable27(CGrid& grid) {
    using enum slot::transverse27::NAMES;
    auto& W = grid.W;
    const double k = W[SCALE], Q = W[CUBE_TABLE];
    grid.k0 = k;
    W[FEET] = kFeetPerMetre * k;
    const double scaled = W[FEET] / 100000;
    W[CUBE] = scaled * scaled * scaled * Q;
    W[FEET_PER_SECOND] = 101.2794065 * k;
    W[ORIGIN_SECONDS] = 60 * W[ORIGIN_MINUTES] + W[ORIGIN_REST];
    // These two serve an inverse only.
    W[INVERSE_SQUARE] = 1 / (881.749162 * k * k * 1e12);
    W[INVERSE_CUBE] = Q / 1e15;
    W[LATITUDE_TERM] = 1.2374292282040178e-14;
    W[LONGITUDE_CUBE] = 3.9174e-12;
    W[WAY_CUBE] = 4.0831e-15;
}

void InitStatePlane27(CGrid& grid) {
    if (grid.subtype == 1) InitLambertTable27(grid);
    if (grid.subtype == 2) InitTransverseMercatorTable27(grid);
    if (grid.subtype == 3) InitObliqueMercator(grid);
}

void InitType(CGrid& grid) {
    switch (grid.type) {
        case MERCATOR:
            return InitMercator(grid);
        case LAMBERT:
            return grid.InitConic();
        case STEREOGRAPHIC:
            return InitStereographic(grid);
        case OBLIQUE_MERCATOR:
            return InitObliqueMercator(grid);
        case STATE_PLANE_27:
            return InitStatePlane27(grid);
        case DANISH_SYSTEM_34:
            grid.M0 = 0;
            return;
        default:
            return;
    }
}

bool StandsForNone(double lat, double lon) {
    return std::fabs(lat) < kNoPosition && std::fabs(lon) < kNoPosition;
}

void Store(double* easting, double* northing, double first, double second) {
    if (easting != nullptr) *easting = first;
    if (northing != nullptr) *northing = second;
}

}  // namespace

CGrid::CGrid() {
    SetGrid(31, UTM_GRID, 0);
}

void CGrid::SetNames(const char* gridName, const char* gridComment) {
    name = gridName == nullptr ? "" : gridName;
    comment = gridComment == nullptr ? "" : gridComment;
}

void CGrid::SetOrigin(double lat, double lon, double falseEasting, double falseNorthing, double scale) {
    lat0 = lat;
    lon0 = lon;
    FE = falseEasting;
    FN = falseNorthing;
    k0 = scale;
    Init();
}

void CGrid::SetOriginDegrees(double lat, double lon, double falseEasting, double falseNorthing, double scale) {
    SetOrigin(lat * kRadiansPerDegree, lon * kRadiansPerDegree, falseEasting, falseNorthing, scale);
}

void CGrid::SetParallels(double first, double second) {
    if (subtype == 0) {
        lat0 = first * kRadiansPerDegree;
    } else {
        lat1 = first * kRadiansPerDegree;
        lat2 = second * kRadiansPerDegree;
    }
    InitConic();
}

void CGrid::StoreParameters(std::span<const double> values) {
    std::copy_n(values.begin(), std::min(values.size(), std::size(W)), std::begin(W));
}

void CGrid::SetParameters(std::span<const double> values) {
    StoreParameters(values);
    Init();
}

double CGrid::ZoneCentralMeridian(std::int32_t zoneNumber) {
    return (6.0 * zoneNumber - 183) * kRadiansPerDegree;
}

std::int32_t CGrid::ZoneOfMeridian(double lon) {
    const double zoneNumber = (lon * kDegreesPerRadian + 183) / 6;
    constexpr double kFarthest = 1e9;  // whatever is no longitude stays a number
    return zoneNumber > -kFarthest && zoneNumber < kFarthest ? static_cast<std::int32_t>(zoneNumber) : 0;
}

void CGrid::Init() {
    if (ellipsoid != nullptr) {
        TakeOrigin(*this);
        if (ellipsoid->a != 0) InitType(*this);
    }
    TakeScaleRatio(*this);
}

void CGrid::InitConic() {
    if (type != LAMBERT || ellipsoid == nullptr || ellipsoid->a == 0) return;
    TakeOrigin(*this);
    if (subtype == 0) InitLambertSeries(*this);
    if (subtype == 1) InitLambertTwoParallels(*this);
    if (subtype == 2) InitLambertStatePlane83(*this);
    TakeScaleRatio(*this);
}

void ForwardByFormula(const CGrid& grid, double* easting, double* northing, double lat, double lon) {
    if (StandsForNone(lat, lon)) return Store(easting, northing, 0, 0);
    if (grid.ellipsoid == nullptr || grid.ellipsoid->a == 0 || grid.k0 == 0) {
        if (easting != nullptr && northing != nullptr) Store(easting, northing, 0, 0);
        return;
    }
    WithFormula<ScalarMath>(grid, [&](auto formula) {
        const OnePosition::Position position = formula(grid, lat, lon);
        Store(easting, northing, position.east, position.north);
    });
}

namespace {

/// No UTM position is no position on an axis either.
tagNorwegian OnAxis(const CGrid& grid, std::int32_t axis, double lat, double lon) {
    double east = 0, north = 0;
    ForwardByFormula(grid, &east, &north, lat, lon);
    return east == 0 && north == 0 ? tagNorwegian{} : NorwegianFromUtm(grid.utmZone, axis, east, north);
}

}  // namespace

void CGrid::Forward(double* easting, double* northing, double lat, double lon) {
    if (type != NORWEGIAN_AXES) return ForwardByFormula(*this, easting, northing, lat, lon);
    const tagNorwegian position = OnAxis(*this, axis, lat, lon);
    if (position.axis != 0) {
        axis = position.axis;
        comment = NorwegianAxisName(axis);
    }
    Store(easting, northing, position.X, position.Y);
}

void CGrid::ForwardAlone(double* easting, double* northing, double lat, double lon) const {
    if (type != NORWEGIAN_AXES) return ForwardByFormula(*this, easting, northing, lat, lon);
    const tagNorwegian position = OnAxis(*this, subtype, lat, lon);
    Store(easting, northing, position.X, position.Y);
}

bool CGrid::IsPosition(double lat, double lon, double easting, double northing) const {
    if (!std::isfinite(easting) || !std::isfinite(northing)) return false;
    if (StandsForNone(lat, lon) || ellipsoid == nullptr || ellipsoid->a == 0 || k0 == 0) return false;
    return type != NORWEGIAN_AXES || easting != 0 || northing != 0;
}

double CGrid::NearMeridian(double lon) const {
    if (!(std::fabs(lon) < kFarLongitude)) return lon;
    const bool westward = type == STATE_PLANE_27 && subtype == 1;
    // The middle of the turn.
    const double own = westward ? -kTurn / 2 : lon0;
    return lon - kTurn * std::round((lon - own) / kTurn);
}

GRID_AXES CGrid::Axes() const {
    if (type == SOUTH_AFRICAN_LO) return GRID_AXES::WESTING_SOUTHING;
    return type == NORWEGIAN_AXES ? GRID_AXES::NORTHING_EASTING : GRID_AXES::EASTING_NORTHING;
}

}  // namespace quillon
