#include "generators/ms.h"

#include "generators/curves.h"
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
using test::Values;

class GetMsData : public test::DdfBlock {
protected:
    int read(const std::string& text, int input_type = CODE_RE) {
        IN_TYPE = input_type;
        ScoreText score(text);
        MsData data;
        const int result = get_MS_data(data, score.reader);
        rest = score.rest();
        fields.assign(data.fields.data(), data.fields.data() + data.fields.size());
        masks.assign(data.mask.data(), data.mask.data() + data.mask.size());
        return result;
    }

    Values fields;
    std::vector<Mask> masks;
};

using MakeMs = test::DdfBlock;

TEST_F(GetMsData, ReadsCurveAndBothSets) {
    EXPECT_EQ(read("(-8 .5 v2.5 [1 2] 9 .5 7 [4 5 6]) x"), 0);
    EXPECT_EQ(rest, " x");
    EXPECT_EQ(fields, Values({2.5F, 1, 2, 9, 1, 7, 4, 5, 6}));
    ASSERT_EQ(masks.size(), 2U);
    EXPECT_EQ(masks[0].curve, 3U);
    EXPECT_EQ(masks[0].size_a, 2U);
    EXPECT_EQ(masks[0].size_b, 1U);
    EXPECT_EQ(masks[0].first_field, 0U);
    EXPECT_EQ(masks[1].curve, 0U);
    EXPECT_EQ(masks[1].size_a, 1U);
    EXPECT_EQ(masks[1].size_b, 3U);
    EXPECT_EQ(masks[1].first_field, 4U);
}

// Other than in MO a time of 0 is not enough.
TEST_F(GetMsData, StarNeedsASpanAboveZero) {
    EXPECT_EQ(read("(4 1 e* 1 2)"), 0);
    EXPECT_EQ(masks[0].curve, 101U);
    EXPECT_EQ(read("(4 1 e * 1 2)"), 0);
    EXPECT_EQ(masks[0].curve, 101U);
    EXPECT_EQ(read("(0 1 e* 1 2)"), error::BEAT_MOVE_NOT_ALLOWED);
    EXPECT_EQ(read("(-4 1 * 1 2)"), error::BEAT_MOVE_NOT_ALLOWED);
    EXPECT_EQ(rest, "* 1 2)");
}

TEST_F(GetMsData, ExponentIsAboveZero) {
    EXPECT_EQ(read("(4 1 v0 1 2)"), error::BAD_CURVE_EXPONENT);
    EXPECT_EQ(read("(4 1 v [1] 2)"), error::BAD_CURVE_EXPONENT);
}

TEST_F(GetMsData, NoteNamesCEFAfterWeightAreCurveLetters) {
    EXPECT_EQ(read("(4 1 c4 c5)", CODE_NO), error::MISSING_VALUE);
    EXPECT_EQ(rest, "4 c5)");
    EXPECT_EQ(read("(4 1 fe4 f5)", CODE_NO), 0);
    EXPECT_EQ(fields, Values({1, 52, 65}));
    EXPECT_EQ(read("(4 1 [c4] c5)", CODE_NO), 0);
    EXPECT_EQ(fields, Values({1, 48, 60}));
}

TEST_F(GetMsData, BadSets) {
    EXPECT_EQ(read("(4 1 [] 2)"), error::BAD_BRACKET_VALUE);
    EXPECT_EQ(read("(4 1 2 [])"), error::BAD_BRACKET_VALUE);
    EXPECT_EQ(read("(4 1 2)"), error::MISSING_VALUE);
    EXPECT_EQ(read("(4 1 [1 foo] 2)"), error::BAD_BRACKET_VALUE);
}

TEST_F(GetMsData, CutOffBehindEachToken) {
    const char* tokens[] = {"(", "4", "1", "v", "2", "*", "[", "60", "]", "[", "72", "]"};
    const int errors[] = {error::DDF_WITHOUT_PARENTHESIS, error::BAD_DDF_TIME,       error::MISSING_WEIGHT,
                          error::MISSING_VALUE,           error::BAD_CURVE_EXPONENT, error::MISSING_VALUE,
                          error::MISSING_VALUE,           error::BAD_BRACKET_VALUE,  error::BAD_BRACKET_VALUE,
                          error::MISSING_VALUE,           error::BAD_BRACKET_VALUE,  error::BAD_BRACKET_VALUE,
                          error::MISSING_WEIGHT};
    std::string text;
    for (std::size_t i = 0; i < std::size(errors); ++i) {
        for (const char* end : {"", "\n", "\n}\n"}) EXPECT_EQ(read(text + end), errors[i]) << text << end;
        if (i < std::size(tokens)) text += tokens[i] + std::string(" ");
    }
}

// Draws per event: sub-range, set, element, deviation. The chance of set A falls
// 1, .75, .5, .25, 0; a draw equal to it still is set A.
TEST_F(MakeMs, DrawsTheSetThenTheElement) {
    begin_values(5);
    set_next_draws({0, DRAW_ONE,
                    1, 0,  // chance 1: A
                    0, DRAW_HALF + DRAW_QUARTER,
                    2, 0,  // chance .75: A
                    0, DRAW_HALF + 128,
                    2, 0,  // chance .5: B
                    0, DRAW_HALF,
                    4, 0,  // chance .25: B
                    0, DRAW_ZERO,
                    3, 0});  // chance 0 and a draw of exactly 0: A
    EXPECT_EQ(run(DdfKind::MS, "(-5 1 [1 2] [7 8 9])"), 0);
    EXPECT_EQ(column(4), Values({2, 1, 9, 8, 2}));
    EXPECT_EQ(draws_left(), 0);
}

// Unit draws of seed 1 at 1, 5, 9 ... : .39438292, .19755137, .55396998,
// .51340091, .71729696, .24288677, .40094438, .21825691, .29603162, .97277504,
// and elements from the draw behind each; chances 1, .9 ... 0.
TEST_F(MakeMs, ElevenEventsOfSeedOne) {
    begin_values(11);
    EXPECT_EQ(run(DdfKind::MS, "(T 1 [1 2] [8 9])"), 0);
    EXPECT_EQ(column(4), Values({2, 1, 1, 2, 8, 2, 8, 2, 9, 9, 9}));
    EXPECT_EQ(draws(), 44);
}

TEST_F(MakeMs, FirstEventIsFromSetAAndLastFromSetB) {
    for (std::uint32_t seed = 1; seed <= 200; ++seed) {
        reset_program();
        begin_values(11, 0, 4);
        srand(seed);
        ASSERT_EQ(run(DdfKind::MS, "(-11 1 [1 2] [8 9])"), 0);
        const Values values = column(4);
        EXPECT_LE(values.front(), 2.0F);
        EXPECT_GE(values.back(), 8.0F);
    }
}

// With curve e the chance is 1 - x^2; over n events the tenths of the way hold
// set A in proportion to the mean of that, and both sets are even inside.
TEST_F(MakeMs, FollowsItsCurve) {
    constexpr int EVENTS_DRAWN = 200000;
    begin_values(EVENTS_DRAWN, 0, 4);
    EXPECT_EQ(run(DdfKind::MS, "(-200000 1 e [0 1 2] [10 11])"), 0);
    const Values values = column(4);
    for (int tenth = 0; tenth < 10; ++tenth) {
        std::vector<double> counts(5);
        for (int i = 0; i < EVENTS_DRAWN / 10; ++i) {
            const int value =
                static_cast<int>(values[static_cast<std::size_t>(tenth * EVENTS_DRAWN / 10 + i)]);
            counts[static_cast<std::size_t>(value < 10 ? value : value - 7)] += 1.0;
        }
        const double a = tenth / 10.0;
        const double b = a + 0.1;
        const double chance = 1.0 - (b * b * b - a * a * a) / 3.0 / 0.1;
        const test::ChiSquare test = test::chi_square(
            counts, {chance / 3, chance / 3, chance / 3, (1 - chance) / 2, (1 - chance) / 2});
        EXPECT_TRUE(test.fits()) << tenth << ": " << test.statistic;
    }
}

// Over beats 0 to 4 with curve v2* the chances are 1, 15/16, 3/4, 7/16, 0.
TEST_F(MakeMs, StarredCurveRunsOverBeats) {
    begin_values(5);
    set_next_draws({0, DRAW_ONE, 0, 0,         0, DRAW_ONE, 0, 0,         0, DRAW_HALF + DRAW_QUARTER,
                    0, 0,        0, DRAW_HALF, 0, 0,        0, DRAW_ZERO, 0, 0});
    EXPECT_EQ(run(DdfKind::MS, "(4 1 v2* 1 2)"), 0);
    EXPECT_EQ(column(4), Values({1, 2, 1, 2, 1}));
    EXPECT_EQ(printed(),
              "\ntime = 0.000000\ntime = 1.000000\ntime = 2.000000\ntime = 3.000000\ntime = 4.000000");
}

// The fields are exponent, A's two, B's three. In P2 set A is the exponent and
// A's first, set B is A's second and B's first two; B's last never comes.
TEST_F(MakeMs, P2DrawsOneFieldTooLow) {
    begin_starts(-20);
    Values expected;
    set_next_draws({0, DRAW_ZERO, 0, 0, 0, DRAW_ZERO, 1, 0});
    EXPECT_EQ(run(DdfKind::MS, "(-2 1 v5 [2 3] [7 8 9])"), 0);
    set_next_draws({0, DRAW_ZERO, 0, 0, 0, DRAW_ONE, 0, 0, 0, DRAW_ONE, 1, 0, 0, DRAW_ONE, 2, 0});
    EXPECT_EQ(run(DdfKind::MS, "(-4 1 v5 [2 3] [7 8 9])"), 0);
    EXPECT_EQ(column(3), Values({5, 2, 5, 3, 7, 8}));
    EXPECT_EQ(draws_left(), 0);
}

// Half-way the chance of curve v3 would be 1 - 1/8, but P2 takes exponent 1.
TEST_F(MakeMs, P2TakesExponentOne) {
    begin_starts(-20);
    set_next_draws({0, 0, 0, 0, 0, DRAW_HALF + 128, 0, 0, 0, 0, 0, 0});
    EXPECT_EQ(run(DdfKind::MS, "(-3 1 v3 2 4)"), 0);
    EXPECT_EQ(column(3), Values({3, 2, 3}));  // exponent, A's only value as B's first, exponent
}

// The chance falls over the span of 4: it is 1 at second 0, 3/4 at 1, 1/4 at 3.
TEST_F(MakeMs, P2OfASpanRunsByElapsedTime) {
    begin_starts(20);
    set_next_draws({0, DRAW_ONE, 0, 0,                  // chance 1: the exponent, 1
                    0, DRAW_HALF + DRAW_QUARTER, 1, 0,  // chance 3/4: A's first, 2
                    0, DRAW_HALF, 0, 0});               // chance 1/4: A's second as B's first, 3
    EXPECT_EQ(run(DdfKind::MS, "(4 1 [2 3] [7 8])"), 0);
    EXPECT_EQ(column(3), Values({1, 2, 3}));
    EXPECT_EQ(printed(), "");
}

}  // namespace
}  // namespace vorn
