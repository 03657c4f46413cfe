#pragma once

namespace CLI {
class App;
}

namespace quillon {

class CliContext;

/// Adds `vessel` and `template` to the `show` commands.
void AddShowVessels(CLI::App& show, CliContext& context);

}  // namespace quillon
