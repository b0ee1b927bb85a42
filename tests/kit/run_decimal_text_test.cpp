#include "kit/run/decimal_text.h"

#include <gtest/gtest.h>

#include <cstdlib>

// Numbers as texts: with so many decimals, with so many digits, with as few as it takes.

namespace vorn::kit::test {

namespace {

TEST(DecimalText, HasTheDecimalsThatAreWanted) {
    EXPECT_EQ(decimal_text(0.5, 2), "0.50");
    EXPECT_EQ(decimal_text(-2.75, 1), "-2.8");  // a tie goes to the even digit
    EXPECT_EQ(decimal_text(1234567, 0), "1234567");
    EXPECT_EQ(decimal_text(1e300, 0).size(), 301U);
}

TEST(DecimalText, HasTheDigitsThatAreWanted) {
    EXPECT_EQ(significant_text(0.24482, 4), "0.2448");
    EXPECT_EQ(significant_text(1.2e9, 4), "1.2e+09");
    EXPECT_EQ(significant_text(100, 4), "100");
}

TEST(DecimalText, HasAllDigitsOfAPower) {
    EXPECT_EQ(scientific_text(1000), "1.0000000000000000e+03");
    EXPECT_EQ(scientific_text(999.9), "9.9989999999999998e+02");
    EXPECT_EQ(scientific_text(0.1), "1.0000000000000001e-01");
}

TEST(DecimalText, IsAsShortAsTheValueAllows) {
    EXPECT_EQ(shortest_decimal_text(1e3), "1000");
    EXPECT_EQ(shortest_decimal_text(1e-3), "0.001");
    EXPECT_EQ(shortest_decimal_text(0.1), "0.1");
    EXPECT_EQ(shortest_decimal_text(-0.30000000000000004), "-0.30000000000000004");
}

TEST(DecimalText, IsReadAsTheSameValueAtEitherEnd) {
    for (const double value : {5e-324, 2.2250738585072014e-308, 1.7976931348623157e308}) {
        EXPECT_EQ(std::strtod(shortest_decimal_text(value).c_str(), nullptr), value) << value;
    }
}

}  // namespace

}  // namespace vorn::kit::test
