#include "geodesy/batch_kernels.h"

namespace quillon {

extern const BatchKernels kAvx2Kernels;
const BatchKernels kAvx2Kernels = {"avx2", LaneLoops<4>::Forward, LaneLoops<4>::Inverse, LaneLoops<4>::Distance,
                                   LaneLoops<4>::Legs};

}  // namespace quillon
