#pragma once

#include <CLI/CLI.hpp>

#include "cli_context.h"

namespace quillon {

/// The command `angle`.
void AddAngleCommand(CLI::App& app, CliContext& context);

}  // namespace quillon
