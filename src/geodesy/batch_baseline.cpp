#include "geodesy/batch_kernels.h"

namespace quillon {

// Two doubles at a time: what every processor of the supported families has.
extern const BatchKernels kBaselineKernels;
const BatchKernels kBaselineKernels = {"baseline", LaneLoops<2>::Forward, LaneLoops<2>::Inverse, LaneLoops<2>::Distance,
                                       LaneLoops<2>::Legs};

}  // namespace quillon
