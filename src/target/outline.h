#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "background/dxf.h"
#include "features/grid_waypoint.h"
#include "features/sail_line.h"
#include "foundation/config_file.h"
#include "geodesy/job_geodesy.h"
#include "platform/array_stamp.h"
#include "target/offset_point.h"
#include "target/outline_file.h"
#include "target/section_file.h"
#include "target/target_display.h"

namespace quillon {

/// The classes of points that can be brought to the target, in the order of their numbers.
enum TRACK_TYPE : std::int32_t {
    TRACK_REFERENCE,  ///< the reference point itself
    TRACK_ANTENNA,
    TRACK_OFFSET,
    TRACK_LEG,
    TRACK_CRANE,
    TRACK_TRANSDUCER,
    TRACK_REF_SYSTEM,
    TRACK_CLUMP_WEIGHT,
    TRACK_REFLECTOR,
    TRACK_BEACON
};
inline constexpr std::array<std::string_view, 10> kTrackTypeNames = {
    "Common Reference Point", "Antenna",   "Offset", "Leg", "Crane", "Transducer", "Ref System",
    "Clump Weight",           "Reflector", "Beacon"};

/// What the settings file of a vessel or template holds in plain lines ahead of its sections. Metres, degrees.
struct OutlineSettings {
    bool active = true;
    std::int32_t primaryGps = 0;  ///< place of the primary antenna
    std::int32_t primaryMru = 0;
    std::int32_t trackType = TRACK_REFERENCE;
    std::int32_t trackIndex = 0;  ///< place in the array of that class
    std::int32_t trackSymbolSize = 2;
    std::int32_t waypointFileIndex = 0;
    std::int32_t waypointIndex = 0;
    COLORREF waypointColour = RGB(255, 0, 0);
    bool enableTrail = false;
    bool showTrail = false;
    COLORREF trailColour = RGB(128, 128, 128);
    std::int32_t maxTrailSize = 1000;
    bool show = true;
    std::string outlineFile;
    tagPen outlinePen{.style = 0, .thickness = 1, .colour = RGB(255, 128, 0), .fill = 65534};
    tagPen shadowPen{.style = 0, .thickness = 1, .colour = RGB(128, 128, 128), .fill = 65534};
    double lengthA = 0.0;  ///< extent of the outline from its reference point: ahead, astern, port, starboard
    double lengthB = 0.0;
    double widthA = 0.0;
    double widthB = 0.0;
    double trueAlignment = 0.0;
};

/// What the file holds behind the first two sections.
struct OutlineTolerances {
    double headingTolerance = 5.0;  ///< plus or minus; degrees
    double pitchTolerance = 2.0;
    double rollTolerance = 2.0;
    double depthTolerance = 1.0;  ///< metres
    std::int32_t sailLineFileIndex = 0;
    std::int32_t sailLineIndex = 0;
    COLORREF sailLineColour = RGB(255, 255, 0);
};

/// What a vessel and a seabed template have in common: an outline that is brought to a target, which is a waypoint with
/// tolerances round it or a sail line.
///
/// The lists of files are the host's; it sets them before it loads the object, and they outlive it. After the true
/// alignment or the convergence has changed, call UpdateAlignment, UpdateBox and TrackedPosition in this order.
class COutline : public OutlineSettings, public OutlineTolerances {
public:
    explicit COutline(FileSystem& fileSystem) : dxf(fileSystem), files(fileSystem) {}
    virtual ~COutline() = default;

    /// Empty for a number outside the table.
    std::string_view TrackTypeName() const;
    /// The points of a class; null for one that this object doesn't have.
    virtual const OffsetPoints* OffsetsOf(std::int32_t type) const;
    /// How many points a class has; 0 for one that this object doesn't have.
    int OffsetCount(std::int32_t type) const;
    /// Null if class or place is out of range.
    const OffsetPoint* OffsetAt(std::int32_t type, std::int32_t index) const;
    /// The classes that can be chosen, in their order.
    virtual std::vector<std::int32_t> OfferedTrackTypes() const = 0;

    /// Where the reference point must come to so that the tracked point stands on the waypoint; kept in
    /// `trackedPosition`.
    tagXY TrackedPosition();
    /// The name of the tracked point, "n/a" if there is none.
    std::string TrackedName() const;

    /// Takes a copy of a waypoint, with the convergence there. A negative index keeps the one held; one past the end
    /// takes the last.
    void SetWaypoint(int fileIndex, int index);
    /// The same of a sail line.
    void SetSailLine(int fileIndex, int lineIndex);
    /// No target, also not at the next start: the index of the file becomes -1.
    void ClearWaypoint();
    void ClearSailLine();
    /// The name of the list's file; empty if there is none.
    std::string WaypointFileName() const;
    std::string SailLineFileName() const;

    /// From the true alignment and the convergence. A true alignment outside 0 to 360 leaves the object without one:
    /// sine and cosine become 0.
    void UpdateAlignment();
    /// The convergence of the job's grid at the waypoint; 0 where there is none. Nothing without a geodesy. Call
    /// UpdateAlignment after it.
    void UpdateConvergence();
    /// Why the convergence is none; empty where it is the grid's, or its owner's.
    std::string_view ConvergenceNote() const;
    /// The corners of the tolerance box, in whole metres from the waypoint.
    void UpdateBox();
    /// The zone lines: the grid alignment less and plus the heading tolerance.
    void UpdateZones();

    /// Reads the file `name` of the vessels' folder, its outline and its drawing, and settles what hangs on them. A
    /// line that is missing keeps its default; false if there is no file.
    bool Load(std::string_view settingsName);
    /// Reads the settings alone, from any file of the kind. False if it can't be read.
    bool ReadSettings(std::string_view path);
    /// Reads the outline file anew, a text or a drawing. False if it can't be read; nothing to read is no fault.
    bool LoadOutline(ReadReport* report = nullptr);
    /// Metres to a unit of the drawing.
    double DrawingScale() const;
    /// Takes the lengths and widths from the outline; they stay where it has no points.
    void TakeExtent();
    /// The settings alone, from an opened file, without outline and drawing.
    void ReadFrom(SectionFile& file);
    /// Skipped if the file can't be written; false then.
    bool Save() const;
    /// The full path of the settings file.
    std::string SettingsPath() const;
    virtual std::string_view Extension() const = 0;

    FileSystem& GetFiles() const { return files; }

    std::string name;  ///< of the settings file, without folder and extension
    std::vector<OutlinePoint> points;
    ArrayStamp outlineStamp;  ///< of the points and the drawing
    tagXY trackedPosition;
    double gridAlignment = 0.0;  ///< true alignment less convergence, 0 to 360
    double convergence = 0.0;    ///< of the grid at the target; degrees
    double sinAlign = 0.0;       ///< of the grid alignment
    double cosAlign = 1.0;
    CDxf dxf;
    TargetDisplay target;
    OffsetPoints antennas;
    OffsetPoints offsets;

    const CJobGeodesy* geodesy = nullptr;  ///< of the job; null where the owner sets the convergence by itself
    CGridWaypointList* waypointFiles = nullptr;
    bool waypointValid = false;  ///< the target has a position
    GridWaypointDef waypoint;
    CSailLineList* sailLineFiles = nullptr;
    bool sailLineValid = false;  ///< its ends differ
    SailLineDef sailLine;

protected:
    // The lines of the kind, ahead of the common ones and behind them. Reader and writer run through one list each.
    virtual void ReadHead(CConfigFile&) {}
    virtual void WriteHead(CConfigFile&) const {}
    virtual void ReadSections(SectionFile& file) = 0;
    virtual void WriteSections(CConfigFile& file) const = 0;

private:
    bool LoadDrawing();
    void TakeWaypoint(int fileIndex, int index);
    std::optional<double> GridConvergence() const;

    FileSystem& files;
};

/// A point of the object's outline, or of its drawing, on the grid: the object stands at `position`.
tagXY PlaceOnGrid(const COutline& outline, tagXY position, tagXY point);

}  // namespace quillon
