#include <gtest/gtest.h>

#include <limits>

#include "kit/events/events_csv.h"
#include "kit/events/events_json.h"
#include "tests/kit/table_sources.h"

// Tables of events as text: numbers, pieces, and sinks that take no more.

namespace vorn::kit::test {

namespace {

// Keeps what it takes, up to a limit.
class TextOf final : public TextSink {
public:
    explicit TextOf(std::size_t limit = std::numeric_limits<std::size_t>::max()) : limit_(limit) {}

    bool take(std::string_view piece) override {
        ++pieces;
        if (text.size() + piece.size() > limit_) return false;
        text += piece;
        return true;
    }

    std::string text;
    int pieces = 0;

private:
    std::size_t limit_;
};

std::string number_text(float value) {
    TextOf sink;
    TableText text(sink);
    text.number(value, "none");
    EXPECT_TRUE(text.finish());
    return sink.text;
}

TEST(TableText, NumbersAreTheShortestThatReadBack) {
    EXPECT_EQ(number_text(0.1F), "0.1");
    EXPECT_EQ(number_text(48.0F), "48");
    EXPECT_EQ(number_text(-0.5F), "-0.5");
    EXPECT_EQ(number_text(16777216.0F), "16777216");
    EXPECT_EQ(number_text(1.0F / 3.0F), "0.33333334");
    EXPECT_EQ(std::stof(number_text(1e-20F)), 1e-20F);
}

TEST(TableText, WhatIsNoFiniteNumberIsWhatTheFormSays) {
    EXPECT_EQ(number_text(std::numeric_limits<float>::infinity()), "none");
    EXPECT_EQ(number_text(std::numeric_limits<float>::quiet_NaN()), "none");
}

TEST(TableText, PiecesJoinToTheWholeText) {
    TextOf sink;
    TableText text(sink);
    std::string expected;
    for (std::uint64_t n = 0; n < 100'000; ++n) {
        text.number(n);
        text.text(", ");
        expected += std::to_string(n) + ", ";
    }
    const std::string long_one(1'000'000, 'x');
    text.text(long_one);
    EXPECT_TRUE(text.finish());
    EXPECT_EQ(sink.text, expected + long_one);
    EXPECT_GT(sink.pieces, 1);
}

TEST(TableText, ASinkThatTakesNoMoreIsAskedOnce) {
    TextOf sink(0);
    TableText text(sink);
    text.text(std::string(3'000'000, 'x'));
    EXPECT_FALSE(text.takes_more());
    EXPECT_FALSE(text.finish());
    EXPECT_EQ(sink.pieces, 1);
}

const char* const SCORE =
    "i1 = 4 0 2 {\np2 1\np3 .5\np4(hz) no a4 a5\n}\n"
    "i2 = 3 0 2 { p2 1 p3 0 }\n"
    "i3 = 5 1 -1 { p2 1 p3 1 p4(xx) 7 p5 8 }\n";

TEST(EventColumns, AreStartDurationBeatAndThePFieldsFromP4) {
    const ScoreRun run = run_text(SCORE);
    ASSERT_EQ(run.blocks.size(), 3U);
    const std::vector<EventColumn> columns = event_columns(run.blocks[2]);
    ASSERT_EQ(columns.size(), 5U);
    EXPECT_EQ(columns[0].name, "start");
    EXPECT_EQ(columns[0].value(0), 1.0F);
    EXPECT_FALSE(columns[2].has_written_form);
    EXPECT_EQ(columns[3].name, "p4");
    EXPECT_FALSE(is_written(run.blocks[2], columns[3], 0));
    EXPECT_TRUE(is_written(run.blocks[2], columns[4], 0));
}

TEST(EventColumns, OfABlockWithoutEventsShowNoValues) {
    BlockRecord block;
    block.pfields = 6;
    const std::vector<EventColumn> columns = event_columns(block);
    ASSERT_EQ(columns.size(), 6U);
    for (const EventColumn& column : columns) EXPECT_EQ(column.values, nullptr) << column.name;
}

TEST(EventColumns, ABlockOfRestsHasNoNumberInTheScore) {
    const ScoreRun run = run_text(SCORE);
    EXPECT_EQ(number_in_score(run.blocks[0]), 1);
    EXPECT_EQ(number_in_score(run.blocks[1]), 0);
    EXPECT_EQ(number_in_score(run.blocks[2]), 2);
    EXPECT_EQ(count_shown(run.blocks[1], {}), 0U);
    EXPECT_EQ(count_shown(run.blocks[1], {true}), 2U);
}

TEST(EventsCsv, HasALineAnEventAndRoomForTheMostPFields) {
    TextOf sink;
    EXPECT_TRUE(write_events_csv(run_text(SCORE), {}, sink));
    EXPECT_EQ(sink.text,
              "block,instrument,file,line,start,start_written,duration,duration_written,beat,"
              "p4,p4_written,p5,p5_written\n"
              "1,1,in.vorn,1,0,0.000,0.5,0.500,0,57,440.00000,,\n"
              "1,1,in.vorn,1,1,1.000,0.5,0.500,1,69,880.00000,,\n"
              "3,3,in.vorn,7,1,1.000,1,1.000,1,7,,8,8.000\n");
}

TEST(EventsJson, BlocksAreColumns) {
    TextOf sink;
    EXPECT_TRUE(write_events_json(run_text(SCORE), {}, sink));
    EXPECT_NE(sink.text.find("\"p4\":[57,69],\n\"p4_written\":[\"440.00000\",\"880.00000\"]}}"),
              std::string::npos)
        << sink.text;
    EXPECT_NE(sink.text.find("\"start\":[],\n"), std::string::npos);  // the block of rests
    EXPECT_EQ(sink.text.substr(sink.text.size() - 4), "}]}\n");
}

TEST(EventsJson, TellsThatTheSinkHasNotTakenAll) {
    const ScoreRun run = run_text("i1 = 3 0 -20000 { p2 1 p3 1 }\n");
    for (const auto write : {write_events_json, write_events_csv}) {
        TextOf sink(300'000);
        EXPECT_FALSE(write(run, {}, sink));
        EXPECT_LE(sink.pieces, 2);
    }
}

}  // namespace

}  // namespace vorn::kit::test
