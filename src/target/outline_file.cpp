#include "target/outline_file.h"

#include <cmath>

#include "features/record_reader.h"
#include "foundation/field_scanner.h"
#include "foundation/paths.h"
#include "platform/text.h"

namespace quillon {
namespace {

/// Takes the letter at the front of a step; a step without one is a line.
bool TakeDraws(std::string_view& step) {
    const char letter = ToUpper(step.front());
    if (letter != 'M' && letter != 'L') return true;
    step.remove_prefix(1);
    step = TrimLeft(step);
    if (step.substr(0, 1) == ",") step.remove_prefix(1);
    return letter == 'L';
}

PASSED_OVER DecodeStep(std::string_view line, OutlinePoint& point) {
    point.draws = TakeDraws(line);
    FieldScanner scanner(line, ',');
    point.position.x = scanner.NextNumber();
    point.position.y = scanner.NextNumber();
    // The reference point, 0, 0, is a point like any other here.
    if (IsMissing(point.position.x)) return PASSED_OVER::NO_EASTING;
    return IsMissing(point.position.y) ? PASSED_OVER::NO_NORTHING : PASSED_OVER::NO;
}

void AddPolyline(const CDxfPolyline& line, std::vector<OutlinePoint>& points) {
    constexpr std::int32_t kClosed = 1;
    for (std::size_t i = 0; i < line.count; ++i) {
        points.push_back({i > 0, {line.GetPosition(i).x, line.GetPosition(i).y}});
    }
    if (line.count > 2 && (line.flags & kClosed) != 0) {
        points.push_back({true, {line.GetPosition(0).x, line.GetPosition(0).y}});
    }
}

}  // namespace

std::vector<OutlinePoint> ReadOutlineText(CStdioFile& file, ReadReport* report) {
    std::vector<OutlinePoint> points;
    bool lifted = true;
    std::string_view line;
    while (file.ReadString(line)) {
        line = Trim(line);
        if (line.empty()) {
            lifted = true;
            continue;
        }
        OutlinePoint point;
        const PASSED_OVER reason = DecodeStep(line, point);
        if (report) report->Count(reason);
        if (reason != PASSED_OVER::NO) continue;
        point.draws = point.draws && !lifted;
        lifted = false;
        points.push_back(point);
    }
    return points;
}

std::vector<OutlinePoint> OutlineOfDrawing(const CDxf& drawing) {
    std::vector<OutlinePoint> points;
    for (const CDxfEntity* entity : drawing.entities) {
        if (entity->type == DXF_TYPE::LINE) {
            const auto& line = entity->As<CDxfLine>();
            points.push_back({false, {line.start.x, line.start.y}});
            points.push_back({true, {line.end.x, line.end.y}});
        } else if (entity->type == DXF_TYPE::POLYLINE || entity->type == DXF_TYPE::LWPOLYLINE) {
            AddPolyline(entity->As<CDxfPolyline>(), points);
        }
    }
    return points;
}

bool IsDrawingPath(std::string_view path) {
    return EqualNoCase(SplitPath(path).extension, "dxf");
}

}  // namespace quillon
