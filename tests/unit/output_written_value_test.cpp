// One value as it stands in a score: what each output type writes, in columns of
// their own widths.

#include "output/written_value.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "blocks/command_codes.h"

namespace vorn::test {
namespace {

std::string written(const FieldFormat& format, float value) {
    ValueForm form = {};
    if (!plan_value(form, format)) return "left out";
    char text[REAL_TEXT_SIZE];
    return {text, write_value(text, form, value)};
}

// As P4, with two decimals, FFT size 512 and 44,100 hertz.
std::string written_as(int type, float value) {
    return written({4, static_cast<std::uint32_t>(type), 2, 2, 44100}, value);
}

struct Row {
    int type;
    float value;
    const char* text;
};

// 48 semitones are middle c, octave 8; 57 the a of 440 hertz, which lies in bin
// 440 / 44100 * 1024 = 10.2. Amplitudes 1000 and 10000 are 60 and 80 decibels.
constexpr Row ROWS[] = {
    {CODE_RE, 0.5F, "    0.50"},     {CODE_RE, -12.345F, "  -12.35"}, {CODE_IN, 2.5F, "    3"},
    {CODE_HZ, 57.0F, "  440.00000"}, {CODE_OP, 48.0F, " 8.000"},      {CODE_OP, 55.0F, " 8.070"},
    {CODE_OD, 54.0F, "8.50"},        {CODE_TR, 12.0F, "2.000000"},    {CODE_DB, 1000.0F, "60.0"},
    {CODE_DB, 10000.0F, "80.0"},     {CODE_BN, 57.0F, "   10"},
};

TEST(WrittenValue, EveryOutputTypeInItsColumn) {
    for (const Row& row : ROWS) EXPECT_EQ(written_as(row.type, row.value), row.text) << row.type;
}

TEST(WrittenValue, TypesThatAreNoOutputAreLeftOut) {
    EXPECT_EQ(written_as(CODE_XX, 1.0F), "left out");
    EXPECT_EQ(written_as(CODE_NO, 1.0F), "left out");
}

TEST(WrittenValue, StartAndDurationAreNumbersWhateverTheirType) {
    EXPECT_EQ(written({2, CODE_XX, 3, 0, 0}, 1.5F), "   1.500");
    EXPECT_EQ(written({3, CODE_HZ, 4, 0, 0}, 1.5F), " 1.5000");
}

TEST(WrittenValue, WhatIsNoNumberIsWrittenToo) {
    EXPECT_EQ(written_as(CODE_RE, std::numeric_limits<float>::infinity()), "     inf");
    EXPECT_EQ(written_as(CODE_RE, std::numeric_limits<float>::quiet_NaN()), "    -nan");
}

}  // namespace
}  // namespace vorn::test
