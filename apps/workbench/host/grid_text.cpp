#include "host/grid_text.h"

#include <algorithm>
#include <array>

#include "foundation/angle_units.h"
#include "platform/text.h"

namespace quillon {
namespace {

/// Decimals of each notation at which a position is told to 2 cm or somewhat better.
constexpr std::array<int, kAngleFormatCount> kMostDecimals = {3, 5, 7, 7, 7};

std::string AngleText(double degrees, int type, char letter, const tagAngleDisplay& display) {
    const bool known = display.format >= 0 && display.format < kAngleFormatCount;
    const int format = known ? display.format : ANGLE_DEGREES_MINUTES;
    const int decimals = std::clamp(display.decimals, 0, kMostDecimals[static_cast<std::size_t>(format)]);
    return FormatAngle(degrees * kRadiansPerDegree, type, format, decimals, HemisphereLetter(letter));
}

}  // namespace

std::string GridBadgeText(const CJobGeodesy& geodesy) {
    return geodesy.IsChosen() ? geodesy.GridText() + " / " + geodesy.DatumText() : geodesy.GridText();
}

GridPlaceText TextOfPlace(const CJobGeodesy& geodesy, tagXY position, const tagAngleDisplay& display) {
    if (!geodesy.IsChosen()) return {};
    const auto at = geodesy.ToGeographic(position);
    if (!at) return {"outside the grid", {}};
    GridPlaceText text{AngleText(at->latitude, ANGLE_LATITUDE, display.northSouth, display) + "  " +
                           AngleText(at->longitude, ANGLE_LONGITUDE, display.eastWest, display),
                       {}};
    if (const auto there = geodesy.ScaleAt(position)) {
        text.scale =
            Format("convergence %+.4lf\xB0  scale %.6lf", there->convergence * kDegreesPerRadian, there->scale);
    }
    return text;
}

}  // namespace quillon
