#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace quillon {

/// Powers of ten that a double holds exactly.
inline constexpr std::array<double, 23> kPowersOfTen = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                        1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                        1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

/// Takes a plain decimal ("-6001234.567") of up to 19 digits, read in the same pass that finds its end; the result is
/// the place behind it. Where the digits fit a double's 53 bits, the one division by an exact power of ten rounds
/// correctly (William D. Clinger, How to Read Floating Point Numbers Accurately, 1990). Null for everything else, which
/// then goes the long way; what follows the digits is the caller's to judge. 2.2 times the rate of the long way on a
/// file of a million points (field_scanner_bench).
inline const char* TakePlainNumber(const char* p, const char* end, double& value) {
    constexpr std::uint64_t kLargestExact = std::uint64_t{1} << 53;
    constexpr std::ptrdiff_t kMostDigits = 19;
    const bool negative = p != end && *p == '-';
    if (negative) ++p;
    std::uint64_t digits = 0;
    const auto takeDigits = [&] {
        const char* const start = p;
        for (unsigned digit; p != end && (digit = static_cast<unsigned char>(*p) - unsigned{'0'}) < 10; ++p) {
            digits = digits * 10 + digit;
        }
        return p - start;
    };
    std::ptrdiff_t count = takeDigits();
    std::ptrdiff_t decimals = 0;
    if (p != end && *p == '.') {
        ++p;
        decimals = takeDigits();
        count += decimals;
    }
    if (count == 0 || count > kMostDigits || digits > kLargestExact) return nullptr;
    const auto magnitude = static_cast<double>(static_cast<std::int64_t>(digits));
    value = magnitude / kPowersOfTen[static_cast<std::size_t>(decimals)];
    if (negative) value = -value;
    return p;
}

/// Takes the number at the front of a text as a scan for a decimal does: sign, digits, point, exponent, as far as they
/// go. The place behind it, or null if there is no number; an overflow gives an infinity. No white space is passed
/// over.
const char* TakeAnyNumber(const char* p, const char* end, double& value);

/// The same, with the fast way for what is plain.
inline const char* TakeNumber(const char* p, const char* end, double& value) {
    const char* const behind = TakePlainNumber(p, end, value);
    const bool plain = behind && (behind == end || (*behind != 'e' && *behind != 'E'));
    return plain ? behind : TakeAnyNumber(p, end, value);
}

}  // namespace quillon
