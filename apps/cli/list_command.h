#pragma once

#include <CLI/CLI.hpp>

#include "cli_context.h"

namespace quillon {

/// `list`: the listing of a file as the window shows it, on the terminal or as files.
void AddListCommand(CLI::App& app, CliContext& context);

}  // namespace quillon
