// What a p-field does when its data end before the block is full.

#include "blocks/fill.h"

#include "blocks/command_codes.h"
#include "blocks/store.h"
#include "blocks_fixture.h"
#include "output/tempo_map.h"
#include "support/draws.h"

namespace vorn::test {
namespace {

class Fill : public BlockTest {
protected:
    // A block of so many beats, or minus the number of events, before P2.
    static void enter_block(float length) {
        MAX_PFIELDS = 4;
        ASSERT_TRUE(allocate_output_settings());
        ETIME = length;
        EVENTS = length < 0 ? static_cast<std::uint64_t>(-length) : 0;
    }
};

TEST_F(Fill, HoldsTheLastValue) {
    make_events(5, 4);
    EXPECT_EQ(run_statement(4, "60 62 64"), 0);
    EXPECT_EQ(pfield(4), "60 62 64 64 64");
    EXPECT_EQ(EVENT_NO, 5);
    EXPECT_EQ(run_statement(3, "2 .5"), 0);
    EXPECT_EQ(pfield(3), "2 0.5 0.5 0.5 0.5");
}

TEST_F(Fill, LeavesAFullBlockAlone) {
    make_events(2, 4);
    P_NO = 4;
    EVENT_NO = 2;
    Statement statement;
    statement.cursor = LUT = note_list;
    EXPECT_EQ(fill_to_end(reader, statement), 0);
    EXPECT_EQ(EVENT_NO, 2);
    EXPECT_EQ(pfield(4), "0 0");
}

TEST_F(Fill, P2InsertsEventsUntilTheBeatsAreOver) {
    enter_block(4);
    EXPECT_EQ(run_statement(2, "1 .75"), 0);
    EXPECT_EQ(pfield(2), "0 1 1.75 2.5 3.25");
    EXPECT_EQ(CBEATS, 4);
}

TEST_F(Fill, P2InsertsEventsUntilTheirNumberIsReached) {
    enter_block(-4);
    EXPECT_EQ(run_statement(2, "2"), 0);
    EXPECT_EQ(pfield(2), "0 2 4 6");
    EXPECT_EQ(EVENT_NO, 4);
}

TEST_F(Fill, P2ZeroGivesSimultaneousEvents) {
    enter_block(-3);
    EXPECT_EQ(run_statement(2, "0"), 0);
    EXPECT_EQ(pfield(2), "0 0 0");
}

TEST_F(Fill, P2ConvertsEachRepeatAtItsOwnBeat) {
    enter_block(3);
    // 60 to 240 from beat 0 to beat 3 on a line: 60, 120, 180.
    TEMPO_LIST[0] = {0, 60, 3, 240, 0, 1};
    EXPECT_EQ(run_statement(2, "1"), 0);
    EXPECT_EQ(pfield(2), "0 1 1.5");
    EXPECT_EQ(note_list->dur, 0.333333343F);
}

TEST_F(Fill, LoopIsCycled) {
    make_events(6, 4);
    EXPECT_EQ(run_statement(4, "<1 2>"), 0);
    EXPECT_EQ(pfield(4), "1 2 1 2 1 2");
    EXPECT_EQ(run_statement(3, "<1 2 .5 >"), 0);
    EXPECT_EQ(pfield(3), "1 2 0.5 1 2 0.5");
}

TEST_F(Fill, LoopStartsOverAtItsHead) {
    make_events(6, 4);
    EXPECT_EQ(run_statement(4, "9 <1 2 3> 8"), 0);
    EXPECT_EQ(pfield(4), "9 1 2 3 8 1");
}

TEST_F(Fill, QueueSurvivesItsEndAndWinsOverLaterValues) {
    make_events(7, 4);
    EXPECT_EQ(run_statement(4, "<1 2> 8 <3> 9"), 0);
    EXPECT_EQ(pfield(4), "1 2 8 3 9 1 2");
}

TEST_F(Fill, OpenLoopIsCycledToo) {
    make_events(5, 4);
    EXPECT_EQ(run_statement(4, "<1 2"), 0);
    EXPECT_EQ(pfield(4), "1 2 1 2 1");
}

TEST_F(Fill, FusedGroupIsNeverCut) {
    make_events(4, 4);
    EXPECT_EQ(run_statement(4, "<60 64:67>"), 0);
    EXPECT_EQ(events(), "0 1 0 60, 1 1 0 64, 1 1 1 67, 2 1 0 60, 3 1 0 64, 3 1 1 67");
    EXPECT_EQ(EVENTS, 6U);
    EXPECT_EQ(EVENT_NO, 6);
}

TEST_F(Fill, FusedQueueEntryRaisesEventsInP2Too) {
    // 1 and 2 together, 1: four beats. Then 1 again, and 2 fused to it, which
    // makes EVENTS 1: the block of five events is full.
    enter_block(8);
    EXPECT_EQ(run_statement(2, "<1:2 1>"), 0);
    EXPECT_EQ(pfield(2), "0 0 2 3 3");
    EXPECT_EQ(EVENTS, 1U);
    EXPECT_EQ(EVENT_NO, 5);  // more than EVENTS
    EXPECT_EQ(CBEATS, 7);
}

TEST_F(Fill, FusedQueueEntryRaisesEventsInP3) {
    // The mark makes EVENTS 4, each of the two cycles that follow one more. The
    // six values go round the three events twice and multiply: 1*2, 2*1, 1*2.
    make_events(3, 4);
    EXPECT_EQ(run_statement(3, "<1 : 2>"), 0);
    EXPECT_EQ(EVENTS, 6U);
    EXPECT_EQ(EVENT_NO, 6);
    EXPECT_EQ(pfield(3), "2 2 2");
    EXPECT_EQ(note_list->next->next->next, note_list);  // still three
}

TEST_F(Fill, CursorOnAFusedValueRaisesEventsFirst) {
    make_events(2, 4);
    P_NO = 4;
    EVENT_NO = 3;
    Statement statement;
    ASSERT_TRUE(StoreInQ(statement.queue, 0, 60));
    statement.queue->code = 1;
    EXPECT_EQ(fill_to_end(reader, statement), 0);
    EXPECT_EQ(EVENTS, 3U);
    FreeQNodes(statement.queue);
}

TEST_F(Fill, HeldChordIsRepeatedWhole) {
    make_events(3, 4);
    EXPECT_EQ(run_statement(4, "60:64"), 0);
    EXPECT_EQ(events(), "0 1 0 60, 0 1 1 64, 1 1 0 60, 1 1 1 64, 2 1 0 60, 2 1 1 64");
    EXPECT_EQ(EVENTS, 6U);
    EXPECT_EQ(EVENT_NO, 6);
}

TEST_F(Fill, HeldRestNegatesEveryEvent) {
    make_events(4, 4);
    EXPECT_EQ(run_statement(4, "no c4 r"), 0);
    EXPECT_EQ(pfield(4), "48 -1 -1 -1");
    EXPECT_EQ(pfield(3), "1 -1 -1 -1");
}

TEST_F(Fill, QueuedRestNegatesToo) {
    make_events(4, 4);
    EXPECT_EQ(run_statement(4, "no <c4 r>"), 0);
    EXPECT_EQ(pfield(3), "1 -1 1 -1");
}

TEST_F(Fill, DeviationIsDrawnAnewForEachRepeat) {
    make_events(4, 4);
    MAX_DEV = 1;
    set_next_draws({DRAW_ONE, DRAW_ZERO, DRAW_HALF, DRAW_QUARTER});
    EXPECT_EQ(run_statement(4, "8"), 0);
    EXPECT_EQ(pfield(4), "12 4 8 6");
    EXPECT_EQ(LAST_VAL, 8);
    EXPECT_EQ(draws_taken(2, [this] { EXPECT_EQ(run_statement(3, "1"), 0); }), 8);
}

TEST_F(Fill, WarningOneForEachRepeat) {
    make_events(3, 4);
    EXPECT_EQ(run_statement(3, "300.5"), 0);
    EXPECT_EQ(messages(),
              "\nWARNING: P3 Duration < 0! (Event turned into rest...)"
              "\nWARNING: P3 Duration < 0! (Event turned into rest...)"
              "\nWARNING: P3 Duration < 0! (Event turned into rest...)");
}

TEST_F(Fill, ValueThatNeverReachesTheEndIsRefused) {
    for (const char* data : {"1 -1", "-.5", "2 -3"}) {
        reset_event_list();
        enter_block(4);
        EXPECT_EQ(run_statement(2, data), 54) << data;
    }
}

TEST_F(Fill, HeldValueIsConvertedBeforeItIsRefused) {
    enter_block(4);
    P_NO = 2;
    LAST_VAL = 0;
    TEMPO = 99;
    Statement statement;
    EXPECT_EQ(fill_to_end(reader, statement), 54);
    EXPECT_EQ(TEMPO, 60);
    P_NO = 3;  // a duration has no tempo
    TEMPO = 99;
    EXPECT_EQ(fill_to_end(reader, statement), 54);
    EXPECT_EQ(TEMPO, 99);
}

TEST_F(Fill, ValueThatIsLostBesideTheBeatIsRefused) {
    enter_block(4);
    SBEAT = STIME = 240;
    EXPECT_EQ(run_statement(2, "1 .000005"), 54);
    EXPECT_EQ(pfield(2), "240 241");  // at 241 time stands still at once
}

TEST_F(Fill, CycleThatNeverReachesTheEndIsRefused) {
    for (const char* data : {"<1 -1>", "<1 -2>", "<3 -3>"}) {
        reset_event_list();
        enter_block(4);
        EXPECT_EQ(run_statement(2, data), 54) << data;
    }
}

TEST_F(Fill, CycleThatReachesTheEndOnItsWayIsFine) {
    enter_block(4);
    EXPECT_EQ(run_statement(2, "<3 -1>"), 0);
    EXPECT_EQ(pfield(2), "0 3 4");
    reset_event_list();
    enter_block(4);
    EXPECT_EQ(run_statement(2, "<3 -3> 1.5"), 0);  // 3, 0, 1.5, then 4.5
    EXPECT_EQ(pfield(2), "0 3 6 7.5");
}

TEST_F(Fill, QueuedZeroIsRefusedWhileEventsIsZero) {
    // Only a queue that was filled while EVENTS was not 0 holds one.
    enter_block(4);
    P_NO = 2;
    Statement statement;
    ASSERT_TRUE(StoreInQ(statement.queue, 0, 0));
    EXPECT_EQ(fill_to_end(reader, statement), 54);
    FreeQNodes(statement.queue);
}

TEST_F(Fill, OutOfMemory) {
    enter_block(4);
    event_nodes = MAX_EVENTS - 2;
    EXPECT_EQ(run_statement(2, "1"), 32);
    EXPECT_EQ(pfield(2), "0 1");
}

}  // namespace
}  // namespace vorn::test
