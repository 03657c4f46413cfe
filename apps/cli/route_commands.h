#pragma once

#include <CLI/CLI.hpp>

#include "cli_context.h"

namespace quillon {

/// The command `route` with `rewrite`.
void AddRouteCommands(CLI::App& app, CliContext& context);

}  // namespace quillon
