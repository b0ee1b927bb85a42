#include "kit/orchestra/built_in.h"

#include <gtest/gtest.h>

#include <cmath>

#include "kit/orchestra/plain_notes.h"
#include "kit/orchestra/timbres.h"
#include "tests/kit/table_sources.h"

// Notes for the built-in sounds: pitch and level of any unit, balanced.

namespace vorn::kit {
namespace {

std::vector<PlainNote> notes_of(const std::string& score) {
    const ScoreRun run = test::run_text(score);
    EXPECT_EQ(run.status, 0);
    return plain_notes(run, {});
}

TEST(PlainNotes, TakePitchInWhateverUnit) {
    const char* const fields[] = {"p4 .5\np5(hz) no a4", "p4 .5\np5 69", "p4 .5\np5 440", "p4 .5\np5 8.09",
                                  "p4(hz) no a4\np5 .5"};
    for (const char* const field : fields) {
        const auto notes = notes_of(std::string("i1 = 5 0 -1 {\np2 1\np3 1\n") + field + "\n}\n");
        ASSERT_EQ(notes.size(), 1U);
        EXPECT_NEAR(notes[0].frequency, 440, .01) << field;
    }
}

TEST(PlainNotes, KeepTheDistancesOfLevels) {
    const auto notes = notes_of("i1 = 5 0 -2 {\np2 10\np3 .5\np4 db 80 60\np5 60\n}\n");
    ASSERT_EQ(notes.size(), 2U);
    EXPECT_NEAR(notes[0].amplitude, .8, 1e-6);  // alone: the whole scale
    EXPECT_NEAR(notes[1].amplitude, .08, 1e-4);
}

TEST(PlainNotes, FillTheScaleWithWhatSoundsAtOnce) {
    const auto two = notes_of("i1 = 5 0 -1 {\np2 1\np3 1\np4 .5\np5 no c4:e\n}\n");
    ASSERT_EQ(two.size(), 2U);
    EXPECT_NEAR(two[0].amplitude + two[1].amplitude, .8, 1e-6);
    // A hundred would be .008 each if they all met at their peaks; 1/10 of a quarter is louder.
    const auto many = notes_of("i1 = 5 0 -100 {\np2 .001\np3 1010\np4 .5\np5 60\n}\n");
    ASSERT_EQ(many.size(), 100U);
    EXPECT_NEAR(many[0].amplitude, .025, 1e-6);
}

TEST(PlainNotes, LeaveRestsOutAndHoldAFloor) {
    const auto notes = notes_of("i1 = 5 0 -3 {\np2 1\np3 1\np4 .5 .5 .000001\np5 no c4 r c4\n}\n");
    ASSERT_EQ(notes.size(), 2U);
    EXPECT_NEAR(20 * std::log10(notes[1].amplitude / notes[0].amplitude), -48, .01);
}

TEST(BuiltIn, KeepsLinesOfTimeAndDropsTables) {
    const ScoreRun run = test::run_text(
        "> t 0 120\n> f1 0 4096 10 1\ni7 = 5 0 -1 {\np2 1\np3 1\np4 .5\np5 69\n}\n> s\n"
        "i3 = 5 0 -1 {\np2 1\np3 .5\np4 .5\np5 69\n}\n");
    const BuiltIn performance = built_in(run, {});
    EXPECT_EQ(performance.score,
              " t 0 120 \ni1 0.000000 1.000000 440.0000 0.8000000\n s \n"
              "i2 0.000000 0.500000 440.0000 0.8000000\ne\n");
    EXPECT_NE(performance.orchestra.find("; i7 of the score\ngiwave1 "), std::string::npos);
    EXPECT_NE(performance.orchestra.find("; i3 of the score\ngiwave2 "), std::string::npos);
}

TEST(Timbres, DifferFromRankToRank) {
    std::string texts[40];
    for (int rank = 0; rank < 40; ++rank) {
        texts[rank] = timbre_text(1, rank);
        for (int other = 0; other < rank; ++other)
            EXPECT_NE(texts[rank], texts[other]) << rank << " " << other;
    }
}

}  // namespace
}  // namespace vorn::kit
