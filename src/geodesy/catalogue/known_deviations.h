#pragma once

#include <cstdint>
#include <string_view>

namespace quillon::catalogue {

// Rows that lie a centimetre or more from the grids that their names promise, on purpose: positions once recorded in
// them must come out again. docs/geodesy.md says why, and lists those below a centimetre too.

struct KnownDeviationDef {
    std::int32_t type;
    std::int32_t zone;
    std::string_view text;
};

// clang-format off
inline constexpr KnownDeviationDef kKnownDeviations[] = {
    {1,  14, "5 cm from the published grid: the meridian of Lisbon is rounded to 0.01\""},
    {1,  35, "up to 6 cm from the published grid: another semi-major axis"},
    {1,  36, "up to 6 cm from the published grid: another semi-major axis"},
    {6,   2, "up to 1 cm from the published grid: a rounded scale"},
    {6,   3, "kilometres from the published Syria Lambert: another origin, another scale"},
    {7,   0, "1000 km from the published Qatar grid: a false northing of 1100000 m, not 100000 m"},
    {11,  1, "1.06 m in easting from the published grid: another chain"},
    {11,  3, "11 m, at the edges 15 m, from the official zone: it rectifies with the figures of Clarke 1866"},
    {13,  4, "on axis VII 1.2 m from NGO 1948: a figure of its table looks damaged at the source"},
};
// clang-format on

}  // namespace quillon::catalogue
