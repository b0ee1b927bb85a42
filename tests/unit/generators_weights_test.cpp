#include "generators/weights.h"

#include <gtest/gtest.h>

#include "input/errors.h"
#include "support/chi_square.h"
#include "support/ddf_block.h"

namespace vorn {
namespace {

using test::DRAW_HALF;
using test::DRAW_ONE;
using test::DRAW_QUARTER;
using test::DRAW_ZERO;
using test::draws_left;
using test::ScoreText;
using test::set_next_draws;

// The result of closing these weights.
int close(std::initializer_list<float> fractions) {
    Weights weights;
    for (const float fraction : fractions) EXPECT_TRUE(weights.weight.append(fraction));
    return close_weights(weights);
}

TEST(GetWeight, ReadsARealWhateverTheInputType) {
    Weights weights;
    ScoreText score(" .25 , x");
    IN_TYPE = CODE_NO;
    EXPECT_EQ(get_weight(weights, score.reader, error::MISSING_WEIGHT), 0);
    EXPECT_EQ(score.rest(), "x");
    ASSERT_EQ(weights.weight.size(), 1U);
    EXPECT_EQ(weights.weight[0], 0.25F);
}

TEST(GetWeight, FailsWithTheErrorThatItIsGiven) {
    Weights weights;
    ScoreText score("c4");
    EXPECT_EQ(get_weight(weights, score.reader, error::BAD_EQUATION_DATA), error::BAD_EQUATION_DATA);
    EXPECT_EQ(get_weight(weights, score.reader, error::MISSING_WEIGHT), error::MISSING_WEIGHT);
    EXPECT_EQ(score.rest(), "c4");
    EXPECT_EQ(weights.weight.size(), 0U);
}

// In single precision .5 + .49999 is 0.99998999, and .5 + .499995 is 0.999995.
TEST(CloseWeights, SumLiesStrictlyBetweenTheLimitsInSinglePrecision) {
    EXPECT_EQ(close({1.0F}), 0);
    EXPECT_EQ(close({0.5F, 0.499995F}), 0);
    EXPECT_EQ(close({0.5F, 0.49999F}), error::BAD_WEIGHT_SUM);
    EXPECT_EQ(close({0.5F, 0.500005F}), 0);
    EXPECT_EQ(close({0.5F, 0.50001F}), error::BAD_WEIGHT_SUM);
    EXPECT_EQ(close({0.5F}), error::BAD_WEIGHT_SUM);
    EXPECT_EQ(close({0.1F, 0.1F, 0.1F, 0.1F, 0.1F, 0.1F, 0.1F, 0.1F, 0.1F, 0.1F}), 0);
    EXPECT_EQ(close({1.5F, -0.5F}), 0);
}

TEST(ChooseSubRange, OneNumberIsDrawnAlsoForASingleSubRange) {
    Weights weights;
    ASSERT_EQ(set_single_weight(weights), 0);
    ASSERT_EQ(close_weights(weights), 0);
    set_next_draws({DRAW_ONE, DRAW_ZERO});
    EXPECT_EQ(choose_sub_range(weights), 0U);
    EXPECT_EQ(draws_left(), 1);
}

TEST(ChooseSubRange, ADrawOnASumBelongsToTheLowerSubRange) {
    Weights weights;
    for (const float fraction : {0.25F, 0.25F, 0.5F}) ASSERT_TRUE(weights.weight.append(fraction));
    ASSERT_EQ(close_weights(weights), 0);
    set_next_draws({DRAW_ZERO, DRAW_QUARTER, DRAW_QUARTER + 64, DRAW_HALF, DRAW_HALF + 128, DRAW_ONE});
    for (const std::uint32_t expected : {0U, 0U, 1U, 1U, 2U, 2U})
        EXPECT_EQ(choose_sub_range(weights), expected);
    EXPECT_EQ(draws_left(), 0);
}

// The sum is 0.999995 here, and the unit draw exactly 1.
TEST(ChooseSubRange, ADrawPastTheLastSumBelongsToTheLastSubRange) {
    Weights weights;
    for (const float fraction : {0.5F, 0.499995F}) ASSERT_TRUE(weights.weight.append(fraction));
    ASSERT_EQ(close_weights(weights), 0);
    set_next_draws({DRAW_ONE});
    EXPECT_EQ(choose_sub_range(weights), 1U);
}

TEST(ChooseSubRange, FollowsTheWeights) {
    const std::vector<double> fractions = {0.125, 0.5, 0.0, 0.25, 0.125};
    Weights weights;
    for (const double fraction : fractions) ASSERT_TRUE(weights.weight.append(static_cast<float>(fraction)));
    ASSERT_EQ(close_weights(weights), 0);
    srand(1);
    std::vector<double> counts(fractions.size());
    for (int i = 0; i < 1000000; ++i) counts[choose_sub_range(weights)] += 1.0;
    EXPECT_EQ(counts[2], 0.0);
    const test::ChiSquare test = test::chi_square(counts, fractions);
    EXPECT_TRUE(test.fits()) << test.statistic;
}

}  // namespace
}  // namespace vorn
