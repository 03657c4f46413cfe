#include "job/restored.h"

namespace quillon {

std::vector<RenewedFile> ReadRestored(JobRecord& job, std::span<const std::string> paths) {
    std::vector<RenewedFile> renewed;
    const RestoredFiles restored(paths);
    for (const JobKind& kind : JobKinds()) {
        for (const int file : kind.readRestored(job, restored)) renewed.push_back({kind.id, file});
    }
    job.ReadTargetsRestored(paths);
    return renewed;
}

}  // namespace quillon
