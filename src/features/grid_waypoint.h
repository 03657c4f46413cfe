#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "features/file_list.h"
#include "features/source_file.h"
#include "foundation/settings_lines.h"
#include "foundation/values.h"
#include "platform/display_options.h"
#include "platform/palette.h"

namespace quillon {

/// One waypoint or obstruction; metres.
struct GridWaypointDef {
    double easting = 0.0;
    double northing = 0.0;
    double height = 0.0;
    std::string name;
    double radius = 0.0;
};

class CGridWaypointArray : public CArray<GridWaypointDef> {};

/// A data order: its text, and the fields of a line in their order, one letter each: E easting, N northing, H height, T
/// name, R radius.
struct WaypointOrder {
    std::string_view text;
    std::string_view fields;

    constexpr bool Has(char field) const { return fields.find(field) != std::string_view::npos; }
    constexpr bool HasName() const { return Has('T'); }
    constexpr bool HasHeight() const { return Has('H'); }
    constexpr bool HasRadius() const { return Has('R'); }
};

// clang-format off
inline constexpr std::array<WaypointOrder, 10> kWaypointOrders = {{
    {"Eng, Nng, Ht, Name",         "ENHT"},   // 0
    {"Name, Eng, Nng, Ht",         "TENH"},   // 1
    {"Eng, Nng, Name",             "ENT"},    // 2
    {"Name, Eng, Nng",             "TEN"},    // 3
    {"Eng, Nng, Ht",               "ENH"},    // 4
    {"Eng, Nng",                   "EN"},     // 5
    {"Eng, Nng, Radius",           "ENR"},    // 6
    {"Eng, Nng, Ht, Radius",       "ENHR"},   // 7
    {"Name, Eng, Nng, Radius",     "TENR"},   // 8
    {"Name, Eng, Nng, Ht, Radius", "TENHR"},  // 9
}};
// clang-format on

/// What the settings file of a waypoint file holds, with the values that hold where there is none.
struct WaypointSettings {
    std::int32_t dataOrder = 0;
    bool display = true;
    double clearance = 10.0;
    double tolerance = 25.0;
    std::int16_t symbol = 9;
    COLORREF colour = RGB(255, 255, 0);
    SYMBOL_SIZE symbolSize = 2;
    SYMBOL_LABEL_MODE labelMode = 0;
    LABEL_POSITION labelPosition = 0;
    bool drawRings = false;
    std::int16_t ringCount = 1;
    double ringSizeMetres = 50.0;
    double ringSizeNm = 1.0;
    COLORREF ringColour = RGB(255, 0, 255);
    bool catenaryMode = false;
    friend bool operator==(const WaypointSettings&, const WaypointSettings&) = default;
};

/// A waypoint file. Its fields stand in the order that the operator chose for it; the settings, with that order, lie in
/// the settings folder under the file's name, so two files of one name share them.
class CGridWaypoint : public CGridWaypointArray, public WaypointSettings, public CSourceFile {
public:
    explicit CGridWaypoint(FileSystem& fileSystem) : files(fileSystem) {}

    /// Reads the settings, then the file by their data order. True if a point was taken. If the file can't be opened,
    /// nothing but the points changes, which are gone.
    bool Read(std::string_view path);
    /// As Read, but with the settings as they stand.
    bool ReadData(std::string_view path);

    /// The points alone, from an opened file, with the settings as they stand. True if one was taken.
    bool ReadFrom(CStdioFile& file);

    /// Reads the points anew, with the settings as they stand. False, with the points as they were, if the file can't
    /// be opened.
    bool ReadAgain();
    /// Whether there is no data: a file of no use that keeps its place in the list.
    bool IsStub() const { return IsEmpty(); }

    void LoadSettings();
    /// What another file of that name has stored meanwhile is taken over first. Skipped if the file can't be written.
    void SaveSettings();
    /// Takes over what another file of that name has stored, the points with the data order; false if nothing.
    bool FollowStored();
    /// Reads everything but the data anew, as at a start, with all that hangs on it; the data only where their order is
    /// another. False if all is what it was.
    bool ReadStored();

    /// Gives nameless points their names: "Wpt n" by their place, from 1. In the orders without a name all are named
    /// so.
    void FillNames();
    /// InvalidArgument for an index outside the array.
    void SetPoint(Index index, double easting, double northing, double height, std::string_view name, double radius);

    const std::string& GetPath() const { return path; }
    /// Without a look at the file or its settings.
    void SetPath(std::string_view newPath);
    /// The data order in force; one outside the table reads as the first.
    const WaypointOrder& Order() const;

private:
    bool ReadFile(std::string_view newPath, bool withSettings);
    std::string SettingsName() const;

    FileSystem& files;
    std::string path;
    StoredLines stored;
};

/// The list keeps one file, GetSettingsPath("GRID Waypoints", "FLS"), under a head without a text, and no cursor file.
class CGridWaypointList : public CFileList<CGridWaypoint> {
public:
    explicit CGridWaypointList(FileSystem& fileSystem);

protected:
    /// A file without a usable point is dropped.
    bool AppendFile(std::string_view path, bool keepUseless) override;
    std::string_view GetSection() const override { return {}; }
    bool HasCursorFile() const override { return false; }
};

}  // namespace quillon
