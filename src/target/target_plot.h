#pragma once

#include <cstdint>
#include <string>

#include "foundation/config_file.h"
#include "foundation/values.h"
#include "geodesy/ellipsoid.h"
#include "target/target_display.h"

namespace quillon {

/// The target plot: range rings, zone lines and labels round a fixed point or round the vessel. Radians, metres.
class CTargetPlot {
public:
    explicit CTargetPlot(const CEllipsoid& figure) : ellipsoid(figure) {}

    /// Moves the centre, with the scales that hang on its latitude. Nothing happens at the present latitude.
    void SetLatitude(double radians);
    void SetLongitude(double radians);
    /// Degrees. The plot is turned only where north isn't held up.
    void SetOrientation(std::int32_t degrees);
    void HoldNorthUp();

    /// The settings file "Target Plot". Skipped if it can't be written; false then.
    bool Save(FileSystem& files) const;
    /// A line that is missing keeps its default; false if there is no file.
    bool Load(FileSystem& files);
    void ReadFrom(CConfigFile& file);
    static std::string SettingsPath(FileSystem& files);

    bool dirty = false;  ///< the centre has moved since the host last looked
    TargetDisplay display;
    tagXY centre;  ///< longitude and latitude, radians
    std::int32_t orientation = 0;
    double sinOrientation = 0.0;
    double cosOrientation = 1.0;
    CEllipsoid ellipsoid;
    double metresPerLatitude = 0.0;  ///< metres per radian at the centre
    double metresPerLongitude = 0.0;
    double minutesPerMetre = 0.0;  ///< arc minutes of latitude

private:
    void ComputeScales();
};

}  // namespace quillon
