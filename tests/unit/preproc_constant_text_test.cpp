#include "preproc/constant_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

namespace {

std::string text_of(double value) {
    char text[vorn::CONSTANT_TEXT_SIZE];
    vorn::FtoA(text, value);
    return text;
}

TEST(ConstantText, ThreeDecimals) {
    EXPECT_EQ(text_of(2.5), "2.500");
    EXPECT_EQ(text_of(0.04), "0.040");
    EXPECT_EQ(text_of(-0.5), "-0.500");
    EXPECT_EQ(text_of(12), "12.000");
    EXPECT_EQ(text_of(0), "0.000");
    EXPECT_EQ(text_of(-0.0), "0.000");
    EXPECT_EQ(text_of(1000000), "1000000.000");
}

TEST(ConstantText, HalvesGoUp) {
    EXPECT_EQ(text_of(0.0005), "0.001");
    EXPECT_EQ(text_of(1e-4), "0.000");
    EXPECT_EQ(text_of(0.0625), "0.063") << "62.5 thousandths";
    EXPECT_EQ(text_of(-0.0625), "-0.063");
    EXPECT_EQ(text_of(-0.0001), "-0.000");
}

TEST(ConstantText, FractionThatRoundsToAThousandIsWrittenWithoutCarry) {
    EXPECT_EQ(text_of(2.9996), "2.1000");
    EXPECT_EQ(text_of(-0.9996), "-0.1000");
    EXPECT_EQ(text_of(2.9994), "2.999");
}

TEST(ConstantText, LargeWholePartsSpoilTheFraction) {
    // 16777217 is 16777216 in single precision, so 1.5 is left for the fraction.
    EXPECT_EQ(text_of(16777217.5), "16777217.1500");
    // 16777219 is 16777220 in single precision: the fraction comes out negative.
    EXPECT_EQ(text_of(16777219.5), "16777219.000");
    EXPECT_EQ(text_of(16777216.5), "16777216.500");
}

TEST(ConstantText, WholePartsBeyond64Bits) {
    EXPECT_EQ(text_of(1e19), "10000000000000000000.000");
    EXPECT_EQ(text_of(-1e20), "-100000000000000000000.000");
    EXPECT_EQ(text_of(9223372036854775808.0), "9223372036854775808.000");
    const std::string largest = text_of(std::numeric_limits<double>::max());
    EXPECT_EQ(largest.size(), 309U + 4U);
    EXPECT_EQ(largest.substr(0, 10), "1797693134");
    EXPECT_EQ(largest.substr(309), ".000");
    EXPECT_EQ(text_of(-std::numeric_limits<double>::max()).size(), 1U + 309U + 4U);
}

TEST(ConstantText, LargestWholePartWithin64Bits) {
    // The largest double below 2^63 is 2^63 - 1024; in single precision it is
    // 2^63, which leaves a negative fraction.
    EXPECT_EQ(text_of(9223372036854774784.0), "9223372036854774784.000");
}

TEST(ConstantText, InfinitiesAndNotANumber) {
    EXPECT_EQ(text_of(std::numeric_limits<double>::infinity()), "inf.000");
    EXPECT_EQ(text_of(-std::numeric_limits<double>::infinity()), "-inf.000");
    EXPECT_EQ(text_of(std::numeric_limits<double>::quiet_NaN()), "-nan.000");
    EXPECT_EQ(text_of(-std::numeric_limits<double>::quiet_NaN()), "-nan.000");
}

TEST(ConstantText, CountDigits) {
    EXPECT_EQ(vorn::CountDigits(0), 1);
    EXPECT_EQ(vorn::CountDigits(9), 1);
    EXPECT_EQ(vorn::CountDigits(10), 2);
    EXPECT_EQ(vorn::CountDigits(9223372036854775807), 19);
    EXPECT_EQ(vorn::CountDigits(-1), 0);
}

}  // namespace
