#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "background/load_progress.h"
#include "geodesy/ellipsoid.h"

namespace quillon {

/// Geodesic lengths of many paths on WGS 84, in metres. The vertices of several paths go through one block, so that
/// short ones cost no more a vertex than long ones.
///
///     PathLengths lengths(progress);
///     for (...) lengths.Add(record.X(), record.Y(), record.length);
///     lengths.Finish();
class PathLengths {
public:
    /// Once the load is cancelled, lengths come out too short.
    explicit PathLengths(const LoadProgress& progress);

    /// Vertices as longitude `x` and latitude `y` in degrees, whatever they are: projected ones give a figure without
    /// a meaning. Stores the sum of the legs in their order into `length`, by Finish at the latest.
    void Add(std::span<const double> x, std::span<const double> y, double& length);
    void Finish() { WorkOut(); }

private:
    static constexpr std::size_t kVertices = 4096;

    struct Stretch {
        double* length;
        std::size_t first;
        std::size_t legs;
    };

    void WorkOut();

    const LoadProgress& progress;
    CEllipsoid ellipsoid;
    std::vector<double> lats, lons, legs;
    std::vector<Stretch> stretches;
};

}  // namespace quillon
