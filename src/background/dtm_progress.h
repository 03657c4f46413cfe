#pragma once

#include "background/dtm_extents.h"
#include "background/load_progress.h"

namespace quillon {

/// The progress of a DTM load, with what its windows show besides: the extents as far as they are known, and the sample
/// just placed.
class DtmProgress : public LoadProgress {
public:
    // The work's side; any thread.

    /// Widens the extents shown. The counts are left to who shows them.
    void Publish(const DtmExtents& extents);
    /// `depth` may be MISSING_VALUE.
    void PublishSample(const tagXYZ& sample);

    // The window's side.

    DtmExtents GetExtents() const;
    tagXYZ GetSample() const;

private:
    using Number = std::atomic<double>;
    Number minEasting{MISSING_VALUE}, minNorthing{MISSING_VALUE}, minDepth{MISSING_VALUE};
    Number maxEasting{MISSING_VALUE}, maxNorthing{MISSING_VALUE}, maxDepth{MISSING_VALUE};
    Number step{0.0};
    Number sampleEasting{0.0}, sampleNorthing{0.0}, sampleDepth{0.0};
};

}  // namespace quillon
