#include "generators/rw.h"

#include <cmath>

#include "input/errors.h"
#include "support/ddf_block.h"

namespace vorn {
namespace {

using test::ScoreText;
using test::set_next_draws;
using test::Values;

class GetRwData : public test::DdfBlock {
protected:
    int read(const std::string& text, int input_type = CODE_RE) {
        IN_TYPE = input_type;
        ScoreText score(text);
        RwData data;
        const int result = get_RW_data(data, score.reader);
        rest = score.rest();
        ranges.assign(data.range.data(), data.range.data() + data.range.size());
        return result;
    }

    void expect_range(float low, float high, float window, float position) const {
        ASSERT_FALSE(ranges.empty());
        EXPECT_EQ(ranges[0].low, low);
        EXPECT_EQ(ranges[0].high, high);
        EXPECT_EQ(ranges[0].window, window);
        EXPECT_EQ(ranges[0].position, position);
    }

    std::vector<WalkRange> ranges;
};

using MakeRw = test::DdfBlock;

TEST_F(GetRwData, ReadsBoundsWindowAndStart) {
    EXPECT_EQ(read("(4 1 [0 10] .2 5) x"), 0);
    EXPECT_EQ(rest, " x");
    expect_range(0, 10, 0.2F, 0.5F);
    EXPECT_EQ(read("(4 1 [10, 0] 1 / 0)"), 0);
    expect_range(0, 10, 1, 0);
    EXPECT_EQ(read("(4 .5 [0 10] 0 10 .5 1 2 .1 1.5)"), 0);
    expect_range(0, 10, 0, 1);
    ASSERT_EQ(ranges.size(), 2U);
    EXPECT_EQ(ranges[1].position, 0.5F);
}

TEST_F(GetRwData, BracketsAreIndependentOfEachOther) {
    for (const char* text : {"(4 1 0 10 .2 5)", "(4 1 [0 10 .2 5)", "(4 1 0 10] .2 5)", "(4 1[0 10].2 5)"}) {
        EXPECT_EQ(read(text), 0) << text;
        expect_range(0, 10, 0.2F, 0.5F);
    }
}

TEST_F(GetRwData, StartIsInTheInputTypeAndWindowIsAPlainNumber) {
    EXPECT_EQ(read("(4 1 [c4 c5] .25 fs4)", CODE_NO), 0);
    expect_range(48, 60, 0.25F, 0.5F);
    EXPECT_EQ(read("(4 1 [c4 c5] c4 fs4)", CODE_NO), error::BAD_WINDOW);
    EXPECT_EQ(rest, "c4 fs4)");
    EXPECT_EQ(read("(4 1 [c4 c5] .25 54)", CODE_NO), error::BAD_WALK_START);
    EXPECT_EQ(read("(4 1 [4 2] .25 4.)", CODE_RH), 0);
    expect_range(1, 2, 0.25F, 0.5F);
}

TEST_F(GetRwData, NoDistributionLetters) {
    EXPECT_EQ(read("(4 1 [b3 c4] .25 b3)", CODE_NO), 0);
    expect_range(47, 48, 0.25F, 0);
    EXPECT_EQ(read("(4 1 [g 0 10] .25 5)"), error::BAD_WALK_RANGE);
}

TEST_F(GetRwData, EqualBoundsStartAtPositionZero) {
    EXPECT_EQ(read("(4 1 [5 5] .25 5)"), 0);
    expect_range(5, 5, 0.25F, 0);
}

TEST_F(GetRwData, BoundsBeyondAllNumbersStartAtPositionZero) {
    const std::string huge(60, '9');
    EXPECT_EQ(read("(4 1 [0 " + huge + "] .25 " + huge + ")"), 0);
    EXPECT_EQ(ranges[0].position, 0.0F);
}

TEST_F(GetRwData, WindowLiesBetweenZeroAndOne) {
    EXPECT_EQ(read("(4 1 0 10 1.5 5)"), error::BAD_WINDOW);
    EXPECT_EQ(rest, " 5)");
    EXPECT_EQ(read("(4 1 0 10 -.1 5)"), error::BAD_WINDOW);
    EXPECT_EQ(read("(4 1 0 10 x 5)"), error::BAD_WINDOW);
    EXPECT_EQ(rest, "x 5)");
    EXPECT_EQ(read("(4 1 0 10 0 5)"), 0);
    EXPECT_EQ(read("(4 1 0 10 1 5)"), 0);
}

TEST_F(GetRwData, StartLiesInTheRange) {
    EXPECT_EQ(read("(4 1 0 10 .5 11)"), error::BAD_WALK_START);
    EXPECT_EQ(rest, ")");
    EXPECT_EQ(read("(4 1 0 10 .5 -1)"), error::BAD_WALK_START);
    EXPECT_EQ(read("(4 1 0 10 .5 foo)"), error::BAD_WALK_START);
    EXPECT_EQ(rest, "foo)");
    EXPECT_EQ(read("(4 1 10 0 .5 10)"), 0);
}

TEST_F(GetRwData, CutOffBehindEachToken) {
    const char* tokens[] = {"(", "4", "1", "[", "0", "10", "]", ".5", "5"};
    const int errors[] = {
        error::DDF_WITHOUT_PARENTHESIS, error::BAD_DDF_TIME,   error::MISSING_WEIGHT, error::BAD_WALK_RANGE,
        error::BAD_WALK_RANGE,          error::BAD_WALK_RANGE, error::BAD_WINDOW,     error::BAD_WINDOW,
        error::BAD_WALK_START,          error::MISSING_WEIGHT};
    std::string text;
    for (std::size_t i = 0; i < std::size(errors); ++i) {
        for (const char* end : {"", "\n", "\n}\n"}) EXPECT_EQ(read(text + end), errors[i]) << text << end;
        if (i < std::size(tokens)) text += tokens[i] + std::string(" ");
    }
}

// Zero bounds are no obstacle in P2: error 72 is for RA and MO.
TEST_F(GetRwData, ZeroBoundsAreAllowedInP2Spans) {
    begin_starts(8);
    EXPECT_EQ(read("(4 1 0 1 .5 1)"), 0);
}

// The walk of seed 1 in a window of half the range goes .5, .39438292 (inside
// .25 to .75), .19755137, .27777472 (the window shifted to 0 to .5), .36478448.
TEST_F(MakeRw, WalkOfSeedOneBeginsWithItsStart) {
    begin_values(5);
    EXPECT_EQ(run(DdfKind::RW, "(-5 1 [0 10] .5 5)"), 0);
    EXPECT_EQ(column(4), Values({5, 10 * 0.39438292F, 10 * 0.19755137F, 10 * 0.27777472F, 10 * 0.36478448F}));
    EXPECT_EQ(draws(), 20);
}

TEST_F(MakeRw, EachStepStaysInsideItsWindow) {
    begin_values(10000, 0, 4);
    EXPECT_EQ(run(DdfKind::RW, "(-10000 1 [100 200] .2 150)"), 0);
    const Values values = column(4);
    EXPECT_EQ(values[0], 150.0F);
    float extreme = 0;
    for (std::size_t i = 1; i < values.size(); ++i) {
        ASSERT_TRUE(values[i] >= 100 && values[i] <= 200);
        // Ten to either side, or up to twenty inwards from an end.
        const float step = std::fabs(values[i] - values[i - 1]);
        const bool near_end = values[i - 1] < 110 || values[i - 1] > 190;
        ASSERT_LE(step, near_end ? 20.001F : 10.001F) << i;
        extreme = std::max(extreme, step);
    }
    EXPECT_GT(extreme, 10.0F);
}

TEST_F(MakeRw, EachSubRangeWalksOnItsOwn) {
    begin_values(4);
    using test::DRAW_HALF;
    using test::DRAW_ONE;
    using test::DRAW_ZERO;
    // Sub-ranges 1 2 2 1; steps to .5, 0, .5, 1.
    set_next_draws(
        {DRAW_ZERO, DRAW_HALF, 0, DRAW_ONE, DRAW_ZERO, 0, DRAW_ONE, DRAW_HALF, 0, DRAW_ZERO, DRAW_ONE, 0});
    EXPECT_EQ(run(DdfKind::RW, "(-4 .5 0 8 1 8 .5 100 200 1 200)"), 0);
    EXPECT_EQ(column(4), Values({8, 200, 100, 4}));
    EXPECT_EQ(test::draws_left(), 0);
}

TEST_F(MakeRw, EqualBoundsGiveTheBoundWithOneDraw) {
    begin_values(3);
    EXPECT_EQ(run(DdfKind::RW, "(-3 1 5 5 .5 5)"), 0);
    EXPECT_EQ(column(4), Values({5, 5, 5}));
    EXPECT_EQ(draws(), 9);  // sub-range, step, deviation each
}

TEST_F(MakeRw, AWindowOfZeroStandsStillWithOneDraw) {
    begin_values(3);
    EXPECT_EQ(run(DdfKind::RW, "(-3 1 0 10 0 4)"), 0);
    EXPECT_EQ(column(4), Values({4, 4, 4}));
    EXPECT_EQ(draws(), 9);
}

}  // namespace
}  // namespace vorn
