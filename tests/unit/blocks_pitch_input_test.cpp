// The notation readers as tables of text, value and what is left of the line.

#include "blocks/pitch_input.h"

#include <gtest/gtest.h>

#include <string>

#include "blocks/block_state.h"
#include "input/run_flags.h"

namespace {

using vorn::get_db;
using vorn::get_oct_pc;
using vorn::get_pitch;
using vorn::get_rdc;
using Getter = bool (*)(float&, const char*, std::int32_t&);

constexpr float UNTOUCHED = -12345.0F;

// What a reader makes of a text: its value, or UNTOUCHED, and where it stops.
struct Reading {
    bool read;
    float value;
    std::string rest;
};

Reading read(Getter getter, const std::string& text) {
    Reading reading{false, UNTOUCHED, ""};
    std::int32_t pos = 0;
    reading.read = getter(reading.value, text.c_str(), pos);
    reading.rest = text.substr(static_cast<std::size_t>(pos));
    return reading;
}

void expect_value(Getter getter, const std::string& text, float value, const std::string& rest) {
    const Reading reading = read(getter, text);
    EXPECT_TRUE(reading.read) << text;
    EXPECT_EQ(reading.value, value) << text;
    EXPECT_EQ(reading.rest, rest) << text;
}

void expect_refused(Getter getter, const std::string& text, const std::string& rest) {
    const Reading reading = read(getter, text);
    EXPECT_FALSE(reading.read) << text;
    EXPECT_EQ(reading.value, UNTOUCHED) << text;
    EXPECT_EQ(reading.rest, rest) << text;
}

class PitchInput : public testing::Test {
protected:
    PitchInput() { reset(); }
    ~PitchInput() override { reset(); }

    static void reset() {
        vorn::reset_block_state();
        vorn::reset_run_flags();
        vorn::reset_pitch_input();
    }
};

// Note names

class GetPitch : public PitchInput {};

TEST_F(GetPitch, SevenLettersInEitherCase) {
    const struct {
        const char* text;
        float value;
    } cases[] = {{"c4", 48}, {"d4", 50}, {"e4", 52}, {"f4", 53}, {"g4", 55}, {"a4", 57}, {"b4", 59},
                 {"C4", 48}, {"D4", 50}, {"E4", 52}, {"F4", 53}, {"G4", 55}, {"A4", 57}, {"B4", 59}};
    for (const auto& [text, value] : cases) expect_value(get_pitch, text, value, "");
}

TEST_F(GetPitch, OctavesFrom0To9) {
    for (int octave = 0; octave <= 9; ++octave) {
        expect_value(get_pitch, "c" + std::to_string(octave) + " d", static_cast<float>(12 * octave), " d");
    }
}

TEST_F(GetPitch, StartsInOctave4) {
    EXPECT_EQ(vorn::PITCH_OCTAVE, 4);
    expect_value(get_pitch, "g", 55, "");
}

TEST_F(GetPitch, KeepsTheLastOctave) {
    expect_value(get_pitch, "c5", 60, "");
    expect_value(get_pitch, "d", 62, "");
    expect_value(get_pitch, "e2", 28, "");
    expect_value(get_pitch, "f", 29, "");
}

TEST_F(GetPitch, OctavePersistsAcrossBlocks) {
    expect_value(get_pitch, "c6", 72, "");
    vorn::reset_block_state();  // far more than a new block resets
    expect_value(get_pitch, "c", 72, "");
}

TEST_F(GetPitch, ANewRunStartsInOctave4Again) {
    expect_value(get_pitch, "c6", 72, "");
    vorn::reset_pitch_input();
    expect_value(get_pitch, "c", 48, "");
}

TEST_F(GetPitch, AccidentalsAccumulate) {
    const struct {
        const char* text;
        float value;
    } cases[] = {{"cs4", 49}, {"css4", 50}, {"csss4", 51},  {"bf4", 58}, {"bff4", 57},
                 {"cn4", 48}, {"csf4", 48}, {"csnsn4", 50}, {"bf3", 46}, {"ff4", 52}};
    for (const auto& [text, value] : cases) expect_value(get_pitch, text, value, "");
}

TEST_F(GetPitch, SharpWithoutOctaveTakesTheLastOne) {
    expect_value(get_pitch, "c4", 48, "");
    expect_value(get_pitch, "cs", 49, "");
}

TEST_F(GetPitch, AccidentalsAreLowerCaseOnlyWhileLettersAreNot) {
    expect_value(get_pitch, "CS4", 48, "S4");
    expect_value(get_pitch, "Cs4", 49, "");
    expect_value(get_pitch, "EF4", 52, "F4");
    expect_value(get_pitch, "cN4", 48, "N4");
}

TEST_F(GetPitch, QuarterTonesNeedTheSuffix) {
    expect_refused(get_pitch, "c+4", "+4");
    expect_refused(get_pitch, "c-4", "-4");
    expect_refused(get_pitch, "cs+4", "+4");
    vorn::NX = 1;
    expect_value(get_pitch, "c+4", 48.5F, "");
    expect_value(get_pitch, "c-4", 47.5F, "");
    expect_value(get_pitch, "cs+4", 49.5F, "");
    expect_value(get_pitch, "c++4", 49, "");
    expect_value(get_pitch, "c--4", 47, "");
}

TEST_F(GetPitch, QuarterToneMarkBehindTheOctaveIsNotPartOfTheNote) {
    vorn::NX = 1;
    expect_value(get_pitch, "c4+", 48, "+");
}

TEST_F(GetPitch, RIsARestOfOneCharacterThatLeavesTheOctave) {
    expect_value(get_pitch, "c6", 72, "");
    expect_value(get_pitch, "r", -1, "");
    expect_value(get_pitch, "R", -1, "");
    expect_value(get_pitch, "r4", -1, "4");
    expect_value(get_pitch, "rs", -1, "s");
    expect_value(get_pitch, "c", 72, "");
}

TEST_F(GetPitch, CFlat0IsARestToo) {
    expect_value(get_pitch, "cf0", -1, "");
    expect_value(get_pitch, "dffff0", -2, "");
}

TEST_F(GetPitch, Octave10IsRefused) {
    expect_refused(get_pitch, "c10", "");
    expect_refused(get_pitch, "cs10 d", " d");
    expect_refused(get_pitch, "c40000", "40000");
}

TEST_F(GetPitch, ARefusedOctaveIsKeptAllTheSame) {
    expect_refused(get_pitch, "c10", "");
    EXPECT_EQ(vorn::PITCH_OCTAVE, 10);
    expect_refused(get_pitch, "d", "");
    expect_value(get_pitch, "d3", 38, "");
}

TEST_F(GetPitch, RefusesEverythingButANoteLetter) {
    for (const char* text : {"", "h4", "s4", "x", "4", " c4", "+c", ".", "z",
                             "\xE9"
                             "4",
                             "@", "`"}) {
        expect_refused(get_pitch, text, text);
    }
}

TEST_F(GetPitch, AMidiFileIsAnOctaveHigher) {
    vorn::MKMIDI = 1;
    expect_value(get_pitch, "c4", 60, "");
    expect_value(get_pitch, "a4", 69, "");
    expect_value(get_pitch, "cf0", 11, "");
    expect_value(get_pitch, "r", -1, "");
}

// Octave.pitch-class

class GetOctPc : public PitchInput {};

TEST_F(GetOctPc, OctaveEightIsMiddleC) {
    expect_value(get_oct_pc, "8.00", 48, "");
    expect_value(get_oct_pc, "8.07 x", 55, " x");
    expect_value(get_oct_pc, "8.11", 59, "");
    expect_value(get_oct_pc, "9.00", 60, "");
    expect_value(get_oct_pc, "4.00", 0, "");
    expect_value(get_oct_pc, "+8.09", 57, "");
    expect_value(get_oct_pc, "  8.09", 57, "");
}

TEST_F(GetOctPc, DigitsAreHundredthsSo8Point5Is98) {
    expect_value(get_oct_pc, "8.5", 98, "");
    expect_value(get_oct_pc, "8.05", 53, "");
    expect_value(get_oct_pc, "8.075", 55.5F, "");
}

TEST_F(GetOctPc, NoDigitBehindThePointIsPitchClass0) { expect_value(get_oct_pc, "8. 9", 48, " 9"); }

TEST_F(GetOctPc, ASecondPointEndsTheNumber) { expect_value(get_oct_pc, "8.07.1", 55, ".1"); }

TEST_F(GetOctPc, OctavesBelow4AreNegativePitches) {
    expect_value(get_oct_pc, "3.11", -1, "");
    expect_value(get_oct_pc, "0.07", -41, "");
}

TEST_F(GetOctPc, ANegativeOctaveNegatesTheValue) {
    expect_value(get_oct_pc, "-8.00", -48, "");
    expect_value(get_oct_pc, "-8.07", -55, "");
    expect_value(get_oct_pc, "-3.11", 1, "");
}

TEST_F(GetOctPc, MinusZeroIsNoNegativeOctave) { expect_value(get_oct_pc, "-0.07", -41, ""); }

TEST_F(GetOctPc, AMidiFileDropsTheSignOfTheOctave) {
    vorn::MKMIDI = 1;
    expect_value(get_oct_pc, "8.00", 60, "");
    expect_value(get_oct_pc, "-8.00", 60, "");
    expect_value(get_oct_pc, "-8.07", 67, "");
    expect_value(get_oct_pc, "3.11", 11, "");
    expect_value(get_oct_pc, "2.05", -7, "");
    expect_value(get_oct_pc, "-2.05", -7, "");
}

TEST_F(GetOctPc, RefusesMalformedText) {
    expect_refused(get_oct_pc, "", "");
    expect_refused(get_oct_pc, "8", "");
    expect_refused(get_oct_pc, "8 .00", " .00");
    expect_refused(get_oct_pc, ".07", ".07");
    expect_refused(get_oct_pc, "c4", "c4");
    expect_refused(get_oct_pc, "+", "");
    expect_refused(get_oct_pc, "-.07", ".07");
    expect_refused(get_oct_pc, "8,07", ",07");
    expect_refused(get_oct_pc, "40000.00", "40000.00");
}

// Rhythm values

class GetRdc : public PitchInput {};

TEST_F(GetRdc, AFourthIsOneBeat) {
    const struct {
        const char* text;
        float value;
    } cases[] = {{"1", 4},        {"2", 2},          {"4", 1},        {"8", 0.5F},
                 {"16", 0.25F},   {"32", 0.125F},    {"64", 0.0625F}, {"3", 4.0F / 3},
                 {"6", 4.0F / 6}, {"12", 4.0F / 12}, {"5", 0.8F},     {"+4", 1}};
    for (const auto& [text, value] : cases) expect_value(get_rdc, text, value, "");
}

TEST_F(GetRdc, EachDotAddsHalfOfWhatWasAddedBefore) {
    expect_value(get_rdc, "4.", 1.5F, "");
    expect_value(get_rdc, "4..", 1.75F, "");
    expect_value(get_rdc, "4...", 1.875F, "");
    expect_value(get_rdc, "2. 4", 3, " 4");
}

TEST_F(GetRdc, ACommaTiesAndDoesNotSeparate) {
    expect_value(get_rdc, "4,8", 1.5F, "");
    expect_value(get_rdc, "4.,8", 2, "");
    expect_value(get_rdc, "1,1,1,4", 13, "");
    expect_value(get_rdc, "4,8./", 1.75F, "/");
}

TEST_F(GetRdc, ATieMustBeFollowedDirectlyByARhythmValue) {
    expect_refused(get_rdc, "4, 8", " 8");
    expect_refused(get_rdc, "4,", "");
    expect_refused(get_rdc, "4,,8", ",8");
    expect_refused(get_rdc, "4,x", "x");
}

TEST_F(GetRdc, TheSignAppliesBehindDotsAndTies) {
    expect_value(get_rdc, "-4", -1, "");
    expect_value(get_rdc, "-4.", -1.5F, "");
    expect_value(get_rdc, "-4,8", -1.5F, "");
    expect_value(get_rdc, "-4.,8", -2, "");
    expect_value(get_rdc, "4,-8", 0.5F, "");
    expect_value(get_rdc, "4,-8,16", 0.25F, "");
    expect_value(get_rdc, "-4,-8", -0.5F, "");
}

TEST_F(GetRdc, RhythmValue0FailsToBeRead) {
    expect_refused(get_rdc, "0", "");
    expect_refused(get_rdc, "-0", "");
    expect_refused(get_rdc, "4,0", "");
    expect_refused(get_rdc, "0.", ".");
}

TEST_F(GetRdc, RefusesMalformedText) {
    expect_refused(get_rdc, "", "");
    expect_refused(get_rdc, ".", ".");
    expect_refused(get_rdc, ".5", ".5");
    expect_refused(get_rdc, " 4", " 4");
    expect_refused(get_rdc, "q", "q");
    expect_refused(get_rdc, "+", "");
    expect_refused(get_rdc, "-", "");
    expect_refused(get_rdc, "-x", "x");
    expect_refused(get_rdc, "40000", "40000");
}

TEST_F(GetRdc, ALineFullOfTiesIsRead) {
    std::string text = "4";
    for (int i = 0; i < 2000; ++i) text += ",4";
    expect_value(get_rdc, text, 2001, "");
}

// Decibels

class GetDb : public PitchInput {};

// 10 to the power of d / 20, cut to a whole amplitude; the factor in use lies a
// little below the exact one, so powers of ten come out one short.
TEST_F(GetDb, DecibelsAreCutBeforeAndBehindTheConversion) {
    expect_value(get_db, "0", 1, "");
    expect_value(get_db, "1", 1, "");
    expect_value(get_db, "20", 9, "");
    expect_value(get_db, "40", 99, "");
    expect_value(get_db, "60", 999, "");
    expect_value(get_db, "60.99", 999, "");
    expect_value(get_db, "6", 1, "");
    expect_value(get_db, "7", 2, "");
    expect_value(get_db, ".5", 1, "");
    expect_value(get_db, "+60", 999, "");
}

TEST_F(GetDb, From0To96) {
    expect_value(get_db, "96", 63095, "");
    expect_value(get_db, "-0", 1, "");
    expect_refused(get_db, "97", "");
    expect_refused(get_db, "96.001", "");
    expect_refused(get_db, "-1", "");
    expect_refused(get_db, "-.001", "");
}

TEST_F(GetDb, RefusesMalformedText) {
    expect_refused(get_db, "", "");
    expect_refused(get_db, "c4", "c4");
    expect_refused(get_db, "+", "");
    expect_refused(get_db, "-x", "x");
}

// Classifiers

// All characters that a classifier accepts, in the order of their codes.
std::string accepted_by(bool (*classifier)(char)) {
    std::string accepted;
    for (int code = -128; code < 128; ++code) {
        const char c = static_cast<char>(code);
        if (classifier(c)) accepted += c;
    }
    return accepted;
}

TEST(Classifiers, RangeTypes) { EXPECT_EQ(accepted_by(vorn::is_rrange_type), "BFGHLTXbfghltx"); }

TEST(Classifiers, GlobalTokens) { EXPECT_EQ(accepted_by(vorn::is_gtoken), "#>RSTrst"); }

TEST(Classifiers, BlockTokens) { EXPECT_EQ(accepted_by(vorn::is_itoken), "$DEHIMNOPRSZdehimnoprsz{}~"); }

}  // namespace
