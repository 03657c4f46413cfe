#include "job/restored.h"

namespace quillon {

Restored ReadRestored(JobRecord& job, std::span<const std::string> paths) {
    const RestoredFiles restored(paths);
    Restored renewed;
    const GeodesyChoice before = job.geodesy.Choice();
    job.geodesy.Load();
    renewed.geodesy = !(job.geodesy.Choice() == before);
    for (const JobKind& kind : JobKinds()) {
        for (const int file : kind.readRestored(job, restored)) renewed.files.push_back({kind.id, file});
    }
    renewed.targets = job.ReadTargetsRestored(paths);
    return renewed;
}

}  // namespace quillon
