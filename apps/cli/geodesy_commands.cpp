#include "geodesy_commands.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <limits>
#include <memory>
#include <ostream>
#include <span>
#include <string>

#include "foundation/angle_units.h"
#include "geodesy/catalogue/grid_row.h"
#include "geodesy/ellipsoid.h"
#include "geodesy/grid.h"
#include "geodesy/gsb_file.h"
#include "geodesy_listing.h"
#include "number_lines.h"
#include "platform/text.h"
#include "printable.h"

namespace quillon {

namespace {

constexpr int kDecimals = 4;
constexpr int kDegreeDecimals = 9;  // a tenth of a millimetre
constexpr double kHalfUnit = 0.00005;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

struct GridChoice {
    std::int32_t type = 0;
    std::int32_t zone = 0;
    std::int32_t subtype = 0;
    std::int32_t ellipsoid = CEllipsoid::kWgs84;
};

void AppendMetres(std::string& text, double metres) {
    // A length that rounds to nothing has no sign.
    AppendFixed(text, std::fabs(metres) < kHalfUnit ? 0 : metres, kDecimals);
}

bool IsLatitude(double degrees) {
    return std::fabs(degrees) <= 90;
}
/// Once round to either side, so that zones across the 180th meridian can be counted on.
bool IsLongitude(double degrees) {
    return std::fabs(degrees) <= 360;
}
bool IsPosition(std::span<const double> numbers) {
    return IsLatitude(numbers[0]) && IsLongitude(numbers[1]);
}
bool ArePositions(std::span<const double> numbers) {
    return IsPosition(numbers.first(2)) && IsPosition(numbers.subspan(2));
}

void ToRadians(std::span<double> degrees) {
    for (double& value : degrees) value *= kRadiansPerDegree;
}

void ChooseEllipsoid(CEllipsoid& ellipsoid, std::int32_t index) {
    if (!ellipsoid.SetEllipsoid(index))
        throw CLI::ValidationError(Format("there is no ellipsoid %d; see ellipsoid list", index));
}

void ChooseGrid(CGrid& grid, CEllipsoid& ellipsoid, const GridChoice& choice) {
    ChooseEllipsoid(ellipsoid, choice.ellipsoid);
    grid.ellipsoid = &ellipsoid;
    if (!grid.SetGrid(choice.zone, choice.type, choice.subtype)) {
        throw CLI::ValidationError(
            Format("there is no grid of type %d, zone %d; see grid list", choice.type, choice.zone));
    }
}

/// Names what a user of the grid should know before he trusts a figure.
void TellOfGrid(CliContext& context, const CGrid& grid) {
    if (grid.Axes() != GRID_AXES::EASTING_NORTHING) context.err << "columns: " << AxisNames(grid) << '\n';
    const std::string_view deviation = KnownDeviation(grid.type, grid.zone);
    if (deviation.empty()) return;
    context.err << "warning: " << Printable(grid.name + ' ' + grid.comment) << " lies " << deviation << '\n';
}

void PrintDistances(CliContext& context, std::int32_t index) {
    CEllipsoid ellipsoid;
    ChooseEllipsoid(ellipsoid, index);
    if (ellipsoid.e2 == 0) {
        throw CLI::ValidationError(Format("ellipsoid %d is a sphere; distances need a flattening", index));
    }
    std::string text;
    NumberLines lines(context.in, context.err, 4, &ArePositions);
    const std::uint64_t bad = lines.Run([&](std::span<const std::span<double>> columns, std::uint64_t) {
        for (const std::span<double> column : columns) ToRadians(column);
        ellipsoid.DistanceAll(columns[0], columns[1], columns[2], columns[3], columns[0]);
        text.clear();
        for (const double metres : columns[0]) {
            AppendMetres(text, metres);
            text += '\n';
        }
        context.out << text;
    });
    if (bad > 0) context.result = CLI_USELESS;
}

/// Latitudes and longitudes in degrees become grid positions, NaN where there is none.
void ToGrid(CliContext& context, const CGrid& grid, std::span<double> lats, std::span<double> lons,
            std::uint64_t firstLine) {
    std::array<double, NumberLines::kBatch> eastings, northings;
    ToRadians(lats);
    ToRadians(lons);
    for (double& lon : lons) lon = grid.NearMeridian(lon);
    grid.ForwardAll(eastings, northings, lats, lons);
    for (std::size_t i = 0; i < lats.size(); ++i) {
        const bool is = grid.IsPosition(lats[i], lons[i], eastings[i], northings[i]);
        // A line that was none to begin with has been told of.
        if (!is && std::isfinite(lats[i])) context.err << "line " << firstLine + i << ": no position on this grid\n";
        lats[i] = is ? eastings[i] : kNaN;
        lons[i] = is ? northings[i] : kNaN;
        if (!is) context.result = CLI_USELESS;
    }
}

void PrintPositions(CliContext& context, const GridChoice& choice) {
    CEllipsoid ellipsoid;
    CGrid grid;
    ChooseGrid(grid, ellipsoid, choice);
    TellOfGrid(context, grid);
    std::string text;
    NumberLines lines(context.in, context.err, 2, &IsPosition);
    lines.Run([&](std::span<const std::span<double>> columns, std::uint64_t firstLine) {
        ToGrid(context, grid, columns[0], columns[1], firstLine);
        text.clear();
        for (std::size_t i = 0; i < columns[0].size(); ++i) {
            AppendMetres(text, columns[0][i]);
            text += ' ';
            AppendMetres(text, columns[1][i]);
            text += '\n';
        }
        context.out << text;
    });
}

bool IsAnything(std::span<const double>) {
    return true;
}

/// Grid positions become latitudes and longitudes in degrees, NaN outside the grid.
void ToGeographic(CliContext& context, const CGrid& grid, std::span<double> firsts, std::span<double> seconds,
                  std::uint64_t firstLine) {
    std::array<double, NumberLines::kBatch> lats, lons;
    const std::size_t count = firsts.size();
    const std::size_t inside = grid.InverseAll(std::span(lats).first(count), lons, firsts, seconds);
    for (std::size_t i = 0; i < count; ++i) {
        const bool told = std::isnan(firsts[i]) || inside == count;
        if (!told && std::isnan(lats[i])) context.err << "line " << firstLine + i << ": outside the grid\n";
        firsts[i] = lats[i] / kRadiansPerDegree;
        seconds[i] = std::remainder(lons[i] / kRadiansPerDegree, 360.0);
    }
    if (inside < count) context.result = CLI_USELESS;
}

void AppendDegrees(std::string& text, double degrees) {
    AppendFixed(text, std::fabs(degrees) < 0.5e-9 ? 0 : degrees, kDegreeDecimals);
}

void PrintGeographic(CliContext& context, const GridChoice& choice) {
    CEllipsoid ellipsoid;
    CGrid grid;
    ChooseGrid(grid, ellipsoid, choice);
    if (grid.type == NORWEGIAN_AXES && (choice.subtype < 1 || choice.subtype > 8)) {
        throw CLI::ValidationError("the Norwegian axes overlap; --subtype names the axis, 1 to 8");
    }
    TellOfGrid(context, grid);
    std::string text;
    NumberLines lines(context.in, context.err, 2, &IsAnything);
    lines.Run([&](std::span<const std::span<double>> columns, std::uint64_t firstLine) {
        ToGeographic(context, grid, columns[0], columns[1], firstLine);
        text.clear();
        for (std::size_t i = 0; i < columns[0].size(); ++i) {
            AppendDegrees(text, columns[0][i]);
            text += ' ';
            AppendDegrees(text, columns[1][i]);
            text += '\n';
        }
        context.out << text;
    });
}

void PrintGridInfo(CliContext& context, const GridChoice& choice) {
    CEllipsoid ellipsoid;
    CGrid grid;
    ChooseGrid(grid, ellipsoid, choice);
    context.out << GridInfo(grid);
}

void PrintGsbFile(CliContext& context, const std::string& path, bool headerOnly) {
    CStdioFile file(context.Files());
    if (!file.OpenForReading(TextFromUtf8(path), FILE_MODE::BINARY)) {
        return context.Fail(path, "can't be read: " + file.GetFault());
    }
    GSB_FAULT fault = GSB_FAULT::NONE;
    const std::shared_ptr<const GsbFile> gsb = ReadGsb(file, &fault);
    if (fault != GSB_FAULT::NONE || !gsb) return context.Fail(path, FaultText(fault));
    if (SecondsPerUnit(gsb->header) == 0) {
        context.err << path << ": GS_TYPE is no unit that is known; nodes are listed without positions\n";
    }
    if (gsb->header.Integer(NUM_FILE) > 1) {
        context.err << path << ": holds " << gsb->header.Integer(NUM_FILE) << " sub-grids; the first one is read\n";
    }
    PrintGsb(context.out, *gsb, !headerOnly);
}

std::shared_ptr<GridChoice> AddGridChoice(CLI::App& command) {
    auto choice = std::make_shared<GridChoice>();
    command.add_option("--type", choice->type, "Family of the catalogue, 0 to 14")->required();
    command.add_option("--zone", choice->zone, "Row of the family")->required();
    command.add_option("--subtype", choice->subtype, "UTM: 1 is south. Norwegian axes: the axis. 0 if not given");
    command.add_option("--ellipsoid", choice->ellipsoid,
                       "Ellipsoid in use beforehand, which UTM keeps. 26 (WGS84) if not given");
    return choice;
}

void AddEllipsoidCommands(CLI::App& app, CliContext& context) {
    CLI::App& ellipsoid = *app.add_subcommand("ellipsoid", "Ellipsoids and distances on them")->require_subcommand(1);

    CLI::App& list = *ellipsoid.add_subcommand("list", "The catalogue of ellipsoids");
    auto json = std::make_shared<bool>(false);
    list.add_flag("--json", *json, "As JSON");
    list.callback([&context, json] { context.out << EllipsoidList(*json); });

    CLI::App& distance =
        *ellipsoid.add_subcommand("distance", "Geodesic distances in metres, a line for each line read");
    auto index = std::make_shared<std::int32_t>(CEllipsoid::kWgs84);
    distance.add_option("--index", *index, "Ellipsoid. 26 (WGS84) if not given");
    distance.footer(
        "Reads \"lat1 lon1 lat2 lon2\" in decimal degrees, west and south negative.\n\n"
        "Example:\n  echo 51.5 -0.1 48.9 2.35 | quillon ellipsoid distance --index 17");
    distance.callback([&context, index] { PrintDistances(context, *index); });
}

void AddGridCommands(CLI::App& app, CliContext& context) {
    CLI::App& grid = *app.add_subcommand("grid", "The catalogue of grids")->require_subcommand(1);

    CLI::App& list = *grid.add_subcommand("list", "Rows of the catalogue");
    struct ListOptions {
        std::int32_t type = -1;
        bool json = false;
    };
    auto options = std::make_shared<ListOptions>();
    list.add_option("--type", options->type, "Only this family, 0 to 14")->check(CLI::Range(0, 14));
    list.add_flag("--json", options->json, "As JSON");
    list.footer("Example:\n  quillon grid list --type 9");
    list.callback([&context, options] { context.out << GridList(options->type, options->json); });

    CLI::App& info = *grid.add_subcommand("info", "One row with its derived constants");
    auto infoChoice = AddGridChoice(info);
    info.footer("Example:\n  quillon grid info --type 1 --zone 0");
    info.callback([&context, infoChoice] { PrintGridInfo(context, *infoChoice); });

    CLI::App& forward = *grid.add_subcommand("forward", "Grid positions in metres, a line for each line read");
    auto forwardChoice = AddGridChoice(forward);
    forward.footer(
        "Reads \"lat lon\" in decimal degrees, west and south negative, and prints \"easting northing\" in metres;\n"
        "type 3 (South African Lo) \"westing southing\", type 13 (Norwegian axes) \"northing easting\", X and Y.\n"
        "The 1927 zones keep their constants in US survey feet and, the Lambert ones, longitudes positive west\n"
        "(see grid info); lines read and printed are as for every grid.\n"
        "A line without a position on the grid gives \"nan nan\" and is named on stderr; the exit code is then 1.\n\n"
        "Example:\n  echo 52 3 | quillon grid forward --type 0 --zone 31");
    forward.callback([&context, forwardChoice] { PrintPositions(context, *forwardChoice); });

    CLI::App& inverse = *grid.add_subcommand("inverse", "Latitudes and longitudes, a line for each line read");
    auto inverseChoice = AddGridChoice(inverse);
    inverse.footer(
        "Reads what grid forward prints: \"easting northing\" in metres; type 3 (South African Lo) \"westing "
        "southing\",\n"
        "type 13 (Norwegian axes) \"northing easting\". Prints \"lat lon\" in decimal degrees, west and south "
        "negative.\n"
        "Forward of inverse is the grid position to 0.1 mm. The Norwegian axes overlap, so --subtype must name the "
        "axis;\n"
        "their forward form ends as soon as one coordinate is within 1 cm, and so comes back to within 8 cm.\n"
        "A line outside the grid gives \"nan nan\" and is named on stderr; the exit code is then 1.\n\n"
        "Example:\n  echo 500000 5761038.2131 | quillon grid inverse --type 0 --zone 31");
    inverse.callback([&context, inverseChoice] { PrintGeographic(context, *inverseChoice); });
}

void AddGsbCommand(CLI::App& app, CliContext& context) {
    CLI::App& gsb = *app.add_subcommand("gsb", "Header and nodes of an NTv2 grid-shift file");
    struct GsbOptions {
        std::string path;
        bool headerOnly = false;
    };
    auto options = std::make_shared<GsbOptions>();
    gsb.add_option("file", options->path, "The .gsb file")->required();
    gsb.add_flag("--header", options->headerOnly, "Without the nodes");
    gsb.footer("Example:\n  quillon gsb --header OSTN15_NTv2_ETRStoOSGB.gsb");
    gsb.callback([&context, options] { PrintGsbFile(context, options->path, options->headerOnly); });
}

}  // namespace

void AddGeodesyCommands(CLI::App& app, CliContext& context) {
    AddEllipsoidCommands(app, context);
    AddGridCommands(app, context);
    AddGsbCommand(app, context);
}

}  // namespace quillon
