#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "features/wind_farm.h"
#include "platform/file.h"

namespace quillon {

/// What was found in a file of wind farms.
struct WindFarmImport {
    std::vector<TurbineDef> turbines;
    std::vector<WindFarmDef> farms;
    std::string fault;            ///< why there is nothing, for people
    std::size_t passedOver = 0;   ///< rows or features without a position on this earth, or of another geometry
    std::size_t firstPassed = 0;  ///< the first of them, from 1: a line of a CSV file, else a feature

    bool IsEmpty() const { return turbines.empty() && farms.empty(); }
};

// Positions are degrees on WGS 84 in all forms. Fields are known by their names, whatever their capitals, blanks and
// underscores: id, name, farm, latitude, longitude, title, remarks, max height, navigation lights, radio radar, fog
// signal, note, blade radius, structure height, and what other programs call them. A turbine that names no farm belongs
// to `farm`. A turbine without an id is named after its place.

/// Rows under a header, with quoted fields.
WindFarmImport ReadWindFarmCsv(std::string_view bytes, std::string_view farm);
/// H. Butler et al., The GeoJSON Format, RFC 7946, 2016: points are turbines, polygons the sites of farms.
WindFarmImport ReadWindFarmGeoJson(std::string_view bytes, std::string_view farm);
/// Points are turbines, polygons sites; their fields stand in the table beside the shape file.
WindFarmImport ReadWindFarmShape(FileSystem& files, std::string_view path, std::string_view farm);

/// By the extension of the path: "shp", "json" and "geojson", else CSV. Without a name of the farm it is called after
/// the file.
WindFarmImport ReadWindFarmFile(FileSystem& files, std::string_view path, std::string_view farm);

}  // namespace quillon
