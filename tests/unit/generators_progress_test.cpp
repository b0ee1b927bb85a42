#include "generators/progress.h"

#include "generators/curves.h"
#include "support/ddf_block.h"

namespace vorn {
namespace {

using test::ScoreText;

class Measuring : public test::DdfBlock {
protected:
    Progress measure(float time) {
        ScoreText score("line\n");
        return measure_span(time, statement, score.reader);
    }
};

using MeasureSpan = Measuring;
using NextEvent = test::DdfBlock;

TEST_F(MeasureSpan, NegativeTimeCountsEventsWithoutLookingAtThem) {
    begin_values(3);
    EXPECT_EQ(measure(-2).count, 2U);
    EXPECT_EQ(measure(-2.9F).count, 2U);
    EXPECT_EQ(measure(-0.5F).count, 0U);
    EXPECT_EQ(measure(-100).count, 100U);
    EXPECT_EQ(measure(-1e30F).count, 18446744073709551615U);
    EXPECT_EQ(messages(), "");
}

TEST_F(MeasureSpan, SpanTakesTheEventsInsideBothEndsIncluded) {
    begin_values(10, 100);
    const Progress first = measure(4);
    EXPECT_EQ(first.count, 5U);
    EXPECT_EQ(first.first_beat, 100.0F);
    EXPECT_EQ(first.last_beat, 104.0F);
    statement.cursor = note_list->next->next;  // two events have their values
    const Progress second = measure(2.5F);
    EXPECT_EQ(second.count, 3U);
    EXPECT_EQ(second.first_beat, 102.0F);
    EXPECT_EQ(second.last_beat, 104.0F);
    EXPECT_EQ(measure(0).count, 1U);
}

// The last event stands at beat 104. A span of 9.5 from beat 100 reaches 5.5
// beats beyond it, but 9.5 - 5 is not above 104; 110 - 5 is.
TEST_F(MeasureSpan, Warning14ComparesSpanMinus5WithTheAbsoluteLastBeat) {
    begin_values(5, 100);
    EXPECT_EQ(measure(9.5F).count, 5U);
    EXPECT_EQ(measure(109).count, 5U);
    EXPECT_EQ(messages(), "");
    EXPECT_EQ(measure(110).count, 5U);
    EXPECT_EQ(messages(),
              "\n\nWARNING: Line 1:Reached end of i-time of i-events, duration altered.\n"
              "line \n^\n"
              "Old duration =  110.00, New duration =  104.00\n");
}

TEST_F(MeasureSpan, Warning14IsSilentUnderSuppression) {
    begin_values(5);
    SUPRESS = 1;
    EXPECT_EQ(measure(100).count, 5U);
    EXPECT_EQ(messages(), "");
}

TEST_F(NextEvent, IsTheOneBehindTheCursor) {
    begin_values(3);
    EXPECT_EQ(next_event(statement), note_list->next);  // from the tail to the head
    statement.cursor = note_list->next;
    EXPECT_EQ(next_event(statement), note_list->next->next);
}

TEST_F(NextEvent, UnderAPendingMarkIsTheOneThatWillBeCopied) {
    begin_values(3);
    statement.cursor = note_list->next;
    IS_FUSED = 1;
    EXPECT_EQ(next_event(statement), statement.cursor);
    P_NO = 3;  // where a mark copies nothing
    EXPECT_EQ(next_event(statement), statement.cursor->next);
}

class CurveValue : public test::DdfBlock {
protected:
    CurveValue() {
        event.beat = 6;
        progress.event = &event;
    }

    ListNode event{};
    Progress progress;
};

TEST_F(CurveValue, RunsOverTheEvents) {
    progress.index = 1;
    progress.count = 5;
    EXPECT_EQ(curve_value(progress, 0, 10, 20, 1), 12.5F);
    EXPECT_EQ(curve_value(progress, 1, 10, 20, 1), 10.625F);
    EXPECT_EQ(curve_value(progress, 3, 10, 20, 3), 10.15625F);
    EXPECT_EQ(printed(), "");
}

// From beat 4 to beat 8 the span is 12, their sum, and not 4.
TEST_F(CurveValue, SpanOfACurveOverTimeIsLastPlusFirst) {
    progress.first_beat = 4;
    progress.last_beat = 8;
    EXPECT_EQ(curve_value(progress, BEAT_CURVE, 0, 12, 1), 2.0F);
    EXPECT_EQ(curve_value(progress, BEAT_CURVE + 1, 0, 36, 1), 1.0F);
}

TEST_F(CurveValue, TimeTraceIsOnStandardOutputAlways) {
    progress.first_beat = 4;
    progress.last_beat = 8;
    curve_value(progress, BEAT_CURVE, 0, 1, 1);
    EXPECT_EQ(printed(), "\ntime = 2.000000");
    SUPRESS = 1;
    event.beat = 6.3333333F;
    curve_value(progress, BEAT_CURVE, 0, 1, 1);
    EXPECT_EQ(printed(), "\ntime = 2.333333");
    EXPECT_EQ(messages(), "");
}

TEST_F(CurveValue, P2RunsOverTheEventsOfANegativeTime) {
    progress.event = nullptr;
    progress.time = -5;
    progress.index = 1;
    progress.count = 5;
    progress.elapsed = 3;
    EXPECT_EQ(curve_value(progress, 0, 10, 20, 1), 12.5F);
}

TEST_F(CurveValue, P2RunsOverElapsedTimeOfASpan) {
    progress.event = nullptr;
    progress.time = 4;
    progress.count = 4;
    progress.elapsed = 1;
    EXPECT_EQ(curve_value(progress, 0, 10, 20, 1), 12.5F);
    EXPECT_EQ(curve_value(progress, 1, 10, 20, 1), 10.625F);
    EXPECT_EQ(printed(), "");
}

TEST_F(CurveValue, P2UsesTheCodeOfAStarredCurveAsItStands) {
    progress.event = nullptr;
    progress.time = 4;
    EXPECT_EQ(curve_value(progress, BEAT_CURVE, 10, 20, 1), 10.0F);
    progress.elapsed = 0.001F;
    EXPECT_EQ(curve_value(progress, BEAT_CURVE, 10, 20, 1), 20.0F);
    EXPECT_EQ(printed(), "");
}

}  // namespace
}  // namespace vorn
