#pragma once

#include <CLI/CLI.hpp>

#include "cli_context.h"

namespace quillon {

/// `windfarm import` and `windfarm list`: the database of wind farms in the drives folder.
void AddWindFarmCommands(CLI::App& app, CliContext& context);

}  // namespace quillon
