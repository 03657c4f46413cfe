#include "geodesy/job_geodesy.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "foundation/angle_units.h"
#include "foundation/settings_lines.h"
#include "geodesy/catalogue/grid_row.h"

namespace quillon {
namespace {

constexpr std::string_view kSettingsName = "Geodesy";
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Radians on the ground by which a position may come back beside itself: 0.1 mm, or a metre on the Norwegian axes,
/// whose positions end within centimetres.
constexpr double kReturns = 1.6e-11;
constexpr double kReturnsOnAxis = 1.6e-7;

bool IsWithin(double value, double lowest, double highest) {
    return value >= lowest && value <= highest;
}

GEODESY_FAULT SetEllipsoid(CEllipsoid& ellipsoid, const GeodesyChoice& choice) {
    if (choice.ellipsoid != GeodesyChoice::kOwn) {
        return ellipsoid.SetEllipsoid(choice.ellipsoid) ? GEODESY_FAULT::NONE : GEODESY_FAULT::NO_ELLIPSOID;
    }
    const bool earthly = IsWithin(choice.semiMajor, 6.3e6, 6.5e6) && IsWithin(choice.inverseFlattening, 250, 350);
    if (!earthly) return GEODESY_FAULT::BAD_AXES;
    ellipsoid.name = choice.ellipsoidName;
    ellipsoid.comment.clear();
    ellipsoid.index = ellipsoid.code = 0;
    ellipsoid.a = choice.semiMajor;
    ellipsoid.rf = choice.inverseFlattening;
    ellipsoid.b = ellipsoid.a * (1 - 1 / ellipsoid.rf);
    ellipsoid.ComputeConstants();
    return GEODESY_FAULT::NONE;
}

bool IsFreeProjection(std::int32_t type, std::int32_t subtype) {
    switch (type) {
        case TRANSVERSE_MERCATOR:
        case CASSINI:
        case POLYCONIC:
            return true;
        case MERCATOR:
        case LAMBERT:
            return subtype == 0 || subtype == 1;
        case STEREOGRAPHIC:
            return subtype == 0 || subtype == 2;
        default:
            return false;
    }
}

bool AreParameters(const GeodesyChoice& choice) {
    const bool parallels = choice.type != LAMBERT || choice.subtype != 1 ||
                           (choice.firstParallel != -choice.secondParallel && choice.firstParallel != 0);
    const bool aboutParallel = choice.type != LAMBERT || choice.subtype != 0 || choice.originLatitude != 0;
    const double highest = choice.type == STEREOGRAPHIC && choice.subtype == 2 ? 90 : 89;
    return parallels && aboutParallel && IsWithin(choice.originLatitude, -highest, highest) &&
           IsWithin(choice.originLongitude, -360, 360) && IsWithin(choice.scale, 0.5, 2) &&
           IsWithin(choice.firstParallel, -89, 89) && IsWithin(choice.secondParallel, -89, 89) &&
           IsWithin(choice.falseEasting, -1e9, 1e9) && IsWithin(choice.falseNorthing, -1e9, 1e9);
}

GEODESY_FAULT SetOwnGrid(CGrid& grid, const GeodesyChoice& choice) {
    if (!IsFreeProjection(choice.type, choice.subtype)) return GEODESY_FAULT::NO_PROJECTION;
    if (!AreParameters(choice)) return GEODESY_FAULT::BAD_PARAMETERS;
    grid.SetNames(choice.gridName.c_str(), nullptr);
    grid.type = choice.type;
    grid.subtype = choice.subtype;
    grid.lat1 = choice.firstParallel * kRadiansPerDegree;
    grid.lat2 = choice.secondParallel * kRadiansPerDegree;
    grid.SetOriginDegrees(choice.originLatitude, choice.originLongitude, choice.falseEasting, choice.falseNorthing,
                          choice.scale);
    return GEODESY_FAULT::NONE;
}

/// A grid of the catalogue may bring another ellipsoid.
GEODESY_FAULT SetGrid(CGrid& grid, const GeodesyChoice& choice) {
    if (choice.zone == GeodesyChoice::kOwn) return SetOwnGrid(grid, choice);
    const bool axis = choice.subtype >= 1 && choice.subtype <= 8;
    if (choice.type == NORWEGIAN_AXES && !axis) return GEODESY_FAULT::NO_AXIS;
    return grid.SetGrid(choice.zone, choice.type, choice.subtype) ? GEODESY_FAULT::NONE : GEODESY_FAULT::NO_GRID;
}

double GreenwichDegrees(double radians) {
    return std::remainder(radians / kRadiansPerDegree, 360.0);
}

}  // namespace

template <class Lines>
void EachLine(Lines& lines, RecordOf<GeodesyChoice> auto& choice) {
    lines.Bool("Grid Chosen", choice.chosen);
    lines.Int("Ellipsoid", choice.ellipsoid);
    lines.Text("Ellipsoid Name", choice.ellipsoidName);
    lines.Double("Semi Major Axis", choice.semiMajor, 6);
    lines.Double("Inverse Flattening", choice.inverseFlattening, 12);
    lines.Int("Grid Type", choice.type);
    lines.Int("Grid Zone", choice.zone);
    lines.Int("Grid Subtype", choice.subtype);
    lines.Text("Grid Name", choice.gridName);
    lines.Double("Origin Latitude", choice.originLatitude, 12);
    lines.Double("Origin Longitude", choice.originLongitude, 12);
    lines.Double("False Easting", choice.falseEasting, 6);
    lines.Double("False Northing", choice.falseNorthing, 6);
    lines.Double("Scale Factor", choice.scale, 12);
    lines.Double("First Parallel", choice.firstParallel, 12);
    lines.Double("Second Parallel", choice.secondParallel, 12);
    lines.Text("Shift File", choice.shiftFile);
}

std::string_view FaultText(GEODESY_FAULT fault) {
    switch (fault) {
        case GEODESY_FAULT::NONE:
            return {};
        case GEODESY_FAULT::NO_ELLIPSOID:
            return "there is no such ellipsoid";
        case GEODESY_FAULT::BAD_AXES:
            return "no earth has these axes";
        case GEODESY_FAULT::NO_GRID:
            return "there is no such grid";
        case GEODESY_FAULT::NO_AXIS:
            return "the Norwegian axes overlap: choose one, 1 to 8";
        case GEODESY_FAULT::NO_PROJECTION:
            return "this projection can't be made from parameters of one's own";
        case GEODESY_FAULT::BAD_PARAMETERS:
            return "the projection can't stand on these parameters";
    }
    return {};
}

GEODESY_FAULT CJobGeodesy::Load() {
    Clear();
    loadFault = GEODESY_FAULT::NONE;
    GeodesyChoice stored;
    CConfigFile file(files);
    if (!file.OpenForRead(kSettingsName)) return loadFault;
    ReadLines(file, stored);
    if (stored.chosen) loadFault = Choose(stored);
    return loadFault;
}

bool CJobGeodesy::Save() const {
    CConfigFile file(files);
    if (!file.OpenSettingsForWrite(kSettingsName)) return false;
    WriteLines(file, choice);
    return file.Commit();
}

GEODESY_FAULT CJobGeodesy::Choose(const GeodesyChoice& wanted) {
    CEllipsoid newEllipsoid;
    GEODESY_FAULT fault = SetEllipsoid(newEllipsoid, wanted);
    if (fault != GEODESY_FAULT::NONE) return fault;
    if (newEllipsoid.e2 == 0) return GEODESY_FAULT::BAD_AXES;
    CGrid newGrid;
    newGrid.ellipsoid = &newEllipsoid;
    fault = SetGrid(newGrid, wanted);
    if (fault != GEODESY_FAULT::NONE) return fault;
    ellipsoid = newEllipsoid;
    grid = newGrid;
    grid.ellipsoid = &ellipsoid;
    choice = wanted;
    choice.chosen = true;
    return GEODESY_FAULT::NONE;
}

void CJobGeodesy::Clear() {
    choice = {};
}

std::shared_ptr<const CJobGeodesy> CJobGeodesy::Copy() const {
    auto copy = std::make_shared<CJobGeodesy>(files);
    if (IsChosen()) copy->Choose(choice);
    return copy;
}

std::string CJobGeodesy::GridText() const {
    if (!IsChosen()) return "no grid chosen";
    std::string text = grid.name.empty() ? "own grid" : grid.name;
    if (choice.type == UTM_GRID && choice.zone != GeodesyChoice::kOwn) text += grid.subtype == 1 ? " S" : " N";
    // The second line of the Norwegian axes names the one that the row begins with.
    if (choice.type == NORWEGIAN_AXES) return text + ", axis " + std::to_string(choice.subtype);
    return grid.comment.empty() ? text : text + ", " + grid.comment;
}

std::string CJobGeodesy::DatumText() const {
    if (!IsChosen()) return {};
    if (ellipsoid.name.empty()) return "own ellipsoid";
    return ellipsoid.comment.empty() ? ellipsoid.name : ellipsoid.name + " " + ellipsoid.comment;
}

std::optional<tagLatLon> CJobGeodesy::ToGeographic(tagXY position) const {
    double lat = 0, lon = 0;
    if (!IsChosen() || !grid.Inverse(position.x, position.y, &lat, &lon)) return std::nullopt;
    return tagLatLon{lat / kRadiansPerDegree, GreenwichDegrees(lon)};
}

std::optional<tagXY> CJobGeodesy::FromGeographic(tagLatLon position) const {
    tagXY on;
    const bool inside = FromGeographic(std::span(&on.x, 1), std::span(&on.y, 1), std::span(&position.latitude, 1),
                                       std::span(&position.longitude, 1)) == 1;
    return inside ? std::optional(on) : std::nullopt;
}

std::size_t CJobGeodesy::ToGeographic(std::span<double> latitudes, std::span<double> longitudes,
                                      std::span<const double> x, std::span<const double> y) const {
    const std::size_t count = std::min({latitudes.size(), longitudes.size(), x.size(), y.size()});
    if (!IsChosen()) {
        std::fill_n(latitudes.begin(), count, kNaN);
        std::fill_n(longitudes.begin(), count, kNaN);
        return 0;
    }
    const std::size_t inside = grid.InverseAll(latitudes, longitudes, x, y);
    for (std::size_t i = 0; i < count; ++i) {
        latitudes[i] /= kRadiansPerDegree;
        longitudes[i] = GreenwichDegrees(longitudes[i]);
    }
    return inside;
}

std::size_t CJobGeodesy::FromGeographic(std::span<double> x, std::span<double> y, std::span<const double> latitudes,
                                        std::span<const double> longitudes) const {
    constexpr std::size_t kBlock = 256;
    const std::size_t count = std::min({latitudes.size(), longitudes.size(), x.size(), y.size()});
    const double returns = grid.type == NORWEGIAN_AXES ? kReturnsOnAxis : kReturns;
    std::size_t inside = 0;
    double lat[kBlock], lon[kBlock], backLat[kBlock], backLon[kBlock];
    for (std::size_t from = 0; from < count; from += kBlock) {
        const std::size_t size = std::min(kBlock, count - from);
        for (std::size_t i = 0; i < size; ++i) {
            lat[i] = latitudes[from + i] * kRadiansPerDegree;
            lon[i] = grid.NearMeridian(longitudes[from + i] * kRadiansPerDegree);
        }
        const std::span<double> first = x.subspan(from, size), second = y.subspan(from, size);
        grid.ForwardAll(first, second, lat, lon);
        // Beyond the reach of a formula its figures lead nowhere, or somewhere else.
        grid.InverseAll(backLat, backLon, first, second);
        for (std::size_t i = 0; i < size; ++i) {
            const double off = std::fabs(backLat[i] - lat[i]) + std::fabs((backLon[i] - lon[i]) * std::cos(lat[i]));
            const bool is = IsChosen() && off < returns && grid.IsPosition(lat[i], lon[i], first[i], second[i]);
            if (!is) first[i] = second[i] = kNaN;
            inside += is;
        }
    }
    return inside;
}

std::optional<tagGridScale> CJobGeodesy::ScaleAt(tagXY position) const {
    double lat = 0, lon = 0;
    if (!IsChosen() || !grid.Inverse(position.x, position.y, &lat, &lon)) return std::nullopt;
    return grid.ScaleAt(lat, lon);
}

}  // namespace quillon
