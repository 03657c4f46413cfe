#include "geodesy/batch_kernels.h"

namespace quillon {

extern const BatchKernels kAvx512Kernels;
const BatchKernels kAvx512Kernels = {"avx512", LaneLoops<8>::Forward, LaneLoops<8>::Inverse, LaneLoops<8>::Distance,
                                     LaneLoops<8>::Legs};

}  // namespace quillon
