#include "platform/text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cfloat>
#include <climits>
#include <clocale>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <random>
#include <vector>

#include "platform/errors.h"
#include "support/comma_locale.h"

namespace quillon {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

template <class... Arguments>
std::string ByPrintf(const char* format, Arguments... arguments) {
    std::string text(2000, '\0');
    text.resize(static_cast<std::size_t>(std::snprintf(text.data(), text.size(), format, arguments...)));
    return text;
}

/// Both sides get the same format and arguments; printf is the reference, since the tests run in the C locale.
template <class... Arguments>
void ExpectAsPrintf(const char* format, Arguments... arguments) {
    EXPECT_EQ(Format(format, arguments...), ByPrintf(format, arguments...)) << format;
}

/// Every magnitude, sign and number of digits, exact halves among them.
std::vector<double> SampleDoubles() {
    std::vector<double> samples = {0.0,    -0.0,    0.5,      1.5,      2.5,       0.125,     -0.375,
                                   1e15,   1e16,    123456.5, 1e-5,     1e-4,      9.9995,    999999.5,
                                   0.05,   1e22,    5e-324,   1e300,    -1e9,      0.0000005, 1e100,
                                   2.5e-8, 65535.5, DBL_MAX,  -DBL_MAX, kInfinity, -kInfinity};
    std::mt19937_64 random(417);
    for (int i = 0; i < 3000; ++i) {
        const double bits = std::bit_cast<double>(random());
        if (std::isfinite(bits)) samples.push_back(bits);
        samples.push_back(std::ldexp(static_cast<double>(static_cast<std::int64_t>(random())), -50));
        samples.push_back(static_cast<double>(static_cast<std::int32_t>(random())) / 1000.0);
        samples.push_back(static_cast<double>(static_cast<std::int32_t>(random())) / 1024.0);
    }
    return samples;
}

TEST(Format, WritesRealNumbersAsPrintf) {
    // Formats stay literals, so that the compiler checks them too.
    for (const double value : SampleDoubles()) {
        ExpectAsPrintf("%f", value);
        ExpectAsPrintf("%.3f", value);
        ExpectAsPrintf("%+09.4f|", value);
        ExpectAsPrintf("%-12.1f|", value);
        ExpectAsPrintf("% .2f", value);
        ExpectAsPrintf("%.0f %#.0f", value, value);
        ExpectAsPrintf("%012.3lf", value);
        ExpectAsPrintf("%-012.3lf|", value);
        ExpectAsPrintf("%.17f", value);
        ExpectAsPrintf("%e", value);
        ExpectAsPrintf("%.0e %#.0e", value, value);
        ExpectAsPrintf("%+015.10e", value);
        ExpectAsPrintf("%g", value);
        ExpectAsPrintf("%.0g", value);
        ExpectAsPrintf("%12.17g|", value);
        ExpectAsPrintf("%*.*f|", 14, 2, value);
        ExpectAsPrintf("%*.*f|", -14, -2, value);
        ExpectAsPrintf("%.*lf m", 16, value);
        if (HasFailure()) return;
    }
}

TEST(Format, WritesWholeNumbersAsPrintf) {
    for (const int value : {0, 1, -1, 7, 42, -42, 999, 123456, -123456, INT_MAX, INT_MIN}) {
        const auto bits = static_cast<unsigned>(value);
        ExpectAsPrintf("%d %i", value, value);
        ExpectAsPrintf("%05d|%-5d|%+d|% d|%5d", value, value, value, value, value);
        ExpectAsPrintf("%+05d|%.3d|%8.3d|%-8.3d|%08.3d|%.0d", value, value, value, value, value, value);
        ExpectAsPrintf("%u %x %X %08X %#x %#X %#010x %.5X", bits, bits, bits, bits, bits, bits, bits, bits);
        ExpectAsPrintf("%hd %hu %hhd %hhu", static_cast<short>(value), static_cast<unsigned short>(value),
                       static_cast<signed char>(value), static_cast<unsigned char>(value));
        ExpectAsPrintf("%*d|%0*d|%-*d", 9, value, 9, value, 9, value);
    }
    for (const long long value : {0LL, -1LL, LLONG_MAX, LLONG_MIN}) {
        const auto bits = static_cast<unsigned long long>(value);
        ExpectAsPrintf("%lld %20lld %llu %llX", value, value, bits, bits);
        ExpectAsPrintf("%ld %lu %lx", static_cast<long>(value), static_cast<unsigned long>(value),
                       static_cast<unsigned long>(value));
        ExpectAsPrintf("%zu %zd", static_cast<std::size_t>(value), static_cast<std::ptrdiff_t>(value));
    }
}

TEST(AppendFixed, WritesAsPrintf) {
    for (const double value : SampleDoubles()) {
        for (const int decimals : {0, 1, 3, 16, 60}) {
            std::string text = "x";
            AppendFixed(text, value, decimals);
            ASSERT_EQ(text, "x" + ByPrintf("%.*f", decimals, value));
        }
    }
    std::string text;
    AppendFixed(text, 1.5, -1);
    AppendFixed(text, std::nan(""), 2);
    EXPECT_EQ(text, "2nan");
}

TEST(AppendShortest, TakesTheFewestDigitsThatReadBack) {
    for (const double value : SampleDoubles()) {
        if (!std::isfinite(value)) continue;  // "inf" is no number to Atof
        std::string text;
        AppendShortest(text, value);
        ASSERT_EQ(Atof(text), value) << text;
    }
    const std::vector<std::pair<double, const char*>> forms = {
        {0.1 + 0.2, "0.30000000000000004"},   {500000, "500000"}, {-87.5, "-87.5"},     {0, "0"},
        {123456789012345, "123456789012345"}, {1e15, "1e+15"},    {0.00001, "0.00001"}, {2.5e-7, "2.5e-07"}};
    for (const auto& [value, expected] : forms) {
        std::string text;
        AppendShortest(text, value);
        EXPECT_EQ(text, expected);
    }
}

// ---- Reading numbers ----

bool SameNumber(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

void ExpectAsStrtod(const std::string& token) {
    const double expected = std::strtod(token.c_str(), nullptr);
    EXPECT_TRUE(SameNumber(Atof(token), expected)) << token << " gave " << Atof(token) << ", not " << expected;
}

TEST(Atof, ReadsEdgesAsStrtod) {
    const std::string zeros(400, '0'), nines(900, '9');
    for (const std::string& token : {std::string(),
                                     std::string("."),
                                     std::string("-"),
                                     std::string("+"),
                                     std::string("e5"),
                                     std::string(".e5"),
                                     std::string("--5"),
                                     std::string("+-5"),
                                     std::string("-+5"),
                                     std::string("- 5"),
                                     std::string("+.5"),
                                     std::string("-.5"),
                                     std::string("5."),
                                     std::string("1.2.3"),
                                     std::string("1,5"),
                                     std::string("1e"),
                                     std::string("1e+"),
                                     std::string("1e-"),
                                     std::string("1e5e5"),
                                     std::string("1E+05"),
                                     std::string("1d5"),
                                     std::string(" \t\n\v\f\r 12 "),
                                     std::string("-0"),
                                     std::string("+0.0"),
                                     std::string("007"),
                                     std::string("1e999"),
                                     std::string("-1e999"),
                                     std::string("1e-999"),
                                     std::string("-1e-999"),
                                     std::string("0e999"),
                                     std::string("0e-999"),
                                     std::string("0.0e99999999999999999999"),
                                     std::string("1e99999999999999999999"),
                                     std::string("1e-99999999999999999999"),
                                     "0." + zeros + "1e400",
                                     "0." + zeros + "1",
                                     "0." + zeros + "1e800",
                                     "1" + zeros + "e-400",
                                     "1" + zeros,
                                     "1" + zeros + "e-50",
                                     nines + "e-900",
                                     nines + "e-300",
                                     "0." + nines,
                                     nines + "." + nines + "e-880",
                                     "-" + nines,
                                     std::string("2.2250738585072011e-308"),
                                     std::string("4.9e-324"),
                                     std::string("2.4703282292062327e-324"),
                                     std::string("2.4703282292062328e-324"),
                                     std::string("1.7976931348623157e308"),
                                     std::string("1.7976931348623158e308"),
                                     std::string("1.7976931348623159e308"),
                                     std::string("9007199254740993"),
                                     std::string("9007199254740993.00000000000000000000000000000001"),
                                     std::string("12345678901234567890123456789")}) {
        ExpectAsStrtod(token);
    }
}

TEST(Atof, ReadsOnlyItsView) {
    EXPECT_EQ(Atof(std::string_view("12345").substr(0, 2)), 12.0);
    EXPECT_EQ(Atof(std::string_view("1e5").substr(0, 2)), 1.0);
    EXPECT_EQ(Atof(std::string_view("1\0"
                                    "2",
                                    3)),
              1.0);
}

TEST(Atof, ReadsRandomTokensAsStrtod) {
    std::mt19937_64 random(4711);
    constexpr std::string_view kAlphabet = "0123456789012345678900000..eE+-- ,m";
    for (int i = 0; i < 60000; ++i) {
        std::string token;
        for (std::size_t n = random() % 24; n > 0; --n) token += kAlphabet[random() % kAlphabet.size()];
        ExpectAsStrtod(token);
        const double value = std::bit_cast<double>(random());
        if (std::isfinite(value)) {
            ExpectAsStrtod(ByPrintf("%.17g", value));
            ExpectAsStrtod(ByPrintf("%.*e", static_cast<int>(random() % 40), value));
            EXPECT_TRUE(SameNumber(Atof(Format("%.17g", value)), value));
        }
        if (HasFailure()) return;
    }
}

TEST(Atoi, StopsAtTheBoundsOfInt) {
    const struct {
        const char* text;
        int expected;
    } rows[] = {{"", 0},
                {"x", 0},
                {"-", 0},
                {"--5", 0},
                {"+-5", 0},
                {" \t\n+12x", 12},
                {"-12.9", -12},
                {"007", 7},
                {"2147483647", INT_MAX},
                {"2147483648", INT_MAX},
                {"-2147483647", -INT_MAX},
                {"-2147483648", INT_MIN},
                {"-2147483649", INT_MIN},
                {"99999999999999999999999999", INT_MAX},
                {"-99999999999999999999999999", INT_MIN}};
    for (const auto& row : rows) EXPECT_EQ(Atoi(row.text), row.expected) << row.text;
}

TEST(Numbers, DoNotFollowTheLocale) {
    const CommaLocale locale;
    if (!CommaLocale::IsSet()) GTEST_SKIP() << "no locale with a decimal comma on this machine";
    ASSERT_EQ(ByPrintf("%.1f", 1.5), "1,5");
    EXPECT_EQ(Format("%.3f %e %g", 1234567.25, 1.5, 0.5), "1234567.250 1.500000e+00 0.5");
    EXPECT_EQ(Atof("1234.5"), 1234.5);
    EXPECT_EQ(Atof("1,5"), 1.0);
    EXPECT_EQ(Atof("1.5e999"), kInfinity);
    EXPECT_EQ(Atof("0.001e-999"), 0.0);
    std::string text;
    AppendFixed(text, -0.25, 2);
    EXPECT_EQ(text, "-0.25");
    // The C library's own classes change here; ours don't.
    EXPECT_FALSE(IsSpace('\xA0'));
    EXPECT_EQ(ToUpper("\xE4\xF6"), "\xC4\xD6");
}

// ---- Letters ----

TEST(Case, FoldsTheLettersOfWindows1252) {
    EXPECT_EQ(ToUpper("az\xE0\xF6\xF8\xFE\xFF\x9A\x9C\x9E"), "AZ\xC0\xD6\xD8\xDE\x9F\x8A\x8C\x8E");
    // Signs among the letters, and letters without a capital, stay.
    EXPECT_EQ(ToUpper("\xF7\xD7\xDF\x83@[`{\xAA\xB5\xBA"), "\xF7\xD7\xDF\x83@[`{\xAA\xB5\xBA");
    EXPECT_TRUE(EqualNoCase("\xD8rsted 2.CSV", "\xF8RSTED 2.csv"));
    EXPECT_FALSE(EqualNoCase("a", "ab"));
    EXPECT_FALSE(EqualNoCase("[", "{"));
    EXPECT_TRUE(EqualNoCase("", ""));
}

TEST(Trim, TakesWhiteSpaceOfTheCLocale) {
    EXPECT_EQ(Trim(" \t\n\v\f\r a b \r\n"), "a b");
    EXPECT_EQ(TrimLeft("  a "), "a ");
    EXPECT_EQ(TrimRight("  a "), "  a");
    EXPECT_EQ(Trim(" \n "), "");
    EXPECT_EQ(Trim("\xA0"
                   "a\xA0"),
              "\xA0"
              "a\xA0");
}

// ---- Windows-1252 and UTF-8 ----

TEST(Utf8, KeepsWhatWindows1252Lacks) {
    EXPECT_EQ(TextFromUtf8("\xF0\x9F\x9A\xA2.csv"), "\xABU+1F6A2\xBB.csv");
    EXPECT_EQ(Utf8FromText("\xABU+1F6A2\xBB.csv"), "\xF0\x9F\x9A\xA2.csv");
    EXPECT_EQ(TextFromUtf8("\xC5\x81\xC3\xB3"), "\xABU+0141\xBB\xF3");
    const std::vector<std::string> names = {
        "\xC2\x80\xC2\x9F",                          // controls whose bytes are letters in Windows-1252
        "\xC2\xABU+1F6A2\xC2\xBB",                   // an escape by its look
        "\xC2\xABU+00AB\xC2\xBBU+1F6A2\xC2\xBB",     // an escaped guillemet by its look
        "\xC2\xAB\xC2\xABU+\xC2\xBB",                // a head without digits
        "\xC2\xABU+1F6A2",                           // without an end
        "\xF4\x8F\xBF\xBF\xEF\xBF\xBF\xEE\x80\x80",  // highest characters
        "\xCE\xB1/\xD0\xB4/\xE4\xB8\xAD.dxf"};       // a path
    for (const std::string& name : names) EXPECT_EQ(Utf8FromText(TextFromUtf8(name)), name);
}

TEST(Utf8, RoundTripsEveryCharacter) {
    std::string utf8;
    for (unsigned c = 1; c < 0x110000; c = c < 0x3000 ? c + 1 : c + 251) {
        if (c >= 0xD800 && c < 0xE000) continue;
        const auto put = [&](unsigned byte) { utf8 += static_cast<char>(byte); };
        if (c < 0x80) {
            put(c);
        } else if (c < 0x800) {
            put(0xC0 | c >> 6), put(0x80 | (c & 63));
        } else if (c < 0x10000) {
            put(0xE0 | c >> 12), put(0x80 | (c >> 6 & 63)), put(0x80 | (c & 63));
        } else {
            put(0xF0 | c >> 18), put(0x80 | (c >> 12 & 63)), put(0x80 | (c >> 6 & 63)), put(0x80 | (c & 63));
        }
    }
    EXPECT_EQ(Utf8FromText(TextFromUtf8(utf8)), utf8);
}

TEST(Utf8, LeavesAloneWhatOnlyLooksLikeAnEscape) {
    for (const std::string_view text :
         {"\xABU+41\xBB", "\xABU+D800\xBB", "\xABU+110000\xBB", "\xABU+0000\xBB", "\xABU+1f6a2\xBB", "\xABU+01F6A2\xBB",
          "\xABU+\xBB", "\xABU+20AC\xBB", "\xABU+-141\xBB", "\xABU+FFFFFFFFF\xBB"}) {
        std::string expected;
        for (const char c : text) expected += Utf8FromText(std::string(1, c));
        EXPECT_EQ(Utf8FromText(text), expected);
    }
}

}  // namespace
}  // namespace quillon
