#include "generators/ddf_time.h"

#include <cmath>

#include "input/errors.h"
#include "support/ddf_block.h"

namespace vorn {
namespace {

using test::ScoreText;

class GetDynfuncDur : public test::DdfBlock {
protected:
    // Reads a time; what follows it is in `rest`.
    int read(const std::string& text) {
        ScoreText score(text);
        const int result = get_dynfunc_dur(time, score.reader);
        rest = score.rest();
        return result;
    }

    // The time that the text stands for.
    float time_of(const std::string& text) {
        EXPECT_EQ(read(text), 0) << text;
        return time;
    }

    float time = -54321;
};

TEST_F(GetDynfuncDur, NumberIsASpanOfBeatsOrMinusACountOfEvents) {
    EXPECT_EQ(time_of("(4 1 60)"), 4.0F);
    EXPECT_EQ(rest, "1 60)");
    EXPECT_EQ(time_of("(.5 1 60)"), 0.5F);
    EXPECT_EQ(time_of("(+2 1 60)"), 2.0F);
    EXPECT_EQ(time_of("(-10 1 60)"), -10.0F);
    EXPECT_EQ(time_of("(0 1 60)"), 0.0F);
}

TEST_F(GetDynfuncDur, BlanksAndLineEndsMayStandBeforeAndBehindTheParenthesis) {
    EXPECT_EQ(time_of("  (  4 60)"), 4.0F);
    EXPECT_EQ(time_of("\n\n(\n\n-3\n60)"), -3.0F);
    EXPECT_EQ(rest, "60)");
}

TEST_F(GetDynfuncDur, OneCommentMayFollowTheTime) {
    EXPECT_EQ(time_of("(4 /* beats */ 60)"), 4.0F);
    EXPECT_EQ(rest, "60)");
    EXPECT_EQ(time_of("(4 ; beats\n60)"), 4.0F);
    EXPECT_EQ(rest, "60)");
    EXPECT_EQ(time_of("(4, 60)"), 4.0F);
    EXPECT_EQ(rest, ", 60)");
}

TEST_F(GetDynfuncDur, NoCommentMayStandBeforeTheParenthesis) {
    EXPECT_EQ(read("/* c */ (4 60)"), error::DDF_WITHOUT_PARENTHESIS);
    EXPECT_EQ(rest, "/* c */ (4 60)");
}

TEST_F(GetDynfuncDur, TInABlockOfEventsIsMinusTheirNumber) {
    begin_starts(-10);
    EXPECT_EQ(time_of("(T 1 60)"), -10.0F);
    EXPECT_EQ(rest, "1 60)");
}

// 2.5 of 10 events is 3, halves up; 7.5 is 8.
TEST_F(GetDynfuncDur, TTimesFractionOfEventsIsRoundedHalvesUp) {
    begin_starts(-10);
    EXPECT_EQ(time_of("(T*.25 1 60)"), -3.0F);
    EXPECT_EQ(time_of("(T*0.75 1 60)"), -8.0F);
    EXPECT_EQ(time_of("(T*.24 1 60)"), -2.0F);
    EXPECT_EQ(time_of("(T*2 1 60)"), -20.0F);
}

TEST_F(GetDynfuncDur, TWithEventsCountsThemAsRaisedByFusionSoFar) {
    begin_starts(-10);
    EVENTS = 14;
    EXPECT_EQ(time_of("(T 1 60)"), -14.0F);
    EXPECT_EQ(time_of("(T*.5 1 60)"), -7.0F);
}

// A fraction that rounds to no event is a span of no length, not minus nothing.
TEST_F(GetDynfuncDur, TTimesZeroIsNeverNegative) {
    begin_starts(-10);
    EXPECT_FALSE(std::signbit(time_of("(T*0 1 60)")));
}

TEST_F(GetDynfuncDur, TInABlockOfBeatsIsItsLength) {
    begin_starts(8, 100);
    EXPECT_EQ(time_of("(T 1 60)"), 8.0F);
    EXPECT_EQ(time_of("(T*.25 1 60)"), 2.0F);
}

TEST_F(GetDynfuncDur, TIsACapitalLetter) {
    begin_starts(8);
    EXPECT_EQ(read("(t 1 60)"), error::BAD_DDF_TIME);
}

TEST_F(GetDynfuncDur, StarOfTMustFollowAtOnceAndItsNumberToo) {
    begin_starts(8);
    EXPECT_EQ(time_of("(T *.5)"), 8.0F);
    EXPECT_EQ(rest, "*.5)");
    for (const char* text : {"(T*)", "(T* .5)", "(T*-1)", "(T*+1)", "(T*x", "(T*"}) {
        EXPECT_EQ(read(text), error::BAD_TIME_FRACTION) << text;
    }
}

TEST_F(GetDynfuncDur, TraceNamesTheLineUnlessSuppressed) {
    begin_starts(8);
    EXPECT_EQ(time_of("\n (T*.5 1 60)"), 4.0F);
    EXPECT_EQ(messages(), "\n\tLine 2: T evaluated at =    4.00");
    EXPECT_EQ(time_of("(3 1 60)"), 3.0F);
    EXPECT_EQ(messages(), "");
    SUPRESS = 1;
    EXPECT_EQ(time_of("(T 1 60)"), 8.0F);
    EXPECT_EQ(messages(), "");
}

TEST_F(GetDynfuncDur, RefusesWhatIsNoTime) {
    EXPECT_EQ(read("(foo"), error::BAD_DDF_TIME);
    EXPECT_EQ(rest, "foo");
    EXPECT_EQ(read("(-"), error::BAD_DDF_TIME);
    EXPECT_EQ(read("4 1"), error::DDF_WITHOUT_PARENTHESIS);
    EXPECT_EQ(rest, "4 1");
}

TEST_F(GetDynfuncDur, EndOfInputIsAMissingParenthesisOrTime) {
    EXPECT_EQ(read(""), error::DDF_WITHOUT_PARENTHESIS);
    EXPECT_EQ(read("  \n \n"), error::DDF_WITHOUT_PARENTHESIS);
    EXPECT_EQ(read("("), error::BAD_DDF_TIME);
    EXPECT_EQ(read("(\n"), error::BAD_DDF_TIME);
    EXPECT_EQ(time_of("(4"), 4.0F);
}

}  // namespace
}  // namespace vorn
