// The items of a data list: values, separators, fusion marks and repeats.

#include "blocks/data_list.h"

#include <string>

#include "blocks/command_codes.h"
#include "blocks_fixture.h"
#include "support/draws.h"

namespace vorn::test {
namespace {

class DataList : public BlockTest {
protected:
    ~DataList() override { FreeQNodes(statement.queue); }

    // The statement of a p-field from 3 on, in a block of `count` events.
    void enter(int number, int count) {
        make_events(count, 4);
        begin(number);
    }
    void begin(int number) {
        P_NO = number;
        reset_pfield();
        FreeQNodes(statement.queue);
        statement = Statement{};
        statement.cursor = LUT = note_list;
    }
    // The statement of P2, in a block of so many beats or minus the number of events.
    void enter_p2(float length) {
        MAX_PFIELDS = 4;
        ETIME = length;
        EVENTS = length < 0 ? static_cast<std::uint64_t>(-length) : 0;
        begin(2);
    }

    // Reads items until the line is used up, the block is full or something is wrong.
    int list(const std::string& text) {
        feed(text);
        while (reader.text[reader.pos] != 0 && !statement.block_full) {
            if (const int result = parse_pdata(reader, statement)) return result;
        }
        return 0;
    }

    // The queue as "value code" pairs from its head on.
    std::string queue() const {
        std::ostringstream text;
        if (statement.queue == nullptr) return "none";
        const QNode* node = statement.queue;
        do {
            node = node->next;
            text << (text.tellp() > 0 ? ", " : "") << node->value << ' ' << node->code;
        } while (node != statement.queue);
        return text.str();
    }

    Statement statement;
};

// --- values and separators ---

TEST_F(DataList, WhiteSpaceAndCommasSeparate) {
    enter(4, 5);
    EXPECT_EQ(list("60, 62 ,64\t,,65,\v66"), 0);
    EXPECT_EQ(pfield(4), "60 62 64 65 66");
    EXPECT_EQ(EVENT_NO, 5);
    EXPECT_FALSE(statement.block_full);
}

TEST_F(DataList, ListMustBeginWithAValue) {
    enter(4, 3);
    for (const char* text : {",60", "/60", ":60", "'60", "x2", " 60"}) EXPECT_EQ(list(text), 73) << text;
    EXPECT_EQ(list("60"), 0);
    for (const char* text : {",", "/", "x1", " "}) EXPECT_EQ(list(text), 0) << text;
}

TEST_F(DataList, ValuesMustSuitTheInputType) {
    enter(4, 9);
    EXPECT_EQ(list("?"), 27);
    EXPECT_EQ(list("c4"), 27);
    EXPECT_EQ(reader.pos, 0);
    IN_TYPE = CODE_IN;
    EXPECT_EQ(list("z"), 27);
    EXPECT_EQ(list(".5"), 27);
    IN_TYPE = CODE_OD;
    for (const char* text : {"8.00", "z", "-1", "c"}) EXPECT_EQ(list(text), 27) << text;
    IN_TYPE = CODE_RH;
    EXPECT_EQ(list(".5"), 23);  // its first character is let through
    IN_TYPE = CODE_NO;
    EXPECT_EQ(list("h4"), 23);
    EXPECT_EQ(list("?"), 27);
    IN_TYPE = CODE_DB;
    EXPECT_EQ(list("97"), 23);
    EXPECT_EQ(list("-1"), 23);
    IN_TYPE = CODE_RE;
    EXPECT_EQ(list("-x"), 23);
    EXPECT_EQ(EVENT_NO, 0);
}

TEST_F(DataList, DecibelsAreCutTwice) {
    enter(4, 5);
    IN_TYPE = CODE_DB;
    EXPECT_EQ(list("60 40 20 60.9 0"), 0);
    EXPECT_EQ(pfield(4), "999 99 9 999 1");
}

TEST_F(DataList, IntegersRoundHalvesUp) {
    enter(4, 5);
    IN_TYPE = CODE_IN;
    EXPECT_EQ(list("2.5 -2.5 2.4 3 -0.6"), 0);
    EXPECT_EQ(pfield(4), "3 -2 2 3 -1");
}

TEST_F(DataList, ZIsTheLastValueOfAnyStatement) {
    enter(4, 4);
    LAST_VAL = 7;
    EXPECT_EQ(list("z Z 9 z"), 0);
    EXPECT_EQ(pfield(4), "7 7 9 9");
}

TEST_F(DataList, LastValueIsNotDeviated) {
    enter(4, 2);
    MAX_DEV = 1;
    PFACTOR = 3;
    set_next_draws({DRAW_ONE, DRAW_ZERO});
    EXPECT_EQ(list("8 z"), 0);
    EXPECT_EQ(LAST_VAL, 8);
    EXPECT_EQ(pfield(4), "36 12");
}

TEST_F(DataList, FullBlockWarnsOnceAndLeavesTheValue) {
    enter(4, 2);
    EXPECT_EQ(list("60 62 64 65"), 0);
    EXPECT_TRUE(statement.block_full);
    EXPECT_EQ(rest(), "64 65");
    EXPECT_EQ(LAST_VAL, 62);
    EXPECT_EQ(messages(),
              "\n\nWARNING: Line 1:Reached end of i-time or i-events -- event(s) not added.\n"
              "60 62 64 65\n      ^\n");
}

TEST_F(DataList, FirstValueOfAFullBlockWarnsToo) {
    enter_p2(0);
    EXPECT_EQ(list("1"), 0);
    EXPECT_TRUE(statement.block_full);
    EXPECT_TRUE(statement.value_expected);
    EXPECT_EQ(WROTE_DATA, 0);
}

// --- fusion ---

TEST_F(DataList, FusionMarks) {
    enter(4, 2);
    EXPECT_EQ(list("60:64'67 72"), 0);
    EXPECT_EQ(events(), "0 1 0 60, 0 1 1 64, 0 1 1 67, 1 1 0 72");
    EXPECT_EQ(EVENTS, 4U);
    EXPECT_EQ(EVENT_NO, 4);
}

TEST_F(DataList, SeparatorsBetweenMarkAndValue) {
    enter(4, 2);
    EXPECT_EQ(list("60 , : , 64"), 0);
    EXPECT_EQ(events(), "0 1 0 60, 0 1 1 64, 1 1 0 0");
}

TEST_F(DataList, SecondPendingMarkIsRefused) {
    for (const char* text : {"60::64", "60:'64", "60: : 64", "60 : , : 64"}) {
        reset_event_list();
        enter(4, 2);
        EXPECT_EQ(list(text), 49) << text;
        EXPECT_EQ(EVENTS, 3U);  // the second mark no longer counts
    }
}

TEST_F(DataList, EventsIsRaisedAtTheMark) {
    enter(4, 2);
    EXPECT_EQ(list("60 62"), 0);
    EXPECT_EQ(list(":"), 0);
    EXPECT_EQ(EVENTS, 3U);  // so that a full block takes the value
    EXPECT_EQ(list("64"), 0);
    EXPECT_EQ(events(), "0 1 0 60, 1 1 0 62, 1 1 1 64");
    EXPECT_EQ(messages(), "");
}

TEST_F(DataList, EventsIsNotRaisedInP2) {
    enter_p2(-3);
    EXPECT_EQ(list("1:2 1"), 0);
    EXPECT_EQ(EVENTS, 3U);
    EXPECT_EQ(events(), "0 1 0 0, 0 2 1 0, 2 1 0 0");
    EXPECT_EQ(CBEATS, 4);  // by both values of the chord
}

TEST_F(DataList, EventsIsRaisedInP3WithoutAnEvent) {
    enter(3, 2);
    EXPECT_EQ(list("1:2"), 0);
    EXPECT_EQ(EVENTS, 3U);
    EXPECT_EQ(pfield(3), "1 2");
    EXPECT_EQ(list(":"), 49);  // P3 takes no mark: it stays pending
}

TEST_F(DataList, RestsOfAChord) {
    enter(4, 3);
    IN_TYPE = CODE_NO;
    EXPECT_EQ(list("c4:r r:e4 g4"), 0);
    // A rest makes its own event one; what is fused to a rest copies its duration.
    EXPECT_EQ(events(), "0 1 0 48, 0 -1 1 -1, 1 -1 0 -1, 1 -1 1 52, 2 1 0 55");
}

// --- P2 ---

TEST_F(DataList, P2ZeroIsRefusedOnlyWhileEventsIsZero) {
    enter_p2(4);
    EXPECT_EQ(list("1 0"), 54);
    reset_event_list();
    enter_p2(-2);
    EXPECT_EQ(list("0 0"), 0);
    EXPECT_EQ(pfield(2), "0 0");
}

TEST_F(DataList, P2NegativeIsARestThatTakesItsTime) {
    enter_p2(9);
    EXPECT_EQ(list("1 -2 4"), 0);
    EXPECT_EQ(events(), "0 1 0 0, 1 -2 0 0, 3 4 0 0");
    EXPECT_EQ(CBEATS, 3);  // by the signed values
}

// --- loops ---

TEST_F(DataList, LoopQueuesWithThePendingMark) {
    enter(4, 3);
    IN_LOOP = 1;
    EXPECT_EQ(list("60 64:67 72"), 0);
    EXPECT_EQ(queue(), "60 0, 64 0, 67 1, 72 0");
    IN_LOOP = 0;
}

TEST_F(DataList, RepeatsInALoopQueueTheLastGroup) {
    enter(4, 9);
    IN_LOOP = 1;
    EXPECT_EQ(list("60// 64:67 x2"), 0);
    EXPECT_EQ(queue(), "60 0, 60 0, 64 0, 67 1, 64 0, 67 1");
}

TEST_F(DataList, FirstValueOfALoopCannotBeFused) {
    enter(4, 3);
    EXPECT_EQ(list("60"), 0);
    IN_LOOP = 1;
    EXPECT_EQ(list(":64"), 45);
    EXPECT_EQ(EVENT_NO, 1);  // queued before it is stored
    EXPECT_EQ(LAST_VAL, 64);
}

TEST_F(DataList, NothingToRepeatInALoop) {
    for (const char* text : {"//", "x2"}) {
        reset_event_list();
        enter(4, 3);
        EXPECT_EQ(list("60"), 0);
        IN_LOOP = 1;
        EXPECT_EQ(list(text), 45) << text;
    }
}

// --- "/" ---

TEST_F(DataList, AsManyAsThereAreSlashes) {
    enter(4, 8);
    EXPECT_EQ(list("60/ 61// 62/ / / 63 //"), 0);
    EXPECT_EQ(pfield(4), "60 61 61 62 62 62 63 63");
    EXPECT_FALSE(statement.block_full);
}

TEST_F(DataList, SlashesAreNotACommentAndACommentIsNoSlash) {
    enter(4, 4);
    feed("60//*x*/");
    EXPECT_EQ(parse_pdata(reader, statement), 0);
    EXPECT_EQ(parse_pdata(reader, statement), 0);
    EXPECT_EQ(rest(), "/*x*/");
    EXPECT_EQ(EVENT_NO, 1);
}

TEST_F(DataList, RunOfSlashesEndsWithTheLine) {
    enter(4, 4);
    feed("60//\n/ 62");
    while (reader.text[reader.pos] != 0) EXPECT_EQ(parse_pdata(reader, statement), 0);
    EXPECT_EQ(EVENT_NO, 2);
    ASSERT_EQ(get_buff(reader), 0);
    while (reader.text[reader.pos] != 0) EXPECT_EQ(parse_pdata(reader, statement), 0);
    EXPECT_EQ(pfield(4), "60 60 62 0");
}

TEST_F(DataList, SlashesBeyondTheEndWarn) {
    enter(4, 2);
    EXPECT_EQ(list("60//"), 0);
    EXPECT_EQ(messages(), "");
    EXPECT_EQ(list("/// 61"), 0);
    EXPECT_TRUE(statement.block_full);
    EXPECT_EQ(pfield(4), "60 60");
    EXPECT_EQ(messages(),
              "\n\nWARNING: Line 1:Reached end of i-time or i-events, (repeat truncated)\n"
              "/// 61\n  ^\n");
}

// --- "x" ---

TEST_F(DataList, XIsTheNumberOfOccurrences) {
    enter(4, 8);
    EXPECT_EQ(list("60 x3 61x2, 62 x1 63 x02"), 0);
    EXPECT_EQ(pfield(4), "60 60 60 61 61 62 63 63");
}

TEST_F(DataList, XMultipliesWhatIsThere) {
    enter(4, 5);
    EXPECT_EQ(list("60 x3 x3"), 0);
    EXPECT_EQ(EVENT_NO, 5);
}

TEST_F(DataList, XWithoutDigitIsRefused) {
    enter(4, 3);
    EXPECT_EQ(list("60"), 0);
    for (const char* text : {"x", "x 3", "x-1", "x+2", "xx"}) EXPECT_EQ(list(text), 24) << text;
}

TEST_F(DataList, XZeroRepeatsUntilFullWithAWarning) {
    enter(4, 4);
    EXPECT_EQ(list("60 x0 61"), 0);
    EXPECT_TRUE(statement.block_full);
    EXPECT_EQ(pfield(4), "60 60 60 60");
    EXPECT_EQ(messages(),
              "\n\nWARNING: Line 1:Reached end of i-time or i-events, (repeat truncated)\n"
              "60 x0 61\n      ^\n");
}

TEST_F(DataList, XBeyondTheEndWarnsOnce) {
    enter(4, 2);
    EXPECT_EQ(list("60 x3"), 0);
    EXPECT_EQ(messages(),
              "\n\nWARNING: Line 1:Reached end of i-time or i-events, (repeat truncated)\n"
              "60 x3\n     ^\n");
}

TEST_F(DataList, CountOfXWraps) {
    enter(4, 3);
    EXPECT_EQ(list("60 x18446744073709551617 61"), 0);
    EXPECT_EQ(pfield(4), "60 61 0");
}

TEST_F(DataList, XZeroInP2UntilTheBeatsAreOver) {
    enter_p2(3);
    EXPECT_EQ(list("1 x0"), 0);
    EXPECT_EQ(pfield(2), "0 1 2");
    EXPECT_TRUE(statement.block_full);
}

TEST_F(DataList, XZeroThatNeverReachesTheEndIsRefused) {
    enter_p2(4);
    EXPECT_EQ(list("1 -1 x0"), 54);
    reset_event_list();
    enter_p2(4);
    EXPECT_EQ(list("1 -1 x99999999"), 54);
    reset_event_list();
    enter_p2(4);
    EXPECT_EQ(list("1 -1 x3"), 0);  // a finite list may go back
    EXPECT_EQ(CBEATS, -2);
}

TEST_F(DataList, RepeatedChord) {
    enter(4, 4);
    EXPECT_EQ(list("60:64 x2 65//"), 0);
    EXPECT_EQ(events(), "0 1 0 60, 0 1 1 64, 1 1 0 60, 1 1 1 64, 2 1 0 65, 3 1 0 65");
    EXPECT_EQ(EVENTS, 6U);
}

TEST_F(DataList, RepeatedRestIsNotNegated) {
    enter(4, 4);
    IN_TYPE = CODE_NO;
    EXPECT_EQ(list("r// r x2"), 0);
    EXPECT_EQ(pfield(4), "-1 -1 -1 -1");
    EXPECT_EQ(pfield(3), "-1 1 -1 1");
}

TEST_F(DataList, DeviationIsDrawnOnEveryRepeat) {
    enter(4, 9);
    EXPECT_EQ(draws_taken(4, [this] { EXPECT_EQ(list("60 x3"), 0); }), 3);
    EXPECT_EQ(draws_taken(4, [this] { EXPECT_EQ(list("62:63//"), 0); }), 3);
}

TEST_F(DataList, OutOfMemory) {
    enter_p2(-3);
    event_nodes = MAX_EVENTS - 1;
    EXPECT_EQ(list("1//"), 32);
    EXPECT_EQ(pfield(2), "0");
}

}  // namespace
}  // namespace vorn::test
