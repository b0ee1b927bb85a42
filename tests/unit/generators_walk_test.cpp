#include "generators/walk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "support/chi_square.h"
#include "support/draws.h"

namespace vorn {
namespace {

using test::DRAW_EIGHTH;
using test::DRAW_HALF;
using test::DRAW_ONE;
using test::DRAW_QUARTER;
using test::DRAW_ZERO;
using test::draws_left;
using test::draws_taken;
using test::set_next_draws;

// The position after one step from `position` with these draws.
float step_from(float position, float window, std::initializer_list<std::int32_t> draws) {
    set_next_draws(draws);
    rwindow(position, window);
    return position;
}

TEST(RandWindow, HandsOutTheOldPosition) {
    float position = 0.5f;
    set_next_draws({DRAW_QUARTER, DRAW_HALF});
    EXPECT_EQ(rand_window(position, 60.0f, 72.0f, 1.0f), 66.0f);
    EXPECT_EQ(position, 0.25f);
    EXPECT_EQ(rand_window(position, 60.0f, 72.0f, 1.0f), 63.0f);
    EXPECT_EQ(position, 0.5f);
}

TEST(RandWindow, ValuesOfSeedOne) {
    // Inside [0.4, 0.6] the draws of seed 1 are 0.55396998, the tenth, then 0.47739705.
    float position = 0.5f;
    srand(1);
    EXPECT_EQ(rand_window(position, 0.0f, 10.0f, 0.2f), 5.0f);
    EXPECT_EQ(position, 0.55396998f);
    EXPECT_EQ(rand_window(position, 0.0f, 10.0f, 0.2f), 10.0f * 0.55396998f);
    EXPECT_EQ(position, 0.477397054f);  // inside [0.45397, 0.65397]
}

TEST(RandWindow, DrawsUntilTheWindowIsHit) {
    float position = 0.5f;
    EXPECT_EQ(draws_taken(1, [&] { rand_window(position, 0.0f, 10.0f, 0.2f); }), 10);
}

TEST(RandWindow, WindowIsShiftedInwardsAtTheLowEnd) {
    EXPECT_EQ(step_from(0.0f, 0.25f, {DRAW_HALF, DRAW_QUARTER}), 0.25f);
    EXPECT_EQ(step_from(0.0625f, 0.25f, {DRAW_ZERO}), 0.0f);
    EXPECT_EQ(step_from(0.125f, 0.25f, {DRAW_QUARTER + 64, DRAW_EIGHTH}), 0.125f);
}

TEST(RandWindow, WindowIsShiftedInwardsAtTheHighEnd) {
    EXPECT_EQ(step_from(1.0f, 0.25f, {DRAW_HALF, DRAW_HALF + DRAW_QUARTER}), 0.75f);
    EXPECT_EQ(step_from(0.9375f, 0.25f, {DRAW_ONE}), 1.0f);
}

TEST(RandWindow, BothEndsOfTheWindowBelongToIt) {
    EXPECT_EQ(step_from(0.5f, 0.5f, {DRAW_QUARTER}), 0.25f);
    EXPECT_EQ(step_from(0.5f, 0.5f, {DRAW_HALF + DRAW_QUARTER}), 0.75f);
    EXPECT_EQ(step_from(0.5f, 0.5f, {DRAW_QUARTER - 64, DRAW_HALF}), 0.5f);
}

TEST(RandWindow, WindowOfOneCoversEverything) {
    for (const float position : {0.0f, 0.3f, 0.5f, 0.7f, 1.0f}) {
        EXPECT_EQ(step_from(position, 1.0f, {DRAW_ZERO}), 0.0f);
        EXPECT_EQ(step_from(position, 1.0f, {DRAW_ONE}), 1.0f);
    }
}

TEST(RandWindow, TestForTheLowEndComesFirst) {
    // [-0.25, 1.25] crosses both ends: the low one decides.
    EXPECT_EQ(step_from(0.5f, 1.5f, {DRAW_ONE}), 1.0f);
    EXPECT_EQ(step_from(0.5f, 1.5f, {DRAW_ZERO}), 0.0f);
}

TEST(RandWindow, NarrowestWindowsStandStillAfterOneDraw) {
    for (const float window : {0.0f, 9e-7f, -1.0f, std::nanf("")}) {
        float position = 0.3f;
        EXPECT_EQ(draws_taken(8, [&] { rand_window(position, 0.0f, 10.0f, window); }), 1);
        EXPECT_EQ(position, 0.3f);
    }
}

TEST(RandWindow, AMillionthIsAWindowThatIsHit) {
    float position = 0.3f;
    srand(8);
    rand_window(position, 0.0f, 10.0f, 1e-6f);
    EXPECT_NE(position, 0.3f);
    EXPECT_NEAR(position, 0.3f, 0.6e-6f);
}

TEST(RandWindow, EqualBoundsGiveTheBoundAfterOneDraw) {
    float position = 0.0f;
    EXPECT_EQ(draws_taken(8, [&] { EXPECT_EQ(rand_window(position, 7.0f, 7.0f, 0.1f), 7.0f); }), 1);
    EXPECT_EQ(position, 0.0f);
}

TEST(RandWindow, APositionOutsideTheRangeStandsStill) {
    for (const float place : {-0.5f, 1.5f, std::nanf("")}) {
        float position = place;
        EXPECT_EQ(draws_taken(8, [&] { rwindow(position, 0.1f); }), 1);
    }
}

TEST(Rwindow, IsTheSameStepUnscaled) {
    float scaled = 0.4f, unscaled = 0.4f;
    for (std::uint32_t seed = 1; seed <= 200; ++seed) {
        srand(seed);
        const float value = rand_window(scaled, 20.0f, 60.0f, 0.3f);
        srand(seed);
        const float place = rwindow(unscaled, 0.3f);
        EXPECT_EQ(value, 20.0f + 40.0f * place);
        EXPECT_EQ(scaled, unscaled);
    }
}

TEST(RandWindow, EveryStepStaysInsideItsWindow) {
    for (const float window : {0.01f, 0.1f, 0.5f, 0.9f}) {
        float position = 0.25f;
        srand(70);
        EXPECT_EQ(rwindow(position, window), 0.25f);
        for (int i = 0; i < 2000; ++i) {
            const float old = rwindow(position, window);
            const float lower = std::clamp(old - window / 2, 0.0f, 1.0f - window);
            ASSERT_GE(position, lower - 1e-7f);
            ASSERT_LE(position, lower + window + 1e-7f);
        }
    }
}

TEST(RandWindow, StepsAreUniformInsideTheWindow) {
    srand(71);
    const auto share_of_window = [] {
        float position = 0.5f;
        rwindow(position, 0.4f);
        return std::fmin((position - 0.3f) / 0.4f, 1.0f);
    };
    const auto fit = test::fit_on_unit_interval(300000, 50, share_of_window, [](double x) { return x; });
    EXPECT_LT(fit.statistic, fit.limit);
}

}  // namespace
}  // namespace vorn
