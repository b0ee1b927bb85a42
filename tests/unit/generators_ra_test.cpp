#include "generators/ra.h"

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

class GetRaData : public test::DdfBlock {
protected:
    int read(const std::string& text) {
        ScoreText score(text);
        RaData data;
        const int result = get_RA_data(data, score.reader);
        rest = score.rest();
        time = data.time;
        weights.assign(data.weights.weight.data(), data.weights.weight.data() + data.weights.weight.size());
        ranges.assign(data.range.data(), data.range.data() + data.range.size());
        return result;
    }

    float time = 0;
    Values weights;
    std::vector<ValueRange> ranges;
};

using MakeRa = test::DdfBlock;

TEST_F(GetRaData, ReadsWeightsAndRanges) {
    EXPECT_EQ(read(" ( -8 .5 60 , .25 [72 64] /*c*/ .25 [g 1 2] ) x"), 0);
    EXPECT_EQ(rest, " x");
    EXPECT_EQ(time, -8.0F);
    EXPECT_EQ(weights, Values({0.5F, 0.25F, 0.25F}));
    ASSERT_EQ(ranges.size(), 3U);
    EXPECT_EQ(ranges[0].low, 60.0F);
    EXPECT_EQ(ranges[0].high, 60.0F);
    EXPECT_EQ(ranges[1].low, 64.0F);
    EXPECT_EQ(ranges[1].high, 72.0F);
    EXPECT_EQ(ranges[1].distribution, 0U);
    EXPECT_EQ(ranges[2].distribution, 4U);
}

TEST_F(GetRaData, TokensMayTouchAndLinesMayEndBetweenThem) {
    EXPECT_EQ(read("(4 1[t1 2])"), 0);
    EXPECT_EQ(ranges[0].distribution, 3U);
    EXPECT_EQ(read("\n(\n4\n1\n[\nt\n1\n2\n]\n)"), 0);
    EXPECT_EQ(ranges[0].high, 2.0F);
}

TEST_F(GetRaData, OneCommentOrSeparatorPerGap) {
    EXPECT_EQ(read("(4 ; beats\n/*w*/ 1 ,60/ )"), 0);
    EXPECT_EQ(read("(4 1 , , 60)"), error::MISSING_VALUE);
    EXPECT_EQ(rest, ", 60)");
    EXPECT_EQ(read("(4 1 60 , , .5 60)"), error::MISSING_WEIGHT);
    EXPECT_EQ(rest, ", .5 60)");
}

TEST_F(GetRaData, NeedsASubRange) {
    begin_starts(-10);
    EXPECT_EQ(read("(T)"), error::MISSING_WEIGHT);
    EXPECT_EQ(rest, ")");
}

TEST_F(GetRaData, CutOffBehindEachToken) {
    const char* tokens[] = {"(", "4", "1", "[", "g", "60", "72", "]", ".5", "60"};
    const int errors[] = {error::DDF_WITHOUT_PARENTHESIS, error::BAD_DDF_TIME,      error::MISSING_WEIGHT,
                          error::MISSING_VALUE,           error::BAD_BRACKET_VALUE, error::BAD_BRACKET_VALUE,
                          error::BAD_BRACKET_VALUE,       error::BAD_BRACKET_VALUE, error::MISSING_WEIGHT,
                          error::MISSING_VALUE,           error::MISSING_WEIGHT};
    std::string text;
    for (std::size_t i = 0; i < std::size(errors); ++i) {
        for (const char* end : {"", "\n", "\n}\n"}) EXPECT_EQ(read(text + end), errors[i]) << text << end;
        if (i < std::size(tokens)) text += tokens[i] + std::string(" ");
    }
}

TEST_F(GetRaData, Error72IsForBoundsOfExactlyZeroInP2Spans) {
    begin_starts(8);
    EXPECT_EQ(read("(4 1 0)"), error::ZERO_INTERVAL_IN_DDF);
    EXPECT_EQ(rest, ")");
    EXPECT_EQ(read("(4 1 [0 1])"), error::ZERO_INTERVAL_IN_DDF);
    EXPECT_EQ(read("(4 1 [1 0])"), error::ZERO_INTERVAL_IN_DDF);
    EXPECT_EQ(read("(4 .5 1 .5 [-1 0])"), error::ZERO_INTERVAL_IN_DDF);
    EXPECT_EQ(read("(4 1 [-1 1])"), 0);
    EXPECT_EQ(read("(0 1 0)"), 0);
    EXPECT_EQ(read("(-4 1 0)"), 0);
    begin_statement(3);
    EXPECT_EQ(read("(4 1 0)"), 0);
}

TEST_F(MakeRa, ValuesOfEachDistributionFromSeedOne) {
    // The first three values between 60 and 72, the draws of weight and deviation left out.
    struct Row {
        const char* text;
        float values[3];
        int draws;
    };
    // Flat: 60 + 12 u with u = .39438292, .91164738, .76822960. The exponential
    // ones hold -ln u / 6.9078 = .13469315, .01339086, .03816954 from either end.
    const Row rows[] = {
        {"(-3 1 [60 72])", {64.7325974F, 70.9397659F, 69.2187576F}, 9},
        {"(-3 1 [l 60 72])", {61.6163177F, 60.1606903F, 60.4580345F}, 9},
        {"(-3 1 [h 60 72])", {70.3836823F, 71.8393097F, 71.5419693F}, 9},
        {"(-3 1 [t 60 72])", {67.0648956F, 63.1966438F, 66.1882019F}, 12},
        {"(-3 1 [g 60 72])", {66.9139481F, 63.9647598F, 67.2978897F}, 42},
        {"(-3 1 [x 60 72])", {65.7966156F, 67.4856644F, 66.6590271F}, 9},
        {"(-3 1 [b 60 72])", {60.3765640F, 60.7963295F, 68.1339417F}, 12},
    };
    for (const Row& row : rows) {
        reset_program();
        begin_values(3);
        EXPECT_EQ(run(DdfKind::RA, row.text), 0);
        const Values values = column(4);
        for (std::size_t i = 0; i < 3; ++i) EXPECT_FLOAT_EQ(values[i], row.values[i]) << row.text;
        EXPECT_EQ(draws(), row.draws) << row.text;
    }
}

// Draws per event: sub-range, value, deviation.
TEST_F(MakeRa, ChoosesTheSubRangeThenTheValue) {
    begin_values(3);
    set_next_draws({DRAW_HALF, DRAW_ONE, DRAW_ONE, DRAW_ONE, DRAW_QUARTER, DRAW_ZERO, DRAW_ZERO, DRAW_QUARTER,
                    DRAW_ZERO});
    EXPECT_EQ(run(DdfKind::RA, "(-3 .5 60 .5 [72 64])"), 0);
    EXPECT_EQ(column(4), Values({60, 66, 60}));
    EXPECT_EQ(draws_left(), 0);
}

TEST_F(MakeRa, GaussianInTheMiddleOfTheRange) {
    begin_values(1);
    set_next_draws({DRAW_ONE, DRAW_HALF, DRAW_HALF, DRAW_HALF, DRAW_HALF, DRAW_HALF, DRAW_HALF, DRAW_HALF,
                    DRAW_HALF, DRAW_HALF, DRAW_HALF, DRAW_HALF, DRAW_HALF, DRAW_ONE});
    EXPECT_EQ(run(DdfKind::RA, "(-1 1 [g 60 72])"), 0);
    EXPECT_EQ(column(4), Values({66}));
    EXPECT_EQ(draws_left(), 0);
}

}  // namespace
}  // namespace vorn
