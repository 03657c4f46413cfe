#include "display/pipeline_thinning.h"

#include <bit>
#include <cmath>
#include <cstdint>
#include <vector>

#include "display/bearing_cone.h"
#include "foundation/paths.h"
#include "foundation/range_bearing.h"
#include "platform/text.h"

namespace quillon {
namespace {

/// Beyond this a cone would lose its figures to the bounds of a double.
constexpr double kFarthest = 1e100;

bool IsNear(tagXY at) {
    return std::fabs(at.x) < kFarthest && std::fabs(at.y) < kFarthest;
}

/// Distance of a point from the line through the anchor at a bearing given by its sine and cosine, positive to the
/// right. A point at 0, 0 stands for no position.
double CrossTrack(tagXY anchor, tagXY point, double sine, double cosine) {
    if (point.x == 0 && point.y == 0) return 0;
    return (point.x - anchor.x) * cosine - (point.y - anchor.y) * sine;
}

/// The rows since the last one written, and whether the line to a further one passes near them all.
class Stretch {
public:
    explicit Stretch(double maximumDistance) : tolerance(maximumDistance), cone(maximumDistance) {}

    void Begin(tagXY newAnchor) {
        anchor = newAnchor;
        between.clear();
        cone.Reset();
        near = IsNear(anchor);
        settledAt = 0;
    }

    /// Whether the line from the anchor to this position passes further than the tolerance from a row between.
    bool Breaks(tagXY position) {
        RangeBearing(anchor, position, &bearing, &range);
        near = near && IsNear(position);
        if (near) {
            const BearingCone::ANSWER answer = cone.Judge(bearing);
            if (answer != BearingCone::ANSWER::UNSETTLED) return answer == BearingCone::ANSWER::BREAKS;
        }
        return BreaksByDistance();
    }

    /// The position that was asked for last becomes one of the rows between.
    void Take(tagXY position) {
        between.push_back(position);
        if (near && (position.x != 0 || position.y != 0)) cone.Add(bearing, range);
    }
    void TakeFirst(tagXY position) {
        RangeBearing(anchor, position, &bearing, &range);
        near = near && IsNear(position);
        Take(position);
    }

private:
    /// Rows along one bearing come in crowds where positions are rounded; those found to fit it are not asked again.
    bool BreaksByDistance() {
        const auto bits = std::bit_cast<std::uint64_t>(bearing);
        if (bits != settledBearing) settledAt = 0;
        settledBearing = bits;
        const double sine = std::sin(bearing), cosine = std::cos(bearing);
        for (; settledAt < between.size(); ++settledAt) {
            if (std::fabs(CrossTrack(anchor, between[settledAt], sine, cosine)) > tolerance) return true;
        }
        return false;
    }

    double tolerance;
    BearingCone cone;
    tagXY anchor;
    std::vector<tagXY> between;
    bool near = true;    ///< all positions of the stretch are
    double bearing = 0;  ///< of the position asked for last, from the anchor
    double range = 0;
    std::uint64_t settledBearing = 0;  ///< the bits of a bearing ...
    std::size_t settledAt = 0;         ///< ... which fits so many of the rows between
};

double Number(std::string_view line, std::int32_t column) {
    return column < 0 ? 0 : Atof(FieldAt(line, column));
}

tagXY PositionOf(std::string_view line, const CListCtrlImport& import) {
    return {Number(line, import.ColumnOf(CListCtrlImport::EASTING)),
            Number(line, import.ColumnOf(CListCtrlImport::NORTHING))};
}

/// A row without the columns that aren't in use; nothing if that leaves nothing.
void AppendRow(std::string& output, const CListCtrlImport& import, std::string_view line) {
    const std::size_t start = output.size();
    bool first = true;
    for (CListCtrlImport::Index i = 0; i < import.GetSize(); ++i) {
        const std::string_view field = import.FieldOf(line, i);
        if (field == "n/a") continue;
        if (!first) output += ',';
        first = false;
        if (!EqualNoCase(field, "<NULL>")) output += field;
    }
    if (output.size() > start) output += '\n';
}

void AppendEndLine(std::string& output, tagXY last) {
    AppendFixed(output, last.x, 3);
    output += ',';
    AppendFixed(output, last.y, 3);
    output += ", END";
}

double UsableTolerance(double tolerance) {
    tolerance = std::fabs(tolerance);
    return tolerance == 0 ? 1.0 : tolerance;
}

}  // namespace

std::string UsedText(const ThinProgress::Shown& shown) {
    const double percent = shown.usedOf > 0 ? shown.used * 100.0 / shown.usedOf : 0.0;
    return Format("%d (%.1lf%c)", shown.used, percent, '%');
}

std::string ThinnedPath(std::string_view path) {
    const tagPathParts parts = SplitPath(path);
    return parts.folder + parts.name + "_thinned." + parts.extension;
}

bool ThinRows(CStdioFile& input, const CListCtrlImport& import, double tolerance, ThinProgress& progress,
              std::string& output, ThinResult& result) {
    std::string line;
    if (!import.ReadRow(input, line)) return true;
    AppendRow(output, import, line);
    result.rows = result.written = 1;
    result.hasEndLine = true;
    progress.SetTotal(1);
    progress.SetUsed(1, 1);

    Stretch stretch(UsableTolerance(tolerance));
    tagXY last = PositionOf(line, import);
    std::string saved;  // the row before the one in hand
    bool justWritten = false;
    stretch.Begin(last);
    while (import.ReadRow(input, line)) {
        if (progress.IsCancelled()) return false;
        const tagXY position = PositionOf(line, import);
        ++result.rows;
        justWritten = false;
        if (result.rows == 2) {
            stretch.TakeFirst(position);
        } else if (stretch.Breaks(position)) {
            AppendRow(output, import, saved);
            progress.SetUsed(++result.written, result.rows);
            justWritten = true;
            stretch.Begin(last);
            stretch.TakeFirst(position);
        } else {
            stretch.Take(position);
        }
        last = position;
        saved.swap(line);
        progress.SetPosition(input.GetPosition());
    }
    // A row that has just been written has told the figures already.
    if (!justWritten) {
        progress.SetTotal(result.rows + 1);
        progress.SetUsed(result.written + 1, result.rows + 1);
    }
    AppendEndLine(output, last);
    return true;
}

ThinResult ThinFile(const CListCtrlImport& import, double tolerance, std::string_view outputPath,
                    ThinProgress& progress) {
    ThinResult result;
    result.path = outputPath;
    CStdioFile output(import.GetFiles()), input(import.GetFiles());
    if (!output.OpenForWriting(outputPath, FILE_MODE::BINARY)) {
        result.end = THIN_END::NO_OUTPUT;
        result.fault = output.GetFault();
        return result;
    }
    output.SetIsResult();
    std::string bytes;
    if (!input.OpenForReading(import.fullPath) || !import.SkipLines(input)) {
        result.end = THIN_END::NO_INPUT;
    } else {
        progress.Begin(input.GetLength());
        if (!ThinRows(input, import, tolerance, progress, bytes, result)) {
            result.end = THIN_END::STOPPED;
            return result;
        }
    }
    output.WriteString(bytes);
    if (!output.Commit()) {
        result.end = THIN_END::NO_OUTPUT;
        result.fault = output.GetFault();
    }
    return result;
}

}  // namespace quillon
