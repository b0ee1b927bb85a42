#include "output/tempo_map.h"

#include <gtest/gtest.h>

#include <initializer_list>

#include "input/run_flags.h"
#include "support/message_capture.h"

namespace vorn {
namespace {

constexpr float STRAIGHT = 0, SQUARE = 1, ROOT = 2, USER = 3, SINE = 4, TWICE_LESS_SINE = 5;

class TempoMap : public testing::Test {
protected:
    TempoMap() { reset_all(); }
    ~TempoMap() override { reset_all(); }

    static void reset_all() {
        reset_tempo_map();
        reset_run_flags();
    }

    static void set_tempos(std::initializer_list<TempoDef> entries) {
        TOT_TEMPOS = 0;
        for (const TempoDef& entry : entries) TEMPO_LIST[TOT_TEMPOS++] = entry;
    }

    // One entry, 60 to 120 between the beats 0 and 8.
    static float tempo_at(float beat, float curve, float exponent = 1.0f) {
        set_tempos({{0, 60, 8, 120, curve, exponent}});
        return find_tempo(beat);
    }
};

constexpr TempoDef flat(float start_time, float end_time, float tempo) {
    return {start_time, tempo, end_time, tempo, STRAIGHT, 1};
}

TEST_F(TempoMap, EntryZeroHasCurveTypeOneAndValueZero) {
    EXPECT_EQ(TOT_TEMPOS, 1);
    EXPECT_EQ(TEMPO, 60.0f);
    EXPECT_EQ(TEMPO_LIST[0].start_time, 0.0f);
    EXPECT_EQ(TEMPO_LIST[0].start_tempo, 60.0f);
    EXPECT_EQ(TEMPO_LIST[0].end_time, 0.0f);
    EXPECT_EQ(TEMPO_LIST[0].end_tempo, 60.0f);
    EXPECT_EQ(TEMPO_LIST[0].curve_type, 1.0f);
    EXPECT_EQ(TEMPO_LIST[0].curve_value, 0.0f);
}

TEST_F(TempoMap, DefaultTempoIsSixtyEverywhere) {
    for (const float beat : {0.0f, 0.5f, 1000.0f, 1e6f}) {
        EXPECT_EQ(find_tempo(beat), 60.0f);
        EXPECT_EQ(to_tempo(1.5f, beat), 1.5f);
    }
}

TEST_F(TempoMap, ResetForgetsEverything) {
    set_tempos({flat(0, 4, 90), flat(4, 8, 80), flat(8, 9, 70)});
    (void)to_tempo(1.0f, 0.0f);
    EXPECT_EQ(TEMPO, 90.0f);
    reset_tempo_map();
    EXPECT_EQ(TOT_TEMPOS, 1);
    EXPECT_EQ(TEMPO, 60.0f);
    EXPECT_EQ(find_tempo(5.0f), 60.0f);
    EXPECT_EQ(TEMPO_LIST[2].start_tempo, 0.0f);
}

TEST_F(TempoMap, TempoMovesAlongTheCurve) {
    EXPECT_EQ(tempo_at(4, STRAIGHT), 90.0f);
    EXPECT_EQ(tempo_at(4, SQUARE), 75.0f);
    EXPECT_FLOAT_EQ(tempo_at(4, ROOT), 102.426407f);            // 60 + 60 sqrt(0.5)
    EXPECT_EQ(tempo_at(4, USER, 3.0f), 67.5f);                  // 60 + 60 / 8
    EXPECT_FLOAT_EQ(tempo_at(4, SINE), 102.426407f);            // sin(pi / 4) = sqrt(0.5)
    EXPECT_FLOAT_EQ(tempo_at(4, TWICE_LESS_SINE), 77.573593f);  // 1 - sqrt(0.5)
    EXPECT_EQ(tempo_at(2, STRAIGHT), 75.0f);
    EXPECT_EQ(tempo_at(2, SQUARE), 63.75f);
    EXPECT_EQ(tempo_at(2, ROOT), 90.0f);
}

TEST_F(TempoMap, TempoOutsideTheSpanIsThatOfItsEnds) {
    for (const float curve : {STRAIGHT, SQUARE, ROOT, USER, SINE, TWICE_LESS_SINE}) {
        EXPECT_EQ(tempo_at(-1, curve), 60.0f);
        EXPECT_EQ(tempo_at(0, curve), 60.0f);
        EXPECT_EQ(tempo_at(8, curve), 120.0f);
        EXPECT_EQ(tempo_at(100, curve), 120.0f);
    }
}

TEST_F(TempoMap, CurveTypeIsTruncated) { EXPECT_EQ(tempo_at(4, 1.9f), 75.0f); }

TEST_F(TempoMap, EntryInForceIsTheLastThatHasBegun) {
    set_tempos({flat(0, 4, 60), flat(4, 8, 90), flat(12, 16, 120)});
    EXPECT_EQ(curtempo(-1), 0);
    EXPECT_EQ(curtempo(0), 0);
    EXPECT_EQ(curtempo(3.99f), 0);
    EXPECT_EQ(curtempo(4), 1);
    EXPECT_EQ(curtempo(10), 1);
    EXPECT_EQ(curtempo(12), 2);
    EXPECT_EQ(curtempo(1e9f), 2);
    EXPECT_EQ(find_tempo(10), 90.0f);  // behind the end of its span, before the next begins
}

TEST_F(TempoMap, ScanStopsAtTheFirstLaterStart) {
    set_tempos({flat(0, 4, 60), flat(20, 24, 90), flat(5, 8, 120)});
    EXPECT_EQ(curtempo(10), 0);  // the entry from beat 5 stands behind one that has not begun
    EXPECT_EQ(curtempo(20), 2);  // once that one has begun, the scan reaches it
    EXPECT_EQ(find_tempo(10), 60.0f);
    EXPECT_EQ(find_tempo(20), 120.0f);
}

TEST_F(TempoMap, EqualStartsTakeTheLaterEntry) {
    set_tempos({flat(0, 4, 60), flat(4, 8, 90), flat(4, 6, 100)});
    EXPECT_EQ(curtempo(4), 2);
}

TEST_F(TempoMap, AnEntryZeroThatHasNotBegunStopsTheScan) {
    set_tempos({flat(3, 4, 60), flat(1, 8, 90)});
    EXPECT_EQ(curtempo(2), 0);
}

TEST_F(TempoMap, FullTableIsSearchedToItsEnd) {
    TOT_TEMPOS = MAX_TEMPOS;
    for (int k = 0; k < MAX_TEMPOS; ++k) {
        const auto beat = static_cast<float>(k);
        TEMPO_LIST[k] = flat(beat, beat + 1, 60.0f + beat);
    }
    EXPECT_EQ(curtempo(1000), 49);
    EXPECT_EQ(find_tempo(1000), 109.0f);
}

TEST_F(TempoMap, ValueIsConvertedAtTheTempoOfItsFirstBeat) {
    set_tempos({{0, 60, 8, 120, STRAIGHT, 1}});
    EXPECT_EQ(to_tempo(4.0f, 0.0f), 4.0f);
    EXPECT_EQ(to_tempo(4.0f, 8.0f), 2.0f);
    EXPECT_FLOAT_EQ(to_tempo(1.0f, 4.0f), 0.666666667f);  // tempo 90
    EXPECT_EQ(to_tempo(0.0f, 4.0f), 0.0f);
    EXPECT_EQ(to_tempo(-3.0f, 4.0f), -2.0f);
}

TEST_F(TempoMap, ConversionIsRoundedOnce) {
    // 60 / 139 * 5 is 2.15827338129; with the quotient rounded first it would be 2.15827322.
    set_tempos({flat(0, 0, 139)});
    EXPECT_EQ(to_tempo(5.0f, 0.0f), 2.15827346f);
}

TEST_F(TempoMap, OnlyToTempoSetsTheTempo) {
    set_tempos({flat(0, 4, 90), flat(4, 8, 120)});
    EXPECT_EQ(find_tempo(5), 120.0f);
    EXPECT_EQ(TEMPO, 60.0f);
    (void)to_tempo(1.0f, 5.0f);
    EXPECT_EQ(TEMPO, 120.0f);
}

TEST_F(TempoMap, ConversionIsShownOnRequest) {
    test::MessageCapture messages;
    set_tempos({flat(0, 0, 120)});
    (void)to_tempo(1.5f, 2.0f);
    EXPECT_EQ(messages.text(), "");
    SHOW_TEMPOS = 1;
    (void)to_tempo(1.5f, 2.0f);
    EXPECT_EQ(messages.text(), "\n  > Beat    2.00 Tempo =  120.00 Val =    1.50 (bts)    0.75 (secs)");
}

TEST_F(TempoMap, LimitsOfTempoAndTime) {
    EXPECT_TRUE(good_tempo(1));
    EXPECT_TRUE(good_tempo(4000));
    EXPECT_FALSE(good_tempo(0.999f));
    EXPECT_FALSE(good_tempo(4000.1f));
    EXPECT_FALSE(good_tempo(-60));
    EXPECT_TRUE(good_time(0));
    EXPECT_TRUE(good_time(10000));
    EXPECT_FALSE(good_time(-0.001f));
    EXPECT_FALSE(good_time(10000.01f));
}

TEST_F(TempoMap, ConflictsAreNumberedFromOne) {
    test::MessageCapture messages;
    set_tempos({flat(0, 8, 60), flat(4, 8, 90), flat(8, 12, 100), flat(11.5f, 12, 110)});
    EXPECT_EQ(check_tempos(), 4);
    EXPECT_EQ(messages.text(),
              "\nWARNING: Tempo #2 conflicts with previous tempo's end time!"
              "\nWARNING: Tempo #4 conflicts with previous tempo's end time!");
}

TEST_F(TempoMap, ConflictsAreShownUnderSuppression) {
    test::MessageCapture messages;
    SUPRESS = 1;
    set_tempos({flat(0, 8, 60), flat(4, 8, 90)});
    EXPECT_EQ(check_tempos(), 2);
    EXPECT_EQ(messages.text(), "\nWARNING: Tempo #2 conflicts with previous tempo's end time!");
}

TEST_F(TempoMap, SpansThatTouchDoNotConflict) {
    test::MessageCapture messages;
    set_tempos({flat(0, 8, 60), flat(8, 9, 90)});
    EXPECT_EQ(check_tempos(), 2);
    EXPECT_EQ(messages.text(), "");
}

TEST_F(TempoMap, TableOfTheDefaultTempo) {
    test::MessageCapture messages;
    print_tempos();
    EXPECT_EQ(messages.text(),
              "\n  Stored Tempos (There are 1 defs):"
              "\n\t1: Stime    0.00, Etime    0.00, Stempo   60.00, Etempo   60.00, Type E\n");
}

TEST_F(TempoMap, TableShowsTheTypesAsFelusx) {
    test::MessageCapture messages;
    set_tempos({{0, 60, 1, 61, STRAIGHT, 1},
                {1, 61, 2, 62, SQUARE, 1},
                {2, 62, 3, 63, ROOT, 1},
                {3, 63, 4, 64, USER, 2.5f},
                {4, 64, 5, 65, SINE, 1},
                {5, 65, 10000, 4000, TWICE_LESS_SINE, 1}});
    print_tempos();
    EXPECT_EQ(messages.text(),
              "\n  Stored Tempos (There are 6 defs):"
              "\n\t1: Stime    0.00, Etime    1.00, Stempo   60.00, Etempo   61.00, Type F"
              "\n\t2: Stime    1.00, Etime    2.00, Stempo   61.00, Etempo   62.00, Type E"
              "\n\t3: Stime    2.00, Etime    3.00, Stempo   62.00, Etempo   63.00, Type L"
              "\n\t4: Stime    3.00, Etime    4.00, Stempo   63.00, Etempo   64.00, Type U, Vcurve =    2.50"
              "\n\t5: Stime    4.00, Etime    5.00, Stempo   64.00, Etempo   65.00, Type S"
              "\n\t6: Stime    5.00, Etime 10000.00, Stempo   65.00, Etempo 4000.00, Type X\n");
}

TEST_F(TempoMap, TypeOutsideTheLettersIsShownAsAQuestion) {
    test::MessageCapture messages;
    for (const float curve : {-1.0f, 6.0f, 100.0f, 1e30f}) {
        set_tempos({{0, 60, 1, 61, curve, 1}});
        print_tempos();
        EXPECT_EQ(messages.text(),
                  "\n  Stored Tempos (There are 1 defs):"
                  "\n\t1: Stime    0.00, Etime    1.00, Stempo   60.00, Etempo   61.00, Type ?\n");
    }
}

}  // namespace
}  // namespace vorn
