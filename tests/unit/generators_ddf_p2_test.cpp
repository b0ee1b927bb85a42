#include "generators/ddf_p2.h"

#include "input/errors.h"
#include "support/ddf_block.h"

namespace vorn {
namespace {

using test::DRAW_HALF;
using test::DRAW_ONE;
using test::DRAW_ZERO;
using test::draws_left;
using test::ScoreText;
using test::set_next_draws;
using test::Values;

class P2Functions : public test::DdfBlock {
protected:
    static void set_tempo(float tempo) { TEMPO_LIST[0].start_tempo = TEMPO_LIST[0].end_tempo = tempo; }

    static constexpr char TRUNCATED[] =
        "\n\nWARNING: Line 1:Reached end of i-time or i-events, DDF data truncated\n";
};

TEST_F(P2Functions, CountOfEventsMakesThatMany) {
    begin_starts(20);
    EXPECT_EQ(run(DdfKind::HO, "(-3 .5)"), 0);
    EXPECT_EQ(column(2), Values({0, 0.5F, 1}));
    EXPECT_EQ(beats(), Values({0, 0.5F, 1}));
    EXPECT_EQ(CBEATS, 1.5F);
    EXPECT_EQ(EVENT_NO, 3);
    EXPECT_EQ(run(DdfKind::HO, "(-1.9 1)"), 0);
    EXPECT_EQ(EVENT_NO, 4);
    EXPECT_EQ(run(DdfKind::HO, "(-.9 1)"), 0);
    EXPECT_EQ(EVENT_NO, 4);
    EXPECT_FALSE(statement.block_full);
}

TEST_F(P2Functions, SpanMakesEventsUntilItIsOver) {
    begin_starts(20);
    EXPECT_EQ(run(DdfKind::HO, "(4 1.5)"), 0);
    EXPECT_EQ(column(2), Values({0, 1.5F, 3}));
    EXPECT_EQ(CBEATS, 4.5F);
    EXPECT_EQ(run(DdfKind::HO, "(0 1)"), 0);
    EXPECT_EQ(EVENT_NO, 3);
}

// At tempo 120 four seconds are eight beats: eight events of one beat.
TEST_F(P2Functions, SpanInBeatsIsHeldAgainstElapsedSeconds) {
    begin_starts(20);
    set_tempo(120);
    EXPECT_EQ(run(DdfKind::HO, "(4 1)"), 0);
    EXPECT_EQ(EVENT_NO, 8);
    EXPECT_EQ(CBEATS, 8.0F);
    EXPECT_EQ(column(2), Values({0, 0.5F, 1, 1.5F, 2, 2.5F, 3, 3.5F}));
}

// A rest lets time pass by its magnitude, while the beat position goes back.
TEST_F(P2Functions, NegativeValuesCountByTheirMagnitude) {
    begin_starts(20);
    EXPECT_EQ(run(DdfKind::HO, "(2 1)"), 0);
    EXPECT_EQ(run(DdfKind::HO, "(1 -.5)"), 0);
    EXPECT_EQ(column(2), Values({0, 1, 2, 2.5F}));
    EXPECT_EQ(column(3), Values({1, 1, -0.5F, -0.5F}));
    EXPECT_EQ(CBEATS, 1.0F);
}

TEST_F(P2Functions, SpanEndsWithTheBlockAndOneWarning) {
    begin_starts(2);
    EXPECT_EQ(run(DdfKind::HO, "(10 1)"), 0);
    EXPECT_EQ(EVENT_NO, 2);
    EXPECT_TRUE(statement.block_full);
    EXPECT_EQ(messages(), std::string(TRUNCATED) + "(10 1)\n      ^\n");
}

// Four events too many, four warnings.
TEST_F(P2Functions, Warning11IsRepeatedWithNegativeTime) {
    begin_starts(-2);
    EXPECT_EQ(run(DdfKind::HO, "(-6 1)"), 0);
    EXPECT_EQ(EVENT_NO, 2);
    EXPECT_TRUE(statement.block_full);
    std::string expected;
    for (int i = 0; i < 4; ++i) expected += std::string(TRUNCATED) + "(-6 1)\n      ^\n";
    EXPECT_EQ(messages(), expected);
    EXPECT_EQ(draws(), 4);  // nothing is drawn for the events that are not made
}

TEST_F(P2Functions, RepetitionsThatNobodyHearsCostNothing) {
    begin_starts(-2);
    SUPRESS = 1;
    EXPECT_EQ(run(DdfKind::HO, "(-99999999999999999999 1)"), 0);
    EXPECT_EQ(EVENT_NO, 2);
    EXPECT_TRUE(statement.block_full);
    EXPECT_EQ(messages(), "");
}

// Sub-range, value, deviation; the value deviates, not the beat position.
TEST_F(P2Functions, DeviationFollowsTheConversion) {
    begin_starts(20);
    set_tempo(120);
    MAX_DEV = 0.25F;
    MAX_DEV2 = 0.25F;
    set_next_draws({0, DRAW_HALF, DRAW_ZERO, 0, DRAW_HALF, DRAW_ONE});
    EXPECT_EQ(run(DdfKind::RA, "(-2 1 [1 3])"), 0);
    EXPECT_EQ(column(3), Values({0.75F, 1.25F}));  // 1 second, a quarter less or more
    EXPECT_EQ(column(2), Values({0, 0.75F}));
    EXPECT_EQ(beats(), Values({0, 2}));
    EXPECT_EQ(CBEATS, 4.0F);
    EXPECT_EQ(LAST_VAL, 2.0F);
    EXPECT_EQ(draws_left(), 0);
}

// Sub-range, what the kind draws, deviation.
TEST_F(P2Functions, DrawsPerEventOfEveryKind) {
    struct Row {
        DdfKind kind;
        const char* text;
        int draws;
    };
    const Row rows[] = {
        {DdfKind::RA, "(-1 1 60)", 3},          {DdfKind::RA, "(-1 1 [g 1 2])", 14},
        {DdfKind::RW, "(-1 1 0 10 1 5)", 3},    {DdfKind::MO, "(-1 1 1 2)", 4},
        {DdfKind::SE, "(-1 1 * [1 2 3])", 3},   {DdfKind::SE, "(-1 1 x [1 2 3])", 3},
        {DdfKind::MS, "(-1 1 [1 2] [3 4])", 4}, {DdfKind::HO, "(-1 1)", 2},
    };
    for (const Row& row : rows) {
        reset_program();
        begin_starts(-10);
        EXPECT_EQ(run(row.kind, row.text), 0) << row.text;
        EXPECT_EQ(draws(), row.draws) << row.text;
    }
}

// A quarter of a second away from 4 the undeviated seconds decide.
TEST_F(P2Functions, ElapsedTimeIsUndeviated) {
    begin_starts(20);
    MAX_DEV = 0.5F;
    set_next_draws({0, DRAW_ZERO, 0, DRAW_ZERO, 0, DRAW_ZERO, 0, DRAW_ZERO, 0, DRAW_ZERO});
    EXPECT_EQ(run(DdfKind::HO, "(4 1)"), 0);
    EXPECT_EQ(EVENT_NO, 4);
    EXPECT_EQ(column(2), Values({0, 0.75F, 1.5F, 2.25F}));
}

TEST_F(P2Functions, IntegerInputIsNotRounded) {
    begin_starts(20);
    IN_TYPE = CODE_IN;
    set_next_draws({0, DRAW_HALF, 0});
    EXPECT_EQ(run(DdfKind::RA, "(-1 1 [1 2])"), 0);
    EXPECT_EQ(column(3), Values({1.5F}));
    EXPECT_EQ(LAST_VAL, 1.5F);
}

TEST_F(P2Functions, ValuesAreQueuedUndeviatedInALoop) {
    begin_starts(20);
    IN_LOOP = 1;
    MAX_DEV = 0.5F;
    EXPECT_EQ(run(DdfKind::HO, "(-2 1.5)"), 0);
    EXPECT_EQ(queued(), Values({1.5F, 0, 1.5F, 0}));
}

TEST_F(P2Functions, AValueThatFailsMakesNoEvent) {
    begin_starts(20);
    Weights weights;
    ASSERT_TRUE(weights.weight.append(1));
    const ValueMaker maker = {
        -3, &weights, nullptr,
        [](void*, std::uint32_t, const Progress&, float&) -> int { return error::BAD_VALUE; }};
    const ScoreText text("p2");
    EXPECT_EQ(create_events(maker, text.reader, statement), error::BAD_VALUE);
    EXPECT_EQ(EVENT_NO, 0);
}

TEST_F(P2Functions, APendingMarkFusesTheFirstValue) {
    begin_starts(20);
    EXPECT_EQ(run(DdfKind::HO, "(-1 2)"), 0);
    IS_FUSED = 1;
    EXPECT_EQ(run(DdfKind::HO, "(-2 1)"), 0);
    EXPECT_EQ(column(2), Values({0, 0, 2}));
    EXPECT_EQ(codes(), Values({0, 1, 0}));
}

// 4 beats by curve e from 1 to 3: at second 0 the value 1, at 1 it is 1 + 2/16,
// at 2.125 it is 1 + 2 * .28222656, at 3.689453125 it is 1 + 2 * .85075402.
TEST_F(P2Functions, MotionOfASpanRunsByElapsedTime) {
    begin_starts(20);
    EXPECT_EQ(run(DdfKind::MO, "(4 1 e 1 3)"), 0);
    EXPECT_EQ(column(3), Values({1, 1.125F, 1.564453125F, 2.701508045F}));
    EXPECT_EQ(printed(), "");
}

TEST_F(P2Functions, MotionOfACountRunsByEvents) {
    begin_starts(-20);
    EXPECT_EQ(run(DdfKind::MO, "(-3 1 1 3)"), 0);
    EXPECT_EQ(column(3), Values({1, 2, 3}));
}

// The star's code is not understood here: the start value, then the end value.
TEST_F(P2Functions, StarredMotionJumpsToItsEnd) {
    begin_starts(20);
    EXPECT_EQ(run(DdfKind::MO, "(4 1 * 1 1.5)"), 0);
    EXPECT_EQ(column(3), Values({1, 1.5F, 1.5F}));
    EXPECT_EQ(printed(), "");
}

TEST_F(P2Functions, EveryKindThatIsAllowed) {
    begin_starts(-100);
    EXPECT_EQ(run(DdfKind::RA, "(-2 1 [1 2])"), 0);
    EXPECT_EQ(run(DdfKind::RW, "(-2 1 [1 2] .5 1)"), 0);
    EXPECT_EQ(run(DdfKind::MO, "(-2 1 [1 2] 3)"), 0);
    EXPECT_EQ(run(DdfKind::SE, "(-2 1 * [1 2])"), 0);
    EXPECT_EQ(run(DdfKind::MS, "(-2 1 [1 2] 3)"), 0);
    EXPECT_EQ(run(DdfKind::HO, "(-2 1)"), 0);
    EXPECT_EQ(EVENT_NO, 12);
    EXPECT_EQ(run(DdfKind::EX, "(-2 1 p3)"), error::BAD_PFIELD_REFERENCE);
    EXPECT_EQ(run_S2("(-2 1 3)"), error::S2_BELOW_P4);
}

// Zeros in a row make events at one time; 100,000 of them are taken for a mistake.
TEST_F(P2Functions, ASpanThatStandsStillIsError72) {
    begin_starts(20);
    EXPECT_EQ(run(DdfKind::HO, "(4 0)"), error::ZERO_INTERVAL_IN_DDF);
    EXPECT_EQ(EVENT_NO, 100000);
}

TEST_F(P2Functions, SingleZerosAreAllowedInASpan) {
    begin_starts(20);
    set_next_draws({0, DRAW_ZERO, 0, 0, 1, 0, 0, 0, 0, 0, 1, 0});
    EXPECT_EQ(run(DdfKind::SE, "(2 1 [0 1])"), 0);
    EXPECT_EQ(column(3), Values({0, 1, 0, 1}));
    EXPECT_EQ(column(2), Values({0, 0, 1, 1}));
}

// The count begins anew with every event that moves either clock.
TEST_F(P2Functions, OnlyZerosInARowCount) {
    begin_starts(-300000);
    srand(1);
    EXPECT_EQ(run(DdfKind::SE, "(60000 1 [0 0 0 1])"), 0);
    EXPECT_GT(EVENT_NO, 200000);
}

TEST_F(P2Functions, ACountOfZerosIsAllowed) {
    begin_starts(-120000);
    EXPECT_EQ(run(DdfKind::HO, "(T 0)"), 0);
    EXPECT_EQ(EVENT_NO, 120000);
}

}  // namespace
}  // namespace vorn
