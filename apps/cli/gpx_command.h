#pragma once

#include <CLI/CLI.hpp>

#include "cli_context.h"

namespace quillon {

/// `show gpx`: tracks with their legs, and waypoints.
void AddShowGpx(CLI::App& show, CliContext& context);

}  // namespace quillon
