#include "geodesy/batch_kernels.h"

namespace quillon {

extern const BatchKernels kAvx2Kernels;
const BatchKernels kAvx2Kernels = {"avx2", 4,
                                   [] { return __builtin_cpu_supports("avx2") && __builtin_cpu_supports("fma"); },
                                   LaneLoops<4>::Forward, LaneLoops<4>::Distance};

}  // namespace quillon
