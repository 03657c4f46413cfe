#pragma once

#include <array>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace quillon::catalogue {

/// The forms of the catalogue's rows. Figures stand as their sources publish them: angles in degrees, minutes and
/// seconds (a minus before `Dms` is south or west), lengths in metres, in the 1927 State Plane tables in US survey
/// feet. A row's zone is its place in its table.

constexpr double Dms(int degrees, int minutes = 0, double seconds = 0) {
    return degrees + minutes / 60.0 + seconds / 3600.0;
}

/// The scale on a central meridian that is reduced by one part in `parts`.
constexpr double OneIn(int parts) {
    return 1 - 1.0 / parts;
}

/// The US survey foot, 1200/3937 m.
inline constexpr double kSurveyFoot = 1200.0 / 3937.0;

/// A projection given by its origin, false origin and scale.
struct ProjectionDef {
    std::string_view name;
    std::string_view comment;
    int ellipsoid;
    double lat0, lon0;
    double falseEasting, falseNorthing;
    double scale;
};

struct MercatorDef {
    ProjectionDef projection;
    int subtype;
};

/// A Lambert grid; the parallels are 0 where one parallel, lat0, and the scale define it.
struct LambertDef {
    ProjectionDef projection;
    int subtype;
    double lat1, lat2;
};

/// A row of the State Plane Coordinate System of 1983.
struct StatePlane83TransverseDef {
    std::string_view name;
    double lat0, lon0;
    double falseEasting, falseNorthing;
    double scale;
};
struct StatePlane83LambertDef {
    std::string_view name;
    double lat0, lon0;
    double falseEasting, falseNorthing;
    double lat1, lat2;
};

/// An oblique Mercator grid: sine and cosine of the rectification, two figures that no formula reads, and the false
/// easting and northing in metres.
struct ObliqueDef {
    ProjectionDef projection;
    std::array<double, 6> table;
};

/// The figures of a 1927 State Plane zone: its subtype and its table, in the order of the work area.
struct StatePlane27Figures {
    int subtype;
    std::array<double, 11> table;
};
struct StatePlane27Def {
    std::string_view name;
    int code;
    StatePlane27Figures figures;
};

inline constexpr int kByFormula = 0;
inline constexpr int kLambertTable = 1;
inline constexpr int kTransverseTable = 2;
inline constexpr int kObliqueTable = 3;

/// Feet and seconds of arc west; the radii, the scale and the sine of the central parallel; the rectified latitude of
/// the central parallel in whole minutes and seconds; L1, L2, L3.
constexpr StatePlane27Figures Lambert(double falseEasting, double meridian, double radius, double originRadius,
                                      double scale, double sine, double minutes, double seconds, double l1, double l2,
                                      double l3) {
    return {kLambertTable, {falseEasting, meridian, radius, originRadius, scale, sine, minutes, seconds, l1, l2, l3}};
}

/// Feet and seconds of arc west; the rectified latitude of the origin in whole minutes and seconds; scale; Q.
constexpr StatePlane27Figures Transverse(double falseEasting, double meridian, double minutes, double seconds,
                                         double scale, double cubic) {
    return {kTransverseTable, {falseEasting, meridian, minutes, seconds, scale, cubic}};
}

constexpr StatePlane27Figures Oblique(double sine, double cosine, double u, double v, double falseEasting,
                                      double falseNorthing) {
    return {kObliqueTable, {sine, cosine, u, v, falseEasting, falseNorthing}};
}

/// Degrees of the central meridian and feet of false easting: the figures in which Alaska's zones 2 to 9 differ.
constexpr StatePlane27Figures ByFormula(double meridian, double falseEasting) {
    return {kByFormula, {meridian, falseEasting}};
}

// What every row must satisfy; a row that doesn't fails to compile.

consteval bool InRange(const ProjectionDef& row) {
    return !row.name.empty() && row.ellipsoid >= 0 && row.ellipsoid <= 52 && row.lat0 > -90 && row.lat0 < 90 &&
           row.lon0 >= -180 && row.lon0 <= 180 && row.scale > 0.99 && row.scale < 1.01;
}
consteval bool InRange(const MercatorDef& row) {
    return InRange(row.projection) && row.subtype >= 0 && row.subtype <= 1;
}
consteval bool InRange(const LambertDef& row) {
    const bool parallels = row.subtype == 0 ? row.lat1 == 0 && row.lat2 == 0 : row.lat1 > 0 && row.lat1 < row.lat2;
    return InRange(row.projection) && row.subtype >= 0 && row.subtype <= 1 && parallels && row.lat2 < 90;
}
consteval bool InRange(const ObliqueDef& row) {
    const double norm = row.table[0] * row.table[0] + row.table[1] * row.table[1];
    return InRange(row.projection) && norm > 1 - 1e-9 && norm < 1 + 1e-9;
}
consteval bool InRange(const StatePlane83TransverseDef& row) {
    return !row.name.empty() && row.lat0 > 0 && row.lat0 < 72 && row.lon0 > -180 && row.lon0 < -60 &&
           row.falseEasting > 0 && row.falseNorthing >= 0 && row.scale > 0.999 && row.scale <= 1;
}
consteval bool InRange(const StatePlane83LambertDef& row) {
    return !row.name.empty() && row.lat0 > 0 && row.lat0 < row.lat1 && row.lat1 < row.lat2 && row.lat2 < 72 &&
           row.lon0 > -180 && row.lon0 < -60 && row.falseEasting > 0 && row.falseNorthing >= 0;
}
consteval bool InRange(const StatePlane27Def& row) {
    const auto& t = row.figures.table;
    if (row.name.empty() || row.code < 101 || row.code > 5105) return false;
    switch (row.figures.subtype) {
        case kByFormula:
            return t[0] >= -170 && t[0] <= -142 && t[1] >= 500000 && t[1] <= 700000;
        case kLambertTable:
            return t[0] > 0 && t[1] > 60 * 3600 && t[1] < 180 * 3600 && t[2] > 0 && t[3] > t[2] && t[4] > 0.999 &&
                   t[4] <= 1 && t[5] > 0 && t[5] < 1 && t[6] > 600 && t[7] >= 0 && t[7] < 60 && t[8] > 3 && t[9] > 2;
        case kTransverseTable:
            return t[0] > 0 && t[1] > 60 * 3600 && t[1] < 180 * 3600 && t[2] > 600 && t[3] >= 0 && t[3] < 60 &&
                   t[4] > 0.999 && t[4] <= 1 && t[5] > 0.3 && t[5] < 0.4;
        default:
            return row.figures.subtype == kObliqueTable;
    }
}

template <class Row, std::size_t count>
consteval bool AllInRange(const Row (&rows)[count]) {
    for (const Row& row : rows) {
        if (!InRange(row)) return false;
    }
    return true;
}

}  // namespace quillon::catalogue
