#pragma once

#include "geodesy/lane_math.h"

namespace quillon {

/// One value on the polynomials of the lanes, for the constants of grids and ellipsoids: where the C libraries of two
/// machines differ by the last bit, constants derived here are the same. For finite values of the size of angles, and
/// of what stands on an earth in metres.
struct PortableMath {
    using Value = double;
    using Mask = bool;
    using Lanes = LaneMath<2>;

    static void SinCos(double x, double& sine, double& cosine) {
        Lanes::Value s, c;
        Lanes::SinCos(Lanes::Fill(x), s, c);
        sine = s[0];
        cosine = c[0];
    }
    static double Sin(double x) {
        double s, c;
        SinCos(x, s, c);
        return s;
    }
    static double Cos(double x) {
        double s, c;
        SinCos(x, s, c);
        return c;
    }
    static double Abs(double x) { return x < 0 ? -x : x; }
    static double Sqrt(double x) { return __builtin_sqrt(x); }
    static double Exp(double x) { return Lanes::Exp(Lanes::Fill(x))[0]; }
    static double Log(double x) { return Lanes::Log(Lanes::Fill(x))[0]; }
    static double Atan(double x) { return Lanes::Atan(Lanes::Fill(x))[0]; }
    static double Atan2(double y, double x) { return Lanes::Atan2(Lanes::Fill(y), Lanes::Fill(x))[0]; }
    static double ArcSine(double x) { return Atan2(x, Sqrt((1 - x) * (1 + x))); }
    /// Of a base above 0.
    static double Power(double base, double exponent) { return Exp(exponent * Log(base)); }
    static double Sinh(double x) { return 0.5 * (Exp(x) - Exp(-x)); }
};

}  // namespace quillon
