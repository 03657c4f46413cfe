#include "host/identify.h"

#include <algorithm>
#include <cmath>

#include "foundation/paths.h"
#include "platform/text.h"

namespace quillon {
namespace {

/// Clicks this near to each other are at the same place.
constexpr double kSamePlacePixels = 4.0;

std::string HitText(const JobRecord& job, const JobPoint& what, const ChartHit& hit) {
    std::string text = FileText(job, what.kind, what.file);
    if (what.point < 0) return text;
    const JobKind& kind = KindOf(what.kind);
    const bool isBetween = hit.kind == HIT_KIND::SEGMENT && kind.id != KIND::STRUCTURE;
    const double kp = hit.kind == HIT_KIND::RING ? MISSING_VALUE : KpAt(job, what.kind, what.file, hit.hit);
    // Of a line between two points the nearer one names nothing, but a KP does, and a line that is itself the record.
    if (!isBetween || kind.pointWord != "point") {
        text += ": " + PointText(job, what) + (hit.kind == HIT_KIND::RING ? ", ring" : "");
    }
    if (!IsMissing(kp)) text += (isBetween ? ": " : ", ") + KpPlaceText(kp);
    return text;
}

}  // namespace

std::string FileText(const JobRecord& job, KIND kind, int file) {
    return std::string(KindOf(kind).name) + ' ' + NameOfPath(KindOf(kind).path(job, file));
}

std::string PointText(const JobRecord& job, const JobPoint& point) {
    const JobKind& kind = KindOf(point.kind);
    const std::string_view name = kind.pointName(job, point.file, point.point);
    return name.empty() ? std::string(kind.pointWord) + Format(" %d", point.point + 1) : std::string(name);
}

std::string KpPlaceText(double kp) {
    return Format("KP %.3lf", kp);
}

double KpAt(const JobRecord& job, KIND kindId, int file, const PathHit& place) {
    const JobKind& kind = KindOf(kindId);
    if (kind.kpAt) return kind.kpAt(job, file, place.at);
    const int count = kind.pointCount(job, file);
    const int from = static_cast<int>(place.point), to = static_cast<int>(place.next);
    if (from >= count || to >= count) return MISSING_VALUE;
    const double kp = kind.pointKp(job, file, from);
    if (place.isVertex || IsMissing(kp)) return kp;
    const tagXY a = kind.point(job, file, from), b = kind.point(job, file, to);
    const double length = std::hypot(b.x - a.x, b.y - a.y);
    if (!(length > 0.0)) return kp;
    return kp + (kind.pointKp(job, file, to) - kp) * std::hypot(place.at.x - a.x, place.at.y - a.y) / length;
}

std::vector<Identified> Identify(const SceneBuilder& scenes, std::span<const ChartHit> hits) {
    std::vector<Identified> there;
    for (const ChartHit& hit : hits) {
        const JobPoint what = scenes.PointOf(hit);
        Identified found{what, what.kind == KIND::NONE ? scenes.TextOf(hit) : HitText(scenes.Record(), what, hit)};
        if (found.text.empty()) continue;
        const bool isThere = std::any_of(there.begin(), there.end(), [&](const Identified& other) {
            // A file that was hit at a point of it isn't named a second time for its area.
            const bool isOfFile = other.what.kind == what.kind && other.what.file == what.file;
            return what.kind == KIND::NONE ? other.text == found.text
                                           : isOfFile && (what.point < 0 || other.what.point == what.point);
        });
        if (!isThere) there.push_back(std::move(found));
    }
    return there;
}

std::optional<Identified> ClickRound::Next(PixelPoint at, const ChartView& view, const std::vector<Identified>& there) {
    const PixelPoint before = view.ToPixel(place);
    const bool isSame = there == last && std::hypot(at.x - before.x, at.y - before.y) <= kSamePlacePixels;
    if (!isSame) {
        place = view.ToWorld(at);
        last = there;
        next = 0;
    }
    if (there.empty()) return std::nullopt;
    return there[next++ % there.size()];
}

}  // namespace quillon
