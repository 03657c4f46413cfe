#pragma once

#include <CLI/CLI.hpp>

#include "cli_context.h"

namespace quillon {

void AddShowDxf(CLI::App& show, CliContext& context);
void AddShowDig(CLI::App& show, CliContext& context);

/// The command `dxf`: what is made of drawings.
void AddDxfCommands(CLI::App& app, CliContext& context);

}  // namespace quillon
