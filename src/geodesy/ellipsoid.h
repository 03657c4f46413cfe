#pragma once

#include <cstdint>
#include <span>
#include <string>

namespace quillon {

/// A reference ellipsoid: a row of the catalogue or axes of one's own, and the constants that the projections read.
/// Angles are radians, lengths metres.
///
///     CEllipsoid ellipsoid;
///     ellipsoid.SetEllipsoid(kWgs84);
///     double metres;
///     ellipsoid.Distance(lat1, lon1, lat2, lon2, &metres);
///
/// A plain value: whoever writes a, b or rf runs `ComputeConstants` afterwards, and `CGrid::Init` on every grid that
/// points here. A new ellipsoid is all zero until its owner gives it a row. It knows nothing of datum shifts.
class CEllipsoid {
public:
    static constexpr std::int32_t kWgs84 = 26;
    static constexpr std::int32_t kCatalogueRows = 53;

    std::string name;     ///< of the catalogue, or as a .prj file gives it
    std::string comment;  ///< second line of the name, may be empty
    double a = 0;         ///< semi-major axis
    double b = 0;         ///< semi-minor axis
    double rf = 0;        ///< inverse flattening; a sphere of the catalogue stores 1
    std::int32_t index = 0;
    std::int32_t code = 0;  ///< EPSG code of the ellipsoid

    // From here on derived by ComputeConstants.
    double e2 = 0;  ///< first eccentricity squared
    double e = 0;
    double halfE = 0;
    double polarK = 0;  ///< sqrt((1 + e)^(1 + e) (1 - e)^(1 - e))
    double n = 0;       ///< third flattening
    double oneMinusE2 = 0;
    double ep2 = 0;  ///< second eccentricity squared
    double onePlusEp2 = 0;
    double A0 = 0, A2 = 0, A4 = 0, A6 = 0;  ///< meridian arc
    double arcRadius = 0;                   ///< A0 a
    double arcSlope = 0;                    ///< A0 - 2 A2 + 4 A4 - 6 A6
    double J1 = 0, J2 = 0, J3 = 0, J4 = 0;  ///< footpoint latitude

    std::int32_t method = 0;  ///< of Distance: 0 and 1 are Rudoe's formula

    /// Takes a row of the catalogue, 0 to 52. False outside it, and nothing has changed.
    bool SetEllipsoid(std::int32_t row);

    /// Axes of one's own under the present name. An inverse flattening outside 290 to 310 becomes 297.
    void SetAxes(double semiMajor, double inverseFlattening);

    /// Fills the derived constants from a and rf. An inverse flattening of 0 or less, or no number, leaves them all 0;
    /// one of 1 or less is a sphere of radius a, as the six spheres of the catalogue store it.
    void ComputeConstants();

    /// Compares name and comment byte by byte, not the numbers.
    bool IsSame(const CEllipsoid& other) const { return name == other.name && comment == other.comment; }

    /// Length of the meridian from the equator to a latitude, negative in the south.
    double MeridianArc(double lat) const;

    /// Geodesic distance by Rudoe's formula (G. Bomford, Geodesy, 3rd edition, 1971). Good to 1 micrometre plus 1e-9 of
    /// the distance up to 1000 km. Between two points on the equator the result carries the sign of the way east.
    /// True when a method ran; `distance` may be null.
    bool Distance(double lat1, double lon1, double lat2, double lon2, double* distance) const;

    /// The same for many pairs at the speed that the processor allows, within a micrometre of the one-pair form.
    /// Takes as many pairs as the shortest span has; `distances` may be one of the inputs, or apart from them all.
    bool DistanceAll(std::span<const double> lat1, std::span<const double> lon1, std::span<const double> lat2,
                     std::span<const double> lon2, std::span<double> distances) const;

    /// The legs of a path, one less than it has vertices, as DistanceAll would give them for each vertex and the next.
    /// The sine and cosine of a vertex are worked out once for both its legs. The three spans lie apart.
    bool DistancesAlong(std::span<const double> lats, std::span<const double> lons, std::span<double> distances) const;
};

}  // namespace quillon
