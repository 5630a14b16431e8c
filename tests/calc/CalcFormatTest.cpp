#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <sstream>

#include "calc/CalcFormat.h"

namespace vantrelle {
namespace {

TEST(CalcFormat, EveryRangeAndRounding) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const struct {
        double value;
        int digits;  // the most fraction digits to show
        const char* text;
    } rows[] = {
        {std::nan(""), 6, "NaN"},
        {-kInfinity, 6, "-∞"},
        {-0.0, 6, "0"},
        {1000, 6, "1,000"},
        {-1234.5, 6, "-1,234.5"},
        {0.1 + 0.2, 6, "0.3"},
        {2.0 / 3.0, 6, "0.666667"},
        {999999.9999999, 6, "1,000,000"},  // rounding carries into a new group
        {9.99, 1, "10"},
        {0.125, 2, "0.12"},  // ties go to the even digit
        {2.5, 0, "2"},
        {-0.0000014, 2, "0"},  // a small value that rounds away shows as zero, without a sign
        // Decimal from 1e-6 up to just below 1e15, the shortest exponent form outside.
        {999999999999999.0, 6, "999,999,999,999,999"},
        {1e15, 6, "1e15"},
        {1234567890123456789.0, 6, "1.23457e18"},
        {9.999996e20, 6, "1e21"},
        {0.000001, 6, "0.000001"},
        {0.0000015, 6, "0.000002"},  // decimal, so the 6-digit limit rounds it
        {0.00000099, 6, "9.9e-7"},
        {-0.00000025, 6, "-2.5e-7"},
        {5e-324, 6, "5e-324"},  // the shortest form of the smallest double
    };
    for (const auto& row : rows) {
        std::ostringstream name;
        name.precision(17);
        name << "format(" << row.value << ", " << row.digits << ")";
        SCOPED_TRACE(name.str());
        EXPECT_EQ(CalcFormat::format(row.value, row.digits), row.text);
    }
}

}  // namespace
}  // namespace vantrelle
