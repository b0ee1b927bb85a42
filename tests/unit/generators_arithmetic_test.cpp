#include "generators/arithmetic.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "generators/distributions.h"
#include "generators/random.h"

namespace vorn {
namespace {

constexpr float INFINITE = std::numeric_limits<float>::infinity();
const float NOT_A_NUMBER = std::nanf("");

struct Rounding {
    float value;
    std::int32_t whole;
};

const Rounding ROUNDINGS[] = {
    {0.0f, 0},
    {0.5f, 1},
    {1.5f, 2},
    {2.5f, 3},
    {2.4999998f, 2},
    {2.49f, 2},
    {-0.5f, 0},
    {-1.5f, -1},
    {-2.5f, -2},
    {-2.51f, -3},
    {-0.51f, -1},
    {0.49999997f, 0},
    {1e-20f, 0},
    {-1e-20f, 0},
    {7.0f, 7},
    {8388607.5f, 8388608},
    {16777217.0f, 16777216},
    {-3.0f, -3},
};

TEST(Round, HalvesGoUp) {
    for (const Rounding& row : ROUNDINGS) EXPECT_EQ(Round(row.value), row.whole) << row.value;
}

TEST(Round, SaturatesAtTheEndsOfTheType) {
    EXPECT_EQ(Round(3e9f), 2147483647);
    EXPECT_EQ(Round(2147483648.0f), 2147483647);
    EXPECT_EQ(Round(2147483520.0f), 2147483520);
    EXPECT_EQ(Round(-3e9f), -2147483647 - 1);
    EXPECT_EQ(Round(INFINITE), 2147483647);
    EXPECT_EQ(Round(-INFINITE), -2147483647 - 1);
    EXPECT_EQ(Round(NOT_A_NUMBER), 0);
}

TEST(RoundF, AgreesWithRound) {
    for (const Rounding& row : ROUNDINGS)
        EXPECT_EQ(RoundF(row.value), static_cast<float>(row.whole)) << row.value;
}

TEST(RoundF, KeepsTheSignOfZero) {
    EXPECT_TRUE(std::signbit(RoundF(-0.0f)));
    EXPECT_TRUE(std::signbit(RoundF(-0.25f)));
    EXPECT_TRUE(std::signbit(RoundF(-0.5f)));
    EXPECT_FALSE(std::signbit(RoundF(0.0f)));
    EXPECT_FALSE(std::signbit(RoundF(0.25f)));
}

TEST(RoundF, LeavesLargeAndSpecialValues) {
    EXPECT_EQ(RoundF(1e30f), 1e30f);
    EXPECT_EQ(RoundF(-1e30f), -1e30f);
    EXPECT_EQ(RoundF(INFINITE), INFINITE);
    EXPECT_EQ(RoundF(-INFINITE), -INFINITE);
    EXPECT_TRUE(std::isnan(RoundF(NOT_A_NUMBER)));
}

TEST(Mod, RemainderHasTheSignOfTheFirstOperand) {
    EXPECT_EQ(mod(7.0f, 3.0f), 1.0f);
    EXPECT_EQ(mod(-7.0f, 3.0f), -1.0f);
    EXPECT_EQ(mod(7.0f, -3.0f), 1.0f);
    EXPECT_EQ(mod(-7.0f, -3.0f), -1.0f);
    EXPECT_EQ(mod(5.5f, 2.0f), 1.5f);
    EXPECT_EQ(mod(2.0f, 3.0f), 2.0f);
}

TEST(Mod, ByZeroIsZero) {
    EXPECT_EQ(mod(7.0f, 0.0f), 0.0f);
    EXPECT_EQ(mod(7.0f, -0.0f), 0.0f);
    EXPECT_EQ(mod(INFINITE, 0.0f), 0.0f);
}

TEST(Mod, AZeroRemainderHasNoSign) {
    EXPECT_EQ(mod(-6.0f, 3.0f), 0.0f);
    EXPECT_FALSE(std::signbit(mod(-6.0f, 3.0f)));
    EXPECT_FALSE(std::signbit(mod(-0.0f, 3.0f)));
}

TEST(Mod, IsExactForLargeQuotients) {
    EXPECT_EQ(mod(16777216.0f, 12.0f), 4.0f);      // 2^24 = 12 * 1398101 + 4
    EXPECT_EQ(mod(-4294967296.0f, 12.0f), -4.0f);  // 2^32 leaves 4 as well
    EXPECT_EQ(mod(0x1p100f, 3.0f), 1.0f);          // an even power of two leaves 1
    EXPECT_EQ(mod(5.0f, INFINITE), 5.0f);
}

TEST(Swapf, ExchangesTheValues) {
    float low = 72.0f;
    float high = 60.0f;
    swapf(low, high);
    EXPECT_EQ(low, 60.0f);
    EXPECT_EQ(high, 72.0f);
}

TEST(Conversions, TruncateTowardsZero) {
    EXPECT_EQ(to_int32(2.9), 2);
    EXPECT_EQ(to_int32(-2.9), -2);
    EXPECT_EQ(to_uint64(2.9), 2u);
    EXPECT_EQ(to_uint64(0x1p63), 9223372036854775808u);
}

TEST(Conversions, SaturateAtTheEndsOfTheType) {
    constexpr double BEYOND_ALL = 1e300;
    EXPECT_EQ(to_int32(2147483647.5), 2147483647);
    EXPECT_EQ(to_int32(2147483648.0), 2147483647);
    EXPECT_EQ(to_int32(-2147483648.5), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(to_int32(-BEYOND_ALL), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(to_uint64(0x1p64), std::numeric_limits<std::uint64_t>::max());
    EXPECT_EQ(to_uint64(BEYOND_ALL), std::numeric_limits<std::uint64_t>::max());
    EXPECT_EQ(to_uint64(-1.0), 0u);
    EXPECT_EQ(to_uint64(static_cast<double>(INFINITE)), std::numeric_limits<std::uint64_t>::max());
}

TEST(Conversions, NotANumberIsZero) {
    EXPECT_EQ(to_int32(std::nan("")), 0);
    EXPECT_EQ(to_uint64(std::nan("")), 0u);
}

// --- how the library is compiled ---

// A fused multiplication would add the product before it is rounded: then most of
// these values differ in their last digit.
TEST(Compilation, AProductIsRoundedBeforeItIsAdded) {
    constexpr float LOW = 60.1f, HIGH = 73.4f;
    for (std::uint32_t seed = 1; seed <= 100; ++seed) {
        srand(seed);
        volatile float product = (HIGH - LOW) * UNIT;
        product = product * static_cast<float>(rand());
        srand(seed);
        EXPECT_EQ(mk_rval(0, LOW, HIGH), LOW + product) << seed;
    }
}

}  // namespace
}  // namespace vorn
