#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillon {

/// A named point on a vessel or template, in metres from its reference point: X to starboard, Y ahead, Z up. What
/// stands behind Z belongs to the programs that steer by the point; it passes through the file as it is.
struct OffsetPoint {
    std::string name;
    bool flag = false;
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    std::int64_t first = 0;
    std::int16_t second = 0;
    std::int16_t third = 0;
    std::int16_t fourth = 0;
    double firstDouble = 0.0;
    double secondDouble = 0.0;
    friend bool operator==(const OffsetPoint&, const OffsetPoint&) = default;
};

using OffsetPoints = std::vector<OffsetPoint>;

/// One line of a section: the fields in their order, the name in quotes, metres with 3 decimals.
std::string OffsetLine(const OffsetPoint& point);
/// A field that is missing keeps its default.
OffsetPoint OffsetOfLine(std::string_view line);
/// Whether a line of a settings file is one of a section's points and not the next key or head.
bool IsOffsetLine(std::string_view line);

}  // namespace quillon
