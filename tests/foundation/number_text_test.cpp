#include "foundation/number_text.h"

#include <gtest/gtest.h>

#include <limits>

#include "foundation/values.h"

namespace quillon {
namespace {

TEST(NumberText, HoldsTheValueToItsWidth) {
    struct Row {
        double value;
        int width, decimals;
        bool forceSign, fixed;
        const char* expected;
    };
    const Row rows[] = {
        {5.25, 12, 3, false, false, "       5.250"},
        {5.25, 12, 3, false, true, "00000005.250"},
        {-5.25, 12, 3, false, true, "-0000005.250"},
        {5.25, 12, 3, true, true, "+0000005.250"},
        {5.25, 12, 3, true, false, "      +5.250"},
        // Held to the width.
        {12345.0, 4, 1, false, false, "99.9"},
        {-12345.0, 4, 1, false, false, "-9.9"},
        {12345.0, 4, 1, true, false, "+9.9"},
        {123456789.0, 12, 3, false, false, "99999999.999"},
        {-12345678.0, 12, 3, false, false, "-9999999.999"},
        {MISSING_VALUE, 6, 2, false, false, "999.99"},
        {-std::numeric_limits<double>::infinity(), 6, 2, false, false, "-99.99"},
        {std::numeric_limits<double>::quiet_NaN(), 6, 2, false, false, "  0.00"},
        // One place is the point's even without decimals.
        {12345.0, 4, 0, false, false, " 999"},
        {-12345.0, 4, 0, false, false, " -99"},
        // No room for a sign.
        {-5.0, 2, 0, false, false, " 0"},
        {5.0, 2, 0, false, false, " 5"},
        {5.0, 2, 0, true, false, "+0"},
        {-0.0, 2, 0, false, false, " 0"},
        {-5.0, 4, 2, false, false, "0.00"},
        // More decimals than width: no point in the bounds, but written.
        {5.0, 3, 3, false, false, "5.000"},
        {5.0, 0, 3, false, false, ""},
        {5.0, 6, -1, false, false, "  5.00"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(FormatDouble(row.value, row.width, row.decimals, row.forceSign, row.fixed), row.expected)
            << row.value << " " << row.width << "." << row.decimals;
    }
}

}  // namespace
}  // namespace quillon
