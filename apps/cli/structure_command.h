#pragma once

namespace CLI {
class App;
}

namespace quillon {

class CliContext;

/// Adds `structure` to the `show` commands.
void AddShowStructure(CLI::App& show, CliContext& context);

}  // namespace quillon
