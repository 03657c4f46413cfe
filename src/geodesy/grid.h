#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "geodesy/ellipsoid.h"

namespace quillon {

/// Projection types: the families of the catalogue.
enum GRID_TYPE : std::int32_t {
    UTM_GRID = 0,
    TRANSVERSE_MERCATOR = 1,
    GAUSS_KRUGER = 2,
    SOUTH_AFRICAN_LO = 3,
    STATE_PLANE_83_TM = 4,
    MERCATOR = 5,
    LAMBERT = 6,
    CASSINI = 7,
    GUAM = 8,
    STEREOGRAPHIC = 9,
    POLYCONIC = 10,
    OBLIQUE_MERCATOR = 11,
    STATE_PLANE_27 = 12,
    NORWEGIAN_AXES = 13,
    DANISH_SYSTEM_34 = 14,
};

/// What the two results of a grid are, in their order.
enum class GRID_AXES {
    EASTING_NORTHING,
    WESTING_SOUTHING,  ///< South African Lo
    NORTHING_EASTING,  ///< Norwegian axes: X north, Y east
};

/// How the grid lies at one position.
struct tagGridScale {
    double convergence = 0;  ///< from true north to grid north, clockwise, radians: true bearing = grid bearing + this
    double scale = 0;        ///< grid length over true length; the mean of all directions where they differ
};

/// One grid: a projection of a given type, its parameters, and the constants that follow from them for an ellipsoid.
/// Angles are radians, lengths metres, unless said otherwise; east longitudes are positive.
///
///     CEllipsoid ellipsoid;
///     ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
///     CGrid grid;                   // UTM zone 31
///     grid.ellipsoid = &ellipsoid;  // lent, not owned
///     grid.Init();
///     grid.Forward(&easting, &northing, lat, lon);
///
/// The derived fields match the parameters only after `Init`. Every setter runs it; whoever writes a parameter field,
/// or the ellipsoid, runs it himself.
class CGrid {
public:
    std::int32_t zone = 0;        ///< row of the catalogue family
    std::string name;             ///< of the grid
    std::string comment;          ///< second line of the name, may be empty
    std::int32_t type = 0;        ///< a GRID_TYPE
    std::int32_t subtype = 0;     ///< variant within the type
    double lat0 = 0;              ///< latitude of origin
    double lon0 = 0;              ///< longitude of origin or central meridian
    double FE = 0;                ///< false easting
    double FN = 0;                ///< false northing
    double k0 = 0;                ///< scale factor
    double lat1 = 0;              ///< first standard parallel
    double lat2 = 0;              ///< second standard parallel
    bool ellipsoidFixed = false;  ///< the catalogue row dictates the ellipsoid
    CEllipsoid* ellipsoid = nullptr;

    /// Work area, by the names of work_slots.h. What is no parameter of types 11 and 12 is derived by `Init`.
    double W[17] = {};

    /// Type 13: the axis of the last position, 1 to 8, which `Forward` rewrites; the one chosen is the subtype. Type
    /// 14: the system, 0 to 2.
    std::int32_t axis = 0;
    double scaleRatio = 1;  ///< 1 / abs(1 - k0), or 1 when k0 is 1
    std::int32_t utmZone = 0;

    // Of the origin.
    double sin0 = 0, cos0 = 0, tan0 = 0;
    double nu0 = 0;   ///< prime-vertical radius
    double rho0 = 0;  ///< meridional radius
    double M0 = 0;    ///< meridian arc
    double psi0 = 0;  ///< isometric latitude

    /// UTM zone 31, with no ellipsoid.
    CGrid();

    /// Takes a row of the catalogue and selects the row's ellipsoid where one is lent. False when there is no such row:
    /// the three numbers are stored all the same, and the rest is as before.
    bool SetGrid(std::int32_t gridZone, std::int32_t gridType, std::int32_t gridSubtype);

    /// Moves to the first row of the family that is on the ellipsoid lent, which was set independently; to UTM zone 31
    /// when the family has none.
    void MatchEllipsoid();

    /// Null empties the field.
    void SetNames(const char* gridName, const char* gridComment);

    void SetSubType(std::int32_t gridSubtype) { subtype = gridSubtype; }
    void SetOrigin(double lat, double lon, double falseEasting, double falseNorthing, double scale);
    void SetOriginDegrees(double lat, double lon, double falseEasting, double falseNorthing, double scale);

    /// Standard parallels in degrees. On subtype 0 the first is the latitude of origin and the second has no use. Runs
    /// `InitConic`, not `Init`.
    void SetParallels(double first, double second);

    /// Stores table values into the work area, in order from W[0], and runs `Init`. At most 17.
    void SetParameters(std::span<const double> values);
    /// The same without `Init`, for a row whose origin is still to come.
    void StoreParameters(std::span<const double> values);

    /// Central meridian of a UTM zone, and the zone that holds a longitude.
    static double ZoneCentralMeridian(std::int32_t zoneNumber);
    static std::int32_t ZoneOfMeridian(double lon);

    /// Derives the constants. Some types replace a parameter by what follows from the others: k0 (Mercator, Lambert
    /// with two parallels, polar stereographic), the false origin (oblique Mercator) or all of them (State Plane 1927).
    void Init();

    /// The Lambert part of `Init`, for use after the parallels changed. Nothing on the other types.
    void InitConic();

    /// Grid position of a geographic one. Either result may be null. Both are 0, without false origin, for a position
    /// within 0.001" of latitude and longitude 0, which stands for no position, and for a grid that lacks its ellipsoid
    /// or its scale. A type or subtype without a formula writes nothing. Beyond the reach of a formula the results
    /// are large or not finite; there is no flag for that.
    ///
    /// Type 13 begins with the axis of the position before, stores the axis that serves, and its name as the comment.
    void Forward(double* easting, double* northing, double lat, double lon);

    /// The same, but every position of type 13 begins with the axis chosen, so that none hangs on another, and the grid
    /// stays as it is. Axis I, II or III follows from the position wherever it lies in their part of the country;
    /// elsewhere there is none, and 0, 0, if none was chosen.
    void ForwardAlone(double* easting, double* northing, double lat, double lon) const;

    /// `ForwardAlone` for many positions at the speed that the processor allows, within a micrometre of the one-point
    /// form. Every result is the same bit by bit on every machine and whatever stands beside it, except within 600 m of
    /// a pole. Takes as many positions as the shortest span has; a result may lie in the array it is computed from, but
    /// must not overlap it otherwise. No form allocates.
    void ForwardAll(std::span<double> eastings, std::span<double> northings, std::span<const double> latitudes,
                    std::span<const double> longitudes) const;

    /// Whether a result of the Forward forms is a position, and not the zeros that stand for none.
    bool IsPosition(double lat, double lon, double easting, double northing) const;

    /// The longitude, in radians, in the turn that the formulas want: within half a turn of the grid's own meridian.
    /// The Lambert tables of 1927 take magnitudes, west of Greenwich, and get 0 to -2 pi.
    double NearMeridian(double lon) const;

    GRID_AXES Axes() const;

    /// Geographic position of a grid one, sought on the formulas themselves until they give the grid position within
    /// a micrometre: radians, the longitude in the turn of `NearMeridian`. False, and nothing is written, outside the
    /// grid: where the search doesn't settle, or settles somewhere that the figure of the projection doesn't lead to.
    ///
    /// Type 13 needs the axis, as the subtype. Its positions settle fully, so `Forward` gives them back to the
    /// centimetre at which it ends.
    bool Inverse(double easting, double northing, double* lat, double* lon) const;

    /// The same for many positions: NaN outside the grid. The count of those inside. As `ForwardAll` in all else.
    std::size_t InverseAll(std::span<double> latitudes, std::span<double> longitudes, std::span<const double> eastings,
                           std::span<const double> northings) const;

    /// Convergence and scale by the formulas' own slopes: good to 1e-9. None where they have none.
    std::optional<tagGridScale> ScaleAt(double lat, double lon) const;
};

}  // namespace quillon
