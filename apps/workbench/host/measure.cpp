#include "host/measure.h"

#include <algorithm>
#include <cmath>

#include "features/leg.h"
#include "foundation/columns.h"
#include "host/identify.h"
#include "platform/text.h"
#include "scene/chart_hit.h"

namespace quillon {

JobPoint ChosenLine(const JobRecord& job) {
    const CPipelineList& list = job.pipelines;
    if (!list.IsEmpty()) return {KIND::PIPELINE, std::max<int>(list.editState.editFileIndex, 0), -1};
    return KindOf(KIND::PIPE_ROUTE).fileCount(job) > 0 ? JobPoint{KIND::PIPE_ROUTE, 0, -1} : JobPoint();
}

std::optional<LinePlace> PlaceBesideLine(const JobRecord& job, const JobPoint& line, const PathLod& path, tagXY place) {
    const std::optional<PathHit> hit = NearestOnLines(path, place);
    if (!hit) return std::nullopt;
    const double kp = KpAt(job, line.kind, line.file, *hit);
    if (IsMissing(kp)) return std::nullopt;
    const tagXY from = path.Points()[hit->point], to = path.Points()[hit->next];
    const double side = (to.x - from.x) * (place.y - hit->at.y) - (to.y - from.y) * (place.x - hit->at.x);
    return LinePlace{kp, side > 0.0 ? -hit->distance : hit->distance, hit->at};
}

std::string MeasureText(tagXY from, tagXY to) {
    const LegDef leg = MakeLeg(from, to);
    return CellText(CELL::RANGE, leg.range) + "  " + CellText(CELL::BEARING, leg.bearing) + " grid";
}

std::string LinePlaceText(const LinePlace& place) {
    const double offset = std::abs(place.offset);
    if (offset < 0.05) return KpPlaceText(place.kp) + ", on the line";
    return KpPlaceText(place.kp) + Format(", %.1lf m to %s", offset, place.offset > 0.0 ? "starboard" : "port");
}

}  // namespace quillon
