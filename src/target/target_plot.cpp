#include "target/target_plot.h"

#include <cmath>
#include <numbers>

#include "foundation/angle_units.h"
#include "foundation/folders.h"
#include "foundation/settings_lines.h"

namespace quillon {
namespace {

constexpr std::string_view kSettingsName = "Target Plot";
/// By which an angle is turned to degrees and back; see angle_units.h for the short figure.
constexpr double kThereAndBack = std::numbers::pi / 180.0 * kDegreesPerRadian;

}  // namespace

template <class Lines>
void EachLine(Lines& lines, RecordOf<CTargetPlot> auto& plot) {
    lines.Double("Latitude", plot.centre.y, 16);
    lines.Double("Longitude", plot.centre.x, 16);
    lines.Int("Orientation", plot.orientation);
}

void CTargetPlot::SetLatitude(double radians) {
    if (radians == centre.y) return;
    centre.y = radians;
    ComputeScales();
}

void CTargetPlot::SetLongitude(double radians) {
    if (radians == centre.x) return;
    centre.x = radians;
    dirty = true;
}

/// Radii of curvature in the meridian and the prime vertical (G. Bomford, Geodesy, 3rd edition, 1971).
void CTargetPlot::ComputeScales() {
    const double sine = std::sin(centre.y);
    const double w = 1.0 - ellipsoid.e2 * sine * sine;
    const double rho = w > 0.0 ? ellipsoid.oneMinusE2 * ellipsoid.a / std::pow(w, 1.5) : 0.0;
    const double nu = w > 0.0 ? ellipsoid.a / std::sqrt(w) : 0.0;
    metresPerLatitude = rho * kThereAndBack;
    metresPerLongitude = std::cos(centre.y) * nu * kThereAndBack;
    minutesPerMetre = 1.0 / (rho * std::numbers::pi / 10800.0);
    dirty = true;
}

void CTargetPlot::SetOrientation(std::int32_t degrees) {
    orientation = degrees;
    const bool turned = !display.northUp && degrees != 0;
    sinOrientation = turned ? std::sin(degrees * kRadiansPerDegree) : 0.0;
    cosOrientation = turned ? std::cos(degrees * kRadiansPerDegree) : 1.0;
}

void CTargetPlot::HoldNorthUp() {
    display.northUp = true;
    if (orientation != 0) SetOrientation(0);
}

bool CTargetPlot::Save(FileSystem& files) const {
    CConfigFile file(files);
    if (!file.OpenSettingsForWrite(kSettingsName)) return false;
    WriteLines(file, *this);
    WriteLines(file, display);
    return file.Commit();
}

bool CTargetPlot::Load(FileSystem& files) {
    CConfigFile file(files);
    if (!file.OpenForRead(kSettingsName)) return false;
    ReadFrom(file);
    return true;
}

std::string CTargetPlot::SettingsPath(FileSystem& files) {
    return GetSettingsPath(files, kSettingsName);
}

void CTargetPlot::ReadFrom(CConfigFile& file) {
    ReadLines(file, *this);
    ReadLines(file, display);
    SetOrientation(orientation);
    ComputeScales();
}

}  // namespace quillon
