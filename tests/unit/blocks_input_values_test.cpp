// The table of input types: which characters open a value, and which reader
// takes it from there.

#include "blocks/input_values.h"

#include <gtest/gtest.h>

#include <string>

#include "blocks/block_state.h"
#include "blocks/command_codes.h"
#include "blocks/pitch_input.h"
#include "input/run_flags.h"

namespace {

class InputValues : public testing::Test {
protected:
    InputValues() { reset(); }
    ~InputValues() override { reset(); }

    static void reset() {
        vorn::reset_block_state();
        vorn::reset_run_flags();
        vorn::reset_pitch_input();
    }

    // Reads one value of the type; UNREAD when it is refused.
    float read(int type, const std::string& text) {
        vorn::IN_TYPE = type;
        float value = UNREAD;
        std::int32_t pos = 0;
        const bool done = vorn::get_input_type(value, text.c_str(), pos);
        rest = text.substr(static_cast<std::size_t>(pos));
        EXPECT_EQ(done, value != UNREAD) << text;
        return value;
    }

    // The characters that may start a value of the type, in the order of their codes.
    static std::string openers(int type) {
        vorn::IN_TYPE = type;
        std::string accepted;
        for (int code = -128; code < 128; ++code) {
            const char c = static_cast<char>(code);
            if (vorn::in_limits(c)) accepted += c;
        }
        return accepted;
    }

    static constexpr float UNREAD = -54321.0F;
    std::string rest;
};

constexpr int INPUT_CODES[] = {vorn::CODE_DB, vorn::CODE_IN, vorn::CODE_NO, vorn::CODE_OP,
                               vorn::CODE_OD, vorn::CODE_RE, vorn::CODE_RH};

class GetInputType : public InputValues {};

TEST_F(GetInputType, EachTypeReadsItsOwnNotation) {
    EXPECT_EQ(read(vorn::CODE_DB, "60"), 999);
    EXPECT_EQ(read(vorn::CODE_IN, "60"), 60);
    EXPECT_EQ(read(vorn::CODE_NO, "c4"), 48);
    EXPECT_EQ(read(vorn::CODE_OP, "8.07"), 55);
    EXPECT_EQ(read(vorn::CODE_RE, "-.5"), -0.5F);
    EXPECT_EQ(read(vorn::CODE_RH, "4."), 1.5F);
}

TEST_F(GetInputType, IntegersAreRoundedHalvesUp) {
    EXPECT_EQ(read(vorn::CODE_IN, "2.5"), 3);
    EXPECT_EQ(read(vorn::CODE_IN, "2.49"), 2);
    EXPECT_EQ(read(vorn::CODE_IN, "-2.5"), -2);
    EXPECT_EQ(read(vorn::CODE_IN, "-2.51"), -3);
    EXPECT_EQ(read(vorn::CODE_IN, "100000"), 100000);
}

TEST_F(GetInputType, NothingIsReadAsOctaveDecimal) {
    for (const char* text : {"8.00", "c4", "0", ""}) {
        EXPECT_EQ(read(vorn::CODE_OD, text), UNREAD);
        EXPECT_EQ(rest, text);
    }
}

TEST_F(GetInputType, ACodeThatIsNoInputTypeReadsNothing) { EXPECT_EQ(read(vorn::CODE_HZ, "440"), UNREAD); }

TEST_F(GetInputType, ZIsTheLastValueInEitherCaseUnderEveryType) {
    vorn::LAST_VAL = 7.25F;
    for (const int code : INPUT_CODES) {
        EXPECT_EQ(read(code, "z4"), 7.25F) << code;
        EXPECT_EQ(rest, "4");
        EXPECT_EQ(read(code, "Z"), 7.25F) << code;
    }
}

TEST_F(GetInputType, ZWorksForIntegersWhereNoDataListGuardsThem) {
    vorn::LAST_VAL = 2.5F;
    EXPECT_EQ(read(vorn::CODE_IN, "z"), 2.5F);
    EXPECT_FALSE(vorn::in_limits('z'));
}

TEST_F(GetInputType, StopsWhereTheTextIsWrong) {
    EXPECT_EQ(read(vorn::CODE_DB, "97 "), UNREAD);
    EXPECT_EQ(rest, " ");
    EXPECT_EQ(read(vorn::CODE_NO, "h"), UNREAD);
    EXPECT_EQ(rest, "h");
    EXPECT_EQ(read(vorn::CODE_OP, "8"), UNREAD);
    EXPECT_EQ(rest, "");
    EXPECT_EQ(read(vorn::CODE_RE, "-x"), UNREAD);
    EXPECT_EQ(rest, "x");
    EXPECT_EQ(read(vorn::CODE_IN, "x"), UNREAD);
    EXPECT_EQ(rest, "x");
    EXPECT_EQ(read(vorn::CODE_RH, "4, 8"), UNREAD);
    EXPECT_EQ(rest, " 8");
}

class InLimits : public InputValues {};

TEST_F(InLimits, RealsAndDecibels) {
    EXPECT_EQ(openers(vorn::CODE_RE), "+-.0123456789Zz");
    EXPECT_EQ(openers(vorn::CODE_DB), "+-.0123456789Zz");
}

TEST_F(InLimits, IntegersRefuseThePointAndZ) { EXPECT_EQ(openers(vorn::CODE_IN), "+-0123456789"); }

TEST_F(InLimits, NoteNamesTakeEveryLetterAndDigit) {
    EXPECT_EQ(openers(vorn::CODE_NO), "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
}

TEST_F(InLimits, OctavePitchClassRefusesThePoint) { EXPECT_EQ(openers(vorn::CODE_OP), "+-0123456789Zz"); }

TEST_F(InLimits, OctaveDecimalRefusesEverything) { EXPECT_EQ(openers(vorn::CODE_OD), ""); }

TEST_F(InLimits, RhythmLetsThePointThroughAndItsReaderRefusesIt) {
    EXPECT_EQ(openers(vorn::CODE_RH), "+-.0123456789Zz");
    EXPECT_EQ(read(vorn::CODE_RH, ".5"), UNREAD);
}

TEST_F(InLimits, ACodeThatIsNoInputTypeRefusesEverything) { EXPECT_EQ(openers(vorn::CODE_TR), ""); }

TEST(IsSeparator, WhiteSpaceAndFourMarks) {
    std::string separators;
    for (int code = -128; code < 128; ++code) {
        if (vorn::is_separator(static_cast<char>(code))) separators += static_cast<char>(code);
    }
    EXPECT_EQ(separators, "\t\n\v\f\r ',/:");
}

TEST(IsInputCode, TheSevenInputTypes) {
    std::string codes;
    for (int code = -1; code <= 30; ++code) {
        if (vorn::is_input_code(code)) codes += std::to_string(code) + " ";
    }
    EXPECT_EQ(codes, "2 6 10 11 13 14 15 ");
}

TEST(IsLastVariable, ZInEitherCaseAtThePlaceAsked) {
    EXPECT_TRUE(vorn::is_last_variable("z", 0));
    EXPECT_TRUE(vorn::is_last_variable("4 Z", 2));
    EXPECT_FALSE(vorn::is_last_variable("4 Z", 0));
    EXPECT_FALSE(vorn::is_last_variable("", 0));
}

}  // namespace
