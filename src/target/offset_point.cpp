#include "target/offset_point.h"

#include <cmath>
#include <limits>

#include "foundation/delimited_line.h"
#include "foundation/values.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr int kDecimals = 3;

void TakeDouble(CDelimitedLine& line, double& value) {
    const double number = line.NextNumber();
    if (!IsMissing(number) && std::isfinite(number)) value = number;
}

/// A number that the type can't hold keeps the default.
template <class Int>
void TakeInt(CDelimitedLine& line, Int& value) {
    const double number = line.NextNumber();
    const bool fits = number >= static_cast<double>(std::numeric_limits<Int>::min()) &&
                      number < static_cast<double>(std::numeric_limits<Int>::max());
    if (fits) value = static_cast<Int>(number);
}

}  // namespace

std::string OffsetLine(const OffsetPoint& point) {
    CDelimitedLine line;
    line.AddString(point.name, true);
    line.AddBool(point.flag);
    for (const double metres : {point.x, point.y, point.z}) line.AddNumber(metres, kDecimals);
    line.AddLong(point.first);
    for (const std::int16_t number : {point.second, point.third, point.fourth}) line.AddShort(number);
    line.AddNumber(point.firstDouble, kDecimals);
    line.AddNumber(point.secondDouble, kDecimals);
    return line.GetText();
}

OffsetPoint OffsetOfLine(std::string_view text) {
    CDelimitedLine line;
    line.Fill(text);
    OffsetPoint point;
    point.name = line.NextString();
    const double flag = line.NextNumber();
    point.flag = !IsMissing(flag) && flag != 0.0;
    for (double* const metres : {&point.x, &point.y, &point.z}) TakeDouble(line, *metres);
    TakeInt(line, point.first);
    for (std::int16_t* const number : {&point.second, &point.third, &point.fourth}) TakeInt(line, *number);
    TakeDouble(line, point.firstDouble);
    TakeDouble(line, point.secondDouble);
    return point;
}

bool IsOffsetLine(std::string_view line) {
    return TrimLeft(line).substr(0, 1) == "\"";
}

}  // namespace quillon
