#include "input/real_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <random>
#include <string>

namespace {

using vorn::format_integer;
using vorn::format_real;

std::string real(float value, int width, int decimals) {
    char text[vorn::REAL_TEXT_SIZE];
    return {text, format_real(text, value, width, decimals)};
}

std::string integer(int value, int width) {
    char text[vorn::REAL_TEXT_SIZE];
    return {text, format_integer(text, value, width)};
}

// What the library writes for the same value; not a number is always negative here.
std::string library_real(float value, int width, int decimals) {
    char text[vorn::REAL_TEXT_SIZE];
    const double shown = std::isnan(value) ? -double{std::fabs(value)} : double{value};
    const int size = std::snprintf(text, sizeof text, "%*.*f", width, decimals, shown);
    return {text, static_cast<std::size_t>(size)};
}

std::string library_integer(int value, int width) {
    char text[vorn::REAL_TEXT_SIZE];
    const int size = std::snprintf(text, sizeof text, "%*d", width, value);
    return {text, static_cast<std::size_t>(size)};
}

// Compares a value in every number of decimals at one width.
void expect_library_text(float value, int width) {
    for (int decimals = 0; decimals <= 7; ++decimals) {
        ASSERT_EQ(real(value, width, decimals), library_real(value, width, decimals))
            << std::bit_cast<std::uint32_t>(value) << " width " << width << " decimals " << decimals;
    }
}

// Random values compared in one test: fewer where every step is slow.
#if defined(__SANITIZE_ADDRESS__) || !defined(NDEBUG)
constexpr int ROUNDS = 40'000;
#else
constexpr int ROUNDS = 200'000;
#endif

class RandomText : public testing::Test {
protected:
    std::mt19937 random{20240117};

    int width() { return static_cast<int>(random() % 24); }
    float sign(float value) { return random() % 2 == 0 ? value : -value; }
};

}  // namespace

TEST(FormatReal, WritesTheDefaultColumn) {
    EXPECT_EQ(real(7000.0F, 9, 3), " 7000.000");
    EXPECT_EQ(real(8.0F, 9, 3), "    8.000");
    EXPECT_EQ(real(0.0F, 8, 3), "   0.000");
    EXPECT_EQ(real(1.0F, 6, 3), " 1.000");
}

TEST(FormatReal, WritesNoPointWithoutDecimals) {
    EXPECT_EQ(real(440.0F, 6, 0), "   440");
    EXPECT_EQ(real(0.25F, 6, 0), "     0");
}

TEST(FormatReal, RoundsTiesToEven) {
    EXPECT_EQ(real(0.5F, 1, 0), "0");
    EXPECT_EQ(real(1.5F, 1, 0), "2");
    EXPECT_EQ(real(2.5F, 1, 0), "2");
    EXPECT_EQ(real(0.125F, 1, 2), "0.12");
    EXPECT_EQ(real(0.375F, 1, 2), "0.38");
    EXPECT_EQ(real(0.0625F, 1, 3), "0.062");
    EXPECT_EQ(real(0.1875F, 1, 3), "0.188");
}

TEST(FormatReal, RoundsTheExactBinaryValue) {
    // The float next to 0.145 is 0.14499999582...; the one next to 0.245 is 0.245000004768...
    EXPECT_EQ(real(0.145F, 1, 2), "0.14");
    EXPECT_EQ(real(0.245F, 1, 2), "0.25");
}

TEST(FormatReal, CarriesIntoTheWholePart) {
    EXPECT_EQ(real(0.9996F, 6, 3), " 1.000");
    EXPECT_EQ(real(9.9999F, 6, 3), "10.000");
    EXPECT_EQ(real(999999.97F, 9, 1), "1000000.0");
}

TEST(FormatReal, KeepsTheSignOfZero) {
    EXPECT_EQ(real(-0.0F, 6, 3), "-0.000");
    EXPECT_EQ(real(-0.0001F, 7, 3), " -0.000");
    EXPECT_EQ(real(-0.25F, 1, 0), "-0");
}

TEST(FormatReal, WidensANarrowField) {
    EXPECT_EQ(real(1234567.0F, 4, 1), "1234567.0");
    EXPECT_EQ(real(-1234567.0F, 4, 1), "-1234567.0");
    EXPECT_EQ(real(-7.0F, 0, 0), "-7");
}

TEST(FormatReal, FillsAWideField) {
    EXPECT_EQ(real(1.5F, 20, 2), "                1.50");
    EXPECT_EQ(real(-1.5F, 20, 2), "               -1.50");
}

TEST(FormatReal, LeavesUnusualValuesToTheLibrary) {
    const float infinity = std::numeric_limits<float>::infinity();
    EXPECT_EQ(real(infinity, 6, 1), "   inf");
    EXPECT_EQ(real(-infinity, 4, 1), "-inf");
    const float no_number = std::numeric_limits<float>::quiet_NaN();
    EXPECT_EQ(real(no_number, 4, 1), "-nan");
    EXPECT_EQ(real(-no_number, 7, 2), "   -nan");
    EXPECT_EQ(real(no_number, 0, 0), "-nan");
    EXPECT_EQ(real(16777216.0F, 4, 2), "16777216.00");
    EXPECT_EQ(real(1e20F, 4, 1), "100000002004087734272.0");
}

TEST(FormatReal, StaysWithinItsRoom) {
    // 39 digits, sign, point and seven decimals.
    EXPECT_EQ(real(-std::numeric_limits<float>::max(), 13, 7).size(), 48U);
}

TEST(FormatReal, AgreesWithTheLibraryAroundItsLimits) {
    const float edges[] = {0.0F,
                           0.5F,
                           0.99999994F,
                           9.5F,
                           99.5F,
                           9999.5F,
                           99999.5F,
                           999999.5F,
                           8388607.5F,
                           8388608.0F,
                           9999998.0F,
                           9999999.0F,
                           10000000.0F,
                           16777215.0F,
                           4294967296.0F,
                           1e-7F,
                           5e-8F,
                           1e-45F,
                           std::numeric_limits<float>::min(),
                           std::numeric_limits<float>::max()};
    for (const float edge : edges) {
        for (const float value : {std::nextafter(edge, 0.0F), edge, std::nextafter(edge, 1e38F)}) {
            for (int width = 0; width < 24; ++width) {
                expect_library_text(value, width);
                expect_library_text(-value, width);
            }
        }
    }
}

TEST_F(RandomText, AgreesWithTheLibraryForAnyBitPattern) {
    for (int round = 0; round < ROUNDS; ++round) {
        expect_library_text(std::bit_cast<float>(static_cast<std::uint32_t>(random())), width());
        if (HasFatalFailure()) return;
    }
}

TEST_F(RandomText, AgreesWithTheLibraryForValuesOfScores) {
    // Exponents from 2^-25 to 2^24: everything that rounds to digits that can be seen.
    for (int round = 0; round < ROUNDS; ++round) {
        const auto bits = static_cast<std::uint32_t>(random());
        const std::uint32_t exponent = 102 + bits % 50;
        const auto value = std::bit_cast<float>(exponent << 23 | bits >> 9);
        expect_library_text(sign(value), width());
        if (HasFatalFailure()) return;
    }
}

TEST_F(RandomText, AgreesWithTheLibraryAtTies) {
    // Multiples of 1/256 are ties in the first, second, third and later decimals.
    for (int round = 0; round < ROUNDS; ++round) {
        const auto value = static_cast<float>(random() % 1'000'000) / 256.0F;
        expect_library_text(sign(value), width());
        if (HasFatalFailure()) return;
    }
}

TEST_F(RandomText, AgreesWithTheLibraryNextToDecimalValues) {
    for (int round = 0; round < ROUNDS; ++round) {
        const double power = std::pow(10.0, 1 + random() % 7);
        const auto value = static_cast<float>(static_cast<double>(random() % 10'000'000) / power);
        expect_library_text(sign(value), width());
        if (HasFatalFailure()) return;
    }
}

TEST(FormatInteger, WritesAFieldOfFive) {
    EXPECT_EQ(integer(64, 5), "   64");
    EXPECT_EQ(integer(-64, 5), "  -64");
    EXPECT_EQ(integer(0, 5), "    0");
    EXPECT_EQ(integer(123456, 5), "123456");
}

TEST(FormatInteger, WritesTheEndsOfItsType) {
    EXPECT_EQ(integer(INT_MAX, 5), "2147483647");
    EXPECT_EQ(integer(INT_MIN, 5), "-2147483648");
    EXPECT_EQ(integer(INT_MIN, 13), "  -2147483648");
}

TEST_F(RandomText, AgreesWithTheLibraryForIntegers) {
    for (int round = 0; round < ROUNDS; ++round) {
        // Every length from one to ten digits.
        const auto value = static_cast<int>(static_cast<std::uint32_t>(random()) >> random() % 32);
        for (const int number : {value, static_cast<int>(0U - static_cast<std::uint32_t>(value))}) {
            const int field = width();
            ASSERT_EQ(integer(number, field), library_integer(number, field));
        }
    }
}
