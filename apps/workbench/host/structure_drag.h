#pragma once

#include <array>
#include <optional>
#include <string>

#include "host/job.h"

namespace quillon {

/// The box round a structure's shape, turned as the structure is. Metres of the grid.
struct StructureFrame {
    tagXY position;
    double heading = 0.0;          ///< degrees
    std::array<tagXY, 4> corners;  ///< all at the position where there is no shape
    double ahead = 0.0;            ///< from the position to the side of the box that the heading points at; not below 0

    /// The place so many metres ahead of that side, where a handle turns the structure.
    tagXY Handle(double metresAhead) const;
};

/// Moving and turning one structure with the mouse: from the press to the release everything is worked out here, and
/// nothing of the job changes.
class StructureDrag {
public:
    explicit StructureDrag(const CStructureList& structures) : list(structures) {}

    /// Nothing for a structure that isn't there or whose file isn't displayed.
    std::optional<StructureFrame> FrameOf(const JobPoint& which) const;
    /// The structure under a place: of several the one with the smallest box. Places count as within a box, or at the
    /// position of a structure without a shape, so many metres round it. NONE if there is none.
    JobPoint At(tagXY place, double reach) const;

    /// Takes hold of a structure at a place. False if it isn't there.
    bool Begin(const JobPoint& which, tagXY at, bool turns);
    /// The mouse is there now; `coarse` turns by whole steps of 5 degrees.
    void MoveTo(tagXY at, bool coarse);
    void End() { grabbed.reset(); }

    bool IsActive() const { return grabbed.has_value(); }
    bool IsTurning() const { return turning; }
    const JobPoint& Which() const { return which; }
    /// Where the structure stood, and where it stands now: to the millimetre and the tenth of a degree, as its file
    /// keeps it.
    const StructureFrame& Before() const { return *grabbed; }
    tagXY Position() const { return position; }
    double Heading() const { return heading; }
    /// "E 503150.000  N 5843620.000  moved 12.34m  45.0° grid", or "Heading 45.0° grid".
    std::string Text() const;

private:
    const CStructureList& list;
    std::optional<StructureFrame> grabbed;
    JobPoint which;
    bool turning = false;
    tagXY grabbedAt;
    tagXY position;
    double heading = 0.0;
};

}  // namespace quillon
