// An instrument block from its header to its "}".

#include "blocks/iblock.h"

#include <string>

#include "blocks_fixture.h"
#include "generators/random.h"
#include "support/draws.h"

namespace vorn::test {
namespace {

class Iblock : public BlockTest {};

TEST_F(Iblock, ReadsAWholeBlock) {
    EXPECT_EQ(read_block("i3 = 5 0 4 {\np2 1\np3 0.5\np4 60\np5 0.1\n} rest"), 0);
    EXPECT_EQ(events(), "0 0.5 0 60 0.1, 1 0.5 0 60 0.1, 2 0.5 0 60 0.1, 3 0.5 0 60 0.1");
    EXPECT_EQ(EVENTS, 4U);
    EXPECT_EQ(rest(), " rest");
    EXPECT_EQ(messages(), "");
}

TEST_F(Iblock, FourEventsWhateverTheIntervals) {
    EXPECT_EQ(read_block("i3=4 0 -4{p2 3 .5 p3 1 p4 60}"), 0);
    EXPECT_EQ(events(), "0 3 0 60, 3 0.5 0 60, 3.5 0.5 0 60, 4 0.5 0 60");
}

TEST_F(Iblock, EveryPfieldMustBeRead) {
    EXPECT_EQ(read_block("i3=5 0 4{p2 1 p3 1 p4 1}"), 71);
    EXPECT_EQ(rest(), "}");
    EXPECT_EQ(read_block("i3=5 0 4{}"), 71);
    EXPECT_EQ(read_block("i3=5 0 4{ ; nothing\n}"), 71);
}

TEST_F(Iblock, PfieldsOfTheBlockBeforeDoNotCount) {
    EXPECT_EQ(read_block("i3=3 0 1{p2 1 p3 1}"), 0);
    FreeListNodes(note_list);
    EXPECT_EQ(read_block("i3=3 0 1{p3 1 p2 1}"), 15);
}

TEST_F(Iblock, SkippedBlockWarns) {
    EXPECT_EQ(read_block("i-3=5 0 4{p2 1} rest"), -1);
    EXPECT_EQ(messages(), "\nWARNING: I-block skipped! (i-no < 0)");
    EXPECT_EQ(rest(), " rest");
    EXPECT_EQ(note_list, nullptr);
}

TEST_F(Iblock, BlockCommands) {
    EXPECT_EQ(read_block("i3=3 0 1{ rd(.5) RS( 7 ) ; both\n/* */rd(.25)p2 1 p3 1}"), 0);
    EXPECT_EQ(MAX_DEV, 0.25F);
    // One draw for P2 and two for P3, from the sequence of seed 7.
    EXPECT_EQ(rand(), reference_sequence(7, 4)[3]);
}

TEST_F(Iblock, OtherCommandsAreBadValues) {
    for (const char* name : {"re", "no", "db", "op", "ra", "rw", "ex", "s2", "dv", "pf", "ho", "#c", "#d"}) {
        EXPECT_EQ(read_block("i3=3 0 1{" + std::string(name) + "(1) p2 1 p3 1}"), 23) << name;
    }
    EXPECT_EQ(read_block("i3=3 0 1{ rd(.1) in(1) p2 1 p3 1}"), 23);
    EXPECT_EQ(read_block("i3=3 0 1{ in(1) p2 1 p3 1}"), 11);  // an "i" where an item begins is a header
    EXPECT_EQ(read_block("i3=3 0 1{ re9 p2 1 p3 1}"), 20);
}

TEST_F(Iblock, AnythingElseIsNoBlockCommand) {
    for (const char* text : {"sr(1)", "te(60)", "60", "P2 1", "x", "?", ">", "pp"}) {
        EXPECT_EQ(read_block("i3=3 0 1{" + std::string(text) + " p2 1 p3 1}"), 73) << text;
    }
}

TEST_F(Iblock, BlockCommandThenClosingBrace) {
    EXPECT_EQ(read_block("i3=3 0 1{ rd(.1) }"), 73);
    EXPECT_EQ(read_block("i3=3 0 1{ rd(.1)\n}"), 73);
    EXPECT_EQ(read_block("i3=3 0 1{ rs(1) ; comment\n\n /* another\n */\n }"), 73);
    EXPECT_EQ(rest(), "}");
    EXPECT_EQ(read_block("i3=3 0 1{ /* comment */ }"), 73);  // a run of comments looks for a statement too
}

TEST_F(Iblock, CommentsBetweenItems) {
    EXPECT_EQ(read_block("i3=3 0 1{ ; one\n/* two\n three */ p2 1 p3 1}"), 0);
    EXPECT_EQ(read_block("i3=3 0 1{ /* never closed"), -1);
}

TEST_F(Iblock, EndOfInputBetweenItemsIsQuiet) {
    EXPECT_EQ(read_block("i3=3 0 1{\n\n"), -1);
    EXPECT_EQ(read_block("i3=3 0 1{ rd(.1)\n"), -1);
    EXPECT_EQ(messages(), "");
}

TEST_F(Iblock, ErrorsTravelUp) {
    EXPECT_EQ(read_block("i3=3 0 1"), 30);
    EXPECT_EQ(read_block("i3=3 0 1{ rd(-1) p2 1}"), 28);
    EXPECT_EQ(read_block("i3=3 0 1{ rs(x) p2 1}"), 29);
    EXPECT_EQ(read_block("i3=3 0 1{ p2 1 p3 c}"), 27);
    EXPECT_EQ(read_block("i3=3 0 1{ p2 1 p3 }"), 999);
}

TEST_F(Iblock, HeaderInsideTheBodyIsReadAgain) {
    EXPECT_EQ(read_block("i3=3 0 1{\ni4=5 2 -2 {\n p2 1 p3 1 p4 60 p5 .5}"), 0);
    EXPECT_EQ(I_NO, 4);
    EXPECT_EQ(events(), "2 1 0 60 0.5, 3 1 0 60 0.5");
}

TEST_F(Iblock, HeaderInsideTheBodyMaySkipTheBlock) {
    EXPECT_EQ(read_block("i3=3 0 1{\ni-4=5 2 -2 {\n p2 1 p3 1} rest"), -1);
    EXPECT_EQ(rest(), " rest");
}

TEST_F(Iblock, HeaderBehindABlockCommandBeginsAnew) {
    EXPECT_EQ(read_block("i3=3 0 1{ rd(.1)\ni3=3 0 1{ }"), 71);
    EXPECT_EQ(read_block("i3=3 0 1{ rd(.1)\ni3=3 0 1{ rd(.1) }"), 73);
    EXPECT_EQ(read_block("i3=3 0 1{ rd(.1)\ni3=3 0 1{ p2 1 p3 1}"), 0);
}

TEST_F(Iblock, OpenLoopOfTheBlockBeforeIsTerminatedToo) {
    EXPECT_EQ(read_block("i3=3 0 1{p2 1 p3 <1 }"), 0);
    FreeListNodes(note_list);
    EXPECT_EQ(read_block("i3=3 0 1{p2 1 p3 1 }"), 0);
    EXPECT_EQ(messages(),
              "\n\nWARNING: Line 1:Previous loop terminated.\ni3=3 0 1{p2 1 p3 1 }\n         ^\n");
}

}  // namespace
}  // namespace vorn::test
