#include "features/job_features.h"

namespace quillon {

JobFeatures::JobFeatures(FileSystem& files) : boundaries(files) {
    boundaries.SetSettingsName("Boundary List");
}

void JobFeatures::Load() {
    LoadFileList(boundaries);
}

}  // namespace quillon
