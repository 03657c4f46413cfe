#include "host/graticule.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "foundation/angle_units.h"
#include "platform/text.h"

namespace quillon {
namespace {

/// Pixels between two lines: their labels take some 80.
constexpr double kLeastPixels = 130.0;
constexpr double kMetresPerSecond = 30.9;  // of latitude
constexpr int kSecondsPerDegree = 3600;
/// Places at which the view is asked for its latitudes and longitudes, along each side.
constexpr int kSamples = 9;
/// Points of a line: a chord of a twentieth of the view strays from the line by far less than a pixel at sea scales.
constexpr int kLinePoints = 41;
/// More would be drawn only near a pole, where meridians crowd.
constexpr long long kMostLines = 60;

/// Latitudes and longitudes of a part of the grid, seconds of arc; longitudes in one turn.
struct ArcBox {
    double south = 0, north = 0, west = 0, east = 0;
    bool isEmpty = true;
};

ArcBox ArcsOf(const CJobGeodesy& geodesy, const ChartBox& box) {
    constexpr std::size_t kCount = std::size_t{kSamples} * kSamples;
    std::array<double, kCount> x{}, y{}, latitudes{}, longitudes{};
    for (std::size_t i = 0; i < kCount; ++i) {
        x[i] = box.minX + box.Width() * static_cast<double>(i % kSamples) / (kSamples - 1);
        y[i] = box.minY + box.Height() * static_cast<double>(i / kSamples) / (kSamples - 1);
    }
    geodesy.ToGeographic(latitudes, longitudes, x, y);
    ArcBox arcs;
    double turn = 0;
    for (std::size_t i = 0; i < kCount; ++i) {
        if (!std::isfinite(latitudes[i])) continue;
        // All within half a turn of the first, so that the 180th meridian parts nothing.
        if (arcs.isEmpty) turn = longitudes[i];
        const double latitude = latitudes[i] * kSecondsPerDegree;
        const double longitude = (turn + std::remainder(longitudes[i] - turn, 360.0)) * kSecondsPerDegree;
        if (std::exchange(arcs.isEmpty, false)) arcs = {latitude, latitude, longitude, longitude, false};
        arcs.south = std::min(arcs.south, latitude);
        arcs.north = std::max(arcs.north, latitude);
        arcs.west = std::min(arcs.west, longitude);
        arcs.east = std::max(arcs.east, longitude);
    }
    return arcs;
}

/// The line through the given places, seconds of arc.
std::vector<std::vector<tagXY>> RunsOf(const CJobGeodesy& geodesy, tagXY from, tagXY to) {
    std::array<double, kLinePoints> latitudes{}, longitudes{}, x{}, y{};
    for (std::size_t i = 0; i < kLinePoints; ++i) {
        const double share = static_cast<double>(i) / (kLinePoints - 1);
        longitudes[i] = (from.x + (to.x - from.x) * share) / kSecondsPerDegree;
        latitudes[i] = (from.y + (to.y - from.y) * share) / kSecondsPerDegree;
    }
    geodesy.FromGeographic(x, y, latitudes, longitudes);
    std::vector<std::vector<tagXY>> runs;
    bool isBroken = true;
    for (std::size_t i = 0; i < kLinePoints; ++i) {
        if (!std::isfinite(x[i])) {
            isBroken = true;
            continue;
        }
        if (std::exchange(isBroken, false)) runs.emplace_back();
        runs.back().push_back({x[i], y[i]});
    }
    return runs;
}

/// The first whole multiple of the step and the last, as counts of it.
std::pair<long long, long long> Multiples(double from, double to, int step) {
    return {static_cast<long long>(std::ceil(from / step)), static_cast<long long>(std::floor(to / step))};
}

}  // namespace

int RoundArcSeconds(double least) {
    constexpr std::array<int, 21> kSteps = {1,    2,    5,    10,    15,    30,    60,    120,    300,    600,   900,
                                            1800, 3600, 7200, 18000, 36000, 54000, 72000, 108000, 162000, 324000};
    for (const int step : kSteps) {
        if (step >= least) return step;
    }
    return kSteps.back();
}

std::string ArcLabel(long long seconds, int step, char positive, char negative) {
    // A longitude beyond half a turn goes by its other name.
    constexpr long long kTurn = 360LL * kSecondsPerDegree;
    seconds = ((seconds % kTurn) + kTurn) % kTurn;
    if (seconds > kTurn / 2) seconds -= kTurn;
    const long long size = std::llabs(seconds);
    std::string text = Format("%d\xC2\xB0", static_cast<int>(size / kSecondsPerDegree));
    if (step % kSecondsPerDegree != 0) text += Format("%02d'", static_cast<int>(size / 60 % 60));
    if (step % 60 != 0) text += Format("%02d\"", static_cast<int>(size % 60));
    if (size != 0 && size != kTurn / 2) text += seconds > 0 ? positive : negative;
    return text;
}

ChartGraticule GraticuleOf(const CJobGeodesy& geodesy, const ChartBox& box, double metresPerPixel) {
    ChartGraticule graticule;
    if (!geodesy.IsChosen() || box.IsEmpty()) return graticule;
    const ArcBox arcs = ArcsOf(geodesy, box);
    if (arcs.isEmpty) return graticule;
    const double least = kLeastPixels * metresPerPixel / kMetresPerSecond;
    const double middle = 0.5 * (arcs.south + arcs.north) / kSecondsPerDegree * kRadiansPerDegree;
    const int latitudeStep = RoundArcSeconds(least);
    const int longitudeStep = RoundArcSeconds(least / std::max(0.02, std::cos(middle)));
    const double latitudeRoom = 0.1 * (arcs.north - arcs.south), longitudeRoom = 0.1 * (arcs.east - arcs.west);
    const ArcBox reach = {arcs.south - latitudeRoom, arcs.north + latitudeRoom, arcs.west - longitudeRoom,
                          arcs.east + longitudeRoom, false};
    const auto add = [&](bool isMeridian, const std::string& label, tagXY from, tagXY to) {
        graticule.lines.push_back({isMeridian, label, RunsOf(geodesy, from, to)});
    };
    const auto [firstRow, lastRow] = Multiples(reach.south, reach.north, latitudeStep);
    for (long long row = firstRow; row <= std::min(lastRow, firstRow + kMostLines); ++row) {
        const auto at = static_cast<double>(row * latitudeStep);
        if (std::fabs(at) > 90.0 * kSecondsPerDegree) continue;
        add(false, ArcLabel(row * latitudeStep, latitudeStep, 'N', 'S'), {reach.west, at}, {reach.east, at});
    }
    const auto [firstColumn, lastColumn] = Multiples(reach.west, reach.east, longitudeStep);
    for (long long column = firstColumn; column <= std::min(lastColumn, firstColumn + kMostLines); ++column) {
        const auto at = static_cast<double>(column * longitudeStep);
        add(true, ArcLabel(column * longitudeStep, longitudeStep, 'E', 'W'), {at, reach.south}, {at, reach.north});
    }
    return graticule;
}

}  // namespace quillon
