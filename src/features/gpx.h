#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/values.h"
#include "platform/array_stamp.h"
#include "platform/file.h"
#include "platform/palette.h"

namespace quillon {

/// A point of a track with the leg to the next one. What a file doesn't say is 0.
struct GpxPoint {
    double longitude = 0.0;      ///< radians, WGS 84
    double latitude = 0.0;       ///< radians
    double time = 0.0;           ///< seconds since 00:00 on 2 January 2000, UTC; 0 without a time
    double legDistance = 0.0;    ///< metres, to the next point
    double legBearing = 0.0;     ///< degrees from true north, 0 to 360
    double elevation = 0.0;      ///< metres; kept and not shown
    double legSpeed = 0.0;       ///< metres per second
    double totalDistance = 0.0;  ///< metres from the start
    double totalTime = 0.0;      ///< seconds from the start
    double averageSpeed = 0.0;   ///< metres per second since the start
};

/// A track, or a route, which has no times.
struct GpxTrack {
    std::string name;
    bool show = true;
    std::vector<GpxPoint> points;
    std::vector<std::uint32_t> segments;  ///< where each segment begins; legs lead over the gaps, the chart leaves them
};

struct GpxWaypoint {
    std::string name;
    bool show = true;
    double longitude = 0.0;  ///< radians, WGS 84
    double latitude = 0.0;
    double time = 0.0;       ///< as that of a point
    double elevation = 0.0;  ///< metres
};

/// What the reader made of a file.
struct GpxReport {
    bool opened = false;
    std::string fault;            ///< why there is nothing, or why the rest of the file is missing; for people
    std::size_t passedOver = 0;   ///< points without a position on this earth
    std::size_t firstPassed = 0;  ///< the line of the first of them, from 1
    std::size_t badTimes = 0;     ///< times that couldn't be read; their points have none
};

/// The tracks and waypoints of one GPX file, and which of them the chart shows. Two files keep the choices: "GPX DATA"
/// of the settings, and one beside the GPX file.
class CGPX {
public:
    explicit CGPX(FileSystem& fileSystem) : files(fileSystem) {}

    /// Reads the file and its show file. False, with nothing in it, if it can't be read or is no GPX file; a file that
    /// breaks off gives what stands before the break.
    bool Load(std::string_view path);
    /// The file that the settings name, at a start.
    void ReadSettings();
    /// No file.
    void Clear();

    void WriteSettings() const;
    void ReadShowFile();
    void WriteShowFile() const;

    bool AreAllShown() const;
    const GpxReport& GetReport() const { return report; }
    /// Another number for each other content of tracks and waypoints.
    std::uint64_t GetStamp() const { return stamp.Get(); }
    FileSystem& GetFiles() const { return files; }

    bool showWaypoints = true;
    std::vector<GpxWaypoint> waypoints;
    std::vector<GpxTrack> tracks;
    std::string path;
    COLORREF trackColour = RGB(255, 0, 0);
    bool showDots = false;

private:
    FileSystem& files;
    GpxReport report;
    ArrayStamp stamp;
};

/// Fills the leg values of a track from positions and times: geodesics on WGS 84.
void ComputeLegs(GpxTrack& track);

}  // namespace quillon
