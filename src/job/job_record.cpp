#include "job/job_record.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <set>
#include <string>
#include <string_view>

#include "foundation/folders.h"
#include "foundation/paths.h"
#include "job/kinds.h"
#include "platform/text.h"

namespace quillon {
namespace {

constexpr std::array<std::string_view, 4> kSettingsExtensions = {"INI", "DRW", "COR", "DXI"};
/// What stands behind the name of a data file in the names of its settings files.
constexpr std::array<std::string_view, 4> kSettingsSuffixes = {"_PIPELINE", "_GRID_WAYPOINT", "_DATA_ORDER", "_RPL"};

/// As it stands in the names of settings files.
std::string SettingsName(std::string_view name) {
    std::string settingsName = ToUpper(name);
    std::replace(settingsName.begin(), settingsName.end(), ' ', '_');
    return settingsName;
}

/// Of a plot's centre, as receivers give it.
CEllipsoid WorldEllipsoid() {
    CEllipsoid ellipsoid;
    ellipsoid.SetEllipsoid(CEllipsoid::kWgs84);
    return ellipsoid;
}

/// The name of the data files whose settings a file may hold; empty if it is no settings file.
std::string SettingsOwner(const std::string& path) {
    const tagPathParts parts = SplitPath(path);
    const bool isSettings = std::any_of(kSettingsExtensions.begin(), kSettingsExtensions.end(),
                                        [&](std::string_view known) { return EqualNoCase(parts.extension, known); });
    if (!isSettings) return {};
    std::string name = SettingsName(parts.name);
    for (const std::string_view suffix : kSettingsSuffixes) {
        if (name.ends_with(suffix)) name.resize(name.size() - suffix.size());
    }
    return name;
}

}  // namespace

bool MayHoldSettingsOf(const std::string& path, const std::string& dataPath) {
    const std::string owner = SettingsOwner(path);
    return !owner.empty() && SettingsName(SplitPath(dataPath).name) == owner;
}

JobRecord::JobRecord(FileSystem& files)
    : boundaries(files),
      waypoints(files),
      pipelines(files),
      pipeRoute(files),
      routes(files),
      sailLines(files),
      rpls(files),
      structures(files),
      dtm(files),
      shapes(files),
      digs(files),
      drawings(files),
      gpx(files),
      windFarms(files),
      geodesy(files),
      vessels(files, "Vessel List", {waypoints, sailLines, geodesy}),
      templates(files, "Template List", {waypoints, sailLines, geodesy}),
      targetPlot(WorldEllipsoid()) {
    boundaries.SetSettingsName("Boundary List");
    routes.SetSettingsName("Route List");
    sailLines.SetSettingsName("Sail Line List");
    structures.SetSettingsName("Structure List");
    shapes.name = "Shape File List";
    files.AddWatcher(*this);
}

JobRecord::~JobRecord() {
    routes.GetFiles().RemoveWatcher(*this);
}

void JobRecord::Load() {
    geodesy.Load();
    for (const JobKind& kind : JobKinds()) kind.load(*this);
    vessels.Load();
    templates.Load();
    targetPlot.Load(routes.GetFiles());
    gpx.ReadSettings();
    windFarms.ReadSettings();
}

void JobRecord::OnFileWritten(const std::string& path) {
    const std::string owner = SettingsOwner(path);
    if (owner.empty() || !following) return;
    for (const JobKind& kind : JobKinds()) {
        for (int i = 0; i < kind.fileCount(*this); ++i) {
            if (SettingsName(SplitPath(kind.path(*this, i)).name) == owner) kind.followStored(*this, i);
        }
    }
}

bool JobRecord::ReadTargetsRestored(std::span<const std::string> paths) {
    const bool vessel = vessels.ReadRestored(paths);
    const bool object = templates.ReadRestored(paths);
    const std::string plot = CTargetPlot::SettingsPath(routes.GetFiles());
    const bool isPlot =
        std::any_of(paths.begin(), paths.end(), [&plot](const std::string& path) { return EqualNoCase(path, plot); });
    if (isPlot) {
        // Without its file it is as at the first start.
        CTargetPlot stored(targetPlot.ellipsoid);
        stored.Load(routes.GetFiles());
        targetPlot = stored;
    }
    return vessel || object || isPlot;
}

void JobRecord::KeepUnsaved() {
    for (const JobKind& kind : JobKinds()) {
        if (!kind.keepUnsaved) continue;
        for (int i = 0; i < kind.fileCount(*this); ++i) kind.keepUnsaved(*this, i);
    }
}

std::size_t JobRecord::ClearLeftovers() {
    FileSystem& files = routes.GetFiles();
    std::set<std::string> folders = {FolderOfPath(GetSettingsPath(files, ""))};
    for (const char* const data : {"Boundaries", "Routes", "Vessel"}) folders.insert(GetDataFolder(files, data));
    for (const JobKind& kind : JobKinds()) {
        for (int i = 0; i < kind.fileCount(*this); ++i) folders.insert(FolderOfPath(kind.path(*this, i)));
    }
    folders.erase("");
    return std::accumulate(folders.begin(), folders.end(), std::size_t{0},
                           [&](std::size_t count, const auto& folder) { return count + files.ClearLeftovers(folder); });
}

}  // namespace quillon
