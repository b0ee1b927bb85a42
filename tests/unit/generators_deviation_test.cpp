#include "generators/deviation.h"

#include <gtest/gtest.h>

#include "support/chi_square.h"
#include "support/draws.h"

namespace vorn {
namespace {

using test::draws_taken;
using test::set_next_draws;

TEST(AddRdev, ValuesOfSeedOne) {
    // 100 * 0.1 is 10 in single precision; 100 + 10 u - 5 with u = 0.84018773, 0.39438292.
    srand(1);
    EXPECT_EQ(add_rdev(100.0f, 0.1f), 103.401878f);
    EXPECT_EQ(add_rdev(100.0f, 0.1f), 98.9438324f);
}

TEST(AddRdev, BandIsAsWideAsDeviationTimesValueAndCentred) {
    set_next_draws({test::DRAW_ZERO, test::DRAW_ONE, test::DRAW_HALF, test::DRAW_QUARTER});
    EXPECT_EQ(add_rdev(8.0f, 0.5f), 6.0f);
    EXPECT_EQ(add_rdev(8.0f, 0.5f), 10.0f);
    EXPECT_EQ(add_rdev(8.0f, 0.5f), 8.0f);
    EXPECT_EQ(add_rdev(8.0f, 0.5f), 7.0f);
}

TEST(AddRdev, SumIsRoundedOnce) {
    // 33.3 + 16.65 / 8 - 16.65 / 2 is 27.05624938 (u = 1/8); summed in single precision 27.0562477.
    set_next_draws({test::DRAW_EIGHTH});
    EXPECT_EQ(add_rdev(33.3f, 0.5f), 27.0562496f);
}

TEST(AddRdev, NegativeValueDeviatesByTheSameProportion) {
    set_next_draws({test::DRAW_ZERO, test::DRAW_ONE});
    EXPECT_EQ(add_rdev(-8.0f, 0.5f), -6.0f);
    EXPECT_EQ(add_rdev(-8.0f, 0.5f), -10.0f);
}

TEST(AddRdev, DrawConsumedEvenWithoutDeviation) {
    EXPECT_EQ(draws_taken(3, [] { add_rdev(100.0f, 0.1f); }), 1);
    EXPECT_EQ(draws_taken(3, [] { add_rdev(100.0f, 0.0f); }), 1);
    EXPECT_EQ(draws_taken(3, [] { add_rdev(0.0f, 0.5f); }), 1);
}

TEST(AddRdev, ValueUnchangedWithoutDeviation) {
    srand(9);
    for (const float value : {0.0f, 1.0f, -1.0f, 0.1f, 123456.789f, -1e-30f, 3e38f})
        EXPECT_EQ(add_rdev(value, 0.0f), value);
}

TEST(AddRdev, ZeroNeverDeviates) {
    srand(9);
    for (int i = 0; i < 100; ++i) EXPECT_EQ(add_rdev(0.0f, 100.0f), 0.0f);
}

TEST(AddRdev, DeviationIsUniform) {
    srand(10);
    const auto share_of_band = [] { return (add_rdev(100.0f, 0.5f) - 75.0f) / 50.0f; };
    const auto fit = test::fit_on_unit_interval(1000000, 100, share_of_band, [](double x) { return x; });
    EXPECT_LT(fit.statistic, fit.limit);
}

}  // namespace
}  // namespace vorn
