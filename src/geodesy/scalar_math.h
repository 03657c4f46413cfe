#pragma once

#include <cmath>

namespace quillon {

/// The mathematics of one value, for `Formulas` and `RudoeDistance`: the C library's.
struct ScalarMath {
    using Value = double;
    using Mask = bool;

    static bool All(bool mask) { return mask; }
    static void SinCos(double x, double& sine, double& cosine) {
        sine = std::sin(x);  // the compiler makes one call of the two
        cosine = std::cos(x);
    }
    static double Abs(double x) { return std::fabs(x); }
    static double Sqrt(double x) { return std::sqrt(x); }
    static double Exp(double x) { return std::exp(x); }
    static double Log(double x) { return std::log(x); }
    static double Atan(double x) { return std::atan(x); }
    static double Atan2(double y, double x) { return std::atan2(y, x); }
};

}  // namespace quillon
