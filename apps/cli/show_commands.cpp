#include "show_commands.h"

#include <array>
#include <memory>
#include <ostream>
#include <string>

#include "drawing_commands.h"
#include "dtm_commands.h"
#include "feature_loading.h"
#include "feature_sheets.h"
#include "gpx_command.h"
#include "job/kinds.h"
#include "number_option.h"
#include "platform/text.h"
#include "shape_command.h"
#include "sheet.h"
#include "structure_command.h"
#include "vessel_command.h"

namespace quillon {
namespace {

/// A file without a usable point prints its report and nothing else.
template <class Feature>
void Show(CliContext& context, const LoadOptions& options) {
    Feature feature(context.Files());
    const bool taken = Load(feature, options);
    if (!feature.GetReport().opened) return context.Fail(options.file, "can't be read: " + feature.GetReport().fault);
    context.err << ReportText(options.file, feature.GetReport());
    if (!taken) return context.Fail(options.file, "no usable point");
    const std::unique_ptr<Sheet> sheet = options.json ? MakeJsonSheet(context.out) : MakeTextSheet(context.out);
    FillSheet(*sheet, feature);
}

// ---- Commands ----

/// A command with what all of them have. `orders` is how many data orders the kind knows; with one, there is no choice.
template <class Feature>
CLI::App& AddKind(CLI::App& show, CliContext& context, const std::shared_ptr<LoadOptions>& options,
                  const std::string& name, const std::string& description, int orders) {
    CLI::App& command = *show.add_subcommand(name, description);
    command.add_option("FILE", options->file, "The data file")->required()->type_name("");
    command.add_flag("--json", options->json, "As JSON, with bearings in radians");
    if (orders > 0) {
        command
            .add_option_function<int>(
                "--order", [options](int order) { options->order = order; },
                "Data order to read by, in place of the stored one")
            ->check(CLI::Range(0, orders - 1));
    }
    command.callback([&context, options] { Show<Feature>(context, *options); });
    return command;
}

void AddCorridorOptions(CLI::App& command, LoadOptions& options) {
    AddNumberOption(command, "--port", options.port, "Width of the corridor to port, metres");
    AddNumberOption(command, "--starboard", options.starboard, "Width of the corridor to starboard, metres");
}

void AddPipeline(CLI::App& show, CliContext& context) {
    const auto options = std::make_shared<LoadOptions>();
    CLI::App& command = AddKind<CPipeline>(show, context, options, "pipeline", "Points, KPs, KP labels and corridor",
                                           static_cast<int>(kPipelineOrderTxt.size()));
    AddCorridorOptions(command, *options);
    AddNumberOption(command, "--start-kp", options->startKp, "KP of the first point, kilometres; for data order 0");
    command.add_flag("--decreasing", options->decreasing, "KPs fall along the pipeline");
    command.add_flag("--label-kps", options->labelKps, "List the KP labels");
    AddNumberOption(command, "--interval", options->interval, "Kilometres between KP labels");
    command.footer(
        "Data orders: 0 Easting, Northing; 1 KP, Easting, Northing; 2 Easting, Northing, KP.\n\n"
        "Examples:\n"
        "  quillon show pipeline export.csv\n"
        "  quillon show pipeline export.csv --order 1 --json\n"
        "  quillon show pipeline export.csv --start-kp 12.5 --decreasing --label-kps --interval 0.5");
}

void AddRoute(CLI::App& show, CliContext& context) {
    const auto options = std::make_shared<LoadOptions>();
    CLI::App& command = AddKind<CRoute>(show, context, options, "route", "Points, legs and corridor of a route",
                                        static_cast<int>(kRouteOrderTxt.size()));
    AddCorridorOptions(command, *options);
    command.footer(
        "Data orders: 0 Easting, Northing; 1 Name, Easting, Northing; 2 Easting, Northing, Name.\n\n"
        "Examples:\n"
        "  quillon show route transit.csv\n"
        "  quillon show route transit.csv --order 1 --port 50 --starboard 75 --json");
}

void AddBoundary(CLI::App& show, CliContext& context) {
    AddKind<CBoundary>(show, context, std::make_shared<LoadOptions>(), "boundary",
                       "Points and drawing options of a boundary", 0)
        .footer("Examples:\n  quillon show boundary area.csv\n  quillon show boundary 'C:\\Jobs\\area.csv' --json");
}

void AddRpl(CLI::App& show, CliContext& context) {
    const auto options = std::make_shared<LoadOptions>();
    CLI::App& command =
        AddKind<CRPL>(show, context, options, "rpl", "Curves, KPs and corridor of a route position list", 0);
    AddCorridorOptions(command, *options);
    command.footer(
        "The first line tells the form: 3 fields easting, northing, radius; 2 fields tangent points; 5 fields an "
        "alignment\n"
        "listing. A file named .rlx holds rows of straights and arcs. A curve that can't be becomes a plain corner, "
        "and the\n"
        "report names its line.\n\n"
        "Examples:\n"
        "  quillon show rpl export-cable.csv\n"
        "  quillon show rpl export-cable.rlx --port 50 --starboard 75 --json");
}

std::string WaypointOrders() {
    std::string text = "Data orders:\n";
    for (std::size_t i = 0; i < kWaypointOrders.size(); ++i) {
        text += Format("  %zu ", i);
        text += kWaypointOrders[i].text;
        text += '\n';
    }
    return text;
}

void AddWaypoint(CLI::App& show, CliContext& context) {
    AddKind<CGridWaypoint>(show, context, std::make_shared<LoadOptions>(), "waypoint", "Points of a waypoint file",
                           static_cast<int>(kWaypointOrders.size()))
        .footer(WaypointOrders() +
                "\nExamples:\n  quillon show waypoint wrecks.csv\n  quillon show waypoint wrecks.csv --order 6 --json");
}

void AddSailLine(CLI::App& show, CliContext& context) {
    AddKind<CSailLine>(show, context, std::make_shared<LoadOptions>(), "sail-line", "Lines of a sail line file",
                       static_cast<int>(kSailLineOrderTxt.size()))
        .footer("Example:\n  quillon show sail-line block-4.csv --json");
}

/// The pipe route is a pipeline.
void AddNothing(CLI::App&, CliContext&) {}

struct ShownKind {
    KIND kind;
    void (*add)(CLI::App& show, CliContext& context);
};
constexpr std::array<ShownKind, kKindCount> kShownKinds = {{
    {KIND::BOUNDARY, AddBoundary},
    {KIND::WAYPOINT, AddWaypoint},
    {KIND::PIPELINE, AddPipeline},
    {KIND::ROUTE, AddRoute},
    {KIND::SAIL_LINE, AddSailLine},
    {KIND::PIPE_ROUTE, AddNothing},
    {KIND::RPL, AddRpl},
    {KIND::STRUCTURE, AddShowStructure},
    {KIND::DTM, AddShowDtm},
    {KIND::SHAPE, AddShowShape},
    {KIND::DIG, AddShowDig},
    {KIND::DXF, AddShowDxf},
}};
static_assert(HasEveryKind(kShownKinds), "every kind can be shown");

}  // namespace

void AddShowCommands(CLI::App& app, CliContext& context) {
    CLI::App& show = *app.add_subcommand("show", "What is made of a file, and which of its lines were passed over");
    show.require_subcommand(1);
    show.footer(
        "The report on the lines goes to standard error. Nothing is written to any file.\n\n"
        "Examples:\n"
        "  quillon show boundary area.csv\n"
        "  quillon show waypoint wrecks.csv --order 6 --json\n"
        "  quillon show pipeline --help");

    for (const ShownKind& kind : kShownKinds) kind.add(show, context);
    AddShowVessels(show, context);
    AddShowGpx(show, context);
}

}  // namespace quillon
