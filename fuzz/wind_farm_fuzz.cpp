// The first byte chooses between GeoJSON and CSV. Whatever follows: turbines and sites lie on the earth, each turbine
// has an id and a farm that is in the list.

#include <algorithm>

#include "feature_fuzz.h"
#include "features/wind_farm_import.h"

namespace {

void RequireOnEarth(double longitude, double latitude) {
    fuzz::Require(std::fabs(latitude) < 1.5707964 && std::fabs(longitude) < 3.1415927);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string_view bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
    const quillon::WindFarmImport import =
        data[0] % 2 == 1 ? quillon::ReadWindFarmGeoJson(bytes, "Farm") : quillon::ReadWindFarmCsv(bytes, "Farm");
    fuzz::Require(import.IsEmpty() != import.fault.empty());
    for (const quillon::TurbineDef& turbine : import.turbines) {
        RequireOnEarth(turbine.longitude, turbine.latitude);
        const auto isItsFarm = [&](const quillon::WindFarmDef& farm) { return farm.name == turbine.farm; };
        fuzz::Require(!turbine.id.empty() && std::any_of(import.farms.begin(), import.farms.end(), isItsFarm));
    }
    for (const quillon::WindFarmDef& farm : import.farms) {
        RequireOnEarth(farm.position.x, farm.position.y);
        for (const auto& ring : farm.boundary) {
            for (const quillon::tagXY& at : ring) RequireOnEarth(at.x, at.y);
        }
    }
    return 0;
}
