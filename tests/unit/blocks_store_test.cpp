// The one place where a value of a list, a repeat or the fill is stored.

#include "blocks/store.h"

#include "blocks/command_codes.h"
#include "blocks_fixture.h"
#include "output/tempo_map.h"
#include "support/draws.h"

namespace vorn::test {
namespace {

class StoreValue : public BlockTest {
protected:
    // The statement of a p-field from 3 on, in a block of `count` events.
    void enter(int number, int count) {
        make_events(count, 5);
        P_NO = number;
        EVENT_NO = 0;
        statement.cursor = LUT = note_list;
    }
    // The statement of P2 in a block of so many beats, or minus the number of events.
    void enter_p2(float length) {
        MAX_PFIELDS = 5;
        P_NO = 2;
        ETIME = length;
        EVENTS = length < 0 ? static_cast<std::uint64_t>(-length) : 0;
    }
    int store(float value, ValueSource source, bool rest_negates = false) {
        return store_value(reader, statement, value, source, rest_negates);
    }
    void fuse() {
        IS_FUSED = 1;
        ++EVENTS;
    }
    Statement statement;
};

TEST_F(StoreValue, P2ZeroIsRefusedOnlyWhileEventsIsZero) {
    enter_p2(4);
    for (const ValueSource source : {ValueSource::DATA, ValueSource::QUEUE, ValueSource::REPEAT})
        EXPECT_EQ(store(0, source), 54);
    EXPECT_EQ(EVENT_NO, 0);
    EVENTS = 2;
    EXPECT_EQ(store(0, ValueSource::DATA), 0);
    EXPECT_EQ(store(0, ValueSource::REPEAT), 0);
    EXPECT_EQ(EVENT_NO, 2);
    EXPECT_EQ(pfield(2), "0 0");
}

TEST_F(StoreValue, P2ZeroSaidBeforeTheConversionIsTraced) {
    enter_p2(4);
    TEMPO = 99;
    EXPECT_EQ(store(0, ValueSource::DATA), 54);
    EXPECT_EQ(store(0, ValueSource::REPEAT), 54);
    EXPECT_EQ(TEMPO, 99);  // to_tempo has not been asked
}

TEST_F(StoreValue, P2QueuedZeroSaidBehindTheConversion) {
    enter_p2(4);
    TEMPO = 99;
    EXPECT_EQ(store(0, ValueSource::QUEUE), 54);
    EXPECT_EQ(TEMPO, 60);
}

TEST_F(StoreValue, P2CountsOneAndConverts) {
    enter_p2(4);
    TEMPO_LIST[0].start_tempo = TEMPO_LIST[0].end_tempo = 30;
    EXPECT_EQ(store(1, ValueSource::DATA), 0);
    EXPECT_EQ(store(1, ValueSource::REPEAT), 0);
    EXPECT_EQ(EVENT_NO, 2);
    EXPECT_EQ(EVENTS, 0U);
    EXPECT_EQ(pfield(2), "0 2");
    EXPECT_EQ(CBEATS, 2);
}

TEST_F(StoreValue, P3IsStoredByItsCode) {
    enter(3, 2);
    EXPECT_EQ(store(0.5F, ValueSource::DATA), 0);
    EXPECT_EQ(store(1003, ValueSource::REPEAT), 0);
    EXPECT_EQ(pfield(3), "0.5 3");
    EXPECT_EQ(EVENT_NO, 2);
}

TEST_F(StoreValue, P3FusionMarkRaisesEventsButCreatesNoEvent) {
    enter(3, 2);
    EXPECT_EQ(store(0.5F, ValueSource::DATA), 0);
    fuse();
    EXPECT_EQ(store(0.25F, ValueSource::DATA), 0);
    EXPECT_EQ(store(2, ValueSource::DATA), 0);  // wraps to the head
    EXPECT_EQ(EVENTS, 3U);
    EXPECT_EQ(EVENT_NO, 3);
    EXPECT_EQ(IS_FUSED, 1);
    EXPECT_EQ(pfield(3), "1 0.25");  // twice the duration that the first value left, 0.5
}

TEST_F(StoreValue, RepeatOfASingleValueUsesStorePfield) {
    enter(4, 3);
    PFACTOR = 2;
    EXPECT_EQ(store(60, ValueSource::DATA), 0);
    EXPECT_EQ(store(60, ValueSource::REPEAT), 0);
    EXPECT_EQ(pfield(4), "120 120 0");
    EXPECT_EQ(LUT, note_list->next->next);
    EXPECT_EQ(EVENT_NO, 2);
}

TEST_F(StoreValue, RepeatBehindAChordRepeatsTheWholeChord) {
    enter(4, 3);
    EXPECT_EQ(store(60, ValueSource::DATA), 0);
    fuse();
    EXPECT_EQ(store(64, ValueSource::DATA), 0);
    EXPECT_EQ(EVENT_NO, 2);
    EXPECT_EQ(EVENTS, 4U);
    EXPECT_EQ(store(64, ValueSource::REPEAT), 0);
    EXPECT_EQ(EVENT_NO, 4);  // the chord's two
    EXPECT_EQ(EVENTS, 5U);   // one more than there was
    EXPECT_EQ(events(4), "0 1 0 60, 0 1 1 64, 1 1 0 60, 1 1 1 64, 2 1 0 0");
}

TEST_F(StoreValue, RepeatBehindAFirstSingleValueIsNotAChord) {
    enter(4, 3);
    EXPECT_EQ(store(60, ValueSource::REPEAT), 0);  // LUT and cursor both at the tail
    EXPECT_EQ(events(4), "0 1 0 60, 1 1 0 0, 2 1 0 0");
}

TEST_F(StoreValue, FactorIsNotAppliedToChordCopies) {
    enter(4, 3);
    PFACTOR = 2;
    EXPECT_EQ(store(10, ValueSource::DATA), 0);
    fuse();
    EXPECT_EQ(store(11, ValueSource::DATA), 0);
    PFACTOR = 3;
    EXPECT_EQ(store(11, ValueSource::REPEAT), 0);
    EXPECT_EQ(pfield(4), "20 22 20 22 0");
}

TEST_F(StoreValue, QueuedValueIsNeverAChordRepeat) {
    enter(4, 3);
    EXPECT_EQ(store(60, ValueSource::DATA), 0);
    fuse();
    EXPECT_EQ(store(64, ValueSource::DATA), 0);
    EXPECT_EQ(store(67, ValueSource::QUEUE), 0);
    EXPECT_EQ(pfield(4), "60 64 67 0");
}

TEST_F(StoreValue, WholeSecondsAtTheTail) {
    enter(4, 2);
    note_list->start = 2.75F;
    note_list->next->dur = 0.5F;
    note_list->dur = 1.5F;
    EXPECT_EQ(store(60, ValueSource::DATA), 0);
    EXPECT_EQ(store(61, ValueSource::DATA), 0);
    fuse();
    EXPECT_EQ(store(64, ValueSource::DATA), 0);
    EXPECT_EQ(store(64, ValueSource::REPEAT), 0);  // 2 + 1 seconds, for 1 second
    EXPECT_EQ(events(4), "0 0.5 0 60, 2.75 1.5 0 61, 2.75 1.5 1 64, 3 1 0 61, 3 1 1 64");
}

TEST_F(StoreValue, DeviationIsDrawnOnEveryRepeat) {
    enter(4, 9);
    EXPECT_EQ(draws_taken(3, [this] { EXPECT_EQ(store(60, ValueSource::DATA), 0); }), 1);
    EXPECT_EQ(draws_taken(3, [this] { EXPECT_EQ(store(60, ValueSource::REPEAT), 0); }), 1);
    fuse();
    EXPECT_EQ(draws_taken(3, [this] { EXPECT_EQ(store(64, ValueSource::DATA), 0); }), 1);
    EXPECT_EQ(draws_taken(3, [this] { EXPECT_EQ(store(64, ValueSource::REPEAT), 0); }), 1);
    P_NO = 3;
    EXPECT_EQ(draws_taken(3, [this] { EXPECT_EQ(store(1, ValueSource::REPEAT), 0); }), 2);
    P_NO = 2;
    EXPECT_EQ(draws_taken(3, [this] { EXPECT_EQ(store(1, ValueSource::REPEAT), 0); }), 1);
}

TEST_F(StoreValue, NoteNameRestNegatesTheEventThatReceivesIt) {
    enter(4, 3);
    IN_TYPE = CODE_NO;
    EXPECT_EQ(store(48, ValueSource::DATA, true), 0);
    EXPECT_EQ(store(-1, ValueSource::DATA, true), 0);
    EXPECT_EQ(store(50, ValueSource::DATA, true), 0);
    EXPECT_EQ(events(4), "0 1 0 48, 1 -1 0 -1, 2 1 0 50");
}

TEST_F(StoreValue, FusedRestNegatesItsOwnEventOnly) {
    enter(4, 2);
    IN_TYPE = CODE_NO;
    EXPECT_EQ(store(48, ValueSource::DATA, true), 0);
    fuse();
    EXPECT_EQ(store(-1, ValueSource::DATA, true), 0);
    EXPECT_EQ(events(4), "0 1 0 48, 0 -1 1 -1, 1 1 0 0");
}

TEST_F(StoreValue, RestOfARestSoundsAgain) {
    enter(4, 1);
    IN_TYPE = CODE_NO;
    note_list->dur = -1;
    EXPECT_EQ(store(-1, ValueSource::DATA, true), 0);
    EXPECT_EQ(pfield(3), "1");
}

TEST_F(StoreValue, RestNegatesOnlyNoteNamesAndOnlyWhenAsked) {
    enter(4, 3);
    IN_TYPE = CODE_NO;
    EXPECT_EQ(store(-1, ValueSource::REPEAT, false), 0);
    IN_TYPE = CODE_OP;
    EXPECT_EQ(store(-1, ValueSource::DATA, true), 0);
    IN_TYPE = CODE_RE;
    EXPECT_EQ(store(-1, ValueSource::DATA, true), 0);
    EXPECT_EQ(pfield(3), "1 1 1");
}

TEST_F(StoreValue, RestOfARepeatedChordNegatesItsLastEvent) {
    enter(4, 3);
    IN_TYPE = CODE_NO;
    EXPECT_EQ(store(48, ValueSource::DATA, true), 0);
    fuse();
    EXPECT_EQ(store(-1, ValueSource::DATA, true), 0);
    EXPECT_EQ(store(-1, ValueSource::REPEAT, true), 0);
    EXPECT_EQ(events(4), "0 1 0 48, 0 -1 1 -1, 1 1 0 48, 1 -1 1 -1, 2 1 0 0");
}

TEST_F(StoreValue, NoMoreValuesThanABlockMayHaveEvents) {
    enter(4, 2);
    EVENTS = 2 * MAX_EVENTS;
    EVENT_NO = static_cast<std::int64_t>(MAX_EVENTS) - 1;
    EXPECT_EQ(store(1, ValueSource::DATA), 0);
    EXPECT_EQ(store(1, ValueSource::DATA), 32);
}

TEST_F(StoreValue, OutOfMemory) {
    enter(4, 2);
    EXPECT_EQ(store(60, ValueSource::DATA), 0);
    fuse();
    EXPECT_EQ(store(64, ValueSource::DATA), 0);
    event_nodes = MAX_EVENTS;
    EXPECT_EQ(store(64, ValueSource::REPEAT), 32);
    fuse();
    EXPECT_EQ(store(64, ValueSource::QUEUE), 32);
    P_NO = 2;
    EXPECT_EQ(store(1, ValueSource::DATA), 32);
    EXPECT_EQ(EVENT_NO, 2);  // what failed is not counted
}

TEST_F(StoreValue, RepeatsForeverByStandingBeats) {
    enter_p2(4);
    LAST_VAL = 0.5F;
    EXPECT_FALSE(repeats_forever());
    for (const float value : {0.0F, -1.0F}) {
        LAST_VAL = value;
        EXPECT_TRUE(repeats_forever()) << value;
    }
    LAST_VAL = 0.000005F;  // lost in single precision beside 240
    CBEATS = 240;
    EXPECT_TRUE(repeats_forever());
    EVENTS = 1;
    EXPECT_FALSE(repeats_forever());
}

}  // namespace
}  // namespace vorn::test
