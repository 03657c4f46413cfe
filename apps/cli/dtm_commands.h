#pragma once

#include <CLI/CLI.hpp>

#include "cli_context.h"

namespace quillon {

/// The command `show dtm`. Nothing is written.
void AddShowDtm(CLI::App& show, CliContext& context);

/// The command `dtm` with `make` and `regular`.
void AddDtmCommands(CLI::App& app, CliContext& context);

}  // namespace quillon
