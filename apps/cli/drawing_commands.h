#pragma once

#include <CLI/CLI.hpp>

#include "cli_context.h"

namespace quillon {

/// The kinds of drawing files of the command `show`.
void AddDrawingKinds(CLI::App& show, CliContext& context);

}  // namespace quillon
