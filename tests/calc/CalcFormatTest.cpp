#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "calc/CalcFormat.h"

namespace vantrelle {
namespace {

std::string fmt6(double value) {
    return CalcFormat::format(value, 6);
}

TEST(CalcFormat, SpecialValues) {
    EXPECT_EQ(fmt6(std::nan("")), "NaN");
    EXPECT_EQ(fmt6(std::numeric_limits<double>::infinity()), "∞");
    EXPECT_EQ(fmt6(-std::numeric_limits<double>::infinity()), "-∞");
    EXPECT_EQ(fmt6(0.0), "0");
    EXPECT_EQ(fmt6(-0.0), "0");
}

TEST(CalcFormat, DecimalWithGroupingAndFractionLimit) {
    EXPECT_EQ(fmt6(1), "1");
    EXPECT_EQ(fmt6(999), "999");
    EXPECT_EQ(fmt6(1000), "1,000");
    EXPECT_EQ(fmt6(1234567.891), "1,234,567.891");
    EXPECT_EQ(fmt6(-1234.5), "-1,234.5");
    EXPECT_EQ(fmt6(-0.25), "-0.25");
    EXPECT_EQ(fmt6(0.1 + 0.2), "0.3");
    EXPECT_EQ(fmt6(2.0 / 3.0), "0.666667");
    EXPECT_EQ(fmt6(-2.0 / 3.0), "-0.666667");
    EXPECT_EQ(fmt6(999999.9999999), "1,000,000");
    EXPECT_EQ(CalcFormat::format(123.456, 0), "123");
    EXPECT_EQ(CalcFormat::format(9.99, 1), "10");
    EXPECT_EQ(CalcFormat::format(1234.5678, 2), "1,234.57");
    // Ties go to the even digit.
    EXPECT_EQ(CalcFormat::format(0.125, 2), "0.12");
    EXPECT_EQ(CalcFormat::format(0.375, 2), "0.38");
    EXPECT_EQ(CalcFormat::format(2.5, 0), "2");
    EXPECT_EQ(CalcFormat::format(3.5, 0), "4");
    EXPECT_EQ(CalcFormat::format(0.5, 0), "0");
    // A small value that rounds away shows as zero, without a sign.
    EXPECT_EQ(CalcFormat::format(-0.0000014, 2), "0");
    EXPECT_EQ(CalcFormat::format(0.004, 2), "0");
}

TEST(CalcFormat, LargeBoundaryAt1e15) {
    EXPECT_EQ(fmt6(999999999999999.0), "999,999,999,999,999");
    EXPECT_EQ(fmt6(-999999999999999.0), "-999,999,999,999,999");
    EXPECT_EQ(fmt6(1e15), "1e15");
    EXPECT_EQ(fmt6(-1e15), "-1e15");
    EXPECT_EQ(fmt6(1234567890123456789.0), "1.23457e18");
    EXPECT_EQ(fmt6(9.999996e20), "1e21");
    EXPECT_EQ(fmt6(1.5e300), "1.5e300");
    EXPECT_EQ(fmt6(1e15 * 2.5), "2.5e15");
}

TEST(CalcFormat, SmallBoundaryAt1e6) {
    EXPECT_EQ(fmt6(0.000001), "0.000001");
    EXPECT_EQ(fmt6(-0.000001), "-0.000001");
    EXPECT_EQ(fmt6(0.0000015), "0.000002");  // decimal, so the 6-digit limit rounds it
    EXPECT_EQ(fmt6(0.00000099), "9.9e-7");
    EXPECT_EQ(fmt6(-0.00000025), "-2.5e-7");
    EXPECT_EQ(fmt6(1.23456789e-10), "1.23457e-10");
    EXPECT_EQ(fmt6(5e-324), "5e-324");  // the shortest form of the smallest double
}

}  // namespace
}  // namespace vantrelle
