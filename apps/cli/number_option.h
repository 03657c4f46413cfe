#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace quillon {

/// An option with a number in plain decimal notation, the same under every locale. `target` outlives the parsing.
CLI::Option& AddNumberOption(CLI::App& command, const std::string& name, double& target,
                             const std::string& description);

}  // namespace quillon
