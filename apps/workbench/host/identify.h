#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "host/job.h"
#include "host/scene_builder.h"

namespace quillon {

/// One thing that lies at a place of the chart.
struct Identified {
    JobPoint what;     ///< the point -1 for a file as such; NONE for a background that has only a text
    std::string text;  ///< "Waypoint Wrecks: Wreck 7"
    friend bool operator==(const Identified&, const Identified&) = default;
};

/// "Waypoint Wrecks", by the kind and the name of a file.
std::string FileText(const JobRecord& job, KIND kind, int file);
/// "Wreck 7", or the place in the file of a point without a name: "point 3".
std::string PointText(const JobRecord& job, const JobPoint& point);
/// "KP 12.345"; kilometres.
std::string KpPlaceText(double kp);

/// The KP of a place on the lines of a file, between the points that it lies between; MISSING_VALUE for kinds without
/// KPs.
double KpAt(const JobRecord& job, KIND kind, int file, const PathHit& place);

/// All that was hit, in its order, each thing once.
std::vector<Identified> Identify(const SceneBuilder& scenes, std::span<const ChartHit> hits);

/// Goes through what lies at a place, one thing a click.
class ClickRound {
public:
    /// What this click means: behind the thing of the last one where it came at the same place, else the first. Nothing
    /// where nothing lies.
    std::optional<Identified> Next(PixelPoint at, const ChartView& view, const std::vector<Identified>& there);

private:
    tagXY place;
    std::vector<Identified> last;
    std::size_t next = 0;
};

}  // namespace quillon
