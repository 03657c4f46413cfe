#include "geodesy_listing.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <optional>
#include <ostream>
#include <span>
#include <string_view>

#include "foundation/angle_units.h"
#include "geodesy/catalogue/grid_row.h"
#include "json_text.h"
#include "platform/text.h"
#include "printable.h"

namespace quillon {

namespace {

constexpr double kSecondsPerDegree = 3600;
constexpr std::size_t kBlock = std::size_t{1} << 16;

/// Degrees as the catalogue has them: without the last digits, which are the conversion's own.
double Degrees(double radians) {
    return std::round(radians / kRadiansPerDegree * 1e11) / 1e11;
}

/// A text in a column of so many characters.
std::string Column(std::string_view text, std::size_t width) {
    std::string column = Utf8FromText(text);
    if (text.size() < width) column.append(width - text.size(), ' ');
    return column;
}

/// The units of a 1927 zone that stands on plane-coordinate constants; null for any other grid.
struct TableUnits {
    const char* json;  ///< of the longitude's sign
    const char* line;
    const char* lon0;
    std::span<const char* const> table;  ///< what each slot holds
};

constexpr const char* kLambertSlots[] = {
    "false easting, US survey feet",
    "central meridian, seconds of arc, positive west",
    "radius of the central parallel, US survey feet",
    "northing of the cone's apex, US survey feet",
    "scale on the central parallel",
    "sine of the central parallel",
    "rectified latitude of the central parallel, whole minutes",
    "rectified latitude of the central parallel, seconds",
    "L1",
    "L2",
    "L3",
};
constexpr const char* kTransverseSlots[] = {
    "false easting, US survey feet",
    "central meridian, seconds of arc, positive west",
    "rectified latitude of the origin, whole minutes",
    "rectified latitude of the origin, seconds",
    "scale on the central meridian",
    "Q, of the cubic term",
};
constexpr TableUnits kLambertUnits = {"west", "FE and FN in US survey feet, lon0 positive west",
                                      "degrees, positive west", kLambertSlots};
constexpr TableUnits kTransverseUnits = {"east", "FE in US survey feet", "degrees, positive east", kTransverseSlots};

const TableUnits* UnitsOf(const CGrid& grid) {
    if (grid.type != STATE_PLANE_27) return nullptr;
    if (grid.subtype == 1) return &kLambertUnits;
    return grid.subtype == 2 ? &kTransverseUnits : nullptr;
}

bool HasParallels(const CGrid& grid) {
    return grid.type == LAMBERT && grid.subtype != 0;
}

/// UTM, and what starts from a UTM position.
bool FromUtm(const CGrid& grid) {
    return grid.type == UTM_GRID || grid.type == NORWEGIAN_AXES || grid.type == DANISH_SYSTEM_34;
}

JsonObject GridJson(const CGrid& grid, const CEllipsoid& ellipsoid, std::span<const double> table) {
    JsonObject object;
    object.Int("type", grid.type);
    object.Int("zone", grid.zone);
    object.Int("subtype", grid.subtype);
    object.Text("name", grid.name);
    object.Text("comment", grid.comment);
    object.Int("ellipsoid", ellipsoid.index);
    object.Real("lat0", Degrees(grid.lat0));
    object.Real("lon0", Degrees(grid.lon0));
    object.Real("FE", grid.FE);
    object.Real("FN", grid.FN);
    object.Real("k0", grid.k0);
    if (HasParallels(grid)) {
        object.Real("lat1", Degrees(grid.lat1));
        object.Real("lat2", Degrees(grid.lat2));
    }
    if (!table.empty()) object.Reals("table", table);
    if (const TableUnits* units = UnitsOf(grid)) {
        object.Text("false_origin_unit", "US survey foot");
        object.Text("lon0_positive", units->json);
    }
    return object;
}

constexpr const char* kGridHead =
    "type zone sub name                     comment              ell           lat0            lon0"
    "               FE               FN            k0\n";

std::string GridLine(const CGrid& grid, const CEllipsoid& ellipsoid, std::span<const double> table) {
    std::string line = Format("%4d %4d %3d ", grid.type, grid.zone, grid.subtype) + Column(grid.name, 24) + ' ' +
                       Column(grid.comment, 20);
    line += Format(" %3d %14.10f %15.10f %16.4f %16.4f %13.11g", ellipsoid.index, Degrees(grid.lat0),
                   Degrees(grid.lon0), grid.FE, grid.FN, grid.k0);
    if (HasParallels(grid)) line += Format("  parallels %.10g %.10g", Degrees(grid.lat1), Degrees(grid.lat2));
    if (!table.empty()) line += "  table";
    for (const double value : table) line += ' ' + ShortestText(value);
    if (const TableUnits* units = UnitsOf(grid)) line += Format("  (%s)", units->line);
    return line + '\n';
}

JsonObject EllipsoidJson(const CEllipsoid& e) {
    JsonObject object;
    object.Int("index", e.index);
    object.Int("code", e.code);
    object.Text("name", e.name);
    object.Text("comment", e.comment);
    object.Real("a", e.a);
    object.Real("b", e.b);
    object.Real("rf", e.rf);
    return object;
}

/// With a unit or a meaning, where there is one to tell.
void AppendValue(std::string& text, std::string_view key, double value, const char* meaning = nullptr) {
    const std::string figures = ShortestText(value);
    text += Column(key, 14) + (meaning ? Column(figures, 20) + "  " + meaning : figures) + '\n';
}
void AppendText(std::string& text, std::string_view key, std::string_view value) {
    text += Column(key, 14) + Utf8FromText(value) + '\n';
}

std::string HeaderText(const GsbHeader& header) {
    std::string text;
    for (std::size_t i = 0; i < GSB_RECORDS; ++i) {
        const auto record = static_cast<GSB_RECORD>(i);
        text += PrintableUtf8(Column(header.Keyword(record), 10));
        switch (kGsbRecords[i].value) {
            case GSB_VALUE::INTEGER:
                text += Format("%d\n", header.Integer(record));
                break;
            case GSB_VALUE::TEXT:
                text += Printable(header.Text(record)) + '\n';
                break;
            case GSB_VALUE::REAL:
                text += ShortestText(header.Real(record)) + '\n';
                break;
        }
    }
    return text;
}

/// Nodes in a row, if rows and columns of the header make up the nodes counted; else 0.
std::size_t NodesInRow(const GsbFile& file) {
    const double columns =
        std::round((file.header.Real(W_LONG) - file.header.Real(E_LONG)) / file.header.Real(LONG_INC)) + 1;
    const double rows = std::round((file.header.Real(N_LAT) - file.header.Real(S_LAT)) / file.header.Real(LAT_INC)) + 1;
    const bool fits = columns >= 1 && rows >= 1 && columns * rows == static_cast<double>(file.nodes.size());
    return fits ? static_cast<std::size_t>(columns) : 0;
}

}  // namespace

std::string EllipsoidList(bool json) {
    JsonArray array;
    std::string text =
        "index code " + Column("name", 32) + ' ' + Column("comment", 24) + Format(" %18s %18s %20s\n", "a", "b", "1/f");
    CEllipsoid e;
    for (std::int32_t index = 0; e.SetEllipsoid(index); ++index) {
        array.Add(EllipsoidJson(e));
        text += Format("%5d %4d ", e.index, e.code) + Column(e.name, 32) + ' ' + Column(e.comment, 24) +
                Format(" %18s %18s %20s\n", ShortestText(e.a).c_str(), ShortestText(e.b).c_str(),
                       ShortestText(e.rf).c_str());
    }
    return json ? array.End() : text;
}

std::string GridList(std::int32_t type, bool json) {
    JsonArray array;
    std::string text = kGridHead;
    for (std::int32_t family = 0; family < kGridTypes; ++family) {
        if (type >= 0 && type != family) continue;
        for (std::int32_t zone = 0;; ++zone) {
            const std::optional<GridRow> row = FindGridRow(zone, family, 0);
            if (!row) break;
            CEllipsoid ellipsoid;
            ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
            CGrid grid;
            grid.ellipsoid = &ellipsoid;
            grid.SetGrid(zone, family, 0);
            if (json) array.Add(GridJson(grid, ellipsoid, row->table));
            if (!json) text += GridLine(grid, ellipsoid, row->table);
        }
    }
    return json ? array.End() : text;
}

std::string GridInfo(const CGrid& grid) {
    std::string text;
    AppendText(text, "name", grid.name);
    AppendText(text, "comment", grid.comment);
    AppendValue(text, "type", grid.type);
    AppendValue(text, "zone", grid.zone);
    AppendValue(text, "subtype", grid.subtype);
    if (grid.ellipsoid) {
        AppendText(text, "ellipsoid", grid.ellipsoid->name + ' ' + grid.ellipsoid->comment);
        AppendValue(text, "a", grid.ellipsoid->a);
        AppendValue(text, "b", grid.ellipsoid->b);
        AppendValue(text, "1/f", grid.ellipsoid->rf);
        AppendValue(text, "e2", grid.ellipsoid->e2);
    }
    AppendText(text, "fixed", grid.ellipsoidFixed ? "yes" : "no");
    AppendText(text, "axes", AxisNames(grid));
    const TableUnits* units = UnitsOf(grid);
    const char* const feet = units ? "US survey feet" : nullptr;
    AppendValue(text, "lat0", Degrees(grid.lat0));
    AppendValue(text, "lon0", Degrees(grid.lon0), units ? units->lon0 : nullptr);
    AppendValue(text, "FE", grid.FE, feet);
    AppendValue(text, "FN", grid.FN, grid.FN != 0 ? feet : nullptr);
    AppendValue(text, "k0", grid.k0);
    if (HasParallels(grid)) {
        AppendValue(text, "lat1", Degrees(grid.lat1));
        AppendValue(text, "lat2", Degrees(grid.lat2));
    }
    if (FromUtm(grid)) {
        AppendValue(text, "UTM zone", grid.utmZone);
        AppendValue(text, "axis", grid.axis);
    }
    AppendValue(text, "scale ratio", grid.scaleRatio);
    AppendValue(text, "nu0", grid.nu0);
    AppendValue(text, "rho0", grid.rho0);
    AppendValue(text, "M0", grid.M0);
    AppendValue(text, "psi0", grid.psi0);
    for (std::size_t i = 0; i < std::size(grid.W); ++i) {
        const bool named = units && i < units->table.size();
        if (grid.W[i] != 0) AppendValue(text, Format("W%zu", i), grid.W[i], named ? units->table[i] : nullptr);
    }
    if (const std::string_view deviation = KnownDeviation(grid.type, grid.zone); !deviation.empty()) {
        AppendText(text, "deviation", deviation);
    }
    return text;
}

std::string_view AxisNames(const CGrid& grid) {
    switch (grid.Axes()) {
        case GRID_AXES::WESTING_SOUTHING:
            return "westing southing";
        case GRID_AXES::NORTHING_EASTING:
            return "northing (X) easting (Y)";
        case GRID_AXES::EASTING_NORTHING:
            break;
    }
    return "easting northing";
}

void PrintGsb(std::ostream& out, const GsbFile& file, bool withNodes) {
    std::string text = HeaderText(file.header);
    out << text;
    if (!withNodes) return;
    const double unitsPerDegree = kSecondsPerDegree / SecondsPerUnit(file.header);
    const std::size_t columns = std::isfinite(unitsPerDegree) ? NodesInRow(file) : 0;
    text.clear();
    text += "\n";
    text += columns ? "       node        latitude       longitude" : "       node";
    text += "   lat shift\"   lon shift\"  lat acc m  lon acc m\n";
    for (std::size_t i = 0; i < file.nodes.size(); ++i) {
        text += Format("%11zu", i);
        if (columns) {
            const double row = static_cast<double>(i / columns), column = static_cast<double>(i % columns);
            const double south = file.header.Real(S_LAT) + row * file.header.Real(LAT_INC);
            const double west = file.header.Real(E_LONG) + column * file.header.Real(LONG_INC);
            text += Format(" %15.9f %15.9f", south / unitsPerDegree, -west / unitsPerDegree);
        }
        const GridShiftRecordDef& node = file.nodes[i];
        text += Format(" %12.6f %12.6f %10.4f %10.4f\n", double{node.latShift}, double{node.lonShift},
                       double{node.latAccuracy}, double{node.lonAccuracy});
        if (text.size() < kBlock) continue;
        out << text;
        text.clear();
    }
    out << text;
}

}  // namespace quillon
