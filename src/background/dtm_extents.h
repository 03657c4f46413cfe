#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>

#include "foundation/values.h"

namespace quillon {

/// The regular grid that a DTM's samples seem to lie on: its extents and its step, in metres, and how many steps there
/// are on each axis. It is worked out from the samples in their order: the step is the smallest change from one sample
/// to the next on either axis, and a count is worked out when a new extreme arrives, with the step as it is then.
struct DtmExtents {
    struct Axis {
        double minimum = MISSING_VALUE;
        double maximum = MISSING_VALUE;
        double previous = MISSING_VALUE;
        std::int64_t count = 0;  ///< columns or rows
        friend bool operator==(const Axis&, const Axis&) = default;
    };

    Axis easting;
    Axis northing;
    double step = 0.0;  ///< the same on both axes; 0 before the first change
    double minDepth = MISSING_VALUE;
    double maxDepth = MISSING_VALUE;

    /// True for a complete sample. One without a position leaves all as it was (without a northing, its easting
    /// counts); one without a depth counts for the grid alone.
    bool AddSample(double e, double n, double depth);

    friend bool operator==(const DtmExtents&, const DtmExtents&) = default;
};

/// Steps that a span is long, cut to a whole number, plus one. Held to what a product of two can be told of.
std::int64_t DtmCount(double span, double step);

/// One sample as its file has it.
struct DtmPlace {
    int slot = 0;
    std::size_t line = 0;  ///< from 1
    tagXY position;
    friend bool operator==(const DtmPlace&, const DtmPlace&) = default;
};

/// The two samples, one behind the other, that set the step.
struct DtmStepSource {
    DtmPlace before;
    DtmPlace behind;
    friend bool operator==(const DtmStepSource&, const DtmStepSource&) = default;
};

/// The area of one file's samples with a depth, as the cache keeps it; MISSING_VALUE where there is none.
struct DtmArea {
    double minEasting = MISSING_VALUE;
    double minNorthing = MISSING_VALUE;
    double maxEasting = MISSING_VALUE;
    double maxNorthing = MISSING_VALUE;

    void Widen(double e, double n);
    void Widen(const DtmArea& other);
    friend bool operator==(const DtmArea&, const DtmArea&) = default;
};

/// The extents of a run of samples, with what it takes to put it behind another run as if the samples had come one by
/// one. So parts of a file can be read at the same time although their order counts: whether a count is worked out, and
/// with which step, hangs on what came before, but of all the extremes of a run only the last one on each side can
/// matter, and for that the run keeps the step and the other side as they were then.
class DtmExtentsRun {
public:
    /// `sample.z` may be MISSING_VALUE; the position may not.
    void Add(const tagXYZ& sample, std::size_t line);
    /// Puts another run behind this one, one that was filled by `Add` alone. `linesBefore` are the lines of its file
    /// that its numbers don't count.
    void Append(const DtmExtentsRun& later, int slot, std::size_t linesBefore);

    const DtmExtents& Get() const { return extents; }
    const DtmArea& GetArea() const { return area; }
    std::size_t GetSampleCount() const { return samples; }
    std::size_t GetWithoutDepth() const { return withoutDepth; }
    const std::optional<DtmStepSource>& GetStepSource() const { return source; }

private:
    /// The last new extreme on one side of an axis.
    struct Extreme {
        std::size_t ordinal = 0;  ///< number of its sample, from 1; 0 if there was none
        double otherSide = 0.0;   ///< the other end of the axis then
        double step = 0.0;        ///< then
    };
    struct Sides {
        Extreme lowest, highest;
    };
    struct Watch;

    void AppendAxis(DtmExtents::Axis& axis, const DtmExtents::Axis& later, const Sides& sides);

    DtmExtents extents;
    DtmArea area;
    std::size_t samples = 0;
    std::size_t withoutDepth = 0;
    Sides eastingSides, northingSides;
    DtmPlace first, last;
    std::optional<DtmStepSource> source;
};

}  // namespace quillon
