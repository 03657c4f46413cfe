#include "features/wind_farm_import.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <nlohmann/json.hpp>
#include <optional>
#include <span>
#include <utility>

#include "background/shape.h"
#include "foundation/angle_units.h"
#include "foundation/paths.h"
#include "platform/text.h"

namespace quillon {
namespace {

using nlohmann::json;

constexpr std::size_t kMostBytes = std::size_t{256} << 20;
constexpr double kPole = 90.0;
constexpr double kHalfTurn = 180.0;

// ---- Fields by their names ----

enum class FIELD {
    ID,
    FARM,
    TITLE,
    LATITUDE,
    LONGITUDE,
    REMARKS,
    MAX_HEIGHT,
    LIGHTS,
    RADIO,
    FOG,
    NOTE,
    BLADE_RADIUS,
    ROTOR_DIAMETER,
    STRUCTURE_HEIGHT,
    NONE
};

/// What a field is called, in lower case without blanks and signs; of several that a file has the earlier one counts.
struct FieldName {
    std::string_view name;
    FIELD field;
};
constexpr FieldName kFieldNames[] = {
    {"id", FIELD::ID},
    {"turbineid", FIELD::ID},
    {"turbine", FIELD::ID},
    {"name", FIELD::ID},
    {"windfarm", FIELD::FARM},
    {"farm", FIELD::FARM},
    {"farmname", FIELD::FARM},
    {"windfarmname", FIELD::FARM},
    {"site", FIELD::FARM},
    {"title", FIELD::TITLE},
    {"latitude", FIELD::LATITUDE},
    {"lat", FIELD::LATITUDE},
    {"y", FIELD::LATITUDE},
    {"longitude", FIELD::LONGITUDE},
    {"lon", FIELD::LONGITUDE},
    {"long", FIELD::LONGITUDE},
    {"lng", FIELD::LONGITUDE},
    {"x", FIELD::LONGITUDE},
    {"remarks", FIELD::REMARKS},
    {"remark", FIELD::REMARKS},
    {"maxheight", FIELD::MAX_HEIGHT},
    {"tipheight", FIELD::MAX_HEIGHT},
    {"navigationlights", FIELD::LIGHTS},
    {"lights", FIELD::LIGHTS},
    {"radioradar", FIELD::RADIO},
    {"racon", FIELD::RADIO},
    {"fogsignal", FIELD::FOG},
    {"note", FIELD::NOTE},
    {"notes", FIELD::NOTE},
    {"bladeradius", FIELD::BLADE_RADIUS},
    {"rotorradius", FIELD::BLADE_RADIUS},
    {"rotordiameter", FIELD::ROTOR_DIAMETER},
    {"structureheight", FIELD::STRUCTURE_HEIGHT},
    {"hubheight", FIELD::STRUCTURE_HEIGHT},
};

std::string PlainName(std::string_view name) {
    std::string plain;
    for (const char c : name) {
        const bool isLetter = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9');
        const char lower = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        if (isLetter || lower != c) plain += lower;
    }
    return plain;
}

/// The values of one row or feature: Windows-1252, asked for by what they mean.
class FieldValues {
public:
    /// `columns` are the names as they stand in the file.
    explicit FieldValues(const std::vector<std::string>& columns) {
        places.fill(-1);
        for (const FieldName& known : kFieldNames) {
            int& place = places[static_cast<std::size_t>(known.field)];
            for (std::size_t i = 0; place < 0 && i < columns.size(); ++i) {
                if (PlainName(columns[i]) == known.name) place = static_cast<int>(i);
            }
        }
    }
    bool Has(FIELD field) const { return places[static_cast<std::size_t>(field)] >= 0; }
    std::string Of(FIELD field) const {
        const int place = places[static_cast<std::size_t>(field)];
        return place >= 0 && static_cast<std::size_t>(place) < values.size() ? values[static_cast<std::size_t>(place)]
                                                                             : std::string();
    }

    std::vector<std::string> values;

private:
    std::array<int, static_cast<std::size_t>(FIELD::NONE)> places;
};

std::optional<double> NumberOf(std::string_view text) {
    double number = 0.0;
    if (!ScanNumber(Trim(text), number) || !std::isfinite(number)) return std::nullopt;
    return number;
}

float FloatOf(std::string_view text) {
    const std::optional<double> number = NumberOf(text);
    return number && std::fabs(*number) < 1e6 ? static_cast<float>(*number) : kUnknownFloat;
}

/// Radians; none for what is no position.
std::optional<tagXY> PositionOf(double longitude, double latitude) {
    if (!(std::fabs(latitude) <= kPole) || !(std::fabs(longitude) <= kHalfTurn)) return std::nullopt;
    return tagXY{longitude / kDegreesPerRadian, latitude / kDegreesPerRadian};
}

bool IsSubstation(const TurbineDef& turbine) {
    const std::string id = ToUpper(turbine.id);
    return id.find("OSS") != std::string::npos || id.find("SUBSTATION") != std::string::npos;
}

/// Puts turbines and sites together, whatever form they come from.
class ImportBuilder {
public:
    ImportBuilder(WindFarmImport& target, std::string_view farmName) : import(target), farm(farmName) {}

    void AddTurbine(const FieldValues& fields, tagXY position) {
        TurbineDef turbine;
        turbine.id = Trim(fields.Of(FIELD::ID));
        turbine.farm = FarmOf(fields);
        if (turbine.id.empty()) turbine.id = Format("%zu", import.turbines.size() + 1);
        turbine.title = fields.Of(FIELD::TITLE);
        turbine.longitude = position.x;
        turbine.latitude = position.y;
        turbine.remarks = fields.Of(FIELD::REMARKS);
        turbine.maxHeight = FloatOf(fields.Of(FIELD::MAX_HEIGHT));
        turbine.navigationLights = fields.Of(FIELD::LIGHTS);
        turbine.radioRadar = fields.Of(FIELD::RADIO);
        turbine.fogSignal = fields.Of(FIELD::FOG);
        turbine.note = fields.Of(FIELD::NOTE);
        turbine.bladeRadius = FloatOf(fields.Of(FIELD::BLADE_RADIUS));
        const float diameter = FloatOf(fields.Of(FIELD::ROTOR_DIAMETER));
        if (turbine.bladeRadius == kUnknownFloat && diameter != kUnknownFloat) turbine.bladeRadius = diameter / 2;
        turbine.structureHeight = FloatOf(fields.Of(FIELD::STRUCTURE_HEIGHT));
        turbine.image = IsSubstation(turbine) ? 1 : 0;
        import.turbines.push_back(std::move(turbine));
    }

    /// A site goes by its field for the farm, else by its own name.
    void AddSite(const FieldValues& fields, std::vector<std::vector<tagXY>> rings) {
        std::string name(Trim(fields.Of(fields.Has(FIELD::FARM) ? FIELD::FARM : FIELD::ID)));
        if (name.empty()) name = farm;
        const auto same = std::find_if(import.farms.begin(), import.farms.end(),
                                       [&](const WindFarmDef& known) { return known.name == name; });
        WindFarmDef& site = same == import.farms.end() ? import.farms.emplace_back(WindFarmDef{name, {}, {}}) : *same;
        for (std::vector<tagXY>& ring : rings) site.boundary.push_back(std::move(ring));
    }

    void PassOver(std::size_t place) {
        if (import.passedOver++ == 0) import.firstPassed = place;
    }

    /// Turbines without a farm belong to the only site of the file.
    void Finish() {
        const bool toSite = import.farms.size() == 1;
        for (TurbineDef& turbine : import.turbines) {
            if (turbine.farm.empty()) turbine.farm = toSite ? import.farms.front().name : farm;
        }
        CompleteFarms(import.turbines, import.farms);
        if (import.IsEmpty() && import.fault.empty()) import.fault = "no turbine and no site";
    }

private:
    static std::string FarmOf(const FieldValues& fields) { return std::string(Trim(fields.Of(FIELD::FARM))); }

    WindFarmImport& import;
    std::string farm;
};

// ---- CSV ----

/// The fields of one row, which may go over several lines where a quoted text has line ends. False at the end.
bool TakeCsvRow(std::string_view& rest, std::vector<std::string>& fields) {
    fields.clear();
    if (rest.empty()) return false;
    std::string field;
    bool quoted = false;
    std::size_t i = 0;
    for (; i < rest.size(); ++i) {
        const char c = rest[i];
        if (quoted) {
            if (c != '"') {
                field += c;
            } else if (i + 1 < rest.size() && rest[i + 1] == '"') {
                field += rest[++i];
            } else {
                quoted = false;
            }
        } else if (c == '"' && field.empty()) {
            quoted = true;
        } else if (c == ',') {
            fields.push_back(TextFromUtf8(std::exchange(field, {})));
        } else if (c == '\n') {
            break;
        } else if (c != '\r') {
            field += c;
        }
    }
    fields.push_back(TextFromUtf8(field));
    rest.remove_prefix(std::min(i + 1, rest.size()));
    return true;
}

// ---- GeoJSON ----

const json* Member(const json& object, const char* key) {
    if (!object.is_object()) return nullptr;
    const auto found = object.find(key);
    return found == object.end() ? nullptr : &*found;
}

std::string TextOf(const json& value) {
    if (value.is_string()) return TextFromUtf8(value.get_ref<const std::string&>());
    if (!value.is_number()) return {};
    std::string text;
    AppendShortest(text, value.get<double>());
    return text;
}

std::string MemberText(const json& object, const char* key) {
    const json* const value = Member(object, key);
    return value ? TextOf(*value) : std::string();
}

FieldValues PropertiesOf(const json& feature) {
    std::vector<std::string> names, values;
    if (const json* const properties = Member(feature, "properties"); properties && properties->is_object()) {
        for (const auto& [name, value] : properties->items()) {
            names.push_back(name);
            values.push_back(TextOf(value));
        }
    }
    if (const std::string id = MemberText(feature, "id"); !id.empty()) {
        names.emplace_back("id");
        values.push_back(id);
    }
    FieldValues fields(names);
    fields.values = std::move(values);
    return fields;
}

std::optional<tagXY> JsonPosition(const json& at) {
    if (!at.is_array() || at.size() < 2 || !at[0].is_number() || !at[1].is_number()) return std::nullopt;
    return PositionOf(at[0].get<double>(), at[1].get<double>());
}

std::optional<std::vector<tagXY>> JsonRing(const json& ring) {
    std::vector<tagXY> points;
    if (!ring.is_array()) return std::nullopt;
    for (const json& at : ring) {
        const std::optional<tagXY> position = JsonPosition(at);
        if (!position) return std::nullopt;
        points.push_back(*position);
    }
    return points.size() < 3 ? std::nullopt : std::optional(std::move(points));
}

bool AddRings(const json& polygon, std::vector<std::vector<tagXY>>& rings) {
    if (!polygon.is_array()) return false;
    for (const json& ring : polygon) {
        std::optional<std::vector<tagXY>> points = JsonRing(ring);
        if (!points) return false;
        rings.push_back(std::move(*points));
    }
    return !polygon.empty();
}

/// False where the geometry is another one, or has no positions.
bool TakeGeometry(const json& feature, ImportBuilder& builder) {
    const json* const geometry = Member(feature, "geometry");
    const json* const places = geometry ? Member(*geometry, "coordinates") : nullptr;
    if (!places) return false;
    const std::string type = MemberText(*geometry, "type");
    const FieldValues fields = PropertiesOf(feature);
    if (type == "Point") {
        const std::optional<tagXY> at = JsonPosition(*places);
        if (at) builder.AddTurbine(fields, *at);
        return at.has_value();
    }
    std::vector<std::vector<tagXY>> rings;
    bool taken = type == "Polygon" && AddRings(*places, rings);
    if (type == "MultiPolygon" && places->is_array() && !places->empty()) {
        taken = std::all_of(places->begin(), places->end(), [&](const json& part) { return AddRings(part, rings); });
    }
    if (taken) builder.AddSite(fields, std::move(rings));
    return taken;
}

// ---- Shape files ----

/// Radians; empty where a vertex is no position.
std::vector<std::vector<tagXY>> RingsOf(const ShapeRecord& record) {
    std::vector<std::vector<tagXY>> rings;
    std::size_t part = 0;
    for (std::size_t i = 0; i < record.GetVertexCount(); ++i) {
        const std::optional<tagXY> at = PositionOf(record.X()[i], record.Y()[i]);
        if (!at) return {};
        const std::span<const int> starts = record.PartStarts();
        if (part < starts.size() && static_cast<std::size_t>(starts[part]) == i) {
            rings.emplace_back();
            ++part;
        }
        if (rings.empty()) rings.emplace_back();
        rings.back().push_back(*at);
    }
    return rings;
}

bool IsPointType(int type) {
    return type == SHAPE_POINT || type == SHAPE_POINT_Z || type == SHAPE_POINT_M;
}
bool IsPolygonType(int type) {
    return type == SHAPE_POLYGON || type == SHAPE_POLYGON_Z || type == SHAPE_POLYGON_M;
}

bool TakeRecord(const ShapeRecord& record, const FieldValues& fields, ImportBuilder& builder) {
    std::vector<std::vector<tagXY>> rings = RingsOf(record);
    if (rings.empty()) return false;
    if (IsPointType(record.type)) {
        builder.AddTurbine(fields, rings.front().front());
    } else if (IsPolygonType(record.type)) {
        builder.AddSite(fields, std::move(rings));
    } else {
        return false;
    }
    return true;
}

}  // namespace

WindFarmImport ReadWindFarmCsv(std::string_view bytes, std::string_view farm) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    WindFarmImport import;
    if (bytes.starts_with(kMark)) bytes.remove_prefix(kMark.size());
    const std::string_view whole = bytes;
    const auto line = [&](std::string_view rest) {
        const auto behind = whole.end() - static_cast<std::ptrdiff_t>(rest.size());
        return static_cast<std::size_t>(std::count(whole.begin(), behind, '\n')) + 1;
    };
    std::vector<std::string> row;
    TakeCsvRow(bytes, row);
    FieldValues fields(row);
    if (!fields.Has(FIELD::LATITUDE) || !fields.Has(FIELD::LONGITUDE)) {
        import.fault = "no header with latitude and longitude";
        return import;
    }
    ImportBuilder builder(import, farm);
    for (std::string_view start = bytes; TakeCsvRow(bytes, fields.values); start = bytes) {
        if (fields.values.size() == 1 && Trim(fields.values.front()).empty()) continue;
        const std::optional<double> latitude = NumberOf(fields.Of(FIELD::LATITUDE));
        const std::optional<double> longitude = NumberOf(fields.Of(FIELD::LONGITUDE));
        const std::optional<tagXY> at =
            latitude && longitude ? PositionOf(*longitude, *latitude) : std::optional<tagXY>();
        if (at) {
            builder.AddTurbine(fields, *at);
        } else {
            builder.PassOver(import.passedOver == 0 ? line(start) : 0);
        }
    }
    builder.Finish();
    return import;
}

WindFarmImport ReadWindFarmGeoJson(std::string_view bytes, std::string_view farm) {
    WindFarmImport import;
    const json document = json::parse(bytes.begin(), bytes.end(), nullptr, false);
    if (document.is_discarded()) {
        import.fault = "no JSON file";
        return import;
    }
    ImportBuilder builder(import, farm);
    const json* const features = Member(document, "features");
    if (features && features->is_array()) {
        std::size_t place = 0;
        for (const json& feature : *features) {
            ++place;
            if (!TakeGeometry(feature, builder)) builder.PassOver(place);
        }
    } else if (!TakeGeometry(document, builder)) {
        import.fault = "no GeoJSON file";
        return import;
    }
    builder.Finish();
    return import;
}

WindFarmImport ReadWindFarmShape(FileSystem& files, std::string_view path, std::string_view farm) {
    WindFarmImport import;
    CShape shape(files);
    LoadProgress progress;
    shape.SetPath(path);
    if (!LoadShape(shape, progress)) {
        import.fault = "can't be read";
        return import;
    }
    if (!shape.geographic) {
        import.fault = "isn't in latitude and longitude: " + shape.grid.name;
        return import;
    }
    CAttributeReader attributes(OpenerOf(files), shape.dbase.path);
    FieldValues fields(shape.dbase.columns);
    ImportBuilder builder(import, farm);
    for (std::size_t i = 0; i < shape.records.size(); ++i) {
        fields.values.clear();
        for (std::size_t column = 0; column < shape.dbase.columns.size(); ++column) {
            fields.values.push_back(attributes.GetText(static_cast<int>(i), static_cast<int>(column)));
        }
        if (!TakeRecord(shape.records[i], fields, builder)) builder.PassOver(i + 1);
    }
    builder.Finish();
    return import;
}

WindFarmImport ReadWindFarmFile(FileSystem& files, std::string_view path, std::string_view farm) {
    const tagPathParts parts = SplitPath(path);
    const std::string name(farm.empty() ? std::string_view(parts.name) : farm);
    if (EqualNoCase(parts.extension, "shp")) return ReadWindFarmShape(files, path, name);
    WindFarmImport import;
    CStdioFile file(files);
    std::string bytes;
    if (!file.OpenForReading(path, FILE_MODE::BINARY) || !file.ReadAll(bytes, kMostBytes)) {
        import.fault = "can't be read";
        return import;
    }
    const bool isJson = EqualNoCase(parts.extension, "json") || EqualNoCase(parts.extension, "geojson");
    return isJson ? ReadWindFarmGeoJson(bytes, name) : ReadWindFarmCsv(bytes, name);
}

}  // namespace quillon
