#pragma once

namespace quillon {

/// The vector types of one width. A comparison gives a mask: all bits of a lane set, or none.
template <int kCount>
struct LaneTypes {
    typedef double Value __attribute__((vector_size(kCount * sizeof(double))));
    typedef long Mask __attribute__((vector_size(kCount * sizeof(double))));
    typedef unsigned long Unsigned __attribute__((vector_size(kCount * sizeof(double))));
};

/// The mathematics of `kCount` values at once, in the vector types of g++ and clang, for `Formulas` and
/// `RudoeDistance`. The width belongs to the instruction set that the including file is compiled for: 2 for the
/// baseline, 4 for AVX2, 8 for AVX-512. All names hang on the width, so that no function compiled for one set can stand
/// in for another's when the program is linked. Nothing here is called with values out of the stated ranges: the
/// kernels hand those to the one-value form.
///
/// The polynomials are Chebyshev fits (mpmath 1.3, chebyfit at 40 digits) of what is left of the function behind its
/// first terms; the error of each is below 4e-17 relative to the function.
template <int kCount>
struct LaneMath {
    using Value = typename LaneTypes<kCount>::Value;
    using Mask = typename LaneTypes<kCount>::Mask;
    using Unsigned = typename LaneTypes<kCount>::Unsigned;

    static constexpr double kRounder = 6755399441055744.0;  // 1.5 * 2^52: adding it rounds to a whole number

    static Value Fill(double x) { return Value{} + x; }
    static Mask Bits(Value x) { return __builtin_bit_cast(Mask, x); }
    static Value FromBits(Mask x) { return __builtin_bit_cast(Value, x); }
    /// A sum of bits that may run over: the bits of what is no number are summed like any others.
    static Mask Sum(Mask a, Mask b) {
        return __builtin_bit_cast(Mask, __builtin_bit_cast(Unsigned, a) + __builtin_bit_cast(Unsigned, b));
    }

    static Value Abs(Value x) { return FromBits(Bits(x) & 0x7fffffffffffffff); }

    static bool Any(Mask mask) {
        long long any = 0;
        for (int i = 0; i < kCount; i++) any |= mask[i];
        return any != 0;
    }
    static bool All(Mask mask) { return !Any(~mask); }

    static Value Sqrt(Value x) {
        Value root;
        for (int i = 0; i < kCount; i++) root[i] = __builtin_sqrt(x[i]);
        return root;
    }

    /// For |x| up to 1000. pi/2 is taken off in three parts, the first two of 33 bits.
    static void SinCos(Value x, Value& sine, Value& cosine) {
        const Value shifted = x * 0x1.45f306dc9c883p-1 + kRounder;
        const Value turns = shifted - kRounder;
        const Mask quadrant = Bits(shifted);
        Value r = x - turns * 0x1.921fb544p+0;
        r -= turns * 0x1.0b4611a6p-34;
        r -= turns * 0x1.3198a2e037073p-69;
        const Value z = r * r;
        Value p = 2.7557316100683029e-6 + z * (-2.5051131455427947e-8 + z * 1.5918101230274120e-10);
        p = -0.16666666666666664621 + z * (0.0083333333333309461 + z * (-0.00019841269836754970 + z * p));
        Value q = -2.7557317270560324e-7 + z * (2.0876146024689747e-9 + z * -1.1382614868556325e-11);
        q = 0.041666666666666665387 + z * (-0.0013888888888887396 + z * (0.000024801587298763433 + z * q));
        const Value sinR = r + r * z * p;
        const Value cosR = 1.0 - (0.5 * z - z * z * q);
        const Mask swap = (quadrant & 1) != 0;
        const Mask sineSign = (quadrant << 62) & kSignBit;
        const Mask cosineSign = ((quadrant + 1) << 62) & kSignBit;
        sine = FromBits(Bits(swap ? cosR : sinR) ^ sineSign);
        cosine = FromBits(Bits(swap ? sinR : cosR) ^ cosineSign);
    }

    /// Beyond 700 to either side as at 700: nothing on earth lies there.
    static Value Exp(Value x) {
        x = x > 700.0 ? Fill(700.0) : x;
        x = x < -700.0 ? Fill(-700.0) : x;
        const Value shifted = x * 0x1.71547652b82fep+0 + kRounder;
        const Value whole = shifted - kRounder;
        const Value r = x - whole * 0x1.62e42fefp-1 - whole * 0x1.473de6af278edp-34;
        Value p = 2.7557273643110295e-7 + r * (2.5105217004720745e-8 + r * 2.0914686968086877e-9);
        p = 0.00019841269874820626 + r * (0.000024801587325547741 + r * (2.7557255400206424e-6 + r * p));
        p = 0.0083333333333261351 + r * (0.0013888888888883748 + r * p);
        p = 0.5 + r * (0.16666666666666670991 + r * (0.041666666666666669755 + r * p));
        return FromBits(Sum(Bits(1.0 + (r + r * r * p)), Bits(shifted) << 52));
    }

    /// For finite x above 0, denormals left out.
    static Value Log(Value x) {
        // The mantissa comes to lie between sqrt(1/2) and sqrt(2): one more in the exponent from sqrt(2) on.
        const Unsigned raised = __builtin_bit_cast(Unsigned, Bits(x)) + (0x3ff0000000000000u - 0x3fe6a09e667f3bcdu);
        const Mask exponent = __builtin_bit_cast(Mask, raised >> 52);
        const Value m = FromBits(Sum(Bits(x), (1023 - exponent) << 52));
        const Value k = FromBits(exponent + kRounderBits) - (kRounder + 1023.0);
        const Value f = m - 1.0;
        const Value s = f / (m + 1.0);
        const Value z = s * s;
        Value p =
            0.090908978108163912 + z * (0.076931203544848321 + z * (0.066343730977982973 + z * 0.065434539439825137));
        p = 0.20000000000000439 + z * (0.14285714285401424 + z * (0.11111111195943533 + z * p));
        p = z * (0.33333333333333333232 + z * p);
        return k * 0x1.62e42fefp-1 + (2.0 * s + (2.0 * s * p + k * 0x1.473de6af278edp-34));
    }

    /// For y and x that are not both 0.
    static Value Atan2(Value y, Value x) {
        const Value absY = Abs(y), absX = Abs(x);
        const Mask steep = absY > absX;
        Value top = steep ? absX : absY;
        Value bottom = steep ? absY : absX;
        // Beyond 22.5 degrees by the angle from 45, which keeps the argument below tan(pi/8).
        const Mask nearDiagonal = top > 0.41421356237309503 * bottom;
        const Value difference = top - bottom, sum = top + bottom;
        top = nearDiagonal ? difference : top;
        bottom = nearDiagonal ? sum : bottom;
        const Value t = top / bottom;
        const Value z = t * t;
        Value p =
            0.058581328944279222 + z * (-0.050853659223442484 + z * (0.039229237138359425 + z * -0.019173922285547930));
        p = 0.11111111015117626 +
            z * (-0.090909045724873478 + z * (0.076921830598941144 + z * (-0.066645096032553861 + z * p)));
        p = -0.33333333333333330153 + z * (0.19999999999995512 + z * (-0.14285714284664818 + z * p));
        Value angle = t + t * z * p;
        angle = nearDiagonal ? angle + kQuarterPi : angle;
        angle = steep ? kHalfPi - angle : angle;
        angle = x < 0.0 ? kPi - angle : angle;
        return FromBits(Bits(angle) | (Bits(y) & kSignBit));
    }
    static Value Atan(Value x) { return Atan2(x, Fill(1.0)); }

private:
    static constexpr long long kSignBit = static_cast<long long>(0x8000000000000000);
    static constexpr long long kRounderBits = 0x4338000000000000;
    static constexpr double kQuarterPi = 0.78539816339744831;
    static constexpr double kHalfPi = 1.5707963267948966;
    static constexpr double kPi = 3.1415926535897932;
};

}  // namespace quillon
