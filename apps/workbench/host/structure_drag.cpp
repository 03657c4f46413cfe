#include "host/structure_drag.h"

#include <algorithm>
#include <cmath>

#include "foundation/angle_units.h"
#include "foundation/range_bearing.h"
#include "host/measure.h"
#include "platform/text.h"
#include "scene/chart_geometry.h"

namespace quillon {
namespace {

constexpr double kCoarseDegrees = 5.0;
/// Steps that a structure's file keeps.
constexpr double kMillimetre = 0.001;
constexpr double kTenthDegree = 0.1;

double Rounded(double value, double step) {
    return std::round(value / step) * step;
}

double WithinTurn(double degrees) {
    const double within = std::fmod(degrees, 360.0);
    return within < 0.0 ? within + 360.0 : within;
}

double BearingDegrees(tagXY from, tagXY to) {
    double bearing = 0.0;
    RangeBearing(from, to, &bearing, nullptr);
    return bearing / kRadiansPerDegree;
}

/// A place given in metres to starboard and ahead of a position with a heading.
tagXY PlaceFrom(tagXY position, double headingDegrees, double starboard, double ahead) {
    const double sine = std::sin(headingDegrees * kRadiansPerDegree);
    const double cosine = std::cos(headingDegrees * kRadiansPerDegree);
    return {position.x + starboard * cosine + ahead * sine, position.y - starboard * sine + ahead * cosine};
}

/// The box of a structure's shape in metres to starboard and ahead; a point without a shape that has extents.
ChartBox BoxOf(const CStructureList& list, const StructureDef& structure) {
    ChartBox box;
    box.Add(0.0, 0.0);
    const CDxf* const shape = list.ShapeOf(structure);
    const tagXY size = list.ShapeSize(structure);
    if (!shape || !(size.x >= 0.0 && size.y >= 0.0) || (size.x == 0.0 && size.y == 0.0)) return box;
    const double scale = list.ScaleFactor(structure);
    return {scale * shape->extMin.x, scale * shape->extMin.y, scale * shape->extMax.x, scale * shape->extMax.y};
}

}  // namespace

tagXY StructureFrame::Handle(double metresAhead) const {
    return PlaceFrom(position, heading, 0.0, ahead + metresAhead);
}

std::optional<StructureFrame> StructureDrag::FrameOf(const JobPoint& point) const {
    if (point.kind != KIND::STRUCTURE || !list.IsValidIndex(point.file)) return std::nullopt;
    const CStructure& file = list[point.file];
    if (!file.Status || file.IsStub() || !file.IsValidIndex(point.point)) return std::nullopt;
    const StructureDef& structure = file[point.point];
    const ChartBox box = BoxOf(list, structure);
    const auto corner = [&](double x, double y) { return PlaceFrom(structure.position, structure.heading, x, y); };
    return StructureFrame{structure.position,
                          structure.heading,
                          {corner(box.minX, box.minY), corner(box.maxX, box.minY), corner(box.maxX, box.maxY),
                           corner(box.minX, box.maxY)},
                          std::max(box.maxY, 0.0)};
}

JobPoint StructureDrag::At(tagXY place, double reach) const {
    JobPoint best;
    double bestArea = 0.0;
    for (int i = 0; i < list.GetCount(); ++i) {
        const CStructure& file = list[i];
        if (!file.Status || file.IsStub()) continue;
        for (int k = 0; k < static_cast<int>(file.GetSize()); ++k) {
            const StructureDef& structure = file[k];
            const tagXY off{place.x - structure.position.x, place.y - structure.position.y};
            const tagXY within = PlaceFrom({}, -structure.heading, off.x, off.y);
            const ChartBox box = BoxOf(list, structure).Grown(reach);
            if (!box.Contains(within.x, within.y)) continue;
            const double area = box.Width() * box.Height();
            if (best.kind != KIND::NONE && area >= bestArea) continue;
            best = {KIND::STRUCTURE, i, k};
            bestArea = area;
        }
    }
    return best;
}

bool StructureDrag::Begin(const JobPoint& point, tagXY at, bool turns) {
    grabbed = FrameOf(point);
    if (!grabbed) return false;
    which = point;
    turning = turns;
    grabbedAt = at;
    position = grabbed->position;
    heading = grabbed->heading;
    return true;
}

void StructureDrag::MoveTo(tagXY at, bool coarse) {
    if (!grabbed || !IsPlace(at)) return;
    if (turning) {
        const double turned = BearingDegrees(grabbed->position, at) - BearingDegrees(grabbed->position, grabbedAt);
        heading = WithinTurn(Rounded(grabbed->heading + turned, coarse ? kCoarseDegrees : kTenthDegree));
    } else {
        position = {Rounded(grabbed->position.x + at.x - grabbedAt.x, kMillimetre),
                    Rounded(grabbed->position.y + at.y - grabbedAt.y, kMillimetre)};
    }
}

std::string StructureDrag::Text() const {
    if (turning) return Format("Heading %.1lf\xB0 grid", heading);
    return Format("E %.3lf  N %.3lf  moved ", position.x, position.y) + MeasureText(grabbed->position, position);
}

}  // namespace quillon
