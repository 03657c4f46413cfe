#include "quillon_app.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <exception>
#include <ostream>

#include "angle_command.h"
#include "dtm_commands.h"
#include "geodesy_commands.h"
#include "route_commands.h"
#include "show_commands.h"
#include "thin_command.h"

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
        "  echo 52 3 | quillon grid forward --type 0 --zone 31\n"
        "  quillon show --help");
    AddShowCommands(app, context);
    AddRouteCommands(app, context);
    AddDtmCommands(app, context);
    AddThinCommand(app, context);
    AddAngleCommand(app, context);
    AddGeodesyCommands(app, context);
}

}  // namespace

int RunQuillon(std::vector<std::string> arguments, CliContext& context) {
    CLI::App app("Quillon: reference data of an offshore positioning and navigation system", "quillon");
    AddCommands(app, context);
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
