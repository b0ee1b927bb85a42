#include "generators/set_choice.h"

#include <gtest/gtest.h>

#include <vector>

#include "input/errors.h"
#include "support/chi_square.h"
#include "support/ddf_block.h"
#include "support/draws.h"

namespace vorn {
namespace {

using test::draws_left;
using test::set_next_draws;

using Elements = std::vector<std::uint32_t>;

// A function's choice from one set.
struct OneSet {
    OneSet(std::uint32_t size, SetMode mode) {
        EXPECT_EQ(add_set_choice(choices, size, mode), 0);
        EXPECT_EQ(init_did(choices), 0);
    }
    SetChoice& choice() { return choices.set[0]; }

    Elements draw(int count) {
        Elements elements;
        for (int i = 0; i < count; ++i) elements.push_back(get_set_element(choice()));
        return elements;
    }

    SetChoices choices;
};

TEST(GetSetMode, StarAndXAreTheMarks) {
    test::ScoreText score("* , x[1");
    SetMode mode = SetMode::REPETITION;
    EXPECT_EQ(get_set_mode(mode, score.reader), 0);
    EXPECT_EQ(mode, SetMode::NO_REPETITION);
    EXPECT_EQ(score.rest(), "x[1");
    EXPECT_EQ(get_set_mode(mode, score.reader), 0);
    EXPECT_EQ(mode, SetMode::NO_IMMEDIATE_REPETITION);
    EXPECT_EQ(score.rest(), "[1");
    EXPECT_EQ(get_set_mode(mode, score.reader), 0);
    EXPECT_EQ(mode, SetMode::REPETITION);
    EXPECT_EQ(score.rest(), "[1");
}

TEST(AddSetChoice, ASetOfOneAlwaysRepeats) {
    SetChoices choices;
    EXPECT_EQ(add_set_choice(choices, 1, SetMode::NO_REPETITION), 0);
    EXPECT_EQ(add_set_choice(choices, 1, SetMode::NO_IMMEDIATE_REPETITION), 0);
    EXPECT_EQ(add_set_choice(choices, 2, SetMode::NO_IMMEDIATE_REPETITION), 0);
    EXPECT_EQ(choices.set[0].mode, SetMode::REPETITION);
    EXPECT_EQ(choices.set[1].mode, SetMode::REPETITION);
    EXPECT_EQ(choices.set[2].mode, SetMode::NO_IMMEDIATE_REPETITION);
}

TEST(GetSetElement, RepetitionTakesOneDraw) {
    OneSet set(3, SetMode::REPETITION);
    set_next_draws({0, 4, 4, 2, 3});
    EXPECT_EQ(set.draw(5), Elements({1, 2, 2, 3, 1}));
    EXPECT_EQ(draws_left(), 0);
}

// Draws that hit a used element are thrown away; the fourth event begins a new round.
TEST(GetSetElement, NoRepetitionDrawsAgainUntilUnused) {
    OneSet set(3, SetMode::NO_REPETITION);
    set_next_draws({1, 1, 4, 0, 0, 1, 3, 5, 2, 2, 2, 1});
    EXPECT_EQ(set.draw(1), Elements({2}));
    EXPECT_EQ(draws_left(), 11);
    EXPECT_EQ(set.draw(1), Elements({1}));  // 1 and 4 are element 2 again
    EXPECT_EQ(draws_left(), 8);
    EXPECT_EQ(set.draw(1), Elements({3}));  // 0, 1, 3 are used
    EXPECT_EQ(draws_left(), 4);
    EXPECT_EQ(set.draw(2), Elements({3, 2}));  // all cleared; 2 and 2 are element 3 again
    EXPECT_EQ(draws_left(), 0);
}

TEST(GetSetElement, NoRepetitionUsesEachElementOncePerRound) {
    for (const std::uint32_t size : {2U, 3U, 7U, 100U}) {
        OneSet set(size, SetMode::NO_REPETITION);
        srand(size);
        for (int round = 0; round < 50; ++round) {
            std::vector<int> uses(size + 1);
            for (const std::uint32_t element : set.draw(static_cast<int>(size))) ++uses[element];
            for (std::uint32_t element = 1; element <= size; ++element) ASSERT_EQ(uses[element], 1);
        }
    }
}

TEST(GetSetElement, NoImmediateRepetitionDrawsAgainUntilOther) {
    OneSet set(3, SetMode::NO_IMMEDIATE_REPETITION);
    set_next_draws({1, 1, 4, 0, 3, 2, 0});
    EXPECT_EQ(set.draw(1), Elements({2}));
    EXPECT_EQ(draws_left(), 6);
    EXPECT_EQ(set.draw(1), Elements({1}));  // 1 and 4 are element 2 again
    EXPECT_EQ(draws_left(), 3);
    EXPECT_EQ(set.draw(2), Elements({3, 1}));  // 3 is element 1 again
    EXPECT_EQ(draws_left(), 0);
}

TEST(GetSetElement, NoImmediateRepetitionNeverRepeatsAtOnce) {
    for (const std::uint32_t size : {2U, 3U, 10U}) {
        OneSet set(size, SetMode::NO_IMMEDIATE_REPETITION);
        srand(size);
        std::uint32_t last = 0;
        for (const std::uint32_t element : set.draw(10000)) {
            ASSERT_NE(element, last);
            ASSERT_TRUE(element >= 1 && element <= size);
            last = element;
        }
    }
}

TEST(GetSetElement, EveryModeIsEvenOverTheElements) {
    for (const SetMode mode :
         {SetMode::REPETITION, SetMode::NO_REPETITION, SetMode::NO_IMMEDIATE_REPETITION}) {
        OneSet set(5, mode);
        srand(1);
        std::vector<double> counts(5);
        for (const std::uint32_t element : set.draw(500000)) counts[element - 1] += 1.0;
        const test::ChiSquare test = test::chi_square(counts, std::vector<double>(5, 0.2));
        EXPECT_TRUE(test.fits()) << static_cast<int>(mode) << ": " << test.statistic;
    }
}

TEST(GetSetElement, ModeXOfOneElementEnds) {
    SetChoice choice;
    choice.size = 1;
    choice.mode = SetMode::NO_IMMEDIATE_REPETITION;
    set_next_draws({5, 6});
    EXPECT_EQ(get_set_element(choice), 1U);
    EXPECT_EQ(get_set_element(choice), 1U);
    EXPECT_EQ(draws_left(), 0);
}

TEST(GetSetElement, AnEmptySetHasNoElement) {
    SetChoice choice;
    EXPECT_EQ(get_set_element(choice), NO_ELEMENT);
}

TEST(GetSetElement, WithoutFlagsAStarredSetRepeats) {
    SetChoice choice;
    choice.size = 3;
    choice.mode = SetMode::NO_REPETITION;
    set_next_draws({1, 1, 1});
    EXPECT_EQ(get_set_element(choice), 2U);
    EXPECT_EQ(get_set_element(choice), 2U);
    EXPECT_EQ(get_set_element(choice), 2U);
    EXPECT_EQ(draws_left(), 0);
}

}  // namespace
}  // namespace vorn
