#include "geodesy_commands.h"

#include <cmath>
#include <cstdint>
#include <memory>
#include <ostream>
#include <span>
#include <string>

#include "foundation/angle_units.h"
#include "geodesy/ellipsoid.h"
#include "geodesy/grid.h"
#include "geodesy/gsb_file.h"
#include "geodesy_listing.h"
#include "number_lines.h"
#include "platform/text.h"

namespace quillon {

namespace {

constexpr int kDecimals = 4;
constexpr double kHalfUnit = 0.00005;

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

void PrintDistances(CliContext& context, std::int32_t index) {
    CEllipsoid ellipsoid;
    ChooseEllipsoid(ellipsoid, index);
    std::string text;
    NumberLines lines(context.in, context.err, 4, &ArePositions);
    lines.Run([&](std::span<const std::span<double>> columns) {
        for (const std::span<double> column : columns) ToRadians(column);
        ellipsoid.DistanceAll(columns[0], columns[1], columns[2], columns[3], columns[0]);
        text.clear();
        for (const double metres : columns[0]) {
            AppendMetres(text, metres);
            text += '\n';
        }
        context.out << text;
    });
}

void PrintPositions(CliContext& context, const GridChoice& choice) {
    CEllipsoid ellipsoid;
    CGrid grid;
    ChooseGrid(grid, ellipsoid, choice);
    std::string text;
    NumberLines lines(context.in, context.err, 2, &IsPosition);
    lines.Run([&](std::span<const std::span<double>> columns) {
        for (const std::span<double> column : columns) ToRadians(column);
        grid.ForwardAll(columns[0], columns[1], columns[0], columns[1]);
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

void PrintGridInfo(CliContext& context, const GridChoice& choice) {
    CEllipsoid ellipsoid;
    CGrid grid;
    ChooseGrid(grid, ellipsoid, choice);
    context.out << GridInfo(grid);
}

void PrintGsb(CliContext& context, const std::string& path, bool headerOnly) {
    CStdioFile file(context.Files());
    if (!file.OpenForReading(TextFromUtf8(path), FILE_MODE::BINARY)) return context.Fail(path, "can't be read");
    const std::shared_ptr<const GsbFile> gsb = ReadGsb(file);
    if (!gsb || gsb->header.Keyword(NUM_OREC) != kGsbRecords[NUM_OREC].keyword) {
        return context.Fail(path, "isn't a little-endian NTv2 file, or is cut short");
    }
    if (gsb->header.Integer(NUM_FILE) > 1) {
        context.err << path << ": holds " << gsb->header.Integer(NUM_FILE) << " sub-grids; the first one is read\n";
    }
    context.out << GsbText(*gsb, !headerOnly);
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
        "Reads \"lat lon\" in decimal degrees, west and south negative, and prints \"easting northing\".\n"
        "A line that is no position gives \"nan nan\" and is named on stderr.\n\n"
        "Example:\n  echo 52 3 | quillon grid forward --type 0 --zone 31");
    forward.callback([&context, forwardChoice] { PrintPositions(context, *forwardChoice); });
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
    gsb.callback([&context, options] { PrintGsb(context, options->path, options->headerOnly); });
}

}  // namespace

void AddGeodesyCommands(CLI::App& app, CliContext& context) {
    AddEllipsoidCommands(app, context);
    AddGridCommands(app, context);
    AddGsbCommand(app, context);
}

}  // namespace quillon
