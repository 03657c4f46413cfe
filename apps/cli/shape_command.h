#pragma once

#include <CLI/CLI.hpp>

#include "cli_context.h"

namespace quillon {

/// `show shape`: what is made of a shape file and of the files beside it.
void AddShowShape(CLI::App& show, CliContext& context);

}  // namespace quillon
