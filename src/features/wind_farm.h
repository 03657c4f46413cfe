#pragma once

#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "foundation/values.h"
#include "platform/array_stamp.h"
#include "platform/file.h"
#include "platform/palette.h"

namespace quillon {

/// A float of a turbine that isn't known.
inline constexpr float kUnknownFloat = std::numeric_limits<float>::max();

/// One turbine of a wind farm, or its substation. Positions are radians on WGS 84, heights metres.
struct TurbineDef {
    std::int32_t image = 0;  ///< 0 a turbine, 1 a substation
    std::string id;
    std::string title;  ///< of the farm, behind its name in titles
    std::string farm;
    double longitude = 0.0;
    double latitude = 0.0;
    std::string remarks;
    float maxHeight = kUnknownFloat;  ///< of the blades' tips above mean high water springs
    std::string navigationLights;
    std::string radioRadar;
    std::string fogSignal;
    std::string note;  ///< kept and not shown
    float bladeRadius = kUnknownFloat;
    float structureHeight = kUnknownFloat;  ///< of the blades' tips above mean high water springs
};

struct WindFarmDef {
    std::string name;
    tagXY position;                            ///< longitude and latitude of its middle, radians
    std::vector<std::vector<tagXY>> boundary;  ///< rings of its site, in longitude and latitude; may be empty
};

/// The wind farms under the job, as they were read from the database, and how the chart shows them. The choices are
/// kept in the settings file "WindFarms".
class CWindFarmList {
public:
    explicit CWindFarmList(FileSystem& fileSystem) : files(fileSystem) {}

    void ReadSettings();
    /// Skipped if the file can't be written.
    void WriteSettings() const;
    /// The first farm of exactly that name; null for none.
    const WindFarmDef* Find(std::string_view name) const;
    /// Takes what a database or an import holds.
    void Take(std::vector<TurbineDef> newTurbines, std::vector<WindFarmDef> newFarms);
    /// Another number for each other content of turbines and farms.
    std::uint64_t GetStamp() const { return stamp.Get(); }
    FileSystem& GetFiles() const { return files; }

    std::vector<TurbineDef> turbines;
    bool displayTurbines = true;
    bool displayBoundary = true;
    bool labelTurbines = false;
    bool labelWindFarm = true;
    COLORREF turbineColour = RGB(0, 0, 255);
    COLORREF boundaryColour = RGB(255, 0, 0);
    std::vector<WindFarmDef> farms;

private:
    FileSystem& files;
    ArrayStamp stamp;
};

/// A float as tables show it: "%.2f" without the zeros at its end; empty where it isn't known.
std::string TurbineFloatText(float value);

/// Gives every turbine's farm a record, and each farm a middle: that of its boundary, else of its turbines.
void CompleteFarms(const std::vector<TurbineDef>& turbines, std::vector<WindFarmDef>& farms);

}  // namespace quillon
