#include "generators/distributions.h"

#include <gtest/gtest.h>

#include <array>
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

constexpr std::uint32_t FLAT = 0, LOW = 1, HIGH = 2, TRIANGULAR = 3, GAUSSIAN = 4, BILATERAL = 5, BETA = 6;
constexpr std::uint32_t CODES = 7;
constexpr double DECAY = 6.907800197601318;

float first_value(std::uint32_t code, std::uint32_t seed = 1) {
    srand(seed);
    return mk_rval(code, 60.0f, 72.0f);
}

// --- values worked out from the first draws of seed 1: u = 0.84018773, 0.39438292, ... ---

TEST(MkRval, ValuesOfSeedOne) {
    EXPECT_FLOAT_EQ(first_value(FLAT), 70.0822525f);        // 60 + 12 u
    EXPECT_FLOAT_EQ(first_value(LOW), 60.3024941f);         // e = ln u / -6.9078 = 0.02520772
    EXPECT_FLOAT_EQ(first_value(HIGH), 71.6975098f);        // 60 + 12 (1 - e)
    EXPECT_FLOAT_EQ(first_value(TRIANGULAR), 67.4074249f);  // mean of the first two draws, 0.61728533
    EXPECT_FLOAT_EQ(first_value(GAUSSIAN), 67.7982025f);    // the sum of twelve is 6.9667735
    EXPECT_FLOAT_EQ(first_value(BILATERAL),
                    66.9776611f);                     // x = 0.31962454 from above: -ln x / 14 = 0.08147204
    EXPECT_FLOAT_EQ(first_value(BETA), 71.7326355f);  // 0.41867947 / (0.41867947 + 0.00954093)
}

TEST(MkRval, NumberOfDraws) {
    const std::array<std::int32_t, CODES> draws = {1, 1, 1, 2, 12, 1, 2};
    for (std::uint32_t code = 0; code < CODES; ++code)
        EXPECT_EQ(draws_taken(1, [code] { mk_rval(code, 60.0f, 72.0f); }), draws[code]) << code;
}

TEST(MkRval, CodeAboveSixIsZeroWithoutADraw) {
    EXPECT_EQ(mk_rval(7, 60.0f, 72.0f), 0.0f);
    EXPECT_EQ(mk_rval(4000000000u, 60.0f, 72.0f), 0.0f);
    EXPECT_EQ(draws_taken(1, [] { mk_rval(7, 60.0f, 72.0f); }), 0);
}

TEST(MkRval, EqualBoundsGiveTheBound) {
    for (std::uint32_t code = 0; code < CODES; ++code) {
        srand(code + 20);
        for (int i = 0; i < 50; ++i) EXPECT_EQ(mk_rval(code, 61.5f, 61.5f), 61.5f) << code;
    }
}

TEST(MkRval, GivesTheNumbersOfTheUnitForms) {
    const struct {
        std::uint32_t code;
        float (*form)();
    } FORMS[] = {{LOW, expone_left}, {GAUSSIAN, gauss}, {BILATERAL, bilex}, {BETA, beta}};
    for (const auto& row : FORMS) {
        for (std::uint32_t seed = 1; seed <= 500; ++seed) {
            srand(seed);
            const float form = row.form();
            srand(seed);
            EXPECT_EQ(mk_rval(row.code, 0.0f, 1.0f), form) << row.code;
            srand(seed);
            EXPECT_EQ(mk_rval(row.code, 10.0f, 30.0f), 10.0f + 20.0f * form) << row.code;
        }
    }
}

TEST(MkRval, HighIsLowMirrored) {
    for (std::uint32_t seed = 1; seed <= 500; ++seed) {
        srand(seed);
        const float form = expone_left();
        srand(seed);
        EXPECT_EQ(mk_rval(HIGH, 10.0f, 30.0f), 10.0f + 20.0f * (1.0f - form));
    }
}

TEST(MkRval, StaysBetweenTheBounds) {
    for (std::uint32_t code = 0; code < CODES; ++code) {
        srand(code + 40);
        for (int i = 0; i < 20000; ++i) {
            const float value = mk_rval(code, -3.0f, 5.0f);
            ASSERT_TRUE(value >= -3.0f && value <= 5.0f) << code << ": " << value;
        }
    }
}

// --- the ends of the unit draw ---

TEST(MkRval, FlatReachesBothBounds) {
    set_next_draws({DRAW_ZERO, DRAW_ONE, DRAW_HALF});
    EXPECT_EQ(mk_rval(FLAT, 60.0f, 72.0f), 60.0f);
    EXPECT_EQ(mk_rval(FLAT, 60.0f, 72.0f), 72.0f);
    EXPECT_EQ(mk_rval(FLAT, 60.0f, 72.0f), 66.0f);
}

TEST(MkRval, TriangularIsTheMeanOfTwoDraws) {
    set_next_draws({DRAW_ZERO, DRAW_ONE, DRAW_QUARTER, DRAW_HALF, DRAW_ONE, DRAW_ONE});
    EXPECT_EQ(mk_rval(TRIANGULAR, 0.0f, 8.0f), 4.0f);
    EXPECT_EQ(mk_rval(TRIANGULAR, 0.0f, 8.0f), 3.0f);
    EXPECT_EQ(mk_rval(TRIANGULAR, 0.0f, 8.0f), 8.0f);
}

TEST(ExponeLeft, ZeroIsDrawnAgain) {
    set_next_draws({DRAW_ZERO, DRAW_ZERO, DRAW_HALF});
    EXPECT_FLOAT_EQ(expone_left(), static_cast<float>(std::log(2.0) / DECAY));
    EXPECT_EQ(draws_left(), 0);
}

TEST(ExponeLeft, DrawsUpToAThousandthMapToOne) {
    set_next_draws({1, 2147000, 2148000, DRAW_ONE});
    EXPECT_EQ(expone_left(), 1.0f);
    EXPECT_EQ(expone_left(), 1.0f);  // u = 0.00099978
    EXPECT_LT(expone_left(), 1.0f);  // u = 0.00100024
    EXPECT_EQ(expone_left(), 0.0f);  // u = 1
}

TEST(ExponeLeft, ConstantHasSinglePrecision) {
    // u = 50/64: ln u / -6.907800197601 is 0.035736424168, with 6.9078 itself 0.0357364252.
    set_next_draws({50 << 25});
    EXPECT_EQ(expone_left(), 0.035736423f);
}

TEST(Gauss, TwelveDrawsAreSummed) {
    set_next_draws({DRAW_HALF, DRAW_HALF, DRAW_HALF, DRAW_HALF, DRAW_HALF, DRAW_HALF, DRAW_HALF, DRAW_HALF,
                    DRAW_HALF, DRAW_HALF, DRAW_HALF, DRAW_HALF, DRAW_ONE});
    EXPECT_EQ(gauss(), 0.5f);
    EXPECT_EQ(draws_left(), 1);
}

TEST(Gauss, ScaledByItsStandardDeviation) {
    set_next_draws({DRAW_ONE, DRAW_ONE, DRAW_HALF, DRAW_HALF, DRAW_HALF, DRAW_HALF, DRAW_HALF, DRAW_HALF,
                    DRAW_HALF, DRAW_HALF, DRAW_HALF, DRAW_HALF});
    EXPECT_EQ(gauss(), 0.655f);  // the sum is 7
}

TEST(Gauss, RareSumsAreClampedToTheEnds) {
    set_next_draws({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    EXPECT_EQ(gauss(), 0.0f);
    set_next_draws({DRAW_ONE, DRAW_ONE, DRAW_ONE, DRAW_ONE, DRAW_ONE, DRAW_ONE, DRAW_ONE, DRAW_ONE, DRAW_ONE,
                    DRAW_ONE, DRAW_ONE, DRAW_ONE});
    EXPECT_EQ(gauss(), 1.0f);
}

TEST(Bilex, ZeroAndOneAreDrawnAgain) {
    set_next_draws({DRAW_ZERO, DRAW_ONE, DRAW_QUARTER});
    EXPECT_FLOAT_EQ(bilex(), static_cast<float>(0.5 - std::log(2.0) / 14.0));
    EXPECT_EQ(draws_left(), 0);
}

TEST(Bilex, UpperHalfMirrorsTheLower) {
    set_next_draws({DRAW_HALF + DRAW_QUARTER, DRAW_EIGHTH, DRAW_HALF});
    EXPECT_FLOAT_EQ(bilex(), static_cast<float>(0.5 + std::log(2.0) / 14.0));  // x = 1.5
    EXPECT_FLOAT_EQ(bilex(), static_cast<float>(0.5 - std::log(4.0) / 14.0));  // x = 0.25
    EXPECT_EQ(bilex(), 0.5f);                                                  // x = 1
}

TEST(Bilex, FarTailsAreClampedToTheEnds) {
    set_next_draws({1, 2147483520});
    EXPECT_EQ(bilex(), 0.0f);  // ln(2^-30) / 14 = -1.485
    EXPECT_EQ(bilex(), 1.0f);
}

TEST(Beta, FirstDrawGoesIntoTheNumerator) {
    set_next_draws({DRAW_HALF, DRAW_QUARTER, DRAW_QUARTER, DRAW_HALF});
    EXPECT_EQ(beta(), 32.0f / 33.0f);  // 2^-5 and 2^-10
    EXPECT_EQ(beta(), 1.0f / 33.0f);
}

TEST(Beta, ZeroIsDrawnAgainForEachOfTheTwo) {
    set_next_draws({DRAW_ZERO, DRAW_HALF, DRAW_ZERO, DRAW_ZERO, DRAW_QUARTER});
    EXPECT_EQ(beta(), 32.0f / 33.0f);
    EXPECT_EQ(draws_left(), 0);
}

TEST(Beta, PairsAboveOneAreRejected) {
    set_next_draws({DRAW_ONE, DRAW_ONE, DRAW_ONE, DRAW_HALF, DRAW_HALF, DRAW_HALF});
    EXPECT_EQ(beta(), 0.5f);
    EXPECT_EQ(draws_left(), 0);
}

TEST(Beta, PairsOfExactlyOneAreAccepted) {
    set_next_draws({DRAW_ONE, 1});  // 2^-155 vanishes beside 1
    EXPECT_EQ(beta(), 1.0f);
    EXPECT_EQ(draws_left(), 0);
}

// --- a million draws of each, against the law ---

constexpr int SAMPLES = 1000000;
constexpr std::size_t BINS = 64;

template <typename Law>
void expect_law(std::uint32_t code, Law law) {
    srand(code + 100);
    const auto fit = test::fit_on_unit_interval(
        SAMPLES, BINS, [code] { return mk_rval(code, 0.0f, 1.0f); }, law);
    EXPECT_LT(fit.statistic, fit.limit);
}

// Distribution function of the sum of twelve uniform draws (P. Hall and J. O. Irwin, 1927).
double irwin_hall(double sum) {
    double term = 1.0 / 479001600.0;  // (-1)^k C(12, k) / 12!
    double total = 0.0;
    for (int k = 0; k <= sum && k <= 12; ++k) {
        total += term * std::pow(sum - k, 12.0);
        term *= -(12.0 - k) / (k + 1.0);
    }
    return total;
}

// Half the beta distribution function with both parameters 0.2, up to x <= 0.5 and
// unscaled: with x = t^5 its density x^-0.8 (1 - x)^-0.8 is 5 (1 - t^5)^-0.8 in t.
double beta_integral(double x) {
    constexpr int STEPS = 400;
    const double width = std::pow(x, 0.2) / STEPS;
    double total = 0.0;
    for (int i = 0; i <= STEPS; ++i) {
        const double simpson = i == 0 || i == STEPS ? 1.0 : i % 2 == 1 ? 4.0 : 2.0;
        total += simpson * std::pow(1.0 - std::pow(i * width, 5.0), -0.8);
    }
    return total * width / 3.0;
}

TEST(MkRval, FlatLaw) {
    expect_law(FLAT, [](double x) { return x; });
}

TEST(MkRval, ExponentialLowLaw) {
    expect_law(LOW, [](double x) { return 1.0 - std::exp(-DECAY * x); });
}

TEST(MkRval, ExponentialHighLaw) {
    expect_law(HIGH, [](double x) { return std::exp(-DECAY * (1.0 - x)); });
}

TEST(MkRval, TriangularLaw) {
    expect_law(TRIANGULAR,
               [](double x) { return x < 0.5 ? 2.0 * x * x : 1.0 - 2.0 * (1.0 - x) * (1.0 - x); });
}

TEST(MkRval, GaussianLaw) {
    expect_law(GAUSSIAN, [](double x) { return irwin_hall((x - 0.5) / 0.155 + 6.0); });
}

TEST(MkRval, BilateralLaw) {
    expect_law(BILATERAL, [](double x) {
        return x < 0.5 ? 0.5 * std::exp(14.0 * (x - 0.5)) : 1.0 - 0.5 * std::exp(-14.0 * (x - 0.5));
    });
}

TEST(MkRval, BetaLaw) {
    const double whole = 2.0 * beta_integral(0.5);
    expect_law(BETA, [whole](double x) {
        return x <= 0.5 ? beta_integral(x) / whole : 1.0 - beta_integral(1.0 - x) / whole;
    });
}

TEST(Gauss, MeanAndStandardDeviation) {
    srand(200);
    double sum = 0.0, squares = 0.0;
    constexpr int COUNT = 200000;
    for (int i = 0; i < COUNT; ++i) {
        const double value = gauss();
        sum += value;
        squares += (value - 0.5) * (value - 0.5);
    }
    EXPECT_NEAR(sum / COUNT, 0.5, 4 * 0.155 / std::sqrt(COUNT));
    EXPECT_NEAR(std::sqrt(squares / COUNT), 0.155, 0.001);
}

}  // namespace
}  // namespace vorn
