#include <gtest/gtest.h>
#include <musl/portable_math.h>

#include <cmath>
#include <limits>
#include <numbers>

namespace {

constexpr double INFINITE = std::numeric_limits<double>::infinity();
const double NOT_A_NUMBER = std::nan("");

// Expected are the doubles next to the exact values.

TEST(PortableMath, Logarithm) {
    EXPECT_EQ(portable::log(1.0), 0.0);
    EXPECT_EQ(portable::log(2.0), std::numbers::ln2);
    EXPECT_EQ(portable::log(10.0), std::numbers::ln10);
    EXPECT_EQ(portable::log(0.5), -std::numbers::ln2);
    EXPECT_EQ(portable::log(0x1p-1074), -744.4400719213812);
    EXPECT_EQ(portable::log(0.0), -INFINITE);
    EXPECT_EQ(portable::log(INFINITE), INFINITE);
    EXPECT_TRUE(std::isnan(portable::log(-1.0)));
    EXPECT_TRUE(std::isnan(portable::log(NOT_A_NUMBER)));
}

TEST(PortableMath, Exponential) {
    EXPECT_EQ(portable::exp(0.0), 1.0);
    EXPECT_EQ(portable::exp(1.0), std::numbers::e);
    EXPECT_EQ(portable::exp(1000.0), INFINITE);
    EXPECT_EQ(portable::exp(-1000.0), 0.0);
    EXPECT_EQ(portable::exp(-INFINITE), 0.0);
    EXPECT_GT(portable::exp(-745.0), 0.0);
    EXPECT_TRUE(std::isnan(portable::exp(NOT_A_NUMBER)));
}

TEST(PortableMath, PowersThatDoublesHoldAreExact) {
    EXPECT_EQ(portable::pow(3.0, 5.0), 243.0);
    EXPECT_EQ(portable::pow(-3.0, 3.0), -27.0);
    EXPECT_EQ(portable::pow(0.25, 0.5), 0.5);
    EXPECT_EQ(portable::pow(2.0, -1074.0), 0x1p-1074);
    EXPECT_EQ(portable::pow(2.0, 1023.0), 0x1p1023);
    EXPECT_EQ(portable::pow(7.0, 0.0), 1.0);
    EXPECT_EQ(portable::pow(0x1p-1074, 0.5), 0x1p-537);
}

TEST(PortableMath, PowersAtTheEnds) {
    EXPECT_EQ(portable::pow(2.0, 1024.0), INFINITE);
    EXPECT_EQ(portable::pow(2.0, -1080.0), 0.0);
    EXPECT_EQ(portable::pow(0.0, -1.0), INFINITE);
    EXPECT_EQ(portable::pow(0.0, 3.0), 0.0);
    EXPECT_EQ(portable::pow(2.0, INFINITE), INFINITE);
    EXPECT_EQ(portable::pow(0.5, INFINITE), 0.0);
    EXPECT_EQ(portable::pow(1.5, 1e300), INFINITE);
    EXPECT_EQ(portable::pow(1.5, 1e-300), 1.0);
    EXPECT_EQ(portable::pow(1.0, NOT_A_NUMBER), 1.0);
    EXPECT_TRUE(std::isnan(portable::pow(-2.0, 0.5)));
    EXPECT_TRUE(std::isnan(portable::pow(2.0, NOT_A_NUMBER)));
}

TEST(PortableMath, Sine) {
    EXPECT_EQ(portable::sin(0.0), 0.0);
    EXPECT_EQ(portable::sin(0x1p-30), 0x1p-30);
    EXPECT_EQ(portable::sin(std::numbers::pi / 2), 1.0);
    EXPECT_EQ(portable::sin(std::numbers::pi / 4), 0.7071067811865475);
    EXPECT_EQ(portable::sin(-0.5), -0.479425538604203);
    EXPECT_TRUE(std::isnan(portable::sin(INFINITE)));
}

// Angles of every size take a reduction of their own.
TEST(PortableMath, SineOfLargeAngles) {
    for (double x : {1.0, 2.0, 3.0, 4.0, 5.0, 6.0, 7.0, 100.0, 1e5, 1e7, 1e22, 1e300}) {
        EXPECT_NEAR(portable::sin(x), std::sin(x), 1e-15) << x;
        EXPECT_EQ(portable::sin(-x), -portable::sin(x)) << x;
    }
}

// Fused multiplications give the neighbours of these.
TEST(PortableMath, NothingIsFused) {
    EXPECT_EQ(portable::exp(27.1484375), 617186756612.9458);
    EXPECT_EQ(portable::pow(438.75, 1.25), 2008.035617544142);
    EXPECT_EQ(portable::pow(172.75, 1.25), 626.2858074376959);
    EXPECT_EQ(portable::sin(0.12548828125), 0.12515919002079223);
    EXPECT_EQ(portable::sin(0.32470703125), 0.31903114010897182);
}

}  // namespace
