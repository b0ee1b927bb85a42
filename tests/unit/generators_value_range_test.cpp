#include "generators/value_range.h"

#include "input/errors.h"
#include "support/ddf_block.h"

namespace vorn {
namespace {

using test::ScoreText;

class GetValueRange : public test::DdfBlock {
protected:
    int read(const std::string& text, int input_type = CODE_RE) {
        IN_TYPE = input_type;
        ScoreText score(text);
        const int result = get_value_range(range, score.reader);
        rest = score.rest();
        return result;
    }

    void expect_range(std::uint32_t distribution, float low, float high) const {
        EXPECT_EQ(range.distribution, distribution);
        EXPECT_EQ(range.low, low);
        EXPECT_EQ(range.high, high);
    }

    ValueRange range{99, -99, -99};
};

TEST_F(GetValueRange, PlainValueIsAFlatRangeOfNoWidth) {
    EXPECT_EQ(read("60 72"), 0);
    expect_range(0, 60, 60);
    EXPECT_EQ(rest, " 72");
}

TEST_F(GetValueRange, OneValueInBracketsHasNoWidth) {
    EXPECT_EQ(read("[g 60]x"), 0);
    expect_range(4, 60, 60);
    EXPECT_EQ(rest, "x");
}

TEST_F(GetValueRange, TwoValuesArePutInAscendingOrder) {
    EXPECT_EQ(read("[60 72]"), 0);
    expect_range(0, 60, 72);
    EXPECT_EQ(read("[72 64]"), 0);
    expect_range(0, 64, 72);
    EXPECT_EQ(read("[-2 -5]"), 0);
    expect_range(0, -5, -2);
}

TEST_F(GetValueRange, LettersInEitherCaseNameTheDistribution) {
    const char letters[] = "flhtgxb";
    for (std::uint32_t code = 0; code < 7; ++code) {
        EXPECT_EQ(read(std::string("[") + letters[code] + " 1 2]"), 0);
        expect_range(code, 1, 2);
        EXPECT_EQ(read(std::string("[") + static_cast<char>(letters[code] - 'a' + 'A') + "1 2]"), 0);
        expect_range(code, 1, 2);
    }
}

TEST_F(GetValueRange, BlanksLineEndsAndOneSeparatorMayStandInEachGap) {
    EXPECT_EQ(read("[ /* letter */, g, 60 / 72 ; high\n ] ,"), 0);
    expect_range(4, 60, 72);
    EXPECT_EQ(rest, " ,");
    EXPECT_EQ(read("[60,, 72]"), error::BAD_BRACKET_VALUE);
    EXPECT_EQ(rest, ", 72]");
}

TEST_F(GetValueRange, ValuesAreReadInTheInputType) {
    EXPECT_EQ(read("[f c4 ef5]", CODE_NO), 0);
    expect_range(0, 48, 63);
    EXPECT_EQ(read("8.07", CODE_OP), 0);
    expect_range(0, 55, 55);
    EXPECT_EQ(read("[4. 8]", CODE_RH), 0);
    expect_range(0, 0.5F, 1.5F);
    EXPECT_EQ(read("[1.5 2.4]", CODE_IN), 0);
    expect_range(0, 2, 2);
    LAST_VAL = 7;
    EXPECT_EQ(read("[z 3]"), 0);
    expect_range(0, 3, 7);
}

// The bracket is followed by a distribution letter as soon as the one character
// could be one, so these notes need a letter before them.
TEST_F(GetValueRange, NoteNamesBFGAfterBracketAreDistributions) {
    EXPECT_EQ(read("[b3 c4]", CODE_NO), error::BAD_BRACKET_VALUE);
    EXPECT_EQ(rest, "3 c4]");
    EXPECT_EQ(read("[f b3 c4]", CODE_NO), 0);
    expect_range(0, 47, 48);
    EXPECT_EQ(read("[gg3 c4]", CODE_NO), 0);
    expect_range(4, 43, 48);
    EXPECT_EQ(read("[fs4 c5]", CODE_NO), error::BAD_BRACKET_VALUE);
    EXPECT_EQ(rest, "s4 c5]");
}

TEST_F(GetValueRange, DistributionLetterTestLooksAtOneCharacterOnly) {
    EXPECT_EQ(read("[lower 60]"), error::BAD_BRACKET_VALUE);
    EXPECT_EQ(rest, "ower 60]");
}

TEST_F(GetValueRange, AThirdValueIsTooMany) {
    EXPECT_EQ(read("[60 62 64]"), error::MORE_THAN_TWO_VALUES);
    EXPECT_EQ(rest, "64]");
    EXPECT_EQ(read("[g 60 62 64 66]"), error::MORE_THAN_TWO_VALUES);
    EXPECT_EQ(rest, "64 66]");
}

TEST_F(GetValueRange, UnreadableAndMissingValues) {
    EXPECT_EQ(read("foo"), error::MISSING_VALUE);
    EXPECT_EQ(read(""), error::MISSING_VALUE);
    EXPECT_EQ(read(")"), error::MISSING_VALUE);
    for (const char* text :
         {"[]", "[ ]", "[g]", "[", "[g", "[60", "[60 72", "[60 foo]", "[60)", "[60 62 foo]"}) {
        EXPECT_EQ(read(text), error::BAD_BRACKET_VALUE) << text;
    }
}

TEST_F(GetValueRange, OnlyABoundOfExactlyZeroStopsASpanOfP2) {
    P_NO = 2;
    EXPECT_TRUE(stops_time({0, 0, 1}, 4));
    EXPECT_TRUE(stops_time({0, -1, 0}, 4));
    EXPECT_FALSE(stops_time({0, -1, 1}, 4));
    EXPECT_FALSE(stops_time({0, 0, 1}, 0));
    EXPECT_FALSE(stops_time({0, 0, 1}, -4));
    P_NO = 4;
    EXPECT_FALSE(stops_time({0, 0, 1}, 4));
}

TEST_F(GetValueRange, ADistributionLetterIsOptional) {
    const char text[] = "gX5";
    std::int32_t pos = 0;
    EXPECT_EQ(get_rrange_type(text, pos), 4U);
    EXPECT_EQ(pos, 1);
    EXPECT_EQ(get_rrange_type(text, pos), 5U);
    EXPECT_EQ(pos, 2);
    EXPECT_EQ(get_rrange_type(text, pos), 0U);
    EXPECT_EQ(pos, 2);
    pos = 3;
    EXPECT_EQ(get_rrange_type(text, pos), 0U);
    EXPECT_EQ(pos, 3);
}

}  // namespace
}  // namespace vorn
