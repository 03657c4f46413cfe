#pragma once

#include <array>
#include <cstddef>
#include <utility>
#include <vector>

#include "background/dig_file.h"
#include "background/dxf.h"
#include "background/kind_report.h"
#include "background/load_progress.h"
#include "platform/file.h"

namespace quillon {

/// Flattens the line work of a drawing to the records of a DIG file: lines, circles, arcs, polylines and solids. The
/// content of blocks stands at its own coordinates, and inserts aren't expanded.
///
/// What lies outside a box is left out: a line with an end outside, a circle or an arc with its centre there, a solid
/// with its first corner there; of a polyline the vertices outside, and it runs on to the next one inside.
class DigConverter {
public:
    /// Chords of arcs lie at most so far from them, metres.
    static constexpr double kChordError = 0.1;
    /// Of one arc: more than the chord error asks for on a circle of 40 times the size of the earth.
    static constexpr double kMostSteps = 100000;
    /// Of one drawing; arcs make many records out of a few bytes.
    static constexpr std::size_t kMostRecords = 50'000'000;

    /// The edges of the box, metres, belong to it.
    DigConverter(tagXY boxLeast, tagXY boxMost) : least(boxLeast), most(boxMost) {}

    /// False, and no more is added, once there are too many records.
    bool Add(const CDxf& dxf);
    void Add(const CDxfEntity& entity);

    std::vector<BinaryDigDef> TakeRecords() { return std::move(records); }
    /// Tells how many entities gave records, and why others gave none.
    void Report(KindReport& report) const;

private:
    void AddLines(const CDxfEntity& entity) { ++NothingOf(entity).withoutLines; }
    void AddLines(const CDxfLine& line);
    void AddLines(const CDxfCircle& circle);
    void AddLines(const CDxfArc& arc);
    void AddLines(const CDxfPolyline& line);
    void AddLines(const CDxfSolid& solid);
    void AddArc(int direction, tagXY centre, double radius, double a, double b);
    void AddPoint(tagXY at, bool startsLine);
    void CountOutside(const CDxfEntity& entity) { ++NothingOf(entity).outside; }
    bool IsInside(tagXY at) const { return at.x >= least.x && at.x <= most.x && at.y >= least.y && at.y <= most.y; }

    /// Entities of one keyword that gave no records.
    struct Nothing {
        const CDxfEntity* example = nullptr;
        std::size_t withoutLines = 0;
        std::size_t outside = 0;
    };
    Nothing& NothingOf(const CDxfEntity& entity);

    tagXY least;
    tagXY most;
    std::int16_t code = 0;
    std::vector<BinaryDigDef> records;
    std::size_t taken = 0;
    std::size_t verticesOutside = 0;
    std::size_t withoutRadius = 0;
    std::array<Nothing, 256> nothing{};  ///< by type; MTEXT is the last
};

/// The whole of it: by the header's extents, or by those of the geometry if the drawing is to be converted so. False,
/// without records, if there would be too many. The report begins anew.
bool ConvertToDig(const CDxf& dxf, std::vector<BinaryDigDef>& records, KindReport& report);

/// Whether the header's extents leave everything out that those of the geometry take.
bool LiesOutsideHeader(const CDxf& dxf);

/// Reads digitised lines from a text: easting, northing and, where they are given, pen and colour. A pen of 0 or below,
/// or a word that begins with U or M ("up", "move"), starts a new line; so does a line of text without a position. The
/// colour is a number of the palette of drawings, 0 to 255; white where there is none. The report begins anew.
std::vector<BinaryDigDef> ReadDigText(CStdioFile& text, LoadProgress& progress, KindReport& report);

}  // namespace quillon
