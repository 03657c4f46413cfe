#include "foundation/angle_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

#include "foundation/angle_units.h"
#include "foundation/number_text.h"
#include "foundation/number_typing.h"
#include "foundation/values.h"
#include "platform/text.h"
#include "support/comma_locale.h"

namespace quillon {
namespace {

/// A degree sign spelled "d" in the tables below, as the rest of the text is plain.
std::string Degrees(std::string_view text) {
    return Replace(text, "d", "\xB0");
}

/// Radians of degrees, minutes and seconds, by the factor that turns them back.
/// short.
double Dms(double degrees, double minutes = 0.0, double seconds = 0.0) {
    return (degrees + (minutes + seconds / 60.0) / 60.0) / kDegreesPerRadian;
}

struct AngleCase {
    double value;
    int type, format, decimals;
    char hemisphere;
    const char* expected;
};

void Check(const AngleCase& row) {
    EXPECT_EQ(FormatAngle(row.value, row.type, row.format, row.decimals, row.hemisphere), Degrees(row.expected))
        << row.value << " type " << row.type << " format " << row.format << " decimals " << row.decimals;
}

// Each type in each format: width, sign, letter and unit mark.
TEST(AngleText, EveryTypeInEveryNotation) {
    const double angle = Dms(5, 30);
    const AngleCase rows[] = {
        {angle, 1, 0, 1, 0, "+005d 30' 00\".0"},
        {angle, 1, 1, 1, 0, "+005d 30'.0"},
        {angle, 1, 2, 1, 0, "+005d.5"},
        {angle, 1, 3, 1, 0, "+05d.5"},
        {angle, 1, 4, 1, 0, "+006g.1"},
        {-angle, 1, 0, 1, 0, "-005d 30' 00\".0"},
        {-angle, 1, 1, 1, 0, "-005d 30'.0"},
        {-angle, 1, 2, 1, 0, "-005d.5"},
        {-angle, 1, 3, 1, 0, "-05d.5"},
        {-angle, 1, 4, 1, 0, "-006g.1"},
        {angle, 2, 0, 1, 0, "005d 30' 00\".0"},
        {angle, 2, 3, 1, 0, "005d.5"},
        {angle, 2, 4, 1, 0, "006g.1"},
        {-angle, 2, 2, 1, 0, "005d.5"},  // a bearing has no sign
        {-angle, 2, 3, 1, 0, "005d.5"},
        {angle, 3, 1, 1, 0, "+05d 30'.0"},
        {angle, 3, 3, 1, 0, "+5d.5"},
        {-angle, 3, 3, 1, 0, "-5d.5"},
        {angle, 3, 4, 1, 0, "+006g.1"},
        {angle, 4, 1, 1, 0, "084d 30'.0"},  // complement of an elevation
        {-angle, 4, 2, 1, 0, "095d.5"},
        {angle, 5, 0, 1, 0, "05d 30' 00\".0N"},
        {angle, 5, 2, 1, 0, "05d.5N"},
        {angle, 5, 3, 1, 0, "005d.5"},
        {angle, 5, 4, 1, 0, "006g.1N"},
        {-angle, 5, 0, 1, 0, "05d 30' 00\".0S"},
        {-angle, 5, 1, 1, 0, "05d 30'.0S"},
        {-angle, 5, 2, 1, 0, "05d.5S"},
        {-angle, 5, 3, 1, 0, "-05d.5"},
        {-angle, 5, 4, 1, 0, "006g.1S"},
        {angle, 6, 1, 1, 0, "005d 30'.0E"},
        {angle, 6, 3, 1, 0, "0005d.5"},
        {-angle, 6, 1, 1, 0, "005d 30'.0W"},
        {-angle, 6, 3, 1, 0, "-005d.5"},
        {-angle, 6, 4, 1, 0, "006g.1W"},
        {angle, 7, 2, -1, 0, "005d.50"},
        {angle, 8, 1, -1, 0, "+05d 30'.00"},
        {-angle, 9, 0, -1, 0, "-005d 30' 00\".00"},
    };
    for (const AngleCase& row : rows) Check(row);
}

TEST(AngleText, WorkedPositions) {
    const AngleCase rows[] = {
        {Dms(52.5), 5, 1, 4, 0, "52d 30'.0000N"},
        {52.5 * kRadiansPerDegree, 5, 1, 4, 0, "52d 30'.0000N"},
        {-0.0001, 6, 0, 2, 0, "000d 00' 20\".63W"},
        {Dms(123.456789), 6, 2, 9, 0, "123d.456789000E"},
        // Without decimals the mark stays where it is.
        {Dms(52, 30, 15), 5, 0, 0, 0, "52d 30' 15\"N"},
        {Dms(52, 30), 5, 1, 0, 0, "52d 30'N"},
        {Dms(52), 5, 2, 0, 0, "52dN"},
        {Dms(52), 1, 3, 0, 0, "+52d"},
        {Dms(90), 2, 4, 0, 0, "100g"},
        // The angle that only one type may show in full.
        {Dms(359, 59, 59.5), 2, 0, 1, 0, "359d 59' 59\".5"},
        // Default decimals, also for a count outside the range.
        {Dms(52.5), 5, 1, -1, 0, "52d 30'.0000000N"},
        {Dms(52.5), 5, 0, 33, 0, "52d 30' 00\".00000N"},
        {Dms(52.5), 5, 3, -7, 0, "052d.500000000"},
        // The sign of exactly nothing.
        {0.0, 5, 1, 1, 'S', "00d 00'.0S"},
        {0.0, 5, 1, 1, 's', "00d 00'.0S"},
        {0.0, 5, 1, 1, 0, "00d 00'.0N"},
        {0.0, 5, 1, 1, ' ', "00d 00'.0N"},
        {0.0, 6, 2, 1, 'W', "000d.0W"},
        {-0.0, 6, 2, 1, 0, "000d.0E"},
        {1e-9, 5, 1, 1, 'S', "00d 00'.0N"},
        {-1e-9, 5, 1, 1, 'N', "00d 00'.0S"},
        {0.0, 1, 1, 1, 0, "+000d 00'.0"},
    };
    for (const AngleCase& row : rows) Check(row);
}

// A text must never show 60 of anything, whichever decimals it has.
TEST(AngleText, CarriesAtItsDecimals) {
    const AngleCase rows[] = {
        {Dms(10, 20, 59.99996), 2, 0, 4, 0, "010d 21' 00\".0000"},
        {Dms(10, 20, 59.99996), 2, 0, 5, 0, "010d 20' 59\".99996"},
        {Dms(10, 59, 59.99996), 2, 0, 4, 0, "011d 00' 00\".0000"},
        {Dms(359, 59, 59.9999), 2, 0, 3, 0, "360d 00' 00\".000"},  // no limit at the top
        {Dms(10, 20, 59.6), 2, 0, 0, 0, "010d 21' 00\""},
        {Dms(10, 20, 59.4), 2, 0, 0, 0, "010d 20' 59\""},
        // 59.99997 minutes are 59 minutes and 59.998 seconds: the seconds alone don't tell.
        {Dms(10, 59.99997), 2, 1, 4, 0, "011d 00'.0000"},
        {Dms(10, 59.99994), 2, 1, 4, 0, "010d 59'.9999"},
        {Dms(10, 59.6), 2, 1, 0, 0, "011d 00'"},
    };
    for (const AngleCase& row : rows) Check(row);
}

TEST(AngleText, SplitsWithItsSign) {
    struct Row {
        double value;
        int decimals, degrees, minutes;
        double seconds;
        int sign;
    };
    const Row rows[] = {
        {Dms(-12, -34, -56.5), 3, 12, 34, 56.5, -1},
        {Dms(12, 59, 59.9996), 3, 13, 0, 0.0, 1},
        {Dms(12, 58, 59.9996), 3, 12, 59, 0.0, 1},
        {Dms(12, 58, 59.9996), 4, 12, 58, 59.9996, 1},
        {Dms(12, 58, 59.9996), 40, 12, 58, 59.9996, 1},
        {-0.0, 3, 0, 0, 0.0, 1},
        {1e300, 3, std::numeric_limits<int>::max(), 0, 0.0, 1},
        {std::numeric_limits<double>::quiet_NaN(), 3, std::numeric_limits<int>::max(), 0, 0.0, 1},
    };
    for (const Row& row : rows) {
        int degrees = -1, minutes = -1, sign = 0;
        double seconds = -1.0;
        SplitAngle(row.value, degrees, minutes, seconds, sign, row.decimals);
        EXPECT_EQ(degrees, row.degrees) << row.value;
        EXPECT_EQ(minutes, row.minutes) << row.value;
        EXPECT_NEAR(seconds, row.seconds, 1e-6) << row.value;
        EXPECT_EQ(sign, row.sign) << row.value;
    }
}

TEST(AngleText, ValuesThatAreNone) {
    for (int type = 1; type <= 9; ++type) {
        EXPECT_EQ(FormatAngle(-1.0, type, 1), "n/a") << type;
        EXPECT_EQ(FormatAngle(MISSING_VALUE, type, 1), "") << type;
        EXPECT_EQ(FormatAngle(std::numeric_limits<double>::infinity(), type, 1), "") << type;
        EXPECT_EQ(FormatAngle(std::numeric_limits<double>::quiet_NaN(), type, 2), "") << type;
        EXPECT_EQ(FormatAngle(1.0, type, 6), "") << type;
        EXPECT_EQ(FormatAngle(1.0, type, -1), "") << type;
    }
    EXPECT_EQ(FormatAngle(1.0, 0, 1), "");
    EXPECT_EQ(FormatAngle(1.0, 10, 1), "");
}

/// Reads an angle text back, in degrees with a sign.
double ReadBack(std::string text, int format) {
    const bool negative = text.find_first_of("-SW") != std::string::npos;
    std::string fields;
    for (const char c : text) {
        if (c == '.' || (c >= '0' && c <= '9')) fields += c;
        if (c == ' ') fields += ' ';
    }
    double value = 0.0, unit = 1.0;
    for (std::string_view rest = fields; !rest.empty(); unit /= 60.0) {
        const std::size_t blank = rest.find(' ');
        const double field = Atof(rest.substr(0, blank));
        EXPECT_LT(field, unit == 1.0 ? 401.0 : 60.0) << text;
        value += field * unit;
        rest = blank == std::string_view::npos ? "" : rest.substr(blank + 1);
    }
    if (format == ANGLE_GRADS) value *= 0.9;
    return negative ? -value : value;
}

// Whatever the notation, the text is the angle to half its last decimal, and no field reaches 60.
TEST(AngleText, EveryNotationReadsBack) {
    std::mt19937_64 random(7);
    const double lastPlace[] = {1.0 / 3600.0, 1.0 / 60.0, 1.0, 1.0, 0.9};
    for (int i = 0; i < 20000; ++i) {
        const int type = 1 + static_cast<int>(random() % 9);
        const int format = static_cast<int>(random() % 5);
        const int decimals = static_cast<int>(random() % 8);
        // Half of the angles lie a hair below a whole minute, where carries happen.
        double degrees = static_cast<double>(random() % 10800) / 60.0;
        degrees += i % 2 ? static_cast<double>(random() % 1000000) / 6e7 : -std::pow(10.0, -1.0 * (3.0 + i % 7));
        if (type == 3 || type == 5 || type == 8) degrees /= 2.0;
        const bool negative = type != 2 && type != 4 && type != 7 && random() % 2;
        double value = Dms(negative ? -degrees : degrees);
        if (type == ANGLE_ZENITH) value = 1.5707963267948966 - value;
        const std::string text = FormatAngle(value, type, format, decimals);
        const double expected = negative ? -degrees : type == 2 || type == 7 ? std::fabs(degrees) : degrees;
        const double half = 0.5001 * lastPlace[format] * std::pow(10.0, -decimals) + 1e-9;
        ASSERT_NEAR(type == ANGLE_ZENITH ? std::fabs(ReadBack(text, format)) : ReadBack(text, format),
                    type == ANGLE_ZENITH ? std::fabs(expected) : expected, half)
            << text << " type " << type << " format " << format;
    }
}

// A point is a point wherever the operator comes from.
TEST(AngleText, UnderADecimalComma) {
    const CommaLocale locale;
    if (!locale.IsSet()) GTEST_SKIP() << "no locale with a decimal comma on this machine";
    EXPECT_EQ(FormatAngle(Dms(52.5), ANGLE_LATITUDE, ANGLE_DEGREES_MINUTES, 4), "52\xB0 30'.0000N");
    EXPECT_EQ(FormatAngle(Dms(10, 20, 59.99996), ANGLE_BEARING, ANGLE_DEGREES_MINUTES_SECONDS, 4),
              "010\xB0 21' 00\".0000");
    std::string first, limit;
    AngleTemplate(ANGLE_BEARING, ANGLE_DEGREES, first, 2, limit);
    EXPECT_EQ(first, "359\xB0.99");
    EXPECT_EQ(FormatDouble(12345.0, 4, 1, false, false), "99.9");
    tagEditText edit{"12.5", 4, 4};
    EXPECT_TRUE(TypeIntoNumber(edit, '7', tagNumberStyle{}));
    EXPECT_EQ(edit.text, "12.57");
}

}  // namespace
}  // namespace quillon
