// When a block is full, and how one value becomes an event, a duration or a
// p-field value.

#include "blocks/timing.h"

#include <limits>

#include "blocks/command_codes.h"
#include "blocks_fixture.h"
#include "generators/random.h"
#include "output/tempo_map.h"
#include "support/draws.h"

namespace vorn::test {
namespace {

class Timing : public BlockTest {};

constexpr const char* DURATION_WARNING = "\nWARNING: P3 Duration < 0! (Event turned into rest...)";

// --- out_of_time ---

TEST_F(Timing, BeatModeIsFullAtTheEndOfItsBeats) {
    EVENTS = 0;
    SBEAT = 2;
    ETIME = 4;
    for (const float beat : {2.0F, 5.0F, 5.999999F}) {
        CBEATS = beat;
        EXPECT_FALSE(out_of_time()) << beat;
    }
    for (const float beat : {6.0F, 6.5F}) {
        CBEATS = beat;
        EXPECT_TRUE(out_of_time()) << beat;
    }
}

TEST_F(Timing, EventModeIsFullAtTheNumberOfEvents) {
    EVENTS = 3;
    CBEATS = 1000;
    EVENT_NO = 2;
    EXPECT_FALSE(out_of_time());
    EVENT_NO = 3;
    EXPECT_TRUE(out_of_time());
    EVENT_NO = 4;
    EXPECT_TRUE(out_of_time());
}

// --- extract_p3val ---

struct P3Split {
    float value;
    int code;
    float remainder;
};

constexpr P3Split P3_SPLITS[] = {
    {0, 0, 0},     {0.5F, 0, 0.5F},      {199, 0, 199},         {199.5F, 0, 199.5F},   {200, 200, 0},
    {201, 200, 1}, {299.5F, 200, 99.5F}, {300, 300, 0},         {399, 300, 99},        {400, 400, 0},
    {402, 400, 2}, {999, 400, 599},      {1000, 1000, 0},       {1002.5F, 1000, 2.5F}, {5000, 1000, 4000},
    {-1, 0, -1},   {-201, 200, -1},      {-300.5F, 300, -0.5F}, {-402, 400, -2},       {-1001, 1000, -1},
};

TEST_F(Timing, P3CodesByMagnitudeAndSignToTheRemainder) {
    for (const P3Split& split : P3_SPLITS) {
        int code = -1;
        EXPECT_EQ(extract_p3val(split.value, code), split.remainder) << split.value;
        EXPECT_EQ(code, split.code) << split.value;
    }
}

// --- store_p3 ---

class StoreP3 : public BlockTest {
protected:
    // The duration that a value gives to an event that starts `interval` seconds before the next.
    float duration(float interval, float value) {
        reset_event_list();
        make_events(2, 4);
        note_list->next->dur = interval;
        ListNode* cursor = note_list;
        WROTE_DATA = 0;
        store_p3(reader, cursor, value);
        EXPECT_EQ(cursor, note_list->next);
        EXPECT_EQ(WROTE_DATA, 1);
        return cursor->dur;
    }
};

TEST_F(StoreP3, BelowTwoHundredIsAFractionOfTheInterval) {
    EXPECT_EQ(duration(1, 1), 1);
    EXPECT_EQ(duration(3, 0.5F), 1.5F);
    EXPECT_EQ(duration(3, 0), 0);
    EXPECT_EQ(duration(0.5F, 199), 99.5F);
    EXPECT_EQ(messages(), "");
}

TEST_F(StoreP3, TwoHundredAddsSeconds) {
    EXPECT_EQ(duration(1, 201), 2);
    EXPECT_EQ(duration(3, 200), 3);
    EXPECT_EQ(duration(3, 299.5F), 102.5F);
    EXPECT_EQ(duration(3, -201), 2);  // the sign goes to the remainder
}

TEST_F(StoreP3, ThreeHundredSubtractsSeconds) {
    EXPECT_EQ(duration(1, 303), -2);
    EXPECT_EQ(duration(1, 300.5F), 0.5F);
    EXPECT_EQ(duration(2, -301), 3);
}

TEST_F(StoreP3, WarningOneIsInverted) {
    EXPECT_EQ(duration(1, 303), -2);
    EXPECT_EQ(messages(), "");
    EXPECT_EQ(duration(1, 301), 0);
    EXPECT_EQ(messages(), "");
    EXPECT_EQ(duration(1, 300.5F), 0.5F);
    EXPECT_EQ(messages(), DURATION_WARNING);
    EXPECT_EQ(duration(2, -301), 3);
    EXPECT_EQ(messages(), DURATION_WARNING);
}

TEST_F(StoreP3, WarningOneIsNotForOtherCodes) {
    for (const float value : {-1.0F, -205.0F, -402.0F, -1001.0F}) EXPECT_LT(duration(1, value), 0) << value;
    EXPECT_EQ(messages(), "");
}

TEST_F(StoreP3, FourHundredIsBeatsAtTheTempoOfTheLastConversion) {
    EXPECT_EQ(duration(7, 402), 2);
    TEMPO = 120;
    EXPECT_EQ(duration(7, 402), 1);
    EXPECT_EQ(duration(7, 400.5F), 0.25F);
    EXPECT_EQ(duration(7, -402), -1);
    TEMPO = 90;
    EXPECT_EQ(duration(7, 401), 0.666666687F);
    // A map that says otherwise at this beat is not asked.
    TEMPO_LIST[0].start_tempo = TEMPO_LIST[0].end_tempo = 240;
    EXPECT_EQ(duration(7, 401), 0.666666687F);
}

TEST_F(StoreP3, OneThousandIsSeconds) {
    TEMPO = 120;
    EXPECT_EQ(duration(7, 1002.5F), 2.5F);
    EXPECT_EQ(duration(7, 1000), 0);
    EXPECT_EQ(duration(7, -1001), -1);
}

TEST_F(StoreP3, IntervalZeroGivesRestsByRelativeCodes) {
    EXPECT_EQ(duration(0, 1), 0);
    EXPECT_EQ(duration(0, 302), -2);
    EXPECT_EQ(duration(0, 402), 2);
    EXPECT_EQ(duration(0, 1002), 2);
}

TEST_F(StoreP3, FactorMultipliesEveryCode) {
    PFACTOR = 2;
    EXPECT_EQ(duration(3, 0.5F), 3);
    EXPECT_EQ(duration(3, 201), 8);
    EXPECT_EQ(duration(3, 301), 4);
    EXPECT_EQ(duration(3, 402), 4);
    EXPECT_EQ(duration(3, 1002), 4);
}

TEST_F(StoreP3, TwoDeviationsTwoDrawsOnTheRemainder) {
    // n = 4: 4 + 1 * 2 - 1 = 5 by the block's, then 5 + 0 * 5 - 2.5 = 2.5 by the p-field's.
    MAX_DEV = 0.5F;
    MAX_DEV2 = 1;
    set_next_draws({DRAW_ONE, DRAW_ZERO, DRAW_HALF});
    EXPECT_EQ(duration(1, 204), 3.5F);
    EXPECT_EQ(draws_left(), 1);
}

TEST_F(StoreP3, DrawsTwiceWithoutDeviation) {
    EXPECT_EQ(draws_taken(5, [this] { duration(1, 1); }), 2);
}

TEST_F(StoreP3, WalksOverTheEventsFromTheHead) {
    make_events(3, 4);
    ListNode* cursor = note_list;
    for (const float value : {0.25F, 1002.0F, 1.0F}) store_p3(reader, cursor, value);
    EXPECT_EQ(cursor, note_list);
    EXPECT_EQ(pfield(3), "0.25 2 1");
}

// --- store_p2 ---

TEST_F(Timing, P2ConvertsAtTheBeatAndMovesOn) {
    MAX_PFIELDS = 4;
    STIME = 2;
    CBEATS = 3;
    TEMPO_LIST[0].start_tempo = TEMPO_LIST[0].end_tempo = 120;
    float seconds = 0;
    EXPECT_EQ(store_p2(1, seconds), 0);
    EXPECT_EQ(seconds, 0.5F);
    EXPECT_EQ(CBEATS, 4);
    EXPECT_EQ(TEMPO, 120);
    EXPECT_EQ(WROTE_DATA, 1);
    EXPECT_EQ(store_p2(-2, seconds), 0);
    EXPECT_EQ(CBEATS, 2);  // by the signed value
    EXPECT_EQ(events(), "2 0.5 0 0, 2.5 -1 0 0");
    EXPECT_EQ(note_list->next->beat, 3);
    EXPECT_EQ(note_list->beat, 4);
}

TEST_F(Timing, P2DeviatesOnceByBothDeviations) {
    MAX_PFIELDS = 4;
    MAX_DEV = 0.5F;
    MAX_DEV2 = 0.25F;
    float seconds = 0;
    set_next_draws({DRAW_ONE, DRAW_HALF});
    EXPECT_EQ(store_p2(4, seconds), 0);  // 4 + 3 - 1.5
    EXPECT_EQ(draws_left(), 1);
    EXPECT_EQ(seconds, 4);
    EXPECT_EQ(CBEATS, 4);
    EXPECT_EQ(events(), "0 5.5 0 0");
}

TEST_F(Timing, FusedP2GrowsTheBeatsAheadOfTheSeconds) {
    MAX_PFIELDS = 4;
    float seconds = 0;
    EXPECT_EQ(store_p2(1, seconds), 0);
    IS_FUSED = 1;
    EXPECT_EQ(store_p2(2, seconds), 0);
    EXPECT_EQ(IS_FUSED, 0);
    EXPECT_EQ(store_p2(1, seconds), 0);
    EXPECT_EQ(events(), "0 1 0 0, 0 2 1 0, 2 1 0 0");
    EXPECT_EQ(note_list->beat, 3);
    EXPECT_EQ(CBEATS, 4);
}

TEST_F(Timing, P2OutOfMemory) {
    MAX_PFIELDS = 4;
    event_nodes = MAX_EVENTS;
    float seconds = 0;
    EXPECT_EQ(store_p2(1, seconds), 32);
    EXPECT_EQ(WROTE_DATA, 0);
    EXPECT_EQ(CBEATS, 0);
}

TEST_F(Timing, P2OfABlockThatIsTooLongIsRefusedAtOnce) {
    MAX_PFIELDS = 128;
    EVENTS = MAX_VALUES / 128 + 1;
    float seconds = 0;
    EXPECT_EQ(store_p2(1, seconds), 32);
    EXPECT_EQ(note_list, nullptr);
    EVENTS = MAX_VALUES / 128;
    EXPECT_EQ(store_p2(1, seconds), 0);
}

// --- store_p4, adjust ---

class StoreP4 : public BlockTest {
protected:
    void SetUp() override {
        make_events(2, 4);
        P_NO = 4;
        statement.cursor = LUT = note_list;
    }
    Statement statement;
};

TEST_F(StoreP4, DeviatesRoundsAndMultipliesInThisOrder) {
    IN_TYPE = CODE_NO;
    MAX_DEV = 0.0625F;
    MAX_DEV2 = 0.0625F;
    PFACTOR = 0.5F;
    set_next_draws({DRAW_ONE, DRAW_EIGHTH});
    EXPECT_EQ(store_p4(statement, 60), 0);  // 60 + 7.5 - 3.75 = 63.75, rounded 64
    EXPECT_EQ(store_p4(statement, 60), 0);  // 60 + .9375 - 3.75 = 57.1875, rounded 57
    EXPECT_EQ(pfield(4), "32 28.5");
    EXPECT_EQ(draws_left(), 0);
    EXPECT_EQ(WROTE_DATA, 1);
}

TEST_F(StoreP4, FusedMarkAddsAnEventAndIsUsedUp) {
    EXPECT_EQ(store_p4(statement, 60), 0);
    IS_FUSED = 1;
    EXPECT_EQ(store_p4(statement, 64), 0);
    EXPECT_EQ(IS_FUSED, 0);
    EXPECT_EQ(events(), "0 1 0 60, 0 1 1 64, 1 1 0 0");
    EXPECT_EQ(LUT, note_list->next);
}

TEST_F(StoreP4, OutOfMemory) {
    IS_FUSED = 1;
    event_nodes = MAX_EVENTS;
    EXPECT_EQ(store_p4(statement, 64), 32);
    EXPECT_EQ(WROTE_DATA, 0);
}

TEST_F(Timing, AdjustRoundsOnlyPitchInputWithoutNX) {
    for (const int type : {CODE_NO, CODE_OP}) {
        IN_TYPE = type;
        NX = 0;
        EXPECT_EQ(adjust(48.5F), 49);
        EXPECT_EQ(adjust(48.25F), 48);
        EXPECT_EQ(adjust(-1.5F), -1);
        NX = 1;
        EXPECT_EQ(adjust(48.5F), 48.5F);
    }
    NX = 0;
    for (const int type : {CODE_IN, CODE_RE, CODE_DB, CODE_RH}) {
        IN_TYPE = type;
        EXPECT_EQ(adjust(48.5F), 48.5F) << type;
    }
}

}  // namespace
}  // namespace vorn::test
