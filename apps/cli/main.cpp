#include <CLI/CLI.hpp>
#include <iostream>

#include "angle_command.h"
#include "cli_context.h"
#include "geodesy_commands.h"

int main(int argc, char** argv) {
    using namespace quillon;
    std::ios::sync_with_stdio(false);
    CliContext context(std::cin, std::cout, std::cerr);

    CLI::App app("Quillon: reference data of an offshore positioning and navigation system", "quillon");
    app.set_version_flag("--version", "quillon " QUILLON_VERSION);
    app.add_option("--drives", context.drives, "Folder that holds the drives c, d and e")->type_name("DIR");
    app.require_subcommand(1);
    app.fallthrough();
    app.footer("Examples:\n  quillon show boundary area.csv\n  quillon show --help");
    AddAngleCommand(app, context);
    AddGeodesyCommands(app, context);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        // The library numbers its errors; callers of this program know two kinds.
        return app.exit(error, std::cout, std::cerr) == 0 ? CLI_OK : CLI_USAGE;
    }
    std::cout.flush();
    return context.result;
}
