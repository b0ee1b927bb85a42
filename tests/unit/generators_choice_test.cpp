#include "generators/choice.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/chi_square.h"
#include "support/draws.h"

namespace vorn {
namespace {

using test::DRAW_HALF;
using test::DRAW_ONE;
using test::DRAW_QUARTER;
using test::DRAW_ZERO;
using test::draws_taken;
using test::set_next_draws;

const std::vector<float> QUARTERS = {0.25f, 0.25f, 0.5f};

TEST(ProbResult, IndicesOfSeedOne) {
    // u = 0.840, 0.394, 0.783, 0.798, 0.912, 0.198, 0.335, 0.768
    srand(1);
    for (const std::uint32_t expected : {2u, 1u, 2u, 2u, 2u, 0u, 1u, 2u})
        EXPECT_EQ(prob_result(QUARTERS.data(), 3), expected);
}

TEST(ProbResult, TiesGoToTheLowerIndex) {
    set_next_draws({DRAW_ZERO, DRAW_QUARTER, DRAW_QUARTER + 64, DRAW_HALF, DRAW_ONE});
    for (const std::uint32_t expected : {0u, 0u, 1u, 1u, 2u})
        EXPECT_EQ(prob_result(QUARTERS.data(), 3), expected);
}

TEST(ProbResult, DrawPastTheLastSumGivesTheCount) {
    const float weights[] = {0.25f, 0.25f};
    set_next_draws({DRAW_ONE, DRAW_HALF + 128});
    EXPECT_EQ(prob_result(weights, 2), 2u);
    EXPECT_EQ(prob_result(weights, 2), 2u);
}

TEST(ProbResult, ASingleSubRangeStillDraws) {
    const float weight = 0.5f;
    set_next_draws({DRAW_ONE});
    EXPECT_EQ(prob_result(&weight, 1), 0u);
    EXPECT_EQ(draws_taken(4, [&] { prob_result(&weight, 1); }), 1);
    EXPECT_EQ(draws_taken(4, [] { prob_result(QUARTERS.data(), 3); }), 1);
}

TEST(ProbResult, ManySubRanges) {
    const std::vector<float> weights(10000, 0x1p-14f);  // their sum is 10000 / 16384
    const auto count = static_cast<std::int32_t>(weights.size());
    set_next_draws({DRAW_HALF, DRAW_ONE});
    EXPECT_EQ(prob_result(weights.data(), count), 8191u);
    EXPECT_EQ(prob_result(weights.data(), count), 10000u);
}

TEST(ProbResult, WeightsAreKept) {
    const std::vector<float> weights = {0.1f, 0.05f, 0.4f, 0.0f, 0.2f, 0.25f};
    std::vector<double> counts(weights.size()), probabilities(weights.begin(), weights.end());
    srand(300);
    for (int i = 0; i < 1000000; ++i) {
        const std::uint32_t chosen = prob_result(weights.data(), 6);
        counts[chosen < 6 ? chosen : 5] += 1.0;
    }
    EXPECT_EQ(counts[3], 0.0);
    const auto fit = test::chi_square(counts, probabilities);
    EXPECT_LT(fit.statistic, fit.limit);
}

TEST(RunningSums, AreMadeInSinglePrecision) {
    const float weights[] = {0.1f, 0.2f, 0.3f, 0.4f};
    float sums[4];
    running_sums(weights, sums, 4);
    EXPECT_EQ(sums[0], 0.1f);
    EXPECT_EQ(sums[1], 0.1f + 0.2f);
    EXPECT_EQ(sums[2], 0.1f + 0.2f + 0.3f);
    EXPECT_EQ(sums[3], 0.1f + 0.2f + 0.3f + 0.4f);
}

TEST(ChooseBySums, TiesGoToTheLowerIndex) {
    const float sums[] = {0.25f, 0.5f, 1.0f};
    set_next_draws({DRAW_ZERO, DRAW_QUARTER, DRAW_QUARTER + 64, DRAW_HALF, DRAW_ONE});
    for (const std::uint32_t expected : {0u, 0u, 1u, 1u, 2u}) EXPECT_EQ(choose_by_sums(sums, 3), expected);
}

TEST(ChooseBySums, AgreesWithTheChoiceByWeights) {
    const std::vector<std::vector<float>> SETS = {
        QUARTERS, {0.1f, 0.2f, 0.3f, 0.4f}, {1.0f}, {0.3f}, {0.3f, 0.3f}, {0.0f, 1.0f}, {1.5f, -0.5f}};
    for (const std::vector<float>& weights : SETS) {
        const auto count = static_cast<std::int32_t>(weights.size());
        std::vector<float> sums(weights.size());
        running_sums(weights.data(), sums.data(), count);
        for (std::uint32_t seed = 1; seed <= 300; ++seed) {
            srand(seed);
            const std::uint32_t expected = prob_result(weights.data(), count);
            srand(seed);
            EXPECT_EQ(choose_by_sums(sums.data(), count), expected);
        }
        EXPECT_EQ(draws_taken(4, [&] { choose_by_sums(sums.data(), count); }), 1);
    }
}

TEST(HundredPercent, AllowsAHundredThousandthOnEitherSide) {
    const auto whole = [](float weight) { return hundred_percent(&weight, 1); };
    EXPECT_TRUE(whole(1.0f));
    EXPECT_TRUE(whole(0.999991f));
    EXPECT_TRUE(whole(1.000009f));
    EXPECT_FALSE(whole(0.99999f));  // 0.9999899864 in single precision
    EXPECT_FALSE(whole(1.00001f));  // 1.0000100136
    EXPECT_FALSE(whole(0.0f));
    EXPECT_FALSE(whole(2.0f));
}

TEST(HundredPercent, SumsTheWeights) {
    EXPECT_TRUE(hundred_percent(QUARTERS.data(), 3));
    EXPECT_FALSE(hundred_percent(QUARTERS.data(), 2));
    EXPECT_FALSE(hundred_percent(QUARTERS.data(), 0));
    const float thirds[] = {0.33333f, 0.33333f, 0.33333f};  // 0.99999 is the limit, not inside
    EXPECT_FALSE(hundred_percent(thirds, 3));
    const float closer[] = {0.333333f, 0.333333f, 0.333333f};
    EXPECT_TRUE(hundred_percent(closer, 3));
}

}  // namespace
}  // namespace vorn
