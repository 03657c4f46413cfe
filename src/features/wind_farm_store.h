#pragma once

#include <string>

#include "features/wind_farm.h"

namespace quillon {

/// The path of the database: "WindFarms.db" in the data folder of wind farms. Empty if there can be no such folder.
std::string WindFarmDatabasePath(FileSystem& files);

/// Fills the list from the database. False, with nothing changed and the reason in `fault`, if it can't be read; a
/// database that isn't there yet is an empty one.
bool ReadWindFarms(CWindFarmList& list, std::string& fault);

/// Puts turbines and farms into the database, all or none of them: a turbine in the place of the one of its farm and
/// id, a boundary in the place of the one of its farm. False, with the reason in `fault`, if it can't be written.
bool StoreWindFarms(FileSystem& files, const std::vector<TurbineDef>& turbines, const std::vector<WindFarmDef>& farms,
                    std::string& fault);

}  // namespace quillon
