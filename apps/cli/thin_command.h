#pragma once

#include <CLI/CLI.hpp>

#include "cli_context.h"

namespace quillon {

/// `thin`: a pipeline survey thinned to a tolerance.
void AddThinCommand(CLI::App& app, CliContext& context);

}  // namespace quillon
