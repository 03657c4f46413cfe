#pragma once

#include <optional>
#include <string>

#include "host/job.h"
#include "scene/path_lod.h"

namespace quillon {

/// Where a place lies beside a line that has KPs.
struct LinePlace {
    double kp = 0.0;      ///< kilometres, of the nearest place on the line
    double offset = 0.0;  ///< metres; to starboard positive, as seen along the points of the line
    tagXY at;             ///< the nearest place on the line
};

/// The line whose KPs the operator works with: the pipeline that the pipelines' edit cursor names, else the active pipe
/// route. A file without a point; NONE if there is neither.
JobPoint ChosenLine(const JobRecord& job);

/// Nothing for a file without lines or KPs. `path` is the path through its points.
std::optional<LinePlace> PlaceBesideLine(const JobRecord& job, const JobPoint& line, const PathLod& path, tagXY place);

/// "1234.56m  123.4° grid"
std::string MeasureText(tagXY from, tagXY to);
/// "KP 12.345, 23.4 m to starboard"
std::string LinePlaceText(const LinePlace& place);

}  // namespace quillon
