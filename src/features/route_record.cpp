#include "features/route_record.h"

#include "features/record_reader.h"
#include "foundation/field_scanner.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr int kDecimals = 3;

}  // namespace

PASSED_OVER DecodeRoutePoint(std::string_view line, int order, RouteDef& record) {
    if (order < 0 || order > 2) return PASSED_OVER::UNKNOWN_ORDER;
    FieldScanner fields(line);
    if (order == 1) record.name = fields.NextString();
    record.position.x = fields.NextNumber();
    record.position.y = fields.NextNumber();
    if (order == 2) record.name = fields.NextString();
    return PositionFault(record.position.x, record.position.y);
}

const std::string& EncodeRoutePoint(CDelimitedLine& line, const RouteDef& record, int order) {
    line.Fill({});
    if (order == 1) line.AddString(record.name);
    line.AddNumber(record.position.x, kDecimals);
    line.AddNumber(record.position.y, kDecimals);
    if (order == 2) line.AddString(record.name);
    return line.Finish();
}

std::string RoutePointName(std::ptrdiff_t index) {
    return Format("WPT %td", index + 1);
}

}  // namespace quillon
