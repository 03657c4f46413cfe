#pragma once

#include <CLI/CLI.hpp>

#include "cli_context.h"

namespace quillon {

/// The commands `ellipsoid`, `grid` and `gsb`.
void AddGeodesyCommands(CLI::App& app, CliContext& context);

}  // namespace quillon
