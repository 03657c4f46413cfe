#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>

#include "foundation/values.h"
#include "geodesy/ellipsoid.h"
#include "geodesy/grid.h"
#include "platform/file.h"

namespace quillon {

/// Which grid a job works on: an ellipsoid and a grid of the catalogues, or axes and parameters of one's own. Angles in
/// degrees, lengths in metres.
struct GeodesyChoice {
    static constexpr std::int32_t kOwn = -1;

    bool chosen = false;
    std::int32_t ellipsoid =
        CEllipsoid::kWgs84;       ///< catalogue index, or kOwn. A grid that has one of its own brings it
    std::string ellipsoidName{};  ///< of one's own, as the axes
    double semiMajor = 6378137.0;
    double inverseFlattening = 298.257223563;

    std::int32_t type = UTM_GRID;  ///< a GRID_TYPE
    std::int32_t zone = 31;        ///< row of the family, or kOwn for the parameters below
    std::int32_t subtype = 0;      ///< UTM: 1 is south; Norwegian axes: the axis; with one's own: the variant
    std::string gridName{};
    double originLatitude = 0;
    double originLongitude = 0;
    double falseEasting = 500000;
    double falseNorthing = 0;
    double scale = 0.9996;
    double firstParallel = 0;
    double secondParallel = 0;

    std::string shiftFile{};  ///< an NTv2 file that belongs to the job, or none; kept, not applied
    friend bool operator==(const GeodesyChoice&, const GeodesyChoice&) = default;
};

/// Why a choice can't be worked on.
enum class GEODESY_FAULT {
    NONE,
    NO_ELLIPSOID,   ///< no such row
    BAD_AXES,       ///< no earth has these axes
    NO_GRID,        ///< no such row
    NO_AXIS,        ///< the Norwegian axes overlap: one must be named
    NO_PROJECTION,  ///< the type can't be made from parameters of one's own
    BAD_PARAMETERS  ///< the projection can't stand on them
};

/// In words for people.
std::string_view FaultText(GEODESY_FAULT fault);

/// Degrees, east and north positive.
struct tagLatLon {
    double latitude = 0;
    double longitude = 0;
};

/// The geodesy of a job: which grid its eastings and northings are on, kept in the settings file "Geodesy", and what
/// leads from them to latitudes and longitudes and back. Without a choice there is no latitude anywhere.
///
/// Eastings and northings are those of the grid's own columns: x is the first of them, y the second (`CGrid::Axes`).
/// Positions stay on the ellipsoid chosen; no datum is shifted. Nothing here writes any other file.
class CJobGeodesy {
public:
    explicit CJobGeodesy(FileSystem& fileSystem) : files(fileSystem) {}
    CJobGeodesy(const CJobGeodesy&) = delete;
    CJobGeodesy& operator=(const CJobGeodesy&) = delete;

    /// Reads the settings. A file that is missing, or whose choice can't be worked on, leaves no grid chosen; the fault
    /// tells why.
    GEODESY_FAULT Load();
    /// Of the last Load.
    GEODESY_FAULT LoadFault() const { return loadFault; }
    /// False if the file can't be written.
    bool Save() const;

    /// Works on another grid from now on; with a fault, on the one before.
    GEODESY_FAULT Choose(const GeodesyChoice& wanted);
    /// No grid chosen.
    void Clear();
    /// A copy that stays as it is, for a thread of its own.
    std::shared_ptr<const CJobGeodesy> Copy() const;

    bool IsChosen() const { return choice.chosen; }
    const GeodesyChoice& Choice() const { return choice; }
    /// The grid in use; meaningless while none is chosen.
    const CGrid& Grid() const { return grid; }
    const CEllipsoid& Ellipsoid() const { return ellipsoid; }

    /// "no grid chosen", or the name of the grid.
    std::string GridText() const;
    /// The ellipsoid's name, which stands for the datum; empty while no grid is chosen.
    std::string DatumText() const;

    /// None outside the grid, and while no grid is chosen. Longitudes come within 180 degrees of Greenwich and are
    /// taken in any turn.
    std::optional<tagLatLon> ToGeographic(tagXY position) const;
    std::optional<tagXY> FromGeographic(tagLatLon position) const;
    /// Of many positions: NaN outside. The count inside. Results may lie in the arrays they are computed from.
    std::size_t ToGeographic(std::span<double> latitudes, std::span<double> longitudes, std::span<const double> x,
                             std::span<const double> y) const;
    std::size_t FromGeographic(std::span<double> x, std::span<double> y, std::span<const double> latitudes,
                               std::span<const double> longitudes) const;
    /// Convergence and scale at a position of the grid.
    std::optional<tagGridScale> ScaleAt(tagXY position) const;

private:
    FileSystem& files;
    GeodesyChoice choice;
    GEODESY_FAULT loadFault = GEODESY_FAULT::NONE;
    CEllipsoid ellipsoid;
    CGrid grid;  // lends the ellipsoid
};

}  // namespace quillon
