#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

#include "foundation/read_report.h"
#include "foundation/values.h"
#include "platform/file.h"

namespace quillon {

/// How a designer's file gives a route.
enum class RPL_FORM {
    NONE,     ///< in no form that is known
    RADIUS,   ///< intersection points with their radius, 3 fields
    LISTING,  ///< an alignment listing of tangent points, intersection points and centres, 5 fields
    TANGENT,  ///< tangent points, 2 fields
    RLX       ///< straights and arcs, 7 fields behind two heading lines
};

/// The form's name for people.
std::string_view FormText(RPL_FORM form);

/// A position of a file with the radius that belongs to it, 0 for none, and the line that it stands on, from 1.
struct RplRow {
    tagXY position;
    double radius = 0.0;
    std::uint32_t line = 0;
};

/// A row of an RLX file: seven numbers as they stand, any of which may be missing.
struct RLXDef {
    double startEasting = 0.0;
    double startNorthing = 0.0;
    double endEasting = 0.0;
    double endNorthing = 0.0;
    double bearing = 0.0;  ///< not used: it follows from the positions
    double length = 0.0;   ///< not used
    double radius = 0.0;   ///< positive clockwise, negative anti-clockwise, 0 a straight
    std::uint32_t line = 0;
};

/// What a file holds, before any curve is worked out: rows of one kind or of the other.
struct RplRows {
    RPL_FORM form = RPL_FORM::NONE;
    std::vector<RplRow> rows;
    std::vector<RLXDef> rlx;
};

/// Positions farther than this from 0 lie on no grid, and lengths between them would lose their digits. Metres.
inline constexpr double kFarthestPosition = 1e12;

/// Reads a file. Its form is told by the count of fields of the first line, but for an RLX file, which its name tells.
/// The report begins anew.
RplRows ReadRplRows(CStdioFile& file, bool isRlx, ReadReport& report);

}  // namespace quillon
