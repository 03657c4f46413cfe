#include "quillon_app.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <ostream>
#include <string>
#include <vector>

#include "angle_command.h"
#include "drawing_commands.h"
#include "dtm_commands.h"
#include "geodesy_commands.h"
#include "list_command.h"
#include "route_commands.h"
#include "show_commands.h"
#include "thin_command.h"
#include "wind_farm_command.h"

namespace quillon {
namespace {

void AddCommands(CLI::App& app, CliContext& context) {
    app.set_version_flag("--version", "quillon " QUILLON_VERSION);
    app.add_option("--drives", context.drives, "Folder that holds the drives c, d and e")->type_name("DIR");
    app.require_subcommand(1);
    app.fallthrough();
    app.footer(
        "Exit codes: 0 done, 1 a file can't be read or is of no use, 2 wrong usage.\n\n"
        "Examples:\n"
        "  quillon show boundary area.csv\n"
        "  quillon show pipeline export.csv --label-kps --interval 0.5 --json\n"
        "  quillon route rewrite transit.csv --order 1\n"
        "  quillon dtm make block-4.xyz\n"
        "  quillon dxf to-dig platform.dxf\n"
        "  echo 52 3 | quillon grid forward --type 0 --zone 31\n"
        "  quillon show --help");
    AddShowCommands(app, context);
    AddRouteCommands(app, context);
    AddDtmCommands(app, context);
    AddDxfCommands(app, context);
    AddThinCommand(app, context);
    AddListCommand(app, context);
    AddWindFarmCommands(app, context);
    AddAngleCommand(app, context);
    AddGeodesyCommands(app, context);
}

/// What the library says, but where a command is wanted: which one was given, and which there are.
std::string FailureText(const CLI::App* app, const CLI::Error& error) {
    const CLI::App* at = app;
    while (!at->get_subcommands().empty()) at = at->get_subcommands().front();
    const auto offered = at->get_subcommands([](const CLI::App*) { return true; });
    std::string text = error.what();
    if (error.get_name() == "RequiredError" && !offered.empty()) {
        const std::vector<std::string> left = app->remaining(true);
        std::string name = at->get_name();
        for (const CLI::App* above = at->get_parent(); above; above = above->get_parent()) {
            name = above->get_name() + " " + name;
        }
        text = left.empty() ? name + " needs a command" : "'" + left.front() + "' is no command of " + name;
        for (std::size_t i = 0; i < offered.size(); ++i)
            text += (i == 0 ? "; there are " : ", ") + offered[i]->get_name();
    }
    return text + "\nRun with --help for more information.\n";
}

}  // namespace

int RunQuillon(std::vector<std::string> arguments, CliContext& context) {
    CLI::App app("Quillon: reference data of an offshore positioning and navigation system", "quillon");
    AddCommands(app, context);
    app.failure_message(FailureText);
    try {
        // The library takes them from the back.
        std::reverse(arguments.begin(), arguments.end());
        app.parse(std::move(arguments));
    } catch (const CLI::ParseError& error) {
        // The library numbers its errors; callers of this program know two kinds.
        return app.exit(error, context.out, context.err) == 0 ? CLI_OK : CLI_USAGE;
    } catch (const std::exception& error) {
        context.err << "quillon: " << error.what() << '\n';
        return CLI_USELESS;
    }
    context.out.flush();
    if (!context.out) {
        context.err << "quillon: the output can't be written\n";
        return CLI_USELESS;
    }
    return context.result;
}

}  // namespace quillon
