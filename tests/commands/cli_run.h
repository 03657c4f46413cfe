#pragma once

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "quillon_app.h"
#include "support/scratch_drives.h"

namespace quillon {

struct CliOutcome {
    int code = 0;
    std::string out;
    std::string err;
};

/// Runs the program in this process on the scratch drives.
inline CliOutcome RunOn(const ScratchDrives& drives, std::vector<std::string> arguments,
                        const std::string& input = {}) {
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    CliContext context(in, out, err);
    arguments.insert(arguments.end(), {"--drives", drives.Root().string()});
    const int code = RunQuillon(std::move(arguments), context);
    return {code, out.str(), err.str()};
}

}  // namespace quillon
