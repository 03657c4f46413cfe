#pragma once

#include <limits>
#include <optional>
#include <string>

#include "features/boundary.h"
#include "features/grid_waypoint.h"
#include "features/pipeline.h"
#include "features/route.h"
#include "features/rpl.h"
#include "features/sail_line.h"
#include "platform/text.h"

namespace quillon {

/// What the command line says in place of the settings.
struct LoadOptions {
    std::string file;  ///< UTF-8
    bool json = false;
    std::optional<int> order;
    double port = std::numeric_limits<double>::quiet_NaN();
    double starboard = std::numeric_limits<double>::quiet_NaN();
    double startKp = std::numeric_limits<double>::quiet_NaN();
    double interval = std::numeric_limits<double>::quiet_NaN();
    bool decreasing = false;
    bool labelKps = false;

    std::string Path() const { return TextFromUtf8(file); }
};

// Reads a file as the job would, with its stored settings but for what the options say. False if nothing of use is in
// it.

bool Load(CBoundary& boundary, const LoadOptions& options);
bool Load(CGridWaypoint& waypoints, const LoadOptions& options);
bool Load(CPipeline& pipeline, const LoadOptions& options);
bool Load(CRoute& route, const LoadOptions& options);
bool Load(CSailLine& lines, const LoadOptions& options);
bool Load(CRPL& rpl, const LoadOptions& options);

}  // namespace quillon
