#pragma once

/// What the slots of a grid's work area, `CGrid::W`, hold in each family. Lengths are metres and angles radians, unless
/// said otherwise. Slots that only an inverse in the published form reads are derived all the same, for listings.
namespace quillon::slot {

namespace mercator {
enum NAMES : int {
    RADIUS,         ///< of the parallel that is true to scale
    EQUATOR_NORTH,  ///< isometric latitude of the origin times RADIUS where the false northing applies at the origin
};
}

/// Lambert by one parallel: a series in the meridian arc m from the origin.
namespace lambert_series {
enum NAMES : int {
    CUBE,    ///< factor of m^3, in 1/m^2
    FOURTH,  ///< of m^4, in 1/m^3
    FIFTH,   ///< of m^5, in 1/m^4
    SIXTH,   ///< of m^6, in 1/m^5
    APEX,    ///< radius of the origin's parallel on the map
    CONE,    ///< sine of the latitude of origin
    INVERSE3,
    INVERSE4,
    INVERSE5,
};
}

/// Lambert by two parallels. The series stands in its own slots beside these.
namespace lambert_cone {
enum NAMES : int {
    CONE = 11,   ///< cone constant n
    APEX_NORTH,  ///< radius of the origin's parallel on the map
    SCALE,       ///< radius of the equator on the map
};
}

/// Lambert zones of State Plane 1983.
namespace lambert83 {
enum NAMES : int {
    CONE,             ///< cone constant n, sine of the central parallel
    SCALE,            ///< radius of the equator on the map
    ORIGIN_RADIUS,    ///< of the origin's parallel
    CENTRAL_RADIUS,   ///< of the central parallel
    CENTRAL_NORTH,    ///< northing of the central parallel
    APEX_NORTH,       ///< northing of the apex
    CENTRAL_TANGENT,  ///< tangent of the central parallel
};
}

namespace stereographic {
enum NAMES : int {
    NORTHERN,    ///< 1 for an origin, or a pole, on the northern hemisphere, else 0
    SCALE,       ///< oblique: diameter of the sphere; polar: map radius over the conformal ratio
    EXPONENT,    ///< oblique: n of the conformal sphere
    FACTOR,      ///< oblique: c of the conformal sphere
    ORIGIN_CHI,  ///< oblique: conformal latitude of the origin
    SIN_CHI,     ///< its sine
    COS_CHI,     ///< its cosine
    SERIES2,
    SERIES4,
    SERIES6,
    SERIES8,      ///< polar: of the latitude in the conformal one
    TRUE_RATIO,   ///< polar: conformal ratio at the parallel that is true to scale
    TRUE_RADIUS,  ///< polar: radius of that parallel in major axes, then its map radius
    TRUE_NORTH,   ///< polar: map radius of that parallel where the false northing applies there, else 0
};
}

/// Hotine's oblique Mercator. The first two are parameters.
namespace oblique_mercator {
enum NAMES : int {
    SIN_AZIMUTH,  ///< of the initial line at the origin
    COS_AZIMUTH,
    FALSE_EASTING = 4,
    FALSE_NORTHING,
    APOSPHERE_RADIUS,  ///< A
    EXPONENT,          ///< B
    SHIFT,             ///< C
    PER_METRE,         ///< B / (A k0), radians of the aposphere over a metre of the map
    CROSSING,          ///< longitude at which the initial line leaves the aposphere's equator
    AZIMUTH,
    TAN_AZIMUTH,
};
}

/// Lambert zones of State Plane 1927: the plane-coordinate constants L1 to L11 of C. N. Claire, State Plane Coordinates
/// by Automatic Data Processing, USC&GS Publication 62-4, 1968, in US survey feet and seconds, then what follows.
namespace lambert27 {
enum NAMES : int {
    FALSE_EASTING,    ///< L1
    MERIDIAN,         ///< L2: central meridian west of Greenwich, seconds
    CENTRAL_RADIUS,   ///< L3: map radius of the central parallel
    APEX_NORTH,       ///< L4
    SCALE,            ///< L5
    CONE,             ///< L6: sine of the central parallel
    CENTRAL_MINUTES,  ///< L7: rectifying latitude of the central parallel, minutes
    CENTRAL_REST,     ///< L8: and seconds
    SQUARE,           ///< L9, 1e-16
    CUBE,             ///< L10, 1e-24
    FOURTH,           ///< L11, 1e-32
    CENTRAL_SECONDS,  ///< CENTRAL_MINUTES and CENTRAL_REST in seconds
    MERIDIAN_TURN,    ///< the central meridian times CONE, radians
    FOURTH_SCALED,    ///< FOURTH 1e-8
    INVERSE_SECONDS,
    INVERSE_MINUTES,
    RADIANS_PER_SECOND,
};
}

/// Transverse Mercator zones of State Plane 1927: T1 to T6 of the same publication, then what follows.
namespace transverse27 {
enum NAMES : int {
    FALSE_EASTING,    ///< T1
    MERIDIAN,         ///< T2: central meridian west of Greenwich, seconds
    ORIGIN_MINUTES,   ///< T3: rectifying latitude of the origin, minutes
    ORIGIN_REST,      ///< T4: and seconds
    SCALE,            ///< T5
    CUBE_TABLE,       ///< T6
    FEET,             ///< feet of the map over a metre
    CUBE,             ///< (FEET 1e-5)^3 T6
    FEET_PER_SECOND,  ///< of the meridian
    ORIGIN_SECONDS,   ///< ORIGIN_MINUTES and ORIGIN_REST in seconds
    INVERSE_SQUARE,
    LATITUDE_TERM,   ///< shift in latitude over the square of the way across
    LONGITUDE_CUBE,  ///< of the longitude difference in seconds
    WAY_CUBE,        ///< of the way across in metres
    INVERSE_CUBE,
};
}

}  // namespace quillon::slot
