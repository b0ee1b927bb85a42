#include "kit/midi/midi_notes.h"

#include <gtest/gtest.h>

#include <cmath>

#include "kit/midi/midi_bytes.h"
#include "tests/kit/table_sources.h"

// What becomes of the events of a score in a MIDI file: keys, velocities, ticks.

namespace vorn::kit::test {

namespace {

MidiNotes notes_of(const std::string& score, const MidiOptions& options = {}) {
    return midi_notes(run_text(score), options);
}

std::string block(const std::string& header, const std::string& p4, const std::string& p5) {
    return header + " {\np2 1\np3 1\np4 " + p4 + "\np5 " + p5 + "\n}\n";
}

TEST(MidiNotes, ATenthOfASecondDoesNotDriftInTenThousand) {
    const MidiNotes notes = notes_of("i1 = 5 0 -10001 {\np2 .1\np3 1\np4 16000\np5 60\n}\n");
    ASSERT_EQ(notes.tracks.size(), 1U);
    ASSERT_EQ(notes.tracks[0].notes.size(), 10001U);
    EXPECT_EQ(notes.tracks[0].notes.back().start, 1000U * TICKS_PER_QUARTER);
    EXPECT_EQ(notes.tracks[0].notes[1].start, 48U);  // .1 of 480
}

TEST(MidiNotes, EachInstrumentHasATrackAndAChannelButTheDrums) {
    std::string score;
    for (int instrument = 1; instrument <= 11; ++instrument) {
        score += block("i" + std::to_string(instrument) + " = 5 0 -1", "16000", "60");
    }
    const MidiNotes notes = notes_of(score + block("i3 = 5 4 -1", "16000", "62"));
    ASSERT_EQ(notes.tracks.size(), 11U);
    EXPECT_EQ(notes.tracks[8].channel, 9);
    EXPECT_EQ(notes.tracks[9].channel, 11);
    EXPECT_EQ(notes.tracks[2].instrument, 3);
    EXPECT_EQ(notes.tracks[2].notes.size(), 2U);  // both of its blocks
}

TEST(MidiNotes, ChannelsAndProgramsAreTakenAsAsked) {
    MidiOptions options;
    options.channels[3] = 10;
    options.programs[3] = 33;
    const MidiNotes notes = notes_of(block("i3 = 5 0 -1", "16000", "60"), options);
    EXPECT_EQ(notes.tracks[0].channel, 10);
    EXPECT_EQ(notes.tracks[0].program, 33);
}

// "c4" is key 60, however the pitch is written.
TEST(MidiNotes, MiddleCIsKeySixty) {
    for (const char* pitch : {"no c4", "op 8.00", "60", "8.00", "261.6256"}) {
        const MidiNotes notes = notes_of(block("i1 = 5 0 -1", "16000", pitch));
        ASSERT_EQ(notes.tracks[0].notes.size(), 1U) << pitch;
        EXPECT_EQ(notes.tracks[0].notes[0].key, 60) << pitch;
    }
}

TEST(MidiNotes, ThePitchIsWhereTheOutputTypeSaysOrTheOptions) {
    const std::string score = "i1 = 5 0 -1 {\np2 1\np3 1\np4(hz) no a4\np5 80\n}\n";
    EXPECT_EQ(notes_of(score).tracks[0].notes[0].key, 69);
    MidiOptions options;
    options.roles = {5, 4};
    EXPECT_EQ(notes_of(score, options).tracks[0].notes[0].key, 80);
}

// 69 + 12 log2(f / 440) of 60, 64, 128 and 72 is 34.5, 35.6, 47.6 and 37.7.
TEST(MidiNotes, NumbersOnBothSidesOfTheHighestKeyAreHertzAndItIsSaid) {
    const std::string mixed = block("i1 = 5 2 -4", "16000", "60 64 128 72");
    const MidiNotes notes = notes_of(block("i1 = 5 0 -1", "16000", "60") + mixed);
    ASSERT_EQ(notes.tracks[0].notes.size(), 5U);
    EXPECT_EQ(notes.tracks[0].notes[3].key, 48);
    const std::string remark =
        "p5 in the block of line 7 is read as hertz, since some of it is above 127, the highest key";
    ASSERT_FALSE(notes.remarks.empty());
    EXPECT_EQ(notes.remarks[0], remark);
    EXPECT_EQ(notes_of(mixed + mixed + mixed).remarks[0].substr(remark.size()), ", and so in 2 more");
    EXPECT_TRUE(notes_of(block("i1 = 5 0 -2", "16000", "220 440")).remarks.empty());
    EXPECT_TRUE(notes_of(block("i1 = 5 0 -2", "16000", "60 127")).remarks.empty());
}

std::vector<int> velocities_of(const MidiNotes& notes) {
    std::vector<int> velocities;
    for (const MidiTrack& track : notes.tracks) {
        for (const MidiNote& note : track.notes) velocities.push_back(note.velocity);
    }
    return velocities;
}

struct LevelCase {
    const char* levels;  // of four notes
    std::vector<int> velocities;
    const char* remark;  // "": there is none
};

void expect_velocities(const LevelCase& one) {
    const MidiNotes notes = notes_of(block("i1 = 5 0 -4", one.levels, "60 61 62 63"));
    EXPECT_EQ(velocities_of(notes), one.velocities) << one.levels;
    const std::string remark = notes.remarks.empty() ? "" : notes.remarks[0];
    EXPECT_EQ(remark, one.remark) << one.levels;
}

// 127 / 32767 of the amplitude, as with -m: 16000 is 62.01. Of fractions 1 is 127.
TEST(MidiNotes, AmplitudesThatAreAudibleAreVelocitiesAsWithTheFirstBlock) {
    expect_velocities({"32767 16400 16000 4000", {127, 64, 62, 16}, ""});
    expect_velocities({"1 .5 .25 .6", {127, 64, 32, 76}, ""});
}

// The loudest is 127, a quarter of it 64 and a hundredth 13; 0 would end the note.
TEST(MidiNotes, AmplitudesOfAnotherRangeAreScaledByTheLoudestAndItIsSaid) {
    expect_velocities({"1000 2000 3000 4000",
                       {64, 90, 110, 127},
                       "velocities are scaled so that the amplitude 4000 is 127"});
    expect_velocities({"32767 16000 327.67 0",
                       {127, 89, 13, 1},
                       "velocities are scaled so that the amplitude 32767 is 127"});
    expect_velocities({"100000 25000 1000 -3",
                       {127, 64, 13, 1},
                       "velocities are scaled so that the amplitude 100000 is 127"});
    expect_velocities(
        {".2 .05 .002 .1", {127, 64, 13, 90}, "velocities are scaled so that the amplitude 0.2 is 127"});
    // 316, 999, 9999 and 99, as db cuts them: 30, 20 and 40 decibels below the loudest
    expect_velocities(
        {"db 50 60 80 40", {23, 40, 127, 13}, "velocities are scaled so that the amplitude 9999 is 127"});
}

// The loudest is 127; 20 decibels less are 127 / sqrt(10) = 40.2.
TEST(MidiNotes, DecibelsAreScaledByTheLoudestAndItIsSaid) {
    expect_velocities(
        {"80.5 60.5 80.5 40.5", {127, 40, 127, 13}, "velocities are scaled so that 80.5 decibels are 127"});
    expect_velocities(
        {"-6 -26 -6 -46", {127, 40, 127, 13}, "velocities are scaled so that -6 decibels are 127"});
}

TEST(MidiNotes, WholeNumbersUpTo127AreVelocitiesAsTheyStand) {
    expect_velocities({"60 80 100 127", {60, 80, 100, 127}, ""});
    expect_velocities({"20 2 3 0", {20, 2, 3, 1}, ""});
    expect_velocities({"0 1 0 1", {1, 127, 1, 127}, ""});  // fractions
}

// 1, 9 and 99, as `db` makes them, are no velocities.
TEST(MidiNotes, WholeAmplitudesOfDecibelsAreNoVelocities) {
    expect_velocities(
        {"db 0 20 40 0", {13, 38, 127, 13}, "velocities are scaled so that the amplitude 99 is 127"});
}

// One block with a fraction tells that the other one's are decibels, too.
TEST(MidiNotes, VelocitiesAreThoseOfTheWholeScore) {
    const MidiNotes notes =
        notes_of(block("i1 = 5 0 -2", "80 60", "60") + block("i2 = 5 0 -2", "59.5 40", "60"));
    EXPECT_EQ(velocities_of(notes), (std::vector<int>{127, 40, 39, 13}));
    ASSERT_EQ(notes.remarks.size(), 1U);
    EXPECT_EQ(notes.remarks[0], "velocities are scaled so that 80 decibels are 127");
}

TEST(MidiNotes, OneTempoMakesBeatsTheTicks) {
    const MidiNotes notes = notes_of("te(90)\n" + block("i1 = 5 2 -3", "16000", "60 62 64"));
    EXPECT_EQ(notes.tempo, 90);
    EXPECT_EQ(notes.tracks[0].notes[0].start, 2U * TICKS_PER_QUARTER);
    EXPECT_EQ(notes.tracks[0].notes[2].start, 4U * TICKS_PER_QUARTER);
}

TEST(MidiNotes, AMovingTempoCountsSecondsAndSaysSo) {
    const MidiNotes notes = notes_of("te(0 4 60 120 f)\n" + block("i1 = 5 0 -3", "16000", "60 62 64"));
    EXPECT_EQ(notes.tempo, 60);
    ASSERT_EQ(notes.remarks.size(), 1U);
    EXPECT_EQ(notes.remarks[0], "the tempo changes, so the file counts seconds: 60 quarters per minute");
    EXPECT_EQ(notes.tracks[0].notes[1].start, 1U * TICKS_PER_QUARTER);  // a beat at 60
}

TEST(MidiNotes, ATempoBelowThoseOfMidiCountsSecondsAndSaysSo) {
    const MidiNotes notes = notes_of("te(2)\n" + block("i1 = 5 0 -2", "16000", "60"));
    EXPECT_EQ(notes.tempo, 60);
    ASSERT_EQ(notes.remarks.size(), 1U);
    EXPECT_EQ(notes.remarks[0],
              "MIDI has no tempo so slow, so the file counts seconds: 60 quarters per minute");
    EXPECT_EQ(notes.tracks[0].notes[1].start, 30U * TICKS_PER_QUARTER);  // a beat at 2
}

TEST(MidiNotes, AKeyStruckAgainEndsThereAndTheLongerEndStays) {
    const MidiNotes notes =
        notes_of("i1 = 5 0 -2 {\np2 1\np3 1004 1001\np4 16000\np5 60\n}\n");  // 0..4 and 1..2
    ASSERT_EQ(notes.tracks[0].notes.size(), 2U);
    EXPECT_EQ(notes.tracks[0].notes[0].end, 1U * TICKS_PER_QUARTER);
    EXPECT_EQ(notes.tracks[0].notes[1].end, 4U * TICKS_PER_QUARTER);
    EXPECT_EQ(notes.remarks.size(), 1U);
}

TEST(MidiNotes, WhatIsNoKeyIsLeftOutAndCounted) {
    const MidiNotes notes = notes_of(block("i1 = 5 0 -3", "16000", "-1 60 -5"));
    EXPECT_EQ(notes.tracks[0].notes.size(), 1U);
    ASSERT_EQ(notes.remarks.size(), 1U);
    EXPECT_EQ(notes.remarks[0].substr(0, 7), "2 notes");
}

TEST(MidiNotes, RestsAndSkippedBlocksHaveNoNotes) {
    const MidiNotes notes = notes_of(
        "i-2 = 5 0 -1 { p2 1 p3 1 p4 1 p5 60 }\ni1 = 5 0 -3 {\np2 1 -1 1\np3 1 1 -1\np4 9000\np5 60\n}\n");
    ASSERT_EQ(notes.tracks.size(), 1U);
    EXPECT_EQ(notes.tracks[0].notes.size(), 1U);
}

// Two notes of the same key, one behind the other: the end of the first comes first.
TEST(MidiBytes, AnEndGoesBeforeABeginningOfTheSameTick) {
    const std::string bytes = midi_bytes(notes_of(block("i1 = 5 0 -2", "32767", "60")), "t");
    const std::string on("\x90\x3c\x7f", 3);
    const std::string off("\x80\x3c\x40", 3);
    const std::string quarter("\x83\x60", 2);  // 480
    EXPECT_NE(
        bytes.find(std::string("\x00", 1) + on + quarter + off + std::string("\x00", 1) + on + quarter + off),
        std::string::npos);
}

TEST(MidiBytes, AScoreWithoutNotesIsAWholeFile) {
    const std::string bytes = midi_bytes(notes_of("> f1 0 8 10 1\n"), "empty");
    EXPECT_EQ(bytes.substr(0, 14), std::string("MThd\0\0\0\6\0\1\0\1\1\xe0", 14));
    EXPECT_EQ(bytes.substr(bytes.size() - 4), std::string("\0\xff\x2f\0", 4));
}

}  // namespace

}  // namespace vorn::kit::test
