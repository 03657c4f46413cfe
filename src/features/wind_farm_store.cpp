#include "features/wind_farm_store.h"

#include <sqlite3.h>

#include <filesystem>
#include <map>
#include <utility>

#include "foundation/angle_units.h"
#include "foundation/folders.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::string_view kFolder = "Wind Farms";
constexpr std::string_view kFile = "WindFarms.db";
/// How long another program may hold the database.
constexpr int kPatienceMs = 5000;

/// Positions are degrees: the tables are to be read with other programs too. What isn't known is null.
constexpr const char* kTables = R"(
    CREATE TABLE IF NOT EXISTS farm (name TEXT PRIMARY KEY, longitude REAL NOT NULL, latitude REAL NOT NULL);
    CREATE TABLE IF NOT EXISTS boundary (farm TEXT NOT NULL, ring INTEGER NOT NULL, place INTEGER NOT NULL,
        longitude REAL NOT NULL, latitude REAL NOT NULL, PRIMARY KEY (farm, ring, place)) WITHOUT ROWID;
    CREATE TABLE IF NOT EXISTS turbine (farm TEXT NOT NULL, id TEXT NOT NULL, image INTEGER NOT NULL, title TEXT NOT NULL,
        longitude REAL NOT NULL, latitude REAL NOT NULL, remarks TEXT NOT NULL, max_height REAL,
        navigation_lights TEXT NOT NULL, radio_radar TEXT NOT NULL, fog_signal TEXT NOT NULL, note TEXT NOT NULL,
        blade_radius REAL, structure_height REAL, PRIMARY KEY (farm, id));
    PRAGMA user_version = 1;)";

/// A statement that is run for many rows.
class Statement {
public:
    Statement(sqlite3* database, const char* text) { sqlite3_prepare_v2(database, text, -1, &handle, nullptr); }
    ~Statement() { sqlite3_finalize(handle); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    Statement& Bind(std::string_view text) {
        const std::string utf8 = Utf8FromText(text);
        sqlite3_bind_text(handle, ++bound, utf8.data(), static_cast<int>(utf8.size()), SQLITE_TRANSIENT);
        return *this;
    }
    Statement& Bind(double number) {
        sqlite3_bind_double(handle, ++bound, number);
        return *this;
    }
    Statement& Bind(int number) {
        sqlite3_bind_int(handle, ++bound, number);
        return *this;
    }
    Statement& Bind(float number) {
        if (number != kUnknownFloat) return Bind(static_cast<double>(number));
        sqlite3_bind_null(handle, ++bound);
        return *this;
    }
    Statement& BindPosition(double longitude, double latitude) {
        return Bind(longitude * kDegreesPerRadian).Bind(latitude * kDegreesPerRadian);
    }
    /// Runs it with what is bound, for a statement without rows.
    bool Run() {
        const bool done = handle && sqlite3_step(handle) == SQLITE_DONE;
        sqlite3_reset(handle);
        bound = 0;
        return done;
    }

    /// The next row; false at the end, and after a fault.
    bool Next() {
        taken = 0;
        last = handle ? sqlite3_step(handle) : SQLITE_ERROR;
        return last == SQLITE_ROW;
    }
    bool IsAtEnd() const { return last == SQLITE_DONE; }
    std::string Text() {
        const int column = taken++;
        const auto* const text = reinterpret_cast<const char*>(sqlite3_column_text(handle, column));
        const auto size = static_cast<std::size_t>(sqlite3_column_bytes(handle, column));
        return text ? TextFromUtf8({text, size}) : std::string();
    }
    double Number() { return sqlite3_column_double(handle, taken++); }
    int Integer() { return sqlite3_column_int(handle, taken++); }
    double Degrees() { return Number() / kDegreesPerRadian; }
    float Float() {
        const int column = taken++;
        if (sqlite3_column_type(handle, column) == SQLITE_NULL) return kUnknownFloat;
        return static_cast<float>(sqlite3_column_double(handle, column));
    }

private:
    sqlite3_stmt* handle = nullptr;
    int bound = 0;
    int taken = 0;
    int last = SQLITE_OK;
};

class Database {
public:
    ~Database() { sqlite3_close(handle); }
    Database() = default;
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    bool Open(const std::filesystem::path& path, int flags) {
        const bool opened = sqlite3_open_v2(path.c_str(), &handle, flags, nullptr) == SQLITE_OK;
        if (handle) sqlite3_busy_timeout(handle, kPatienceMs);
        return opened;
    }
    bool Run(const char* statements) {
        return sqlite3_exec(handle, statements, nullptr, nullptr, nullptr) == SQLITE_OK;
    }
    sqlite3* Get() const { return handle; }
    std::string Fault() const { return handle ? sqlite3_errmsg(handle) : "no memory"; }

private:
    sqlite3* handle = nullptr;
};

// ---- In ----

bool ReadFarms(Database& database, std::vector<WindFarmDef>& farms) {
    std::map<std::string, std::size_t> places;
    Statement rows(database.Get(), "SELECT name, longitude, latitude FROM farm ORDER BY name");
    while (rows.Next()) {
        WindFarmDef farm;
        farm.name = rows.Text();
        farm.position.x = rows.Degrees();
        farm.position.y = rows.Degrees();
        places[farm.name] = farms.size();
        farms.push_back(std::move(farm));
    }
    Statement vertices(database.Get(),
                       "SELECT farm, ring, longitude, latitude FROM boundary ORDER BY farm, ring, place");
    std::string farmBefore;
    int ringBefore = -1;
    while (vertices.Next()) {
        const std::string name = vertices.Text();
        const int ring = vertices.Integer();
        const auto place = places.find(name);
        if (place == places.end()) continue;
        std::vector<std::vector<tagXY>>& rings = farms[place->second].boundary;
        if (rings.empty() || ring != ringBefore || name != farmBefore) rings.emplace_back();
        farmBefore = name;
        ringBefore = ring;
        const double longitude = vertices.Degrees();
        rings.back().push_back({longitude, vertices.Degrees()});
    }
    return rows.IsAtEnd() && vertices.IsAtEnd();
}

bool ReadTurbines(Database& database, std::vector<TurbineDef>& turbines) {
    Statement rows(database.Get(),
                   "SELECT farm, id, image, title, longitude, latitude, remarks, max_height, navigation_lights, "
                   "radio_radar, fog_signal, note, blade_radius, structure_height FROM turbine ORDER BY farm, id");
    while (rows.Next()) {
        TurbineDef turbine;
        turbine.farm = rows.Text();
        turbine.id = rows.Text();
        turbine.image = rows.Integer();
        turbine.title = rows.Text();
        turbine.longitude = rows.Degrees();
        turbine.latitude = rows.Degrees();
        turbine.remarks = rows.Text();
        turbine.maxHeight = rows.Float();
        turbine.navigationLights = rows.Text();
        turbine.radioRadar = rows.Text();
        turbine.fogSignal = rows.Text();
        turbine.note = rows.Text();
        turbine.bladeRadius = rows.Float();
        turbine.structureHeight = rows.Float();
        turbines.push_back(std::move(turbine));
    }
    return rows.IsAtEnd();
}

// ---- Out ----

bool StoreTurbines(Database& database, const std::vector<TurbineDef>& turbines) {
    Statement row(database.Get(),
                  "INSERT OR REPLACE INTO turbine (farm, id, image, title, longitude, latitude, remarks, max_height, "
                  "navigation_lights, radio_radar, fog_signal, note, blade_radius, structure_height) "
                  "VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)");
    for (const TurbineDef& turbine : turbines) {
        row.Bind(turbine.farm).Bind(turbine.id).Bind(static_cast<int>(turbine.image)).Bind(turbine.title);
        row.BindPosition(turbine.longitude, turbine.latitude).Bind(turbine.remarks).Bind(turbine.maxHeight);
        row.Bind(turbine.navigationLights).Bind(turbine.radioRadar).Bind(turbine.fogSignal).Bind(turbine.note);
        row.Bind(turbine.bladeRadius).Bind(turbine.structureHeight);
        if (!row.Run()) return false;
    }
    return true;
}

bool StoreFarms(Database& database, const std::vector<WindFarmDef>& farms) {
    Statement named(database.Get(), "INSERT OR REPLACE INTO farm (name, longitude, latitude) VALUES (?, ?, ?)");
    Statement dropped(database.Get(), "DELETE FROM boundary WHERE farm = ?");
    Statement vertex(database.Get(),
                     "INSERT INTO boundary (farm, ring, place, longitude, latitude) VALUES (?, ?, ?, ?, ?)");
    for (const WindFarmDef& farm : farms) {
        if (!named.Bind(farm.name).BindPosition(farm.position.x, farm.position.y).Run()) return false;
        // Turbines alone leave the boundary that is there.
        if (!farm.boundary.empty() && !dropped.Bind(farm.name).Run()) return false;
        int ring = 0;
        for (const std::vector<tagXY>& points : farm.boundary) {
            int place = 0;
            for (const tagXY& at : points) {
                if (!vertex.Bind(farm.name).Bind(ring).Bind(place++).BindPosition(at.x, at.y).Run()) return false;
            }
            ++ring;
        }
    }
    return true;
}

}  // namespace

std::string WindFarmDatabasePath(FileSystem& files) {
    // The call that makes the data folder itself leaves its subfolder to the next one.
    GetDataFolder(files, kFolder);
    const std::string folder = GetDataFolder(files, kFolder);
    return folder.empty() ? folder : folder + std::string(kFile);
}

bool ReadWindFarms(CWindFarmList& list, std::string& fault) {
    const std::string path = WindFarmDatabasePath(list.GetFiles());
    std::vector<TurbineDef> turbines;
    std::vector<WindFarmDef> farms;
    if (!path.empty() && list.GetFiles().Exists(path)) {
        Database database;
        const bool read = database.Open(list.GetFiles().Native(path), SQLITE_OPEN_READONLY) &&
                          ReadFarms(database, farms) && ReadTurbines(database, turbines);
        if (!read) {
            fault = database.Fault();
            return false;
        }
    }
    list.Take(std::move(turbines), std::move(farms));
    return true;
}

bool StoreWindFarms(FileSystem& files, const std::vector<TurbineDef>& turbines, const std::vector<WindFarmDef>& farms,
                    std::string& fault) {
    const std::string path = WindFarmDatabasePath(files);
    if (path.empty() || files.Access() == FILE_ACCESS::READ_ONLY) {
        fault = "there is no folder for it";
        return false;
    }
    Database database;
    const bool stored = database.Open(files.Native(path), SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE) &&
                        database.Run("BEGIN IMMEDIATE") && database.Run(kTables) && StoreFarms(database, farms) &&
                        StoreTurbines(database, turbines) && database.Run("COMMIT");
    if (!stored) fault = database.Fault();
    return stored;
}

}  // namespace quillon
