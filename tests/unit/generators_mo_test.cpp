#include "generators/mo.h"

#include "generators/curves.h"
#include "input/errors.h"
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

class GetMoData : public test::DdfBlock {
protected:
    int read(const std::string& text, int input_type = CODE_RE) {
        IN_TYPE = input_type;
        ScoreText score(text);
        MoData data;
        const int result = get_MO_data(data, score.reader);
        rest = score.rest();
        motions.assign(data.motion.data(), data.motion.data() + data.motion.size());
        return result;
    }

    std::vector<Motion> motions;
};

using MakeMo = test::DdfBlock;

TEST_F(GetMoData, ReadsCurveAndBothEnds) {
    EXPECT_EQ(read("(-8 1 v2.5 [g 58 62] [72]) x"), 0);
    EXPECT_EQ(rest, " x");
    ASSERT_EQ(motions.size(), 1U);
    EXPECT_EQ(motions[0].curve, 3U);
    EXPECT_EQ(motions[0].exponent, 2.5F);
    EXPECT_EQ(motions[0].start.distribution, 4U);
    EXPECT_EQ(motions[0].start.low, 58.0F);
    EXPECT_EQ(motions[0].start.high, 62.0F);
    EXPECT_EQ(motions[0].end.distribution, 0U);
    EXPECT_EQ(motions[0].end.low, 72.0F);
    EXPECT_EQ(motions[0].end.high, 72.0F);
}

TEST_F(GetMoData, NoLetterIsTheStraightLine) {
    EXPECT_EQ(read("(-8 1 60 72)"), 0);
    EXPECT_EQ(motions[0].curve, 0U);
    EXPECT_EQ(motions[0].exponent, 1.0F);
}

TEST_F(GetMoData, AllCurvesAndTheirStars) {
    const char letters[] = "felvsc";
    for (std::uint32_t code = 0; code < 6; ++code) {
        const std::string curve = letters[code] + std::string(code == 3 ? "2" : "");
        EXPECT_EQ(read("(8 1 " + curve + " 60 72)"), 0) << curve;
        EXPECT_EQ(motions[0].curve, code);
        EXPECT_EQ(read("(8 1 " + curve + " * 60 72)"), 0) << curve;
        EXPECT_EQ(motions[0].curve, code + BEAT_CURVE);
    }
    EXPECT_EQ(read("(8 1* 60 72)"), 0);
    EXPECT_EQ(motions[0].curve, 100U);
}

// A time of 0 is a span: the star is allowed, other than in MS.
TEST_F(GetMoData, StarNeedsASpan) {
    EXPECT_EQ(read("(0 1 e* 60 72)"), 0);
    EXPECT_EQ(read("(-8 1 e* 60 72)"), error::BEAT_MOVE_NOT_ALLOWED);
    EXPECT_EQ(rest, "* 60 72)");
}

TEST_F(GetMoData, ExponentIsAboveZero) {
    EXPECT_EQ(read("(8 1 v0 60 72)"), error::BAD_CURVE_EXPONENT);
    EXPECT_EQ(read("(8 1 v-1 60 72)"), error::BAD_CURVE_EXPONENT);
    EXPECT_EQ(read("(8 1 v x 60 72)"), error::BAD_CURVE_EXPONENT);
}

// "c4" behind the weight is the curve c, whereupon 4 is no note; so are e and f.
TEST_F(GetMoData, NoteNamesCEFAfterWeightAreCurveLetters) {
    EXPECT_EQ(read("(8 1 c4 c5)", CODE_NO), error::MISSING_VALUE);
    EXPECT_EQ(rest, "4 c5)");
    EXPECT_EQ(read("(8 1 cc4 c5)", CODE_NO), 0);
    EXPECT_EQ(motions[0].curve, 5U);
    EXPECT_EQ(motions[0].start.low, 48.0F);
    EXPECT_EQ(read("(8 1 ef4 f5)", CODE_NO), 0);  // not e flat, but curve e and f4
    EXPECT_EQ(motions[0].curve, 1U);
    EXPECT_EQ(motions[0].start.low, 53.0F);
    EXPECT_EQ(read("(8 1 ff4 f5)", CODE_NO), 0);
    EXPECT_EQ(motions[0].curve, 0U);
    EXPECT_EQ(motions[0].start.low, 53.0F);
    EXPECT_EQ(read("(8 1 d4 f5)", CODE_NO), 0);
    EXPECT_EQ(motions[0].start.low, 50.0F);
}

TEST_F(GetMoData, EitherRangeIsPutInAscendingOrder) {
    EXPECT_EQ(read("(8 1 [62 58] [80 72])"), 0);
    EXPECT_EQ(motions[0].start.low, 58.0F);
    EXPECT_EQ(motions[0].end.low, 72.0F);
    EXPECT_EQ(motions[0].end.high, 80.0F);
}

TEST_F(GetMoData, BadRanges) {
    EXPECT_EQ(read("(8 1 [1 2 3] 4)"), error::MORE_THAN_TWO_VALUES);
    EXPECT_EQ(read("(8 1 4 [1 2 3])"), error::MORE_THAN_TWO_VALUES);
    EXPECT_EQ(read("(8 1 [] 4)"), error::BAD_BRACKET_VALUE);
    EXPECT_EQ(read("(8 1 4 [])"), error::BAD_BRACKET_VALUE);
    EXPECT_EQ(read("(8 1 4)"), error::MISSING_VALUE);
    EXPECT_EQ(rest, ")");
}

TEST_F(GetMoData, Error72IsForAnyOfTheFourBoundsInP2Spans) {
    begin_starts(8);
    for (const char* text :
         {"(4 1 0 1)", "(4 1 1 0)", "(4 1 [-1 0] 1)", "(4 1 [0 2] 1)", "(4 1 1 [0 2])", "(4 1 1 [-2 0])"}) {
        EXPECT_EQ(read(text), error::ZERO_INTERVAL_IN_DDF) << text;
    }
    EXPECT_EQ(read("(4 1 [-1 1] 1)"), 0);
    EXPECT_EQ(read("(-4 1 0 1)"), 0);
    begin_statement(4);
    EXPECT_EQ(read("(4 1 0 1)"), 0);
}

TEST_F(GetMoData, CutOffBehindEachToken) {
    const char* tokens[] = {"(", "4", "1", "v", "2", "*", "[", "g", "60", "]", "[", "72", "74", "]"};
    const int errors[] = {error::DDF_WITHOUT_PARENTHESIS, error::BAD_DDF_TIME,       error::MISSING_WEIGHT,
                          error::MISSING_VALUE,           error::BAD_CURVE_EXPONENT, error::MISSING_VALUE,
                          error::MISSING_VALUE,           error::BAD_BRACKET_VALUE,  error::BAD_BRACKET_VALUE,
                          error::BAD_BRACKET_VALUE,       error::MISSING_VALUE,      error::BAD_BRACKET_VALUE,
                          error::BAD_BRACKET_VALUE,       error::BAD_BRACKET_VALUE,  error::MISSING_WEIGHT};
    std::string text;
    for (std::size_t i = 0; i < std::size(errors); ++i) {
        for (const char* end : {"", "\n", "\n}\n"}) EXPECT_EQ(read(text + end), errors[i]) << text << end;
        if (i < std::size(tokens)) text += tokens[i] + std::string(" ");
    }
}

TEST_F(MakeMo, StraightLineOfThirteenEvents) {
    begin_values(13);
    EXPECT_EQ(run(DdfKind::MO, "(T 1 60 72)"), 0);
    EXPECT_EQ(column(4), Values({60, 61, 62, 63, 64, 65, 66, 67, 68, 69, 70, 71, 72}));
}

TEST_F(MakeMo, SquareOfThreeEvents) {
    begin_values(3);
    EXPECT_EQ(run(DdfKind::MO, "(T 1 e 0 1)"), 0);
    EXPECT_EQ(column(4), Values({0, 0.25F, 1}));
}

// Half-way along each curve: 1/2, 1/4, sqrt 1/2, 1/8, sin 45 degrees, 1 - sin 45 degrees.
TEST_F(MakeMo, HalfWayAlongEachCurve) {
    const char* curves[] = {"f", "e", "l", "v3", "s", "c"};
    const float middle[] = {50, 25, 70.7106781F, 12.5F, 70.7106781F, 29.2893219F};
    for (std::size_t i = 0; i < 6; ++i) {
        reset_program();
        begin_values(3);
        EXPECT_EQ(run(DdfKind::MO, std::string("(-3 1 ") + curves[i] + " 0 100)"), 0);
        const Values values = column(4);
        EXPECT_EQ(values[0], 0.0F);
        EXPECT_FLOAT_EQ(values[1], middle[i]) << curves[i];
        EXPECT_EQ(values[2], 100.0F);
    }
}

// Draws per event: sub-range, start, end, deviation, plain ends included.
TEST_F(MakeMo, BothEndsAreDrawnAnewForEveryEvent) {
    begin_values(3);
    set_next_draws({0, DRAW_ZERO, DRAW_ONE, 0, 0, DRAW_HALF, DRAW_HALF, 0, 0, DRAW_ONE, DRAW_QUARTER, 0});
    EXPECT_EQ(run(DdfKind::MO, "(-3 1 [50 60] [80 120])"), 0);
    EXPECT_EQ(column(4), Values({50, 77.5F, 90}));  // 50; half-way from 55 to 100; 90
    EXPECT_EQ(draws_left(), 0);
}

// Start values of seed 1 between 58 and 62 on a square towards 72.
TEST_F(MakeMo, ValuesOfSeedOne) {
    begin_values(5);
    EXPECT_EQ(run(DdfKind::MO, "(-5 1 e [58 62] 72)"), 0);
    const Values values = column(4);
    const float expected[] = {59.5775299F, 59.6158180F, 63.1619110F, 66.7734528F, 72};
    for (std::size_t i = 0; i < 5; ++i) EXPECT_FLOAT_EQ(values[i], expected[i]);
    EXPECT_EQ(draws(), 20);
}

// Beats 0 to 4; the span is the sum of first and last, 4.
TEST_F(MakeMo, StarredCurveRunsOverBeats) {
    begin_values(5);
    EXPECT_EQ(run(DdfKind::MO, "(4 1 e* 0 16)"), 0);
    EXPECT_EQ(column(4), Values({0, 1, 4, 9, 16}));
    EXPECT_EQ(printed(),
              "\ntime = 0.000000\ntime = 1.000000\ntime = 2.000000\ntime = 3.000000\ntime = 4.000000");
}

// In the second half of the block the span is 3 + 5 while the times are 0 to 2.
TEST_F(MakeMo, StarredCurveBehindTheBlockStartHasTheSumAsItsSpan) {
    begin_values(6);
    EXPECT_EQ(run(DdfKind::MO, "(-3 1 7 7)"), 0);
    EXPECT_EQ(run(DdfKind::MO, "(2 1 * 0 16)"), 0);
    EXPECT_EQ(column(4), Values({7, 7, 7, 0, 2, 4}));
}

TEST_F(MakeMo, OneEventGetsTheStart) {
    begin_values(2);
    EXPECT_EQ(run(DdfKind::MO, "(-1 1 60 72)"), 0);
    EXPECT_EQ(column(4), Values({60, 0}));
}

}  // namespace
}  // namespace vorn
