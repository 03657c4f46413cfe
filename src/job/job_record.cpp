#include "job/job_record.h"

#include <numeric>
#include <set>
#include <string>

#include "foundation/folders.h"
#include "foundation/paths.h"
#include "job/kinds.h"

namespace quillon {

JobRecord::JobRecord(FileSystem& files)
    : boundaries(files),
      waypoints(files),
      pipelines(files),
      pipeRoute(files),
      routes(files),
      sailLines(files),
      structures(files) {
    boundaries.SetSettingsName("Boundary List");
    routes.SetSettingsName("Route List");
    sailLines.SetSettingsName("Sail Line List");
    structures.SetSettingsName("Structure List");
}

void JobRecord::Load() {
    for (const JobKind& kind : JobKinds()) kind.load(*this);
}

std::size_t JobRecord::ClearLeftovers() {
    FileSystem& files = routes.GetFiles();
    std::set<std::string> folders = {FolderOfPath(GetSettingsPath(files, ""))};
    for (const char* const data : {"Boundaries", "Routes"}) folders.insert(GetDataFolder(files, data));
    for (const JobKind& kind : JobKinds()) {
        for (int i = 0; i < kind.fileCount(*this); ++i) folders.insert(FolderOfPath(kind.path(*this, i)));
    }
    folders.erase("");
    return std::accumulate(folders.begin(), folders.end(), std::size_t{0},
                           [&](std::size_t count, const auto& folder) { return count + files.ClearLeftovers(folder); });
}

}  // namespace quillon
