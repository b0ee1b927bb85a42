#include "generators/ddf.h"

#include "input/errors.h"
#include "support/ddf_block.h"
#include "support/failing_allocations.h"

namespace vorn {
namespace {

using test::allocations_left;
using test::ANY_NUMBER;
using test::DRAW_HALF;
using test::DRAW_ONE;
using test::DRAW_ZERO;
using test::draws_left;
using test::set_next_draws;
using test::Values;

struct KindText {
    DdfKind kind;
    const char* text;
};

// One function of every kind for P4 in a block whose P2 and P3 are read.
constexpr KindText EVERY_KIND[] = {
    {DdfKind::RA, "(-5 .5 60 .5 [72 64])"},
    {DdfKind::RW, "(-5 .5 [0 10] .5 5 .5 1 1 1 1)"},
    {DdfKind::MO, "(-5 .5 1 2 .5 [3 4] 5)"},
    {DdfKind::SE, "(-5 .5 * [1 2 3] .5 x [4 5])"},
    {DdfKind::EX, "(-5 .5 p2 .5 [p3 * 2])"},
    {DdfKind::MS, "(-5 .5 [1 2] [8 9] .5 1 2)"},
    {DdfKind::HO, "(-5 60)"},
};

class DoDdf : public test::DdfBlock {
protected:
    // Lets the first allocation fail, then the second ..., until none does.
    void expect_failures_without_traces(const KindText& row) {
        for (int failures = 0;; ++failures) {
            reset_program();
            SUPRESS = 1;
            begin_values(10);
            const int open = test::allocations_open;
            allocations_left = failures;
            const int result = run(row.kind, row.text);
            allocations_left = ANY_NUMBER;
            EXPECT_EQ(test::allocations_open, open) << row.text;
            if (result == 0) {
                EXPECT_GE(failures, 2) << row.text;
                return;
            }
            ASSERT_EQ(result, error::OUT_OF_MEMORY) << row.text;
            ASSERT_EQ(EVENT_NO, 0);
        }
    }
};

TEST_F(DoDdf, StopsBehindItsClosingParenthesis) {
    for (const KindText& row : EVERY_KIND) {
        reset_program();
        begin_values(10);
        EXPECT_EQ(run(row.kind, row.text + std::string(" 60 }")), 0) << row.text;
        EXPECT_EQ(rest, " 60 }") << row.text;
        EXPECT_EQ(EVENT_NO, 5) << row.text;
        EXPECT_FALSE(statement.block_full);
    }
}

// The first number chooses the sub-range, the last deviates; P3 deviates twice.
TEST_F(DoDdf, DrawsPerEventOfEveryKind) {
    struct Row {
        DdfKind kind;
        const char* text;
        int draws;
    };
    const Row rows[] = {
        {DdfKind::RA, "(-1 1 60)", 3},         {DdfKind::RA, "(-1 1 [60 72])", 3},
        {DdfKind::RA, "(-1 1 [l 60 72])", 3},  {DdfKind::RA, "(-1 1 [h 60 72])", 3},
        {DdfKind::RA, "(-1 1 [t 60 72])", 4},  {DdfKind::RA, "(-1 1 [g 60 72])", 14},
        {DdfKind::RA, "(-1 1 [x 60 72])", 3},  {DdfKind::RA, "(-1 1 [b 60 72])", 4},
        {DdfKind::RW, "(-1 1 0 10 1 5)", 3},   {DdfKind::MO, "(-1 1 60 72)", 4},
        {DdfKind::MO, "(-1 1 [g 1 2] 3)", 15}, {DdfKind::SE, "(-1 1 60)", 3},
        {DdfKind::SE, "(-1 1 [1 2 3])", 3},    {DdfKind::SE, "(-1 1 * [1 2 3])", 3},
        {DdfKind::SE, "(-1 1 x [1 2 3])", 3},  {DdfKind::EX, "(-1 1 p2)", 2},
        {DdfKind::MS, "(-1 1 1 2)", 4},        {DdfKind::HO, "(-1 60)", 2},
    };
    for (const Row& row : rows) {
        for (const int pfield : {4, 3}) {
            reset_program();
            begin_values(2);
            begin_statement(pfield);
            SUPRESS = 1;
            EXPECT_EQ(run(row.kind, row.text), 0) << row.text;
            EXPECT_EQ(draws(), pfield == 3 ? row.draws + 1 : row.draws) << row.text << " in P" << pfield;
        }
    }
}

TEST_F(DoDdf, DrawsPerEventDoNotDependOnTheDeviation) {
    begin_values(3);
    MAX_DEV = 0.5F;
    MAX_DEV2 = 0.25F;
    EXPECT_EQ(run(DdfKind::HO, "(-3 60)"), 0);
    EXPECT_EQ(draws(), 6);
}

// 60 less and more (.1 + .1) / 2; seed 1 draws .39438292, .79844004, .19755137 for it.
TEST_F(DoDdf, DeviationIsDrawnOnceWithTheSum) {
    begin_values(3);
    MAX_DEV = 0.1F;
    MAX_DEV2 = 0.1F;
    EXPECT_EQ(run(DdfKind::HO, "(-3 60)"), 0);
    const Values values = column(4);
    const float expected[] = {60 + 12 * 0.39438292F - 6, 60 + 12 * 0.79844004F - 6,
                              60 + 12 * 0.19755137F - 6};
    for (std::size_t i = 0; i < 3; ++i) EXPECT_FLOAT_EQ(values[i], expected[i]);
    EXPECT_EQ(LAST_VAL, 60.0F);
}

TEST_F(DoDdf, WeightsAreCheckedBehindTheParenthesis) {
    begin_values(3);
    EXPECT_EQ(run(DdfKind::RA, "(-3 .5 60 .49999 72) x"), error::BAD_WEIGHT_SUM);
    EXPECT_EQ(rest, " x");
    EXPECT_EQ(run(DdfKind::RA, "(-3 .5 60 .499995 72)"), 0);
    for (const KindText row : {KindText{DdfKind::RW, "(-3 .9 0 1 .5 0)"},
                               {DdfKind::MO, "(-3 .9 0 1)"},
                               {DdfKind::SE, "(-3 .9 0)"},
                               {DdfKind::EX, "(-3 .9 p2)"},
                               {DdfKind::MS, "(-3 .9 0 1)"}}) {
        EXPECT_EQ(run(row.kind, row.text), error::BAD_WEIGHT_SUM) << row.text;
    }
}

TEST_F(DoDdf, SpanFillsTheEventsInside) {
    begin_values(6, 10);
    EXPECT_EQ(run(DdfKind::HO, "(2 1)"), 0);
    EXPECT_EQ(run(DdfKind::HO, "(0 2)"), 0);
    EXPECT_EQ(run(DdfKind::HO, "(.5 3)"), 0);
    EXPECT_EQ(column(4), Values({1, 1, 1, 2, 3, 0}));
}

TEST_F(DoDdf, NothingForACountOfNone) {
    begin_values(3);
    EXPECT_EQ(run(DdfKind::HO, "(-.9 60)"), 0);
    EXPECT_EQ(EVENT_NO, 0);
    EXPECT_EQ(draws(), 0);
    EXPECT_EQ(messages(), "");
    EXPECT_FALSE(statement.block_full);
}

TEST_F(DoDdf, Warning11OnlyIfTruncatedAndOnce) {
    begin_values(3);
    EXPECT_EQ(run(DdfKind::HO, "(-3 60)"), 0);
    EXPECT_EQ(messages(), "");
    EXPECT_FALSE(statement.block_full);
    EXPECT_EQ(run(DdfKind::HO, "(-7 61)"), 0);
    EXPECT_TRUE(statement.block_full);
    EXPECT_EQ(
        messages(),
        "\n\nWARNING: Line 1:Reached end of i-time or i-events, DDF data truncated\n(-7 61)\n       ^\n");
    EXPECT_EQ(column(4), Values({60, 60, 60}));
}

TEST_F(DoDdf, CountsBeyondAllEventsEnd) {
    begin_values(3);
    EXPECT_EQ(run(DdfKind::HO, "(-99999999999999999999999 60)"), 0);
    EXPECT_TRUE(statement.block_full);
    EXPECT_EQ(column(4), Values({60, 60, 60}));
}

TEST_F(DoDdf, IntegerInputIsRoundedBeforeTheDeviation) {
    begin_values(3);
    IN_TYPE = CODE_IN;
    MAX_DEV = 0.5F;
    set_next_draws({0, DRAW_HALF, DRAW_ONE, 0, DRAW_HALF, DRAW_HALF, 0, DRAW_ZERO, DRAW_ZERO});
    EXPECT_EQ(run(DdfKind::RA, "(-3 1 [1 4])"), 0);
    EXPECT_EQ(column(4), Values({3.75F, 3, 0.75F}));  // 2.5 is 3, and a quarter more; 1, and a quarter less
    EXPECT_EQ(LAST_VAL, 1.0F);
}

TEST_F(DoDdf, IntegerInputRoundsHalvesUp) {
    begin_values(4);
    IN_TYPE = CODE_IN;
    EXPECT_EQ(run(DdfKind::MO, "(-3 1 0 5)"), 0);
    EXPECT_EQ(run(DdfKind::EX, "(-1 1 [p2 - 5.5])"), 0);  // the event at second 3
    EXPECT_EQ(column(4), Values({0, 3, 5, -2}));
}

TEST_F(DoDdf, NotesAreRoundedBehindTheDeviationUnlessExact) {
    begin_values(2);
    IN_TYPE = CODE_NO;
    MAX_DEV = 0.5F;
    set_next_draws({0, DRAW_ONE, 0, DRAW_ONE});
    EXPECT_EQ(run(DdfKind::HO, "(-1 cs4)"), 0);
    NX = 1;
    EXPECT_EQ(run(DdfKind::HO, "(-1 cs4)"), 0);
    EXPECT_EQ(column(4), Values({61, 61.25F}));  // 49 and a quarter more
    EXPECT_EQ(LAST_VAL, 49.0F);
}

TEST_F(DoDdf, NegativeNotesDoNotTurnEventsIntoRests) {
    begin_values(2);
    IN_TYPE = CODE_NO;
    EXPECT_EQ(run(DdfKind::HO, "(-2 r)"), 0);
    EXPECT_EQ(column(4), Values({-1, -1}));
    EXPECT_EQ(column(3), Values({1, 1}));
}

TEST_F(DoDdf, FactorIsLaidOverWhatIsStored) {
    begin_values(2);
    PFACTOR = 2;
    IN_LOOP = 1;
    EXPECT_EQ(run(DdfKind::HO, "(-2 30)"), 0);
    EXPECT_EQ(column(4), Values({60, 60}));
    EXPECT_EQ(LAST_VAL, 30.0F);
    EXPECT_EQ(queued(), Values({30, 0, 30, 0}));
}

TEST_F(DoDdf, P3ValuesAreDurationsByTheirCodes) {
    begin_values(4);
    begin_statement(3);
    EXPECT_EQ(run(DdfKind::MO, "(-3 1 .5 1.5)"), 0);
    EXPECT_EQ(run(DdfKind::HO, "(-1 1002.5)"), 0);
    EXPECT_EQ(column(3), Values({0.5F, 1, 1.5F, 2.5F}));
    EXPECT_EQ(statement.cursor, note_list);
    EXPECT_EQ(WROTE_DATA, 1);
}

TEST_F(DoDdf, P3DeviatesTwice) {
    begin_values(1);
    begin_statement(3);
    MAX_DEV = 0.5F;
    MAX_DEV2 = 0.5F;
    set_next_draws({0, DRAW_ONE, DRAW_ZERO});
    EXPECT_EQ(run(DdfKind::HO, "(-1 1004)"), 0);
    EXPECT_EQ(column(3), Values({3.75F}));  // 4 to 5 by the first, 5 to 3.75 by the second
    EXPECT_EQ(draws_left(), 0);
}

// The mark is used up by the store, so the queue sees an unfused value.
TEST_F(DoDdf, QueuesAfterTheStoreAndUndeviated) {
    begin_values(2);
    statement.cursor = note_list->next;
    EVENT_NO = 1;
    EVENTS = 3;
    IS_FUSED = 1;
    IN_LOOP = 1;
    MAX_DEV = 0.5F;
    EXPECT_EQ(run(DdfKind::HO, "(-2 60)"), 0);
    EXPECT_EQ(codes(), Values({0, 1, 0}));
    EXPECT_EQ(queued(), Values({60, 0, 60, 0}));
    EXPECT_NE(column(4)[1], 60.0F);
}

TEST_F(DoDdf, P3UsesNoMarkUpAndQueuesItWithEveryValue) {
    begin_values(3);
    begin_statement(3);
    IN_LOOP = 1;
    EXPECT_EQ(run(DdfKind::HO, "(-1 .5)"), 0);
    IS_FUSED = 1;
    EXPECT_EQ(run(DdfKind::HO, "(-2 2)"), 0);
    EXPECT_EQ(queued(), Values({0.5F, 0, 2, 1, 2, 1}));
    EXPECT_EQ(IS_FUSED, 1);
}

TEST_F(DoDdf, AMarkedValueOfP3CannotBeginTheQueue) {
    begin_values(3);
    begin_statement(3);
    IN_LOOP = 1;
    IS_FUSED = 1;
    EXPECT_EQ(run(DdfKind::HO, "(-2 2)"), error::OUT_OF_MEMORY);
    EXPECT_EQ(queued(), Values());
}

TEST_F(DoDdf, QueuesNothingOutsideALoop) {
    begin_values(2);
    EXPECT_EQ(run(DdfKind::HO, "(-2 60)"), 0);
    EXPECT_EQ(queued(), Values());
}

TEST_F(DoDdf, APendingMarkFusesTheFirstValueOnly) {
    begin_values(3);
    EXPECT_EQ(run(DdfKind::HO, "(-1 60)"), 0);
    IS_FUSED = 1;
    ++EVENTS;
    EXPECT_EQ(run(DdfKind::HO, "(-3 64)"), 0);
    EXPECT_EQ(column(4), Values({60, 64, 64, 64}));
    EXPECT_EQ(codes(), Values({0, 1, 0, 0}));
    EXPECT_EQ(column(2), Values({0, 0, 1, 2}));
}

// Four of them share the events, the others have no weight.
TEST_F(DoDdf, TenThousandSubRanges) {
    std::string text = "(-4";
    for (int i = 0; i < 10000; ++i) {
        const bool chosen = i == 0 || i == 2500 || i == 5000 || i == 9999;
        text += (chosen ? "\n.25 " : "\n0 ") + std::to_string(i);
    }
    begin_values(4);
    set_next_draws({DRAW_ZERO, 0, 0, DRAW_HALF, 0, 0, DRAW_HALF + 128, 0, 0, DRAW_ONE, 0, 0});
    EXPECT_EQ(run(DdfKind::RA, text + ")"), 0);
    EXPECT_EQ(column(4), Values({0, 2500, 5000, 9999}));
}

TEST_F(DoDdf, OutOfMemoryIsAnErrorAndLeavesNothingBehind) {
    for (const KindText& row : EVERY_KIND) expect_failures_without_traces(row);
}

TEST_F(DoDdf, ASingleAllocationThatFailsIsNotPassedOver) {
    test::fails_once = true;
    for (const KindText& row : EVERY_KIND) expect_failures_without_traces(row);
    test::fails_once = false;
}

TEST_F(DoDdf, ErrorsLeaveNothingBehind) {
    begin_values(10);
    const int open = test::allocations_open;
    EXPECT_EQ(run(DdfKind::SE, "(-3 .5 * [1 2] .5 * [3 foo])"), error::BAD_BRACKET_VALUE);
    EXPECT_EQ(run(DdfKind::MS, "(-3 .5 [1 2] 3)"), error::BAD_WEIGHT_SUM);
    EXPECT_EQ(run(DdfKind::EX, "(-3 1 [p4])"), error::BAD_PFIELD_REFERENCE);
    begin_starts(8);
    EXPECT_EQ(run(DdfKind::SE, "(8 1 * [1 2])"), 0);
    EXPECT_EQ(run(DdfKind::RA, "(8 .5 1 .5 0)"), error::ZERO_INTERVAL_IN_DDF);
    EXPECT_EQ(test::allocations_open, open);
}

TEST_F(DoDdf, AnUnknownKindIsAnInvalidCommand) {
    begin_values(1);
    EXPECT_EQ(run(static_cast<DdfKind>(99), "(-1 1 60)"), error::INVALID_COMMAND);
}

}  // namespace
}  // namespace vorn
