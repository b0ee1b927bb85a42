#include "generators/se.h"

#include "input/errors.h"
#include "support/ddf_block.h"
#include "support/failing_allocations.h"

namespace vorn {
namespace {

using test::allocations_left;
using test::ANY_NUMBER;
using test::draws_left;
using test::ScoreText;
using test::set_next_draws;
using test::Values;

class GetSeData : public test::DdfBlock {
protected:
    struct Set {
        std::size_t first;
        std::uint32_t size;
        SetMode mode;
        bool operator==(const Set&) const = default;
    };

    int read(const std::string& text, int input_type = CODE_RE) {
        IN_TYPE = input_type;
        ScoreText score(text);
        SeData data;
        const int result = get_SE_data(data, score.reader);
        rest = score.rest();
        values.assign(data.values.data(), data.values.data() + data.values.size());
        sets.clear();
        for (std::size_t i = 0; i < data.choices.set.size(); ++i) {
            const SetChoice& choice = data.choices.set[i];
            sets.push_back({data.first_value[i], choice.size, choice.mode});
        }
        return result;
    }

    Values values;
    std::vector<Set> sets;
};

using MakeSe = test::DdfBlock;

TEST_F(GetSeData, ReadsModesAndSets) {
    EXPECT_EQ(read("(-8 .5 [60 62] .25 * [1 2 3] .25 x [7 8]) x"), 0);
    EXPECT_EQ(rest, " x");
    EXPECT_EQ(values, Values({60, 62, 1, 2, 3, 7, 8}));
    const std::vector<Set> expected = {{0, 2, SetMode::REPETITION},
                                       {2, 3, SetMode::NO_REPETITION},
                                       {5, 2, SetMode::NO_IMMEDIATE_REPETITION}};
    EXPECT_EQ(sets, expected);
}

TEST_F(GetSeData, ModeMarkMayFollowTheWeightDirectlyOrNot) {
    for (const char* text :
         {"(8 1*[1 2])", "(8 1* [1 2])", "(8 1 *[1 2])", "(8 1 * [1 2])", "(8 1\n*\n[1 2])"}) {
        EXPECT_EQ(read(text), 0) << text;
        EXPECT_EQ(sets[0].mode, SetMode::NO_REPETITION) << text;
    }
    for (const char* text : {"(8 1x[1 2])", "(8 1x [1 2])", "(8 1 x[1 2])", "(8 1 x [1 2])"}) {
        EXPECT_EQ(read(text), 0) << text;
        EXPECT_EQ(sets[0].mode, SetMode::NO_IMMEDIATE_REPETITION) << text;
    }
    EXPECT_EQ(read("(8 1 X [1 2])"), error::MISSING_VALUE);
}

TEST_F(GetSeData, ASetOfOneValueAlwaysHasModeZero) {
    EXPECT_EQ(read("(8 .25 x 60 .25 * 61 .25 x [62] .25 [63])"), 0);
    EXPECT_EQ(values, Values({60, 61, 62, 63}));
    for (const Set& set : sets) EXPECT_EQ(set.mode, SetMode::REPETITION);
}

TEST_F(GetSeData, ValuesAreReadInTheInputType) {
    EXPECT_EQ(read("(8 1 [b3 c4 g4])", CODE_NO), 0);
    EXPECT_EQ(values, Values({47, 48, 55}));
}

TEST_F(GetSeData, BadSets) {
    EXPECT_EQ(read("(8 1 [])"), error::BAD_BRACKET_VALUE);
    EXPECT_EQ(read("(8 1 x [])"), error::BAD_BRACKET_VALUE);
    EXPECT_EQ(read("(8 1 [1 foo])"), error::BAD_BRACKET_VALUE);
    EXPECT_EQ(rest, "foo])");
    EXPECT_EQ(read("(8 1 foo)"), error::MISSING_VALUE);
    EXPECT_EQ(read("(8)"), error::MISSING_WEIGHT);
}

TEST_F(GetSeData, CutOffBehindEachToken) {
    const char* tokens[] = {"(", "4", "1", "*", "[", "60", "72", "]"};
    const int errors[] = {error::DDF_WITHOUT_PARENTHESIS, error::BAD_DDF_TIME,      error::MISSING_WEIGHT,
                          error::MISSING_VALUE,           error::MISSING_VALUE,     error::BAD_BRACKET_VALUE,
                          error::BAD_BRACKET_VALUE,       error::BAD_BRACKET_VALUE, error::MISSING_WEIGHT};
    std::string text;
    for (std::size_t i = 0; i < std::size(errors); ++i) {
        for (const char* end : {"", "\n", "\n}\n"}) EXPECT_EQ(read(text + end), errors[i]) << text << end;
        if (i < std::size(tokens)) text += tokens[i] + std::string(" ");
    }
}

TEST_F(GetSeData, OutOfMemoryIsAnErrorWhileReading) {
    int failures = 0;
    for (;; ++failures) {
        ScoreText score("(8 .5 * [1 2 3] .5 * [4 5])");
        const int open = test::allocations_open;
        allocations_left = failures;
        int result = 0;
        std::size_t read_sets = 0;
        {
            SeData data;
            result = get_SE_data(data, score.reader);
            read_sets = data.choices.set.size();
        }
        allocations_left = ANY_NUMBER;
        EXPECT_EQ(test::allocations_open, open);
        if (result == 0) {
            EXPECT_EQ(read_sets, 2U);
            break;
        }
        ASSERT_EQ(result, error::OUT_OF_MEMORY);
    }
    EXPECT_EQ(failures, 4);  // weights, places, values, choices; the flags are not counted
}

// With the first flags allocated and the second not, the first set still takes
// turns and the second merely repeats.
TEST_F(MakeSe, FlagAllocationFailureIsIgnored) {
    ScoreText score("(8 .5 * [1 2 3] .5 * [4 5])");
    SeData data;
    allocations_left = 5;
    EXPECT_EQ(get_SE_data(data, score.reader), 0);
    allocations_left = ANY_NUMBER;
    EXPECT_NE(data.choices.set[0].used, nullptr);
    EXPECT_EQ(data.choices.set[1].used, nullptr);
    set_next_draws({0, 0, 1, 0, 0, 0});
    float value = 0;
    for (const auto& [set, expected] :
         {std::pair{0U, 1.0F}, {0U, 2.0F}, {1U, 4.0F}, {1U, 4.0F}, {1U, 4.0F}}) {
        EXPECT_EQ(make_SE(data, set, Progress{}, value), 0);
        EXPECT_EQ(value, expected);
    }
    EXPECT_EQ(draws_left(), 0);
}

// Draws of seed 4: 287724083 mod 3 = 2, 460165363 mod 3 = 1, 901520025 mod 3 = 1 ...
// with one draw for the sub-range before and one for the deviation behind.
TEST_F(MakeSe, EachModeFromSeedFour) {
    const std::pair<const char*, Values> rows[] = {
        {"(-8 1 [10 20 30])", {30, 20, 20, 30, 30, 20, 30, 10}},
        {"(-8 1 * [10 20 30])", {30, 20, 10, 20, 10, 30, 10, 20}},
        {"(-8 1 x [10 20 30])", {30, 20, 30, 10, 20, 10, 30, 10}},
    };
    for (const auto& [text, expected] : rows) {
        reset_program();
        begin_values(8);
        srand(4);
        EXPECT_EQ(run(DdfKind::SE, text), 0);
        EXPECT_EQ(column(4), expected) << text;
    }
}

TEST_F(MakeSe, StarUsesEachElementOnceInEveryGroup) {
    begin_values(6);
    EXPECT_EQ(run(DdfKind::SE, "(T 1 * [1 2 3])"), 0);
    const Values values = column(4);
    EXPECT_EQ(values[0] + values[1] + values[2], 6.0F);
    EXPECT_EQ(values[0] * values[1] * values[2], 6.0F);
    EXPECT_EQ(values[3] + values[4] + values[5], 6.0F);
    EXPECT_EQ(values[3] * values[4] * values[5], 6.0F);
}

TEST_F(MakeSe, XOfTwoAlternates) {
    begin_values(8);
    EXPECT_EQ(run(DdfKind::SE, "(T 1 x [1 2])"), 0);
    const Values values = column(4);
    for (std::size_t i = 1; i < values.size(); ++i) EXPECT_EQ(values[i], 3 - values[i - 1]);
}

TEST_F(MakeSe, XOfOneElementEnds) {
    begin_values(3);
    EXPECT_EQ(run(DdfKind::SE, "(T 1 x [7])"), 0);
    EXPECT_EQ(column(4), Values({7, 7, 7}));
    EXPECT_EQ(draws(), 9);
}

TEST_F(MakeSe, TurnsLastForOneFunctionOnly) {
    begin_values(4);
    set_next_draws({0, 0, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0});
    EXPECT_EQ(run(DdfKind::SE, "(-2 1 * [1 2])"), 0);
    EXPECT_EQ(run(DdfKind::SE, "(-2 1 * [1 2])"), 0);
    EXPECT_EQ(column(4), Values({1, 2, 1, 2}));
}

}  // namespace
}  // namespace vorn
