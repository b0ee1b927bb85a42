#include "generators/random.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <vector>

#include "support/chi_square.h"
#include "support/draws.h"

namespace vorn {
namespace {

using test::reference_sequence;
using test::set_next_draws;

// Drawn before anything could seed the sequence.
const std::int32_t FIRST_OF_THE_PROCESS = rand();

const std::uint32_t SEEDS[] = {0,     1,     2,          3,          42,         100,        16807,
                               65534, 65535, 127773,     2147483646, 2147483647, 2147483648, 2147483649,
                               99999, 12345, 3000000000, 4294967294, 4294967295};

TEST(Random, UnseededSequenceIsThatOfSeedOne) { EXPECT_EQ(FIRST_OF_THE_PROCESS, 1804289383); }

TEST(Random, FirstNumbersOfSeedOne) {
    srand(1);
    for (const std::int32_t expected :
         {1804289383, 846930886, 1681692777, 1714636915, 1957747793, 424238335, 719885386, 1649760492,
          596516649, 1189641421, 1025202362, 1350490027, 783368690, 1102520059, 2044897763, 1967513926})
        EXPECT_EQ(rand(), expected);
}

TEST(Random, SeedZeroActsAsOne) {
    srand(0);
    EXPECT_EQ(rand(), 1804289383);
}

TEST(Random, SeedRestartsTheSequence) {
    srand(77);
    const std::int32_t first = rand();
    for (int i = 0; i < 100; ++i) (void)rand();
    srand(77);
    EXPECT_EQ(rand(), first);
}

TEST(Random, ResetGoesBackToTheDefaultSeed) {
    srand(77);
    (void)rand();
    reset_random();
    EXPECT_EQ(rand(), 1804289383);
}

TEST(Random, SequenceIsTheTextbookRecurrenceForEverySeed) {
    for (const std::uint32_t seed : SEEDS) {
        srand(seed);
        for (const std::int32_t expected : reference_sequence(seed, 200)) ASSERT_EQ(rand(), expected) << seed;
    }
}

#ifdef __GLIBC__
void expect_library_sequence(std::uint32_t seed, int count) {
    srand(seed);
    ::srand(seed);
    for (int i = 0; i < count; ++i) ASSERT_EQ(rand(), ::rand()) << "seed " << seed << ", number " << i;
}

TEST(Random, SequenceIsTheLibrarysForManySeeds) {
    for (const std::uint32_t seed : SEEDS) expect_library_sequence(seed, 1000);
    std::uint32_t seed = 1;
    for (int i = 0; i < 2000; ++i) expect_library_sequence(seed = seed * 1664525 + 1013904223, 100);
}

TEST(Random, SequenceIsTheLibrarysForEverySeedOfTheCommand) {
    for (std::uint32_t seed = 0; seed <= 65535; seed += 5) expect_library_sequence(seed, 3);
}

TEST(Random, SequenceIsTheLibrarysInALongRun) {
    expect_library_sequence(1, 1000000);
    expect_library_sequence(31415, 1000000);
}
#endif

TEST(Random, UnitDrawIsExactlyOneForTheLargestNumbers) {
    // 24 bits are kept: the floats below 2^31 are 128 apart, and a tie goes to the even one.
    set_next_draws({2147483647, 2147483584, 2147483583, 2147483520, 0, 1 << 30});
    EXPECT_EQ(unit_draw(), 1.0f);
    EXPECT_EQ(unit_draw(), 1.0f);
    EXPECT_EQ(unit_draw(), 1.0f - 0x1p-24f);
    EXPECT_EQ(unit_draw(), 1.0f - 0x1p-24f);
    EXPECT_EQ(unit_draw(), 0.0f);
    EXPECT_EQ(unit_draw(), 0.5f);
}

TEST(Random, UnitDrawRoundsTheNumberFirst) {
    srand(1);
    EXPECT_EQ(unit_draw(), 1804289408 * 0x1p-31f);  // 1804289383 is 25 below a multiple of 128
    EXPECT_EQ(unit_draw(), 846930880 * 0x1p-31f);   // 846930886 is 6 above a multiple of 64
}

TEST(Random, UnitDrawsAreEvenlySpread) {
    srand(5);
    const auto fit = test::fit_on_unit_interval(1000000, 1000, unit_draw, [](double x) { return x; });
    EXPECT_LT(fit.statistic, fit.limit);
}

TEST(Random, UnitDrawsThatFollowEachOtherAreUnrelated) {
    constexpr std::size_t SIDE = 16;
    std::vector<double> counts(SIDE * SIDE);
    srand(6);
    for (int i = 0; i < 500000; ++i) {
        const auto row = static_cast<std::size_t>(unit_draw() * SIDE);
        const auto column = static_cast<std::size_t>(unit_draw() * SIDE);
        counts[std::min(row, SIDE - 1) * SIDE + std::min(column, SIDE - 1)] += 1.0;
    }
    const auto fit = test::chi_square(counts, std::vector<double>(SIDE * SIDE, 1.0 / (SIDE * SIDE)));
    EXPECT_LT(fit.statistic, fit.limit);
}

}  // namespace
}  // namespace vorn
