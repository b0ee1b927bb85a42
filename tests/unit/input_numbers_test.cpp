#include "input/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <initializer_list>
#include <limits>
#include <string>

// Each reader as a table: a text, what it is read as, and what is left of it.

namespace {

using vorn::get_df;
using vorn::get_f;
using vorn::get_i;
using vorn::get_li;
using vorn::get_uli;

constexpr bool READ = true;
constexpr bool REFUSED = false;

template <typename Value>
struct Row {
    const char* text;
    bool read;
    Value value;  // of a text that is read
    const char* rest;
};

// A refused text must leave the value alone, which the marker shows.
template <typename Value, typename Reader>
void expect_rows(Reader reader, Value marker, std::initializer_list<Row<Value>> rows) {
    for (const Row<Value>& row : rows) {
        SCOPED_TRACE(std::string("\"") + row.text + "\"");
        Value value = marker;
        std::int32_t pos = 0;
        EXPECT_EQ(reader(value, row.text, pos), row.read);
        EXPECT_EQ(value, row.read ? row.value : marker);
        EXPECT_STREQ(row.text + pos, row.rest);
    }
}

TEST(GetI, ReadsSignedShortIntegers) {
    expect_rows<std::int32_t>(get_i, 77,
                              {{"7", READ, 7, ""},
                               {"12x", READ, 12, "x"},
                               {"007", READ, 7, ""},
                               {"+7", READ, 7, ""},
                               {"-7", READ, -7, ""},
                               {"32767,", READ, 32767, ","},
                               {"-32768", READ, -32768, ""},
                               {"1.5", READ, 1, ".5"}});
}

TEST(GetI, MinusZeroIsZero) { expect_rows<std::int32_t>(get_i, 77, {{"-0", READ, 0, ""}}); }

TEST(GetI, WhiteSpaceOfEveryKindMayStandBefore) {
    expect_rows<std::int32_t>(get_i, 77, {{" \t\n\v\f\r 3", READ, 3, ""}, {"  -3", READ, -3, ""}});
}

TEST(GetI, TrailingWhiteSpaceStays) { expect_rows<std::int32_t>(get_i, 77, {{"5  6", READ, 5, "  6"}}); }

TEST(GetI, RangeFailureRestoresTheFirstDigit) {
    expect_rows<std::int32_t>(get_i, 77,
                              {{"32768", REFUSED, 0, "32768"},
                               {"  32768", REFUSED, 0, "32768"},
                               {"-32769", REFUSED, 0, "32769"},
                               {"+99999x", REFUSED, 0, "99999x"}});
}

// Enough digits to overflow a 32-bit and a 64-bit integer.
TEST(GetI, LongDigitRunsAreOutOfRange) {
    expect_rows<std::int32_t>(get_i, 77,
                              {{"4294967297", REFUSED, 0, "4294967297"},
                               {"18446744073709551617", REFUSED, 0, "18446744073709551617"}});
}

TEST(GetI, WithoutADigitPosIsLeftBehindTheSign) {
    expect_rows<std::int32_t>(get_i, 77,
                              {{"-x", REFUSED, 0, "x"},
                               {"+-5", REFUSED, 0, "-5"},
                               {"- 5", REFUSED, 0, " 5"},
                               {"  x", REFUSED, 0, "x"},
                               {"", REFUSED, 0, ""},
                               {"  ", REFUSED, 0, ""},
                               {".5", REFUSED, 0, ".5"}});
}

TEST(GetUi, PlusIsAllowedMinusIsNot) {
    expect_rows<std::uint32_t>(vorn::get_ui, 77,
                               {{"+7", READ, 7, ""}, {"-7", REFUSED, 0, "-7"}, {"+-7", REFUSED, 0, "-7"}});
}

TEST(GetUi, ReadsZeroTo65535) {
    expect_rows<std::uint32_t>(vorn::get_ui, 77,
                               {{"0", READ, 0, ""},
                                {"65535)", READ, 65535, ")"},
                                {"7  )", READ, 7, "  )"},
                                {"65536", REFUSED, 0, "65536"},
                                {" +65536", REFUSED, 0, "65536"},
                                {"4294967296", REFUSED, 0, "4294967296"}});
}

TEST(GetLi, ReadsSixtyFourBits) {
    expect_rows<std::int64_t>(get_li, 77,
                              {{"12", READ, 12, ""},
                               {"+12", READ, 12, ""},
                               {"-12", READ, -12, ""},
                               {"9223372036854775807", READ, std::numeric_limits<std::int64_t>::max(), ""},
                               {"-9223372036854775808", READ, std::numeric_limits<std::int64_t>::min(), ""},
                               {"-x", REFUSED, 0, "x"},
                               {"", REFUSED, 0, ""}});
}

TEST(GetLi, DigitsBeyondSixtyFourBitsWrap) {
    expect_rows<std::int64_t>(get_li, 77, {{"18446744073709551617", READ, 1, ""}});
}

TEST(GetLi, SkipsTrailingWhiteSpaceUnlikeTheOthers) {
    expect_rows<std::int64_t>(get_li, 77, {{"12  x", READ, 12, "x"}, {"-12\t", READ, -12, ""}});
}

TEST(GetUli, SkipsTrailingWhiteSpaceUnlikeTheOthers) {
    expect_rows<std::uint64_t>(get_uli, 77, {{"48000 )", READ, 48000, ")"}});
}

TEST(GetUli, PlusIsAllowedMinusIsNot) {
    expect_rows<std::uint64_t>(get_uli, 77,
                               {{"+7", READ, 7, ""},
                                {"-7", REFUSED, 0, "-7"},
                                {"18446744073709551615", READ, ~std::uint64_t{0}, ""},
                                {"18446744073709551618", READ, 2, ""}});
}

TEST(GetF, ReadsDigitsBeforeAndBehindAPoint) {
    expect_rows<float>(get_f, 77,
                       {{"3", READ, 3.0F, ""},
                        {".5", READ, 0.5F, ""},
                        {"2.", READ, 2.0F, ""},
                        {"12.50x", READ, 12.5F, "x"},
                        {"-.25", READ, -0.25F, ""},
                        {"+1.75 ", READ, 1.75F, " "},
                        {"  0.1", READ, 0.1F, ""},
                        {"3.14159,", READ, 3.14159F, ","}});
}

TEST(GetF, HasNoExponents) { expect_rows<float>(get_f, 77, {{"1e3", READ, 1.0F, "e3"}}); }

TEST(GetF, ALonePointIsZero) {
    expect_rows<float>(get_f, 77, {{".", READ, 0.0F, ""}, {"-.x", READ, 0.0F, "x"}});
}

TEST(GetF, ASecondPointEndsTheNumber) { expect_rows<float>(get_f, 77, {{"1.5.2", READ, 1.5F, ".2"}}); }

TEST(GetF, RefusesWhatStartsWithNeitherDigitNorPoint) {
    expect_rows<float>(get_f, 77,
                       {{"-x", REFUSED, 0, "x"},
                        {"e3", REFUSED, 0, "e3"},
                        {"--1", REFUSED, 0, "-1"},
                        {" ", REFUSED, 0, ""},
                        {"", REFUSED, 0, ""}});
}

// 2^24 + 1 is the first whole number that a float cannot hold.
TEST(GetF, AccumulatesInSinglePrecision) {
    expect_rows<float>(get_f, 77, {{"16777217", READ, 16777216.0F, ""}});
    // Digit by digit 12345678, then 123456780 -> 123456784, then + 9 -> 123456792.
    expect_rows<float>(get_f, 77, {{"0.123456789", READ, 123456792.0F / 1e9F, ""}});
}

TEST(GetF, FractionDigitsBeyondNineAreReadAndIgnored) {
    expect_rows<float>(get_f, 77,
                       {{"0.123456789999999999x", READ, 123456792.0F / 1e9F, "x"},
                        {"0.00000000051", READ, 0.0F, ""},
                        {"7.0000000001", READ, 7.0F, ""}});
}

TEST(GetF, MoreDigitsThanAFloatHoldsAreInfinite) {
    const std::string digits(60, '9');
    float value = 0;
    std::int32_t pos = 0;
    EXPECT_TRUE(get_f(value, digits.c_str(), pos));
    EXPECT_TRUE(std::isinf(value));
    EXPECT_EQ(pos, 60);
}

TEST(GetDf, ReadsAsGetFInDoublePrecision) {
    expect_rows<double>(get_df, 77,
                        {{"0.1", READ, 0.1, ""},
                         {"-12.5x", READ, -12.5, "x"},
                         {"16777217", READ, 16777217.0, ""},
                         {"1e3", READ, 1.0, "e3"},
                         {".", READ, 0.0, ""},
                         {"5  6", READ, 5.0, "  6"},
                         {"+x", REFUSED, 0, "x"}});
}

TEST(GetDf, FractionDigitsBeyondEighteenAreReadAndIgnored) {
    expect_rows<double>(
        get_df, 77,
        {{"0.000000000000000001", READ, 1e-18, ""}, {"0.0000000000000000019999x", READ, 1e-18, "x"}});
}

}  // namespace
