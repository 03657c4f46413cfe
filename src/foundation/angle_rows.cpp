#include "foundation/angle_rows.h"

#include <algorithm>
#include <cmath>

#include "foundation/angle_display.h"
#include "foundation/angle_entry.h"
#include "foundation/angle_units.h"
#include "platform/platform.h"

namespace quillon {
namespace {

constexpr double kHalfPi = 1.5707963267948966;
constexpr int kShortDecimals = 2;

bool IsShort(int type) {
    return type >= ANGLE_BEARING_SHORT && type <= ANGLE_SIGNED_180_SHORT;
}

/// The notation of the settings; degrees and minutes where they name none.
struct Notation {
    int format = ANGLE_DEGREES_MINUTES;
    int decimals = kDefaultDecimals;
    char hemisphere = 0;

    Notation(int type, const CMFCPropertyGridProperty& row) {
        const CMFCPropertyGridCtrl* list = row.GetList();
        ReadAngleDisplay(type, format, decimals, hemisphere, list ? &list->GetOwner().GetPlatform().Files() : nullptr);
        if (format < 0 || format >= kAngleFormatCount) format = ANGLE_DEGREES_MINUTES;
        if (decimals < 0 || decimals > kMostAngleDecimals) decimals = AngleDefaultDecimals(type, format);
        if (IsShort(type)) decimals = std::min(decimals, kShortDecimals);
    }
};

}  // namespace

std::string CAngleRow::FormatProperty() const {
    const Notation notation(angleType, *this);
    return FormatAngle(Radians(), angleType, notation.format, notation.decimals, notation.hemisphere);
}

bool CAngleRow::Parse(std::string_view text, RowValue& parsed) const {
    if (text == FormatProperty()) {
        parsed = GetValue();
        return true;
    }
    double degrees = 0;
    if (!ReadAngle(text, angleType, Notation(angleType, *this).format, degrees)) return false;
    parsed = FromDegrees(degrees);
    return true;
}

bool CAngleRow::Accept(const RowValue& candidate) const {
    const auto* number = std::get_if<double>(&candidate);
    return number && std::isfinite(*number);
}

std::string CAngleRow::WhyRefused(std::string_view text) const {
    if (text.find(',') != std::string_view::npos) return "Type a point, not a comma, before the decimals.";
    return "That is no angle of this kind.";
}

double CMFCPropertyGridAngleProperty::FromDegrees(double degrees) const {
    const double radians = degrees * kRadiansPerDegree;
    return GetAngleType() == ANGLE_ZENITH ? kHalfPi - radians : radians;
}

double CMFCPropertyGridAngleDouble::Radians() const {
    return Get<double>() * kRadiansPerDegree;
}

}  // namespace quillon
