#include "geodesy/catalogue/grid_row.h"

#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <iterator>
#include <numeric>

#include "foundation/angle_units.h"
#include "geodesy/catalogue/cassini.h"
#include "geodesy/catalogue/gauss_kruger.h"
#include "geodesy/catalogue/guam.h"
#include "geodesy/catalogue/known_deviations.h"
#include "geodesy/catalogue/lambert.h"
#include "geodesy/catalogue/mercator.h"
#include "geodesy/catalogue/norwegian.h"
#include "geodesy/catalogue/oblique_mercator.h"
#include "geodesy/catalogue/polyconic.h"
#include "geodesy/catalogue/south_african_lo.h"
#include "geodesy/catalogue/state_plane_27.h"
#include "geodesy/catalogue/state_plane_83_lambert.h"
#include "geodesy/catalogue/state_plane_83_transverse.h"
#include "geodesy/catalogue/stereographic.h"
#include "geodesy/catalogue/system34.h"
#include "geodesy/catalogue/transverse_mercator.h"
#include "geodesy/catalogue/utm.h"
#include "geodesy/formulas.h"
#include "geodesy/grid.h"
#include "geodesy/scalar_math.h"
#include "platform/text.h"

namespace quillon {

namespace {

using namespace catalogue;

constexpr std::int32_t kLambertZones = static_cast<std::int32_t>(std::size(kLambert));

template <class Row, std::size_t count>
constexpr std::int32_t CountOf(const Row (&)[count]) {
    return static_cast<std::int32_t>(count);
}

constexpr std::array<std::int32_t, kGridTypes> kSizes = {
    kUtmZones,
    CountOf(kTransverseMercator),
    kGaussKrugerZones,
    kLoZones,
    CountOf(kStatePlane83Transverse),
    CountOf(kMercator),
    kLambertZones + CountOf(kStatePlane83Lambert),
    CountOf(kCassini),
    CountOf(kGuam),
    CountOf(kStereographic),
    CountOf(kPolyconic),
    CountOf(kObliqueMercator),
    CountOf(kStatePlane27),
    kNorwegianZones,
    CountOf(kSystem34),
};
static_assert(kSizes == std::array<std::int32_t, kGridTypes>{62, 39, 36, 10, 54, 5, 76, 2, 1, 3, 1, 4, 130, 5, 2});
static_assert(std::accumulate(kSizes.begin(), kSizes.end(), 0) == 430);

template <class Row, std::size_t count>
const Row& At(const Row (&rows)[count], std::int32_t zone) {
    return rows[static_cast<std::size_t>(zone)];
}

GridRow Projection(const ProjectionDef& def, std::int32_t subtype) {
    GridRow row;
    row.name = def.name;
    row.comment = def.comment;
    row.ellipsoid = def.ellipsoid;
    row.subtype = subtype;
    row.lat0 = def.lat0;
    row.lon0 = def.lon0;
    row.falseEasting = def.falseEasting;
    row.falseNorthing = def.falseNorthing;
    row.scale = def.scale;
    return row;
}

std::string UtmName(std::int32_t zone) {
    return Format("%s%2d (%d\xB0 %c)", "Grid Zone ", zone, std::abs(UtmMeridian(zone)),
                  zone < kUtmFirstEastZone ? 'W' : 'E');
}

GridRow Utm(std::int32_t zone, std::int32_t subtype) {
    GridRow row;
    row.name = UtmName(zone);
    row.ellipsoidFixed = false;
    row.subtype = subtype == 1 ? 1 : 0;
    row.lon0 = UtmMeridian(zone);
    row.falseEasting = kUtmFalseEasting;
    row.falseNorthing = row.subtype == 1 ? kUtmSouthFalseNorthing : 0;
    row.scale = kUtmScale;
    row.utmZone = zone;
    return row;
}

GridRow GaussKrugerRow(std::int32_t zone, std::int32_t subtype) {
    const GaussKrugerZone def = GaussKruger(zone);
    const bool dhdn = zone < kDhdnZones;
    GridRow row;
    row.name = Format(dhdn ? "DHDN Zone %02d" : "GK Zone %02d", def.number);
    row.comment = dhdn ? Format("West Germany (%d\xB0 E)", def.meridian)
                       : Format("(%d\xB0 %c)", std::abs(def.meridian), def.meridian < 0 ? 'W' : 'E');
    row.ellipsoid = def.ellipsoid;
    row.subtype = subtype;
    row.lon0 = def.meridian;
    row.falseEasting = def.falseEasting;
    return row;
}

GridRow Lo(std::int32_t zone, std::int32_t subtype) {
    GridRow row;
    row.name = Format("Lo %2d\xB0 E", LoMeridian(zone));
    row.comment = "South Africa";
    row.ellipsoid = kLoEllipsoid;
    row.subtype = subtype;
    row.lon0 = LoMeridian(zone);
    return row;
}

GridRow StatePlane83Transverse(const StatePlane83TransverseDef& def, std::int32_t subtype) {
    return Projection({def.name, kStatePlane83Comment, kStatePlane83Ellipsoid, def.lat0, def.lon0, def.falseEasting,
                       def.falseNorthing, def.scale},
                      subtype);
}

GridRow MercatorRow(std::int32_t zone) {
    const MercatorDef& def = At(kMercator, zone);
    GridRow row = Projection(def.projection, def.subtype);
    row.ellipsoidFixed = zone != kGeneralMercatorZone;
    return row;
}

GridRow NamedLambert(const LambertDef& def) {
    GridRow row = Projection(def.projection, def.subtype);
    row.lat1 = def.lat1;
    row.lat2 = def.lat2;
    return row;
}

GridRow StatePlane83Lambert(const StatePlane83LambertDef& def) {
    GridRow row = Projection({def.name, kStatePlane83Comment, kStatePlane83Ellipsoid, def.lat0, def.lon0,
                              def.falseEasting, def.falseNorthing, 1},
                             2);
    row.lat1 = def.lat1;
    row.lat2 = def.lat2;
    return row;
}

GridRow LambertRow(std::int32_t zone) {
    return zone < kLambertZones ? NamedLambert(At(kLambert, zone))
                                : StatePlane83Lambert(At(kStatePlane83Lambert, zone - kLambertZones));
}

GridRow ObliqueRow(std::int32_t zone) {
    const ObliqueDef& def = At(kObliqueMercator, zone);
    GridRow row = Projection(def.projection, zone);
    row.table = def.table;
    return row;
}

/// Degrees of latitude of which a table gives the rectified latitude. Origins lie on whole minutes, from which the five
/// decimals of the tables stray by 0.0001".
double OriginOfTable(double minutes, double seconds) {
    constexpr double kSecondsPerRadian = 3600 / kRadiansPerDegree;
    const double rectified = 60 * minutes + seconds;
    double lat = rectified;
    for (int round = 0; round < 8; round++) {  // each takes a factor of 200 off
        const double radians = lat / kSecondsPerRadian;
        lat = rectified + Formulas<ScalarMath>::RectifyingSeconds(std::sin(radians), std::cos(radians));
    }
    return std::round(lat / 60) / 60;
}

/// What the table of a 1927 zone says of origin and scale; `CGrid::Init` derives the rest from the table itself.
void SetStatePlane27Origin(GridRow& row, const StatePlane27Figures& figures) {
    const auto& table = figures.table;
    switch (figures.subtype) {
        case kByFormula:
            row.lat0 = kAlaskaLat0;
            row.lon0 = table[0];
            row.falseEasting = table[1] * kSurveyFoot;
            row.scale = kAlaskaScale;
            break;
        case kObliqueTable:
            row.lat0 = kAlaska1Lat0;
            row.lon0 = kAlaska1Lon0;
            row.scale = kAlaskaScale;
            row.table = std::span(table).first(6);
            break;
        case kTransverseTable:
            row.lat0 = OriginOfTable(table[2], table[3]);
            row.lon0 = -table[1] / 3600;
            row.falseEasting = table[0];
            row.scale = table[4];
            row.table = std::span(table).first(6);
            break;
        default:
            row.table = table;
    }
}

GridRow StatePlane27(const StatePlane27Def& def) {
    GridRow row;
    row.name = def.name;
    row.comment = Format("Code %4d", def.code);
    row.ellipsoid = kStatePlane27Ellipsoid;
    row.subtype = def.figures.subtype;
    SetStatePlane27Origin(row, def.figures);
    return row;
}

GridRow Norwegian(std::int32_t zone, std::int32_t subtype) {
    GridRow row = Utm(zone + kNorwegianFirstUtmZone, 0);
    row.comment = Format("NGO (Axis %s)", kNorwegianAxes[zone]);
    row.ellipsoid = kNorwegianEllipsoid;
    row.ellipsoidFixed = true;
    row.subtype = subtype;
    row.axis = subtype;
    return row;
}

GridRow System34(std::int32_t zone, std::int32_t subtype) {
    GridRow row = Projection(
        {kSystem34[zone], "System 34", kSystem34Ellipsoid, 0, kSystem34Meridian, kUtmFalseEasting, 0, kUtmScale},
        subtype);
    row.axis = zone;
    row.utmZone = kSystem34UtmZone;
    return row;
}

}  // namespace

const std::array<std::int32_t, kGridTypes> kGridFamilySizes = kSizes;

std::optional<GridRow> FindGridRow(std::int32_t zone, std::int32_t type, std::int32_t subtype) {
    if (type < 0 || type >= kGridTypes) return std::nullopt;
    if (zone < 0 || zone >= kSizes[static_cast<std::size_t>(type)]) return std::nullopt;
    switch (static_cast<GRID_TYPE>(type)) {
        case UTM_GRID:
            return Utm(zone, subtype);
        case TRANSVERSE_MERCATOR:
            return Projection(At(kTransverseMercator, zone), subtype);
        case GAUSS_KRUGER:
            return GaussKrugerRow(zone, subtype);
        case SOUTH_AFRICAN_LO:
            return Lo(zone, subtype);
        case STATE_PLANE_83_TM:
            return StatePlane83Transverse(At(kStatePlane83Transverse, zone), subtype);
        case MERCATOR:
            return MercatorRow(zone);
        case LAMBERT:
            return LambertRow(zone);
        case CASSINI:
            return Projection(At(kCassini, zone), subtype);
        case GUAM:
            return Projection(At(kGuam, zone), subtype);
        case STEREOGRAPHIC:
            return Projection(At(kStereographic, zone), 0);
        case POLYCONIC:
            return Projection(At(kPolyconic, zone), subtype);
        case OBLIQUE_MERCATOR:
            return ObliqueRow(zone);
        case STATE_PLANE_27:
            return StatePlane27(At(kStatePlane27, zone));
        case NORWEGIAN_AXES:
            return Norwegian(zone, subtype);
        case DANISH_SYSTEM_34:
            return System34(zone, subtype);
    }
    return std::nullopt;
}

std::string_view KnownDeviation(std::int32_t type, std::int32_t zone) {
    for (const KnownDeviationDef& row : kKnownDeviations) {
        if (row.type == type && row.zone == zone) return row.text;
    }
    return {};
}

}  // namespace quillon
