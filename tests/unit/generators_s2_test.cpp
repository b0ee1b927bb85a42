#include "generators/s2.h"

#include "input/errors.h"
#include "support/ddf_block.h"
#include "support/failing_allocations.h"

namespace vorn {
namespace {

using test::allocations_left;
using test::ANY_NUMBER;
using test::DRAW_ONE;
using test::DRAW_ZERO;
using test::draws_left;
using test::ScoreText;
using test::set_next_draws;
using test::Values;

class GetS2Data : public test::DdfBlock {
protected:
    GetS2Data() { begin_values(4); }

    int read(const std::string& text, int input_type = CODE_RE) {
        IN_TYPE = input_type;
        ScoreText score(text);
        S2Data data;
        const int result = get_S2_data(data, score.reader);
        rest = score.rest();
        values.assign(data.values.data(), data.values.data() + data.values.size());
        sizes.clear();
        for (std::size_t i = 0; i < data.elements.size(); ++i) {
            sizes.push_back(static_cast<float>(data.elements[i].size));
        }
        mode = data.choices.set.size() == 0 ? SetMode::REPETITION : data.choices.set[0].mode;
        set_size = data.choices.set.size() == 0 ? 0 : data.choices.set[0].size;
        return result;
    }

    Values values;
    Values sizes;  // of the elements
    SetMode mode = SetMode::REPETITION;
    std::uint32_t set_size = 0;
};

class DoS2 : public test::DdfBlock {};

TEST_F(GetS2Data, ReadsElementsOfOneOrMoreValues) {
    EXPECT_EQ(read("(-8 .5 [60 64'67, 72:76:79 / 80] .5 1'2) x"), 0);
    EXPECT_EQ(rest, " x");
    EXPECT_EQ(values, Values({60, 64, 67, 72, 76, 79, 80, 1, 2}));
    EXPECT_EQ(sizes, Values({1, 2, 3, 1, 2}));
    EXPECT_EQ(set_size, 4U);
}

TEST_F(GetS2Data, ChordMarksAreOptional) {
    EXPECT_EQ(read("(-8 1 [c4e4g4 d4])", CODE_NO), 0);
    EXPECT_EQ(values, Values({48, 52, 55, 50}));
    EXPECT_EQ(sizes, Values({3, 1}));
    EXPECT_EQ(read("(-8 1 [60-64 1+2.5.5])"), 0);
    EXPECT_EQ(values, Values({60, -64, 1, 2.5F, 0.5F}));
    EXPECT_EQ(sizes, Values({2, 3}));
}

TEST_F(GetS2Data, NoBlankStandsInsideAnElement) {
    EXPECT_EQ(read("(-8 1 [60' 64])"), error::BAD_BRACKET_VALUE);
    EXPECT_EQ(rest, " 64])");
    EXPECT_EQ(read("(-8 1 [60 '64])"), error::BAD_BRACKET_VALUE);
    EXPECT_EQ(rest, "'64])");
    EXPECT_EQ(read("(-8 1 60')"), error::MISSING_VALUE);
    EXPECT_EQ(read("(-8 1 [60''64])"), error::BAD_BRACKET_VALUE);
}

TEST_F(GetS2Data, ModeMarksMayHaveBlanksAround) {
    for (const char* text : {"(-8 1*[1 2])", "(-8 1 * [1 2])", "(-8 1 *[1 2])"}) {
        EXPECT_EQ(read(text), 0) << text;
        EXPECT_EQ(mode, SetMode::NO_REPETITION);
    }
    for (const char* text : {"(-8 1x[1 2])", "(-8 1 x [1 2])", "(-8 1 x[1 2])"}) {
        EXPECT_EQ(read(text), 0) << text;
        EXPECT_EQ(mode, SetMode::NO_IMMEDIATE_REPETITION);
    }
}

TEST_F(GetS2Data, ASetOfOneElementAlwaysHasModeZero) {
    EXPECT_EQ(read("(-8 1 x 60'64)"), 0);
    EXPECT_EQ(mode, SetMode::REPETITION);
    EXPECT_EQ(read("(-8 1 * [60'64'67])"), 0);
    EXPECT_EQ(mode, SetMode::REPETITION);
}

TEST_F(GetS2Data, EmptyBracketsAreError97Here) {
    EXPECT_EQ(read("(-8 1 [])"), error::NOTHING_ENTERED);
    EXPECT_EQ(read("(-8 1 [ /* none */ ])"), error::NOTHING_ENTERED);
}

TEST_F(GetS2Data, BelowP4IsError62BeforeTheParenthesisIsRead) {
    for (const int pfield : {2, 3}) {
        begin_statement(pfield);
        EXPECT_EQ(read("foo"), error::S2_BELOW_P4);
        EXPECT_EQ(rest, "foo");
    }
}

TEST_F(GetS2Data, BadValues) {
    EXPECT_EQ(read("(-8 1 [60 foo])"), error::BAD_BRACKET_VALUE);
    EXPECT_EQ(rest, "foo])");
    EXPECT_EQ(read("(-8 1 [60foo])"), error::BAD_BRACKET_VALUE);
    EXPECT_EQ(rest, "foo])");
    EXPECT_EQ(read("(-8 1 foo)"), error::MISSING_VALUE);
    EXPECT_EQ(read("(-8 1 60foo)"), error::MISSING_VALUE);
    EXPECT_EQ(read("(-8 1 [60)"), error::BAD_BRACKET_VALUE);
    EXPECT_EQ(read("(-8 foo)"), error::MISSING_WEIGHT);
    EXPECT_EQ(read("(-8 .5 60)"), error::BAD_WEIGHT_SUM);
    EXPECT_EQ(rest, "");
}

TEST_F(GetS2Data, ASetHasAtMost128Elements) {
    std::string text = "(-8 1 [";
    for (int i = 0; i < 128; ++i) text += "1'2 ";
    EXPECT_EQ(read(text + "])"), 0);
    EXPECT_EQ(set_size, 128U);
    EXPECT_EQ(values.size(), 256U);
    EXPECT_EQ(read(text + "3])"), error::BAD_BRACKET_VALUE);
    EXPECT_EQ(rest, "3])");
}

TEST_F(GetS2Data, AnElementMayHaveAnyNumberOfValues) {
    std::string text = "(-8 1 60";
    for (int i = 0; i < 1000; ++i) text += "'1";
    EXPECT_EQ(read(text + ")"), 0);
    EXPECT_EQ(sizes, Values({1001}));
}

TEST_F(GetS2Data, CutOffBehindEachToken) {
    const char* tokens[] = {"(", "4 ", "1", "*", "[", "60", "'", "64", " ", "]"};
    const int errors[] = {error::DDF_WITHOUT_PARENTHESIS, error::BAD_DDF_TIME,      error::MISSING_WEIGHT,
                          error::MISSING_VALUE,           error::MISSING_VALUE,     error::BAD_BRACKET_VALUE,
                          error::BAD_BRACKET_VALUE,       error::BAD_BRACKET_VALUE, error::BAD_BRACKET_VALUE,
                          error::BAD_BRACKET_VALUE,       error::MISSING_WEIGHT};
    std::string text;
    for (std::size_t i = 0; i < std::size(errors); ++i) {
        for (const char* end : {"", "\n", "\n}\n"}) EXPECT_EQ(read(text + end), errors[i]) << text << end;
        if (i < std::size(tokens)) text += tokens[i];
    }
}

TEST_F(GetS2Data, OutOfMemoryIsAnErrorFlagsIncluded) {
    int failures = 0;
    for (;; ++failures) {
        ScoreText score("(8 .5 * [1 2'3] .5 * [4 5])");
        const int open = test::allocations_open;
        allocations_left = failures;
        int result = 0;
        {
            S2Data data;
            result = get_S2_data(data, score.reader);
        }
        allocations_left = ANY_NUMBER;
        EXPECT_EQ(test::allocations_open, open);
        if (result == 0) break;
        ASSERT_EQ(result, error::OUT_OF_MEMORY);
    }
    EXPECT_EQ(failures, 8);  // weights, places, values, elements, choices, two sets of flags, sums
}

// Draws per event: sub-range, element, one deviation per value.
TEST_F(DoS2, ChordsAddFusedEvents) {
    begin_values(3);
    set_next_draws({0, 1, 0, 0, 0, 0, 0, 0, 3, 0, 0});
    EXPECT_EQ(run_S2("(T 1 [60 64'67])"), 0);
    EXPECT_EQ(column(4), Values({64, 67, 60, 64, 67}));
    EXPECT_EQ(codes(), Values({0, 1, 0, 0, 1}));
    EXPECT_EQ(column(2), Values({0, 0, 1, 2, 2}));
    EXPECT_EQ(draws_left(), 0);
    EXPECT_EQ(EVENTS, 5U);
    EXPECT_EQ(EVENT_NO, 5);
    EXPECT_FALSE(statement.block_full);
}

TEST_F(DoS2, OutOfEventsOrOfQueuedValues) {
    begin_values(2);
    event_nodes = MAX_EVENTS;
    EXPECT_EQ(run_S2("(T 1 [60'64])"), error::OUT_OF_MEMORY);
    EXPECT_EQ(column(4), Values({60, 0}));

    FreeListNodes(note_list);
    begin_values(2);
    IN_LOOP = 1;
    queued_values = MAX_QUEUED;
    EXPECT_EQ(run_S2("(T 1 [60])"), error::OUT_OF_MEMORY);
    EXPECT_EQ(column(4), Values({60, 0}));
}

// n is 2 elements whatever their size; EVENTS and EVENT_NO rise together.
TEST_F(DoS2, RaisesEventsAndEventNoPerExtraWhileNWasFixedBefore) {
    begin_values(4);
    EXPECT_EQ(run_S2("(-2 1 60'64'67)"), 0);
    EXPECT_EQ(EVENTS, 8U);
    EXPECT_EQ(EVENT_NO, 6);
    EXPECT_EQ(column(4), Values({60, 64, 67, 60, 64, 67, 0, 0}));
}

TEST_F(DoS2, ValuesOfSeedOneWithoutImmediateRepetition) {
    begin_values(5);
    EXPECT_EQ(run_S2("(T 1 x [60 64'67 72])"), 0);
    EXPECT_EQ(column(4), Values({64, 67, 60, 72, 64, 67, 60}));
    EXPECT_EQ(draws(), 19);
}

TEST_F(DoS2, EachSubRangeTakesItsOwnTurns) {
    begin_values(4);
    set_next_draws({DRAW_ZERO, 0, 0, DRAW_ONE, 0, 0, DRAW_ZERO, 0, 1, 0, DRAW_ONE, 0, 1, 0});
    EXPECT_EQ(run_S2("(T .5 * [1 2] .5 * [3 4])"), 0);
    EXPECT_EQ(column(4), Values({1, 3, 2, 4}));
    EXPECT_EQ(draws_left(), 0);
}

TEST_F(DoS2, SpanTakesTheEventsInside) {
    begin_values(6);
    EXPECT_EQ(run_S2("(2 1 1'2)"), 0);
    EXPECT_EQ(column(4), Values({1, 2, 1, 2, 1, 2, 0, 0, 0}));
}

TEST_F(DoS2, Warning14AsForTheOthers) {
    begin_values(3);
    EXPECT_EQ(run_S2("(8 1 1)"), 0);
    EXPECT_EQ(messages(),
              "\n\nWARNING: Line 1:Reached end of i-time of i-events, duration altered.\n(8 1 1)\n       ^\n"
              "Old duration =    8.00, New duration =    2.00\n");
}

TEST_F(DoS2, TruncationIsWarning11Once) {
    begin_values(3);
    EXPECT_EQ(run_S2("(-5 1 1'2)"), 0);
    EXPECT_TRUE(statement.block_full);
    EXPECT_EQ(EVENTS, 6U);
    EXPECT_EQ(messages(),
              "\n\nWARNING: Line 1:Reached end of i-time or i-events, DDF data truncated\n(-5 1 1'2)\n       "
              "   ^\n");
}

TEST_F(DoS2, NothingForACountOfNone) {
    begin_values(3);
    EXPECT_EQ(run_S2("(-.5 1 1'2)"), 0);
    EXPECT_EQ(EVENT_NO, 0);
    EXPECT_FALSE(statement.block_full);
    EXPECT_EQ(messages(), "");
}

// LAST_VAL is rounded, what is stored is not: 2.5 is the value of "2." and ".5"
// only in real input, so integer input is set behind the reader's back.
TEST_F(DoS2, StoresUnroundedEvenForIntegerInputAndRoundsLastVal) {
    begin_values(1);
    IN_TYPE = CODE_IN;
    LAST_VAL = 2.5F;  // "z"
    EXPECT_EQ(run_S2("(T 1 1'z)"), 0);
    EXPECT_EQ(column(4), Values({1, 2.5F}));
    EXPECT_EQ(LAST_VAL, 3.0F);
}

TEST_F(DoS2, LastValIsTheLastValueUndeviated) {
    begin_values(1);
    MAX_DEV = 0.5F;
    set_next_draws({0, 0, DRAW_ZERO, DRAW_ONE});
    EXPECT_EQ(run_S2("(T 1 60'64)"), 0);
    EXPECT_EQ(column(4), Values({45, 80}));
    EXPECT_EQ(LAST_VAL, 64.0F);
}

TEST_F(DoS2, QueuesUndeviatedWithTheFusedMark) {
    begin_values(2);
    IN_LOOP = 1;
    MAX_DEV2 = 0.5F;
    set_next_draws({0, 1, 0, 0, 0, 0, 0});
    EXPECT_EQ(run_S2("(T 1 [60 64'67])"), 0);
    EXPECT_EQ(queued(), Values({64, 0, 67, 1, 60, 0}));
}

TEST_F(DoS2, ClearsAPendingMarkForItsFirstValue) {
    begin_values(2);
    statement.cursor = note_list->next;
    EVENT_NO = 1;
    EVENTS = 3;
    IS_FUSED = 1;
    EXPECT_EQ(run_S2("(-1 1 60)"), 0);
    EXPECT_EQ(column(4), Values({0, 60}));
    EXPECT_EQ(codes(), Values({0, 0}));
}

TEST_F(DoS2, NegativeNotesDoNotTurnEventsIntoRests) {
    begin_values(1);
    IN_TYPE = CODE_NO;
    EXPECT_EQ(run_S2("(T 1 r)"), 0);
    EXPECT_EQ(column(4), Values({-1}));
    EXPECT_EQ(column(3), Values({1}));
}

}  // namespace
}  // namespace vorn
