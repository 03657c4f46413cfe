#include "features/job_features.h"

#include <initializer_list>
#include <numeric>
#include <set>
#include <string>

#include "foundation/folders.h"
#include "foundation/paths.h"

namespace quillon {

JobFeatures::JobFeatures(FileSystem& files)
    : boundaries(files), waypoints(files), pipelines(files), pipeRoute(files), routes(files), sailLines(files) {
    boundaries.SetSettingsName("Boundary List");
    routes.SetSettingsName("Route List");
    sailLines.SetSettingsName("Sail Line List");
}

void JobFeatures::Load() {
    LoadFileList(boundaries);
    LoadFileList(waypoints);
    LoadFileList(pipelines);
    LoadFileList(routes);
    LoadFileList(sailLines);
    const std::string active = ReadActivePipeline(routes.GetFiles());
    if (!active.empty()) pipeRoute.Load(active);
}

std::size_t JobFeatures::ClearLeftovers() {
    FileSystem& files = routes.GetFiles();
    std::set<std::string> folders = {FolderOfPath(GetSettingsPath(files, "")), FolderOfPath(pipeRoute.GetPath())};
    for (const char* const kind : {"Boundaries", "Routes"}) folders.insert(GetDataFolder(files, kind));
    for (const CFileListBase* const list :
         std::initializer_list<const CFileListBase*>{&boundaries, &waypoints, &pipelines, &routes, &sailLines}) {
        for (int i = 0; i < list->GetCount(); ++i) folders.insert(FolderOfPath(list->GetPath(i)));
    }
    folders.erase("");
    return std::accumulate(folders.begin(), folders.end(), std::size_t{0},
                           [&](std::size_t count, const auto& folder) { return count + files.ClearLeftovers(folder); });
}

}  // namespace quillon
