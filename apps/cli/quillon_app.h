#pragma once

#include <string>
#include <vector>

#include "cli_context.h"

namespace quillon {

/// Runs the program with its arguments, without its name. The result is the exit code.
int RunQuillon(std::vector<std::string> arguments, CliContext& context);

}  // namespace quillon
