#pragma once

#include <functional>
#include <string_view>

#include "background/load_progress.h"
#include "cli_context.h"

namespace quillon {

/// Runs the work of a load and returns what it does. On a terminal a line tells how far it has got, as "Reading a.xyz
/// 45 %", and goes when it is done.
bool RunWithProgress(CliContext& context, std::string_view what, LoadProgress& progress,
                     const std::function<bool()>& work);

}  // namespace quillon
