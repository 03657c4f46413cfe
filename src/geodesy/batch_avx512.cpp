#include "geodesy/batch_kernels.h"

namespace quillon {

extern const BatchKernels kAvx512Kernels;
const BatchKernels kAvx512Kernels = {
    "avx512", 8, [] { return __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq"); },
    LaneLoops<8>::Forward, LaneLoops<8>::Distance};

}  // namespace quillon
