#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "host/area_label.h"
#include "host/job.h"
#include "scene/chart_hit.h"
#include "scene/chart_scene.h"

namespace quillon {

/// What is kept of the points of one feature from scene to scene, so that the chart works out anew only what has
/// changed. A copy: a scene outlives the features that it shows.
struct ScenePoints {
    std::shared_ptr<const std::vector<tagXY>> points;
    std::uint64_t generation = 0;  ///< no two sets of points share one
    bool areaLabelPlaced = false;
    std::optional<AreaLabel> areaLabel;
};

/// Turns the features of a job into what the chart draws: one layer a kind. What is hidden isn't in the scene.
class SceneBuilder {
public:
    explicit SceneBuilder(JobFeatures& job) : features(job) {}

    /// The features as they stand.
    ChartScene Build();

    /// Whether there was nothing to draw in the scene last built.
    bool IsEmpty() const { return recordOf.empty(); }

    /// The point of the job behind a hit in the scene last built; of a line between two points its nearer one.
    JobPoint PointOf(const ChartHit& hit) const;

    // For the functions of the kinds, while a scene is built.
    const JobFeatures& Features() const { return features; }
    ChartLayer& Layer() { return *layer; }
    /// The points known under a name within the layer.
    ScenePoints& Keep(const std::string& name, std::size_t count, const std::function<tagXY(std::size_t)>& point);
    /// An empty path over kept points.
    static ChartPath PathOver(const ScenePoints& kept);
    /// A path that shows the file with that index, with so many points a record.
    void AddPath(int file, ChartPath path, int pointsPerRecord = 1);
    /// A path below those that can be hit, such as a corridor. What is shown in all doesn't grow by it.
    void AddBackground(ChartPath path);

private:
    /// What of the job a path shows.
    struct Shown {
        int file;  ///< -1: nothing that could be chosen
        int pointsPerRecord;
    };
    using KeptPoints = std::map<std::pair<std::uint64_t, std::string>, ScenePoints>;

    JobFeatures& features;
    ChartLayer* layer = nullptr;
    KeptPoints kept;                                       // of this scene
    KeptPoints before;                                     // of the scene before, while this one is built
    std::map<std::uint64_t, std::vector<Shown>> recordOf;  // by layer, in the order of its paths
    std::uint64_t lastGeneration = 0;
};

}  // namespace quillon
