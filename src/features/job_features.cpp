#include "features/job_features.h"

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

}  // namespace quillon
