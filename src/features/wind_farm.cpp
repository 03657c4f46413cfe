#include "features/wind_farm.h"

#include <algorithm>
#include <utility>

#include "foundation/config_file.h"
#include "foundation/settings_lines.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kSettings = "WindFarms";

/// The middle of a box that grows.
class Box {
public:
    void Add(tagXY at) {
        least = {std::min(least.x, at.x), std::min(least.y, at.y)};
        most = {std::max(most.x, at.x), std::max(most.y, at.y)};
    }
    bool IsEmpty() const { return least.x > most.x; }
    tagXY Middle() const { return {(least.x + most.x) / 2, (least.y + most.y) / 2}; }

private:
    static constexpr double kFar = std::numeric_limits<double>::max();
    tagXY least{kFar, kFar};
    tagXY most{-kFar, -kFar};
};

tagXY MiddleOf(const WindFarmDef& farm, const std::vector<TurbineDef>& turbines) {
    Box box;
    for (const auto& ring : farm.boundary) {
        for (const tagXY& at : ring) box.Add(at);
    }
    for (std::size_t i = 0; farm.boundary.empty() && i < turbines.size(); ++i) {
        if (turbines[i].farm == farm.name) box.Add({turbines[i].longitude, turbines[i].latitude});
    }
    return box.IsEmpty() ? farm.position : box.Middle();
}

}  // namespace

template <class Lines>
void EachLine(Lines& lines, RecordOf<CWindFarmList> auto& list) {
    lines.Bool("Display Turbines", list.displayTurbines);
    lines.Bool("Label Turbines", list.labelTurbines);
    lines.Colour("Colour Turbines", list.turbineColour);
    lines.Bool("Display Boundary", list.displayBoundary);
    lines.Bool("Label Wind Farm", list.labelWindFarm);
    lines.Colour("Colour Boundary", list.boundaryColour);
}

void CWindFarmList::ReadSettings() {
    CConfigFile file(files);
    if (file.OpenForRead(kSettings)) ReadLines(file, *this);
}

void CWindFarmList::WriteSettings() const {
    CConfigFile file(files);
    if (!file.OpenSettingsForWrite(kSettings)) return;
    WriteLines(file, *this);
    file.Commit();
}

const WindFarmDef* CWindFarmList::Find(std::string_view name) const {
    const auto found = std::find_if(farms.begin(), farms.end(), [&](const WindFarmDef& f) { return f.name == name; });
    return found == farms.end() ? nullptr : &*found;
}

void CWindFarmList::Take(std::vector<TurbineDef> newTurbines, std::vector<WindFarmDef> newFarms) {
    turbines = std::move(newTurbines);
    farms = std::move(newFarms);
    stamp.Renew();
}

std::string TurbineFloatText(float value) {
    if (value == kUnknownFloat) return {};
    std::string text = Format("%.2f", static_cast<double>(value));
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.')) text.pop_back();
    return text;
}

void CompleteFarms(const std::vector<TurbineDef>& turbines, std::vector<WindFarmDef>& farms) {
    const auto isKnown = [&](const std::string& name) {
        return std::any_of(farms.begin(), farms.end(), [&](const WindFarmDef& farm) { return farm.name == name; });
    };
    for (const TurbineDef& turbine : turbines) {
        // Turbines of one farm mostly follow each other.
        if (!farms.empty() && farms.back().name == turbine.farm) continue;
        if (!isKnown(turbine.farm)) farms.push_back({turbine.farm, {}, {}});
    }
    for (WindFarmDef& farm : farms) farm.position = MiddleOf(farm, turbines);
}

}  // namespace quillon
