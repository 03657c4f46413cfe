#pragma once

#include <string_view>
#include <vector>

#include "background/dxf.h"
#include "foundation/read_report.h"
#include "foundation/values.h"
#include "platform/file.h"

namespace quillon {

/// One step of an outline: a line to a point or a move to it. Metres from the reference point: x to starboard, y ahead.
struct OutlinePoint {
    bool draws = false;
    tagXY position;
    friend bool operator==(const OutlinePoint&, const OutlinePoint&) = default;
};

/// Reads an outline: a text with a step a line, "M, x, y" for a move and "L, x, y" for a line, where "x, y" alone is a
/// line too and the first step always a move. A blank line lifts the pen. Any other line is passed over.
std::vector<OutlinePoint> ReadOutlineText(CStdioFile& file, ReadReport* report = nullptr);

/// The lines and polylines of a drawing, as they stand in it.
std::vector<OutlinePoint> OutlineOfDrawing(const CDxf& drawing);

/// Whether a path is that of a drawing, by its extension.
bool IsDrawingPath(std::string_view path);

}  // namespace quillon
