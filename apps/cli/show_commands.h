#pragma once

#include <CLI/CLI.hpp>

#include "cli_context.h"

namespace quillon {

/// The command `show` with one command for each kind of feature file. Nothing is written.
void AddShowCommands(CLI::App& app, CliContext& context);

}  // namespace quillon
